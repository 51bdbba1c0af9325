// kavena play: lets a song be heard.
#pragma once

#include "cli/command.h"

#include <QCoreApplication>

class PlayCommand : public Command
{
    Q_DECLARE_TR_FUNCTIONS(PlayCommand)

public:
    using Command::Command;

    ExitStatus run() override;
};
