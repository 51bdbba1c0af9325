// kavena tags: the texts of MP3 files in the player's form.
#pragma once

#include "cli/command.h"
#include "cli/commandhistory.h"
#include "formats/mp3preparation.h"
#include "storage/leftovers.h"

class TagsCommand : public Command
{
    Q_DECLARE_TR_FUNCTIONS(TagsCommand)

public:
    using Command::Command;

    ExitStatus run() override;

private:
    bool keepNext(const QStringList &songs, qsizetype place);
    void prepare(const QString &path);
    bool write(const Mp3Preparation &preparation);

    CommandHistory m_history{m_request, m_terminal};
    bool m_isRefused = false; ///< there is no history, and the user does not go on without
    Leftovers m_leftovers;
};
