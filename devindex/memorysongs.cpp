#include "devindex/memorysongs.h"

#include "devindex/devicetext.h"
#include "devindex/entrymatcher.h"
#include "devindex/folderlisting.h"
#include "devindex/folderrules.h"
#include "devindex/foundsong.h"
#include "devindex/indexfiles.h"
#include "devindex/indexloader.h"
#include "devindex/indexrecords.h"
#include "devindex/songhead.h"
#include "library/companion.h"

#include <QFileInfo>
#include <QHash>
#include <QSet>
#include <QStringBuilder>

#include <algorithm>

namespace
{

const QChar folderSlash = QLatin1Char('/');

/** Between two questions whether to stop. */
constexpr qsizetype songsPerStep = 256;

/** What the player shows for an artist or genre that it does not find. */
constexpr QLatin1String shownUnknown("<unknown>");

QString fileNameIn(const QString &path)
{
    return path.section(folderSlash, -1);
}

/** A title as it comes back from an index file. */
QString titleAsLoaded(const QString &title)
{
    SongRecord record;
    record.title = title;
    return stringToUpper(SongRecord::decode(record.encode().data()).title).trimmed();
}

bool isOnlyName(const SongInfoIndex &song)
{
    const auto isUnknown = [](const QString &text) {
        return text.compare(shownUnknown, Qt::CaseInsensitive) == 0;
    };
    return isUnknown(song.artist) && isUnknown(song.genre) &&
           titleAsLoaded(song.title) == titleAsLoaded(stringToUpper(fileNameIn(song.path)));
}

/** The songs in the folders that an update of the index looks into. */
class SongWalk
{
public:
    SongWalk(const QString &root, QList<MemorySong> &songs, QStringList &unreadable,
             Progress &progress)
        : m_root(root)
        , m_songs(songs)
        , m_unreadable(unreadable)
        , m_progress(progress)
    {
    }

    /** False when the user stopped it. */
    bool run()
    {
        enter(m_root, false, false);
        return !m_stopped;
    }

private:
    void enter(const QString &folder, bool isLink, bool behindLink)
    {
        m_stopped = m_stopped || m_progress.wasCanceled();
        // A folder's name can lead back to a folder above it only as a link.
        if (m_stopped || (isLink && m_active.contains(folderIdOf(folder))))
            return;
        const FolderListing listing = FolderListing::of(folder);
        if (listing.id.isEmpty() || listing.isUnreadable)
            m_unreadable.append(folder.mid(m_root.size()));
        if (listing.id.isEmpty())
            return;
        if (m_active.contains(listing.id) || (behindLink && m_linked.contains(listing.id)))
            return;
        if (behindLink)
            m_linked.insert(listing.id);
        m_active.insert(listing.id);
        addSongs(folder, listing, behindLink);
        for (const FolderItem &item : listing.items) {
            if (item.isFolder && !isPlayerFolder(item.name) && !isSystemFolder(item.name))
                enter(folder % folderSlash % item.name, item.isLink, behindLink || item.isLink);
        }
        m_active.remove(listing.id);
        m_progress.setValue(static_cast<int>(m_songs.size()));
    }

    void addSongs(const QString &folder, const FolderListing &listing, bool behindLink)
    {
        QSet<QString> pictures;
        for (const FolderItem &item : listing.items) {
            if (!item.isFolder && item.name.endsWith(QLatin1String(".cdg"), Qt::CaseInsensitive))
                pictures.insert(item.name);
        }
        for (const FolderItem &item : listing.items) {
            if (!item.stamp)
                continue;
            MemorySong song;
            song.info.fullPath = folder % folderSlash % item.name;
            song.info.path = song.info.fullPath.mid(m_root.size());
            song.info.date = item.stamp->date;
            song.info.time = item.stamp->time;
            song.size = item.size;
            song.isBehindLink = behindLink || item.isLink;
            song.state = MemorySong::State::NotIndexed;
            if (!pictures.isEmpty())
                song.companion = companionAmong(pictures, item.name);
            m_songs.append(std::move(song));
        }
    }

    static QString companionAmong(const QSet<QString> &pictures, const QString &name)
    {
        const QStringList candidates = companionPaths(name);
        const auto found =
            std::find_if(candidates.cbegin(), candidates.cend(),
                         [&pictures](const QString &path) { return pictures.contains(path); });
        return found == candidates.cend() ? QString() : *found;
    }

    const QString m_root;
    QList<MemorySong> &m_songs;
    QStringList &m_unreadable;
    Progress &m_progress;
    QSet<FolderId> m_active; ///< folders that are being walked through
    QSet<FolderId> m_linked; ///< folders that were entered through a symbolic link
    bool m_stopped = false;
};

} // namespace

bool isAsListed(const MemorySong &song)
{
    const auto stamp = FileStamp::of(song.info.fullPath);
    return stamp && stamp->date == song.info.date && stamp->time == song.info.time &&
           QFileInfo(song.info.fullPath).size() == song.size;
}

MemorySongs::MemorySongs(const QString &root)
    : m_root(root.size() > 1 && root.endsWith(folderSlash) ? root.chopped(1) : root)
{
}

