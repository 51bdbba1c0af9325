// kavena sync: songs get what the catalogue knows about them.
#pragma once

#include "cli/command.h"
#include "library/answer.h"
#include "storage/leftovers.h"

class CatalogueMerge;
class SongUpdate;

class SyncCommand : public Command
{
    Q_DECLARE_TR_FUNCTIONS(SyncCommand)

public:
    using Command::Command;

    ExitStatus run() override;

private:
    bool backUp(const QStringList &songs);
    void sync(const QString &path, const CatalogueMerge &catalogue);
    void save(const QString &path, SongUpdate &update);

    RememberedAnswer m_changeUnsigned;
    Leftovers m_leftovers;
};
