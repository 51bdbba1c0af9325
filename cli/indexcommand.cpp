#include "cli/indexcommand.h"

#include "cli/songpaths.h"
#include "devindex/index.h"
#include "devindex/indexloader.h"
#include "devindex/memorycheck.h"
#include "devindex/songchanges.h"
#include "storage/folderid.h"
#include "storage/memorylock.h"

ExitStatus IndexCommand::run()
{
    const std::optional<QString> root = SongPaths::memory(m_request.paths.constFirst(), m_terminal);
    if (!root)
        return ExitStatus::NothingDone;
    return m_request.command == Request::Command::IndexCheck ? check(*root) : build(*root);
}

ExitStatus IndexCommand::check(const QString &root)
{
    // What another program has half written would look damaged. A memory that cannot be locked
    // cannot be written to either.
    MemoryLock lock(root);
    if (!lock.take() && lock.isHeldByOther())
        return m_terminal.refuse(root, lock.message());
    const FolderId before = folderIdOf(root);
    const QList<MemoryCheck::Finding> findings =
        MemoryCheck(root).run([this] { return m_terminal.isStopped(); });
    if (m_terminal.isStopped())
        return m_terminal.status(); // what was found so far may not be all
    if (before.isEmpty() || folderIdOf(root) != before)
        return m_terminal.refuse(root, SongPaths::memoryHasGone());
    for (const MemoryCheck::Finding &finding : findings)
        m_writer.finding(finding);
    if (findings.isEmpty())
        return ExitStatus::Done;
    m_terminal.note(tr("%1: la memoria non è in ordine").arg(root));
    return ExitStatus::WithFailures;
}

ExitStatus IndexCommand::build(const QString &root)
{
    if (!SongPaths::mayChange(root, m_request, m_terminal))
        return ExitStatus::NothingDone;
    MemoryLock lock(root);
    if (!lock.take())
        return m_terminal.refuse(root, lock.message());

    Index index;
    const auto progress = m_terminal.openProgress({}, tr("Aggiornamento database"), 0);
    index.setRenameQuestion([this](const QString &path, const QString &message) {
        return m_terminal.ask(path, message, "--rename", m_request.rename);
    });
    index.setStopQuestion([this] { return m_terminal.isStopped(); });
    const auto setValue = [&progress](int value) { progress->setValue(value); };
    QObject::connect(&index, &Index::fileFoundChanged, &index, setValue);
    QObject::connect(&index, &Index::progressValueChanged, &index, setValue);
    QObject::connect(&index, &Index::progressMaxSetup, &index,
                     [&progress](int maximum) { progress->setMaximum(maximum); });
    QObject::connect(&index, &Index::errorFromIndex, &index,
                     [this](const QString &message) { m_terminal.fail(message); });
    QObject::connect(&index, &Index::leftOut, &index,
                     [this](const QString &message) { m_terminal.fail(message); });
    const bool isWhole = m_request.command == Request::Command::IndexUpdate
                             ? index.updateIndex(root)
                             : index.createIndex(root);
    lock.release();
    if (isWhole)
        m_terminal.countDone();
    else if (m_terminal.isStopped())
        return stopped(root, index);
    else
        m_terminal.fail(root, IndexLoader::isDamaged(root) ? SongChanges::damagedText()
                              : index.filesFound == 0
                                  ? tr("Nessuna song nella memoria")
                                  : QCoreApplication::translate(
                                        "IndexDialog",
                                        "Operazione non riuscita.\n"
                                        "Assicurarsi che il disco abbia sufficiente spazio libero "
                                        "e che non sia protetto da scrittura."));
    return m_terminal.status();
}

/** The songs are as they were; what the player finds may have changed. */
ExitStatus IndexCommand::stopped(const QString &root, const Index &index)
{
    if (!index.checkIndexFile())
        m_terminal.fail(root, tr("La memoria non ha un database completo: aggiornarlo prima di "
                                 "usarla"));
    return m_terminal.status();
}
