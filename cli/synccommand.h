// kavena sync: songs get what the catalogue knows about them.
#pragma once

#include "cli/command.h"
#include "cli/commandhistory.h"
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
    bool goesOnWith(const CatalogueMerge &catalogue);
    bool backUp(const QStringList &songs);
    bool keepNext(const QStringList &songs, qsizetype place, const CatalogueMerge &catalogue);
    void sync(const QString &path, const CatalogueMerge &catalogue);
    void save(const QString &path, SongUpdate &update);

    CommandHistory m_history{m_request, m_terminal};
    bool m_isRefused = false; ///< there is no history, and the user does not go on without
    RememberedAnswer m_changeUnsigned;
    Leftovers m_leftovers;
};