MemorySongs::Outcome MemorySongs::read(Progress &progress)
{
    m_songs.clear();
    m_unreadable.clear();
    const FolderId memory = folderIdOf(m_root);
    if (memory.isEmpty())
        return Outcome::NoMemory;
    const QList<SongInfoIndex> entries = readIndex();
    const bool toTheEnd = SongWalk(m_root, m_songs, m_unreadable, progress).run();
    if (toTheEnd)
        compare(entries, progress);
    const bool isThere = folderIdOf(m_root) == memory && !m_unreadable.contains(QString());
    if (toTheEnd && isThere && !progress.wasCanceled())
        return Outcome::Done;
    m_songs.clear();
    m_indexState = IndexState::Absent;
    return isThere ? Outcome::Stopped : Outcome::NoMemory;
}

int MemorySongs::count(MemorySong::State state) const
{
    return static_cast<int>(
        std::count_if(m_songs.cbegin(), m_songs.cend(),
                      [state](const MemorySong &song) { return song.state == state; }));
}

QList<SongInfoIndex> MemorySongs::readIndex()
{
    QList<SongInfoIndex> entries;
    m_indexState = IndexState::Absent;
    m_indexTime = {};
    if (!IndexLoader::areFilesThere(m_root))
        return entries;
    m_indexTime = QFileInfo(m_root % folderSlash % indexfiles::count).lastModified();
    m_indexState = IndexLoader(m_root, entries).load() ? IndexState::Whole : IndexState::Damaged;
    if (m_indexState == IndexState::Damaged)
        entries.clear();
    return entries;
}

/** Gives each song its entry: by its path as it stands, else by how the player compares paths. */
void MemorySongs::compare(const QList<SongInfoIndex> &loaded, const Progress &progress)
{
    QList<SongInfoIndex> entries = loaded;
    QList<FoundSong> found;
    found.reserve(m_songs.size());
    for (const MemorySong &song : std::as_const(m_songs))
        found.append({song.info.fullPath, FileStamp{song.info.date, song.info.time}});
    entrymatcher::nameUnclearEntries(entries, found, m_root.size());

    QHash<QString, qsizetype> places;
    places.reserve(entries.size());
    QList<bool> isTaken(entries.size(), false);
    for (qsizetype place = 0; place < entries.size(); ++place) {
        // An index that lists a file twice shows one song: the other entry is no missing file.
        if (places.contains(entries.at(place).path))
            isTaken[place] = true;
        else
            places.insert(entries.at(place).path, place);
    }
    QList<MemorySong *> left;
    for (MemorySong &song : m_songs) {
        const auto place = places.constFind(song.info.path);
        if (place == places.constEnd()) {
            left.append(&song);
            continue;
        }
        isTaken[*place] = true;
        take(song, entries.at(*place));
    }

    QHash<QByteArray, qsizetype> placesByKey;
    for (qsizetype place = 0; place < entries.size() && !left.isEmpty(); ++place) {
        if (!isTaken.at(place))
            placesByKey.insert(pathSortKey(entries.at(place).path), place);
    }
    for (MemorySong *const song : std::as_const(left)) {
        const auto place = placesByKey.constFind(pathSortKey(song->info.path));
        if (place == placesByKey.constEnd())
            continue;
        isTaken[*place] = true;
        take(*song, entries.at(*place));
        placesByKey.erase(place);
    }

    SongHeadBuffer buffer{};
    qsizetype step = 0;
    for (MemorySong &song : m_songs) {
        if (++step % songsPerStep == 0 && progress.wasCanceled())
            return;
        if (song.state != MemorySong::State::Indexed)
            readSongHead(songHeadOf(song.info.fullPath, buffer).bytes, song.info.fullPath,
                         song.info);
        song.showsOnlyName = isOnlyName(song.info);
    }
    for (qsizetype place = 0; place < entries.size(); ++place) {
        if (!isTaken.at(place))
            addMissing(entries.at(place));
    }
}

/** The song is the one of this entry. */
void MemorySongs::take(MemorySong &song, const SongInfoIndex &entry) const
{
    const bool isSame = song.info.date == entry.date && song.info.time == entry.time;
    song.state = isSame ? MemorySong::State::Indexed : MemorySong::State::Changed;
    const SongInfoIndex file = song.info;
    song.info = entry;
    song.info.path = file.path;
    song.info.fullPath = file.fullPath;
    song.info.date = file.date;
    song.info.time = file.time;
}

void MemorySongs::addMissing(const SongInfoIndex &entry)
{
    const bool isHidden =
        std::any_of(m_unreadable.cbegin(), m_unreadable.cend(),
                    [&entry](const QString &folder) { return isBelowFolder(entry.path, folder); });
    MemorySong song;
    song.info = entry;
    song.info.fullPath = m_root % entry.path;
    song.state = isHidden ? MemorySong::State::Unreadable : MemorySong::State::Gone;
    song.showsOnlyName = isOnlyName(entry);
    m_songs.append(std::move(song));
}
