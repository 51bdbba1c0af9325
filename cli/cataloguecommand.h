// kavena catalogue: what the catalogues know, and the user's own one.
#pragma once

#include "cli/command.h"
#include "library/owncatalogue.h"

#include <optional>

class CatalogueCommand : public Command
{
    Q_DECLARE_TR_FUNCTIONS(CatalogueCommand)

public:
    using Command::Command;

    ExitStatus run() override;

private:
    ExitStatus find();
    ExitStatus add();
    ExitStatus exportTsv();
    ExitStatus importTsv();
    ExitStatus put(const QList<SongsDbRecord> &entries);
    std::optional<QString> file();

    OwnCatalogue m_own;
};
