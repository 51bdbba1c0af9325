// kavena transfer: songs go onto a memory.
#pragma once

#include "cli/command.h"

class TransferCommand : public Command
{
    Q_DECLARE_TR_FUNCTIONS(TransferCommand)

public:
    using Command::Command;

    ExitStatus run() override;
};
