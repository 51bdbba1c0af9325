#include "devindex/memoryscan.h"

#include "devindex/folderrules.h"
#include "storage/leftovers.h"

#include <QFileInfo>
#include <QStringBuilder>

MemoryScan::MemoryScan(IndexState &state, IndexObserver &observer, ItemRenamer &renamer)
    : m_state(state)
    , m_observer(observer)
    , m_renamer(renamer)
{
}

QList<FoundSong> MemoryScan::songsIn(const QString &dir, SongTimes times)
{
    m_times = times;
    m_songs.clear();
    const QString start = QFileInfo(dir).absoluteFilePath();
    // For another folder than the root it is not known whether a link led to it.
    const bool throughLink = start.compare(m_state.rootPath, Qt::CaseInsensitive) != 0;
    scanFolder(start, true, throughLink);
    return std::move(m_songs);
}

void MemoryScan::scanFolder(const QString &dir, bool isLink, bool throughLink)
{
    // A folder's name can lead back to a folder above it only as a link.
    if (isLink && m_active.contains(folderIdOf(dir)))
        return;
    const QString folder = renamed(dir, throughLink);
    if (folder.isEmpty())
        return;
    const FolderListing listing = FolderListing::of(folder, m_times);
    tellUnread(folder, listing);
    if (listing.id.isEmpty() || m_active.contains(listing.id))
        return;
    if (throughLink) {
        // Links that lead to each other's folders have more ways through them than can be walked.
        if (m_linked.contains(listing.id))
            return;
        m_linked.insert(listing.id);
    }

    m_active.insert(listing.id);
    const QString start = folder.endsWith(QLatin1Char('/')) ? folder : folder + QLatin1Char('/');
    // What a link leads to may lie outside the memory.
    if (m_tidies && !throughLink) {
        for (const QString &name : listing.leftovers)
            Leftovers::remove(start % name);
    }
    for (const FolderItem &item : listing.items) {
        if (m_observer.wantsToStop())
            break;
        const QString path = start % item.name;
        if (!item.isFolder)
            scanFile(path, item, throughLink);
        else if (!isPlayerFolder(item.name) && !isSystemFolder(item.name))
            scanFolder(path, item.isLink, throughLink || item.isLink);
    }
    m_active.remove(listing.id);
}

void MemoryScan::tellUnread(const QString &folder, const FolderListing &listing)
{
    if (listing.isUnreadable)
        m_state.unreadFolders.append(folder.mid(m_state.rootPath.size()));
    if (!listing.isUnreadable && listing.unusableNames.isEmpty())
        return;
    // Links may lead to the same folder once more.
    const FolderId id = folderIdOf(folder);
    if (m_unread.contains(id))
        return;
    m_unread.insert(id);
    if (listing.isUnreadable && !isRepairFolder(folder.section(QLatin1Char('/'), -1)))
        m_observer.tellError(tr("Cartella non leggibile, le sue song non sono state cercate: ") +
                             folder);
    for (const QString &name : listing.unusableNames)
        m_observer.tellError(tr("Non importato, il nome non è in UTF-8: ") +
                             folder % QLatin1Char('/') % name);
}

void MemoryScan::scanFile(const QString &path, const FolderItem &file, bool throughLink)
{
    m_observer.tellCurrentPath(path);
    if (!file.isSong)
        return;
    QString song = renamed(path, throughLink);
    if (song.isEmpty())
        return;
    m_songs.append({std::move(song), file.stamp});
    ++m_state.filesFound;
    m_observer.tellFilesFound(static_cast<int>(m_state.filesFound));
}

/** Behind a link the item may lie outside the memory, where it keeps its name. */
QString MemoryScan::renamed(const QString &path, bool throughLink)
{
    return throughLink ? m_renamer.renameLong(path) : m_renamer.renameLongInside(path);
}
