#include "devindex/indexbuild.h"

#include "devindex/devicetext.h"
#include "devindex/filestamp.h"
#include "devindex/indexfiles.h"
#include "devindex/indexwriter.h"
#include "devindex/pathorder.h"
#include "devindex/playlistkeeper.h"
#include "devindex/songadder.h"
#include "devindex/songhead.h"
#include "storage/safefile.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>

namespace
{

/** False for a path that no scan can have given: the file would lie outside the memory. */
bool isMemoryPath(const QString &path)
{
    return path.startsWith(QLatin1Char('/')) && path.size() <= PathRecord::maxPathLength &&
           !path.contains(QLatin1String("/../")) && !path.endsWith(QLatin1String("/.."));
}

/** Removes a file; true when it is not there any more. */
bool removeFile(const QString &path)
{
    return QFile::remove(path) || !QFileInfo::exists(path);
}

} // namespace

IndexBuild::IndexBuild(IndexState &state, IndexObserver &observer)
    : m_state(state)
    , m_observer(observer)
{
}

void IndexBuild::refreshEntries(const SongAdder *scanned)
{
    int step = 0;
    for (SongInfoIndex &entry : m_state.entries) {
        if (m_observer.wantsToStop())
            break;
        m_observer.tellCurrentPath(entry.fullPath);
        refresh(entry, scanned);
        m_observer.tellProgress(++step);
    }
    m_observer.tellCurrentPath(QString());
    m_texts.clear();
}

void IndexBuild::refresh(SongInfoIndex &entry, const SongAdder *scanned)
{
    if (m_state.maxLoadedId == IndexState::noIdLoaded || entry.id > m_state.maxLoadedId) {
        readNew(entry);
        m_state.indexChanged = 1;
        return;
    }
    std::optional<FileStamp> stamp = scanned == nullptr ? std::nullopt : scanned->stampOf(entry);
    if (!stamp)
        stamp = FileStamp::of(entry.fullPath);
    if (isMemoryPath(entry.path) && !stamp && isHidden(entry))
        return;
    if (!isMemoryPath(entry.path) || !stamp) {
        entry.id = SongInfoIndex::removedId;
        m_state.indexChanged = 1;
        return;
    }
    if (stamp->date == entry.date && stamp->time == entry.time)
        return;
    readSong(entry);
    entry.date = stamp->date;
    entry.time = stamp->time;
    m_state.indexChanged = 1;
}

/** True when the song may still lie in a folder that could not be read. */
bool IndexBuild::isHidden(const SongInfoIndex &entry) const
{
    return std::any_of(
        m_state.unreadFolders.cbegin(), m_state.unreadFolders.cend(),
        [&entry](const QString &folder) { return isBelowFolder(entry.path, folder); });
}

void IndexBuild::readNew(SongInfoIndex &entry)
{
    std::optional<FileStamp> stamp = readSong(entry);
    // The scan has just seen the file. Only one that cannot be read is looked for again.
    if (!stamp)
        stamp = FileStamp::of(entry.fullPath);
    if (!stamp) {
        m_observer.tellError(tr("File non importato, non può essere letto: ") + entry.fullPath);
        entry.id = SongInfoIndex::removedId;
        return;
    }
    entry.date = stamp->date;
    entry.time = stamp->time;
}

/**
 * Reads what the index shows of a song whose file is known to be a regular one, and the time of
 * the file; nothing, and the defaults are shown, when it cannot be read.
 */
std::optional<FileStamp> IndexBuild::readSong(SongInfoIndex &entry)
{
    const SongHead head = songHeadOf(entry.fullPath, m_head);
    readSongHead(head.bytes, entry.fullPath, entry);
    entry.artist = *m_texts.insert(entry.artist);
    entry.genre = *m_texts.insert(entry.genre);
    return head.stamp;
}

/**
 * Order of the flushes: the folder once the old counts are gone; each file; the folder; the new
 * counts, before and after they get their name; the folder again.
 */
