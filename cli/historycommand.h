// kavena history: the jobs that changed songs. kavena undo: takes one of them back.
#pragma once

#include "cli/command.h"
#include "cli/commandhistory.h"

#include <QList>

class HistoryCommand : public Command
{
    Q_DECLARE_TR_FUNCTIONS(HistoryCommand)

public:
    explicit HistoryCommand(const CommandContext &context)
        : Command(context)
        , m_history(m_request, m_terminal)
    {
    }

    ExitStatus run() override;

private:
    ExitStatus list();
    ExitStatus takeBack();
    std::optional<QList<HistorySong>> chosenSongs(const HistoryJob &job);

    CommandHistory m_history;
};
