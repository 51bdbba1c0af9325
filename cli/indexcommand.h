// kavena index: the player's index is updated, rebuilt or checked.
#pragma once

#include "cli/command.h"

class Index;

class IndexCommand : public Command
{
    Q_DECLARE_TR_FUNCTIONS(IndexCommand)

public:
    using Command::Command;

    ExitStatus run() override;

private:
    ExitStatus check(const QString &root);
    ExitStatus build(const QString &root);
    ExitStatus stopped(const QString &root, const Index &index);
};
