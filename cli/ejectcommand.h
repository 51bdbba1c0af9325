// kavena eject: a memory is made ready to be unplugged.
#pragma once

#include "cli/command.h"

class EjectCommand : public Command
{
public:
    using Command::Command;

    ExitStatus run() override;
};
