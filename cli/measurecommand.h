// kavena measure: length, tempo and key from the music.
#pragma once

#include "cli/command.h"
#include "cli/commandhistory.h"
#include "formats/metasong.h"
#include "storage/leftovers.h"

class MeasureCommand : public Command
{
    Q_DECLARE_TR_FUNCTIONS(MeasureCommand)

public:
    using Command::Command;

    ExitStatus run() override;

private:
    bool keepNext(const QStringList &songs, qsizetype place);
    void measure(const QString &path);
    bool fill(MetaSong &song, const QString &path, const SongInfo &before, const SongInfo &wanted);
    void tellFailure(const QString &path, const QString &reason);

    CommandHistory m_history{m_request, m_terminal};
    bool m_isRefused = false; ///< there is no history, and the user does not go on without
    Leftovers m_leftovers;
};