bool IndexBuild::write()
{
    if (!m_state.isMemoryThere() || !removeCounts() || !removeLinks() || !writeOrder() ||
        !restorePlaylists())
        return false;
    const BuildOrders orders(m_state.entries);
    if (indexwriter::writePaths(m_state.filePath(indexfiles::path), orders.byNumber()) < 0)
        return false;
    m_observer.tellProgress(20);
    if (!writeSongFiles(orders))
        return false;
    // The other files are on the medium by name, too, before the counts make them an index.
    if (!flushFolderOf(m_state.filePath(indexfiles::count)) || !m_state.isMemoryThere() ||
        writeCounts() < 0)
        return false;
    m_observer.tellProgress(100);
    return true;
}

bool IndexBuild::writeSongFiles(const BuildOrders &orders)
{
    struct SongFile {
        EntryList (BuildOrders::*order)() const;
        QString SongInfoIndex::*groups; ///< null for a file without groups
        QLatin1String name;
        QLatin1String alphaName;
        int progress;
    };
    using namespace indexfiles;
    constexpr QString SongInfoIndex::*artistOf = &SongInfoIndex::artist;
    constexpr QString SongInfoIndex::*genreOf = &SongInfoIndex::genre;
    constexpr std::array songFiles{
        SongFile{&BuildOrders::byTitle, nullptr, title, alphaTitle, 30},
        SongFile{&BuildOrders::byArtist, artistOf, artist, alphaArtist, 40},
        SongFile{&BuildOrders::byGenre, genreOf, genre, alphaGenre, 50},
        SongFile{&BuildOrders::mp3ByTitle, nullptr, mp3Title, alphaMp3Title, 70},
        SongFile{&BuildOrders::mp3ByArtist, artistOf, mp3Artist, alphaMp3Artist, 80},
        SongFile{&BuildOrders::mp3ByGenre, genreOf, mp3Genre, alphaMp3Genre, 90}};
    constexpr std::size_t firstMp3File = 3;

    for (std::size_t i = 0; i < songFiles.size(); ++i) {
        if (i == firstMp3File)
            m_observer.tellProgress(60);
        const SongFile &file = songFiles.at(i);
        const EntryList songs = (orders.*file.order)();
        const QString path = m_state.filePath(file.name);
        if (!m_state.isMemoryThere())
            return false;
        AlphaTable &alpha = m_state.alphaBuffer;
        alpha.clear();
        const int count = file.groups == nullptr
                              ? indexwriter::writeTitles(path, songs, alpha)
                              : indexwriter::writeGroups(path, songs, file.groups, alpha);
        if (count < 0 || !writeAlpha(file.alphaName))
            return false;
        m_state.counts.values.at(i) = static_cast<quint32>(count);
        m_observer.tellProgress(file.progress);
    }
    return true;
}

bool IndexBuild::removeCounts() const
{
    const auto remove = [this](QLatin1String name) {
        const QString path = m_state.filePath(name);
        return removeFile(path) && flushFolderOf(path);
    };
    return remove(indexfiles::count) && (m_state.restorePlaylists == 0 || remove(indexfiles::path));
}

/** Writing through a link would change a file outside the memory. */
bool IndexBuild::removeLinks() const
{
    const auto isNoLink = [this](QLatin1String name) {
        const QString path = m_state.filePath(name);
        return !QFileInfo(path).isSymLink() || QFile::remove(path);
    };
    return std::all_of(indexfiles::all.begin(), indexfiles::all.end(), isNoLink) &&
           isNoLink(indexfiles::unfinishedCount);
}

bool IndexBuild::writeOrder() const
{
    PathOrder(m_state.entries).apply();
    return indexwriter::writeOrder(m_state.filePath(indexfiles::order), listOf(m_state.entries)) >=
           0;
}

bool IndexBuild::restorePlaylists()
{
    return m_state.restorePlaylists == 0 ||
           PlaylistKeeper(m_state.rootPath).restoreIds(m_state.playlistNumbers, m_state.entries) !=
               PlaylistFiles::Outcome::Failed;
}

bool IndexBuild::writeAlpha(QLatin1String name) const
{
    return indexwriter::writeAlpha(m_state.filePath(name), m_state.alphaBuffer) >= 0;
}

int IndexBuild::writeCounts() const
{
    QFile unfinished(m_state.filePath(indexfiles::unfinishedCount));
    if (indexwriter::writeCounts(unfinished.fileName(), m_state.counts) == 0 &&
        replaceOnMedium(unfinished, m_state.filePath(indexfiles::count)))
        return 0;
    unfinished.remove();
    return -1;
}
