// kavena remove: songs are removed from a memory.
#pragma once

#include "cli/command.h"

#include <QString>
#include <QStringList>

#include <optional>

class RemoveCommand : public Command
{
    Q_DECLARE_TR_FUNCTIONS(RemoveCommand)

public:
    using Command::Command;

    ExitStatus run() override;

private:
    std::optional<QStringList> songs(const QString &root);
    bool isConfirmed(const QString &root, const QStringList &songs);
};
