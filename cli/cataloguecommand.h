// kavena catalogue find: what the catalogue knows.
#pragma once

#include "cli/command.h"

class CatalogueCommand : public Command
{
    Q_DECLARE_TR_FUNCTIONS(CatalogueCommand)

public:
    using Command::Command;

    ExitStatus run() override;
};
