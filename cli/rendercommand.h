// kavena render: writes a song's sound into a WAV file.
#pragma once

#include "cli/command.h"

#include <QCoreApplication>

class RenderCommand : public Command
{
    Q_DECLARE_TR_FUNCTIONS(RenderCommand)

public:
    using Command::Command;

    ExitStatus run() override;

private:
    bool mayWrite(const QString &wave);
};
