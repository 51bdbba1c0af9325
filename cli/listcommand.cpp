#include "cli/listcommand.h"

#include "cli/songpaths.h"
#include "devindex/entrysort.h"
#include "devindex/index.h"
#include "devindex/memoryduplicates.h"
#include "devindex/memorysongs.h"
#include "storage/folderid.h"
#include "storage/memorylock.h"

ExitStatus ListCommand::run()
{
    const std::optional<QString> root = SongPaths::memory(m_request.paths.constFirst(), m_terminal);
    if (!root)
        return ExitStatus::NothingDone;
    // What another program has half written fits together only by chance. A memory that cannot be
    // locked cannot be written to either.
    MemoryLock lock(*root);
    if (!lock.take() && lock.isHeldByOther())
        return m_terminal.refuse(*root, lock.message());
    return m_request.duplicates ? listDuplicates(*root) : listSongs(*root);
}

/** Of the songs that lie on the memory, whether or not they are in its index. */
ExitStatus ListCommand::listDuplicates(const QString &root)
{
    const FolderId before = folderIdOf(root);
    const auto hasGone = [&] { return before.isEmpty() || folderIdOf(root) != before; };
    const auto progress = m_terminal.openProgress({}, tr("Lettura della memoria"), 0);
    MemorySongs memory(root);
    switch (memory.read(*progress)) {
    case MemorySongs::Outcome::Stopped:
        m_terminal.isStopped();
        return m_terminal.status();
    case MemorySongs::Outcome::NoMemory:
        return m_terminal.refuse(root, hasGone() ? SongPaths::memoryHasGone()
                                                 : tr("La memoria non è leggibile"));
    case MemorySongs::Outcome::Done:
        break;
    }
    const QList<MemorySong> &songs = memory.songs();
    memoryduplicates::Group unread;
    const auto sameBytes = memoryduplicates::sameBytes(songs, *progress, &unread);
    if (!sameBytes) {
        m_terminal.isStopped();
        return m_terminal.status();
    }
    if (hasGone())
        return m_terminal.refuse(root, SongPaths::memoryHasGone());
    int number = 0;
    const auto write = [&](const QList<memoryduplicates::Group> &groups, Writer::Same same) {
        for (const memoryduplicates::Group &group : groups) {
            ++number;
            for (const qsizetype place : group)
                m_writer.duplicate(number, same, songs.at(place));
        }
    };
    write(*sameBytes, Writer::Same::Bytes);
    write(memoryduplicates::sameTitle(songs), Writer::Same::TitleAndArtist);
    for (const qsizetype place : std::as_const(unread))
        m_terminal.fail(songs.at(place).info.path, tr("Il file non è leggibile"));
    for (const QString &folder : memory.unreadableFolders())
        m_terminal.fail(folder, tr("La cartella non è leggibile"));
    return m_terminal.failures() > 0 ? ExitStatus::WithFailures : ExitStatus::Done;
}

ExitStatus ListCommand::listSongs(const QString &root)
{
    Index index;
    index.rootPath = root;
    if (!index.checkIndexFile())
        return m_terminal.refuse(
            root, QCoreApplication::translate(
                      "SongsListDialog",
                      "Impossibile proseguire, la memoria non è preparata per Kavena"));
    if (index.loadAllIndexFile() < 0)
        return m_terminal.refuse(root, tr("Il database della memoria è danneggiato"));
    if (m_request.sort == Index::SortByArtist)
        sortByArtist(index.entries);
    else if (m_request.sort == Index::SortByGenre)
        sortByGenre(index.entries);
    else
        sortByTitle(index.entries);
    m_writer.beginList();
    for (const SongInfoIndex &song : std::as_const(index.entries)) {
        if (m_terminal.isStopped())
            return m_terminal.status();
        m_writer.listed(song);
        m_terminal.countDone();
    }
    return ExitStatus::Done;
}
