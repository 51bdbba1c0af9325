// kavena list: the songs that the player finds on a memory.
#pragma once

#include "cli/command.h"

class ListCommand : public Command
{
    Q_DECLARE_TR_FUNCTIONS(ListCommand)

public:
    using Command::Command;

    ExitStatus run() override;

private:
    ExitStatus listSongs(const QString &root);
    ExitStatus listDuplicates(const QString &root);
};
