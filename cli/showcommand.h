// kavena show: what song files hold.
#pragma once

#include "cli/command.h"

#include <QByteArray>

class ShowCommand : public Command
{
    Q_DECLARE_TR_FUNCTIONS(ShowCommand)

public:
    using Command::Command;

    ExitStatus run() override;

private:
    void show(const QByteArray &path);
};
