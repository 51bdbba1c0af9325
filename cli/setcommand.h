// kavena set: the edit by hand.
#pragma once

#include "cli/command.h"
#include "cli/commandhistory.h"
#include "formats/songinfo.h"
#include "storage/leftovers.h"

class SetCommand : public Command
{
    Q_DECLARE_TR_FUNCTIONS(SetCommand)

public:
    using Command::Command;

    ExitStatus run() override;

private:
    bool keepNext(const QList<QByteArray> &paths, qsizetype place);
    void set(const QString &path);
    void tellCutTexts(const QString &path, const SongInfo &saved);

    CommandHistory m_history{m_request, m_terminal};
    bool m_isRefused = false; ///< there is no history, and the user does not go on without
    Leftovers m_leftovers;
};
