#include "devindex/songadder.h"

#include "devindex/devicetext.h"
#include "devindex/entrymatcher.h"
#include "devindex/indexrecords.h"
#include "devindex/pathorder.h"

SongAdder::SongAdder(IndexState &state, IndexObserver &observer)
    : m_state(state)
    , m_observer(observer)
{
}

void SongAdder::addAll(const QList<FoundSong> &songs)
{
    entrymatcher::nameUnclearEntries(m_state.entries, songs, m_state.rootPath.size());
    PathOrder order(m_state.entries);
    for (const FoundSong &song : songs)
        addTo(order, song);
    order.apply();
}

bool SongAdder::add(const FoundSong &song)
{
    SortedEntries order(m_state.entries);
    return addTo(order, song);
}

std::optional<FileStamp> SongAdder::stampOf(const SongInfoIndex &entry) const
{
    if (entry.posidx >= m_seen.size() || m_seen[entry.posidx].id != entry.id)
        return std::nullopt;
    return m_seen[entry.posidx].stamp;
}

template <typename Order>
bool SongAdder::addTo(Order &order, const FoundSong &song)
{
    QString path;
    if (!pathOnMemory(song.path, path))
        return false;

    const QByteArray key = pathSortKey(path);
    const qsizetype place = placeBehind(order, key, m_expectedPlace);
    // Different characters may share a key, so that the song can be anywhere among equal ones. They
    // stand as they were found, and are gone through in that order.
    qsizetype same = place;
    while (same > 0 && order.keyAt(same - 1) == key)
        --same;
    m_expectedPlace = place + 1;
    for (; same < place; ++same) {
        SongInfoIndex &entry = order.entryAt(same);
        if (!isIndexedAs(entry, path, song.path))
            continue;
        if (entry.path == path)
            see(entry, song.stamp); // otherwise another file was reported
        return true;
    }
    if (!hasRoomFor(song.path))
        return false;

    SongInfoIndex entry;
    entry.fullPath = song.path;
    entry.path = path;
    entry.id = m_state.nextId++;
    entry.posidx = m_state.nextPosidx++;
    entry.date = song.stamp ? song.stamp->date : 0;
    entry.time = song.stamp ? song.stamp->time : 0;
    see(entry, song.stamp);
    order.insert(place, entry, key);
    m_state.indexChanged = 1;
    return true;
}

bool SongAdder::pathOnMemory(const QString &fullPath, QString &path)
{
    path = fullPath.mid(m_state.rootPath.size());
    if (!path.startsWith(QLatin1Char('/'))) {
        m_observer.tellError(tr("File non importato, errore nel path:") + fullPath);
        return false;
    }
    if (path.size() > PathRecord::maxPathLength) {
        m_observer.tellError(tr("File non importato, path troppo lungo: ") + fullPath);
        return false;
    }
    return true;
}

/** True when the entry is the song of this path, and for a second file of its name: see match. */
bool SongAdder::isIndexedAs(SongInfoIndex &entry, const QString &path, const QString &fullPath)
{
    const entrymatcher::Match found = entrymatcher::match(entry, path, fullPath);
    if (found == entrymatcher::Match::NewSpelling)
        m_state.indexChanged = 1;
    if (found == entrymatcher::Match::OtherFile)
        m_observer.tellError(
            tr("File non importato, il nome differisce da un altro solo per le maiuscole: ") +
            fullPath);
    return found != entrymatcher::Match::None;
}

bool SongAdder::hasRoomFor(const QString &fullPath)
{
    if (m_state.entries.size() < SongInfoIndex::maxSongs &&
        m_state.nextId != SongInfoIndex::removedId)
        return true;
    m_observer.tellError(tr("File non importato, troppi file nella memoria: ") + fullPath);
    return false;
}

void SongAdder::see(const SongInfoIndex &entry, const std::optional<FileStamp> &stamp)
{
    if (entry.posidx >= m_seen.size())
        m_seen.resize(std::size_t(entry.posidx) + 1);
    m_seen[entry.posidx] = {entry.id, stamp};
}
