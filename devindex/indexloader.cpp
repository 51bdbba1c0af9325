#include "devindex/indexloader.h"

#include "devindex/devicetext.h"
#include "devindex/indexfiles.h"
#include "devindex/indexrecords.h"
#include "storage/recordfile.h"

#include <QFileInfo>
#include <QStringBuilder>

#include <algorithm>

IndexLoader::IndexLoader(const QString &root, QList<SongInfoIndex> &entries)
    : m_root(root)
    , m_entries(entries)
{
    m_entries.clear();
}

bool IndexLoader::load()
{
    return loadPaths() && loadTitles() && loadGroups(indexfiles::artist, &SongInfoIndex::artist) &&
           loadGroups(indexfiles::genre, &SongInfoIndex::genre);
}

bool IndexLoader::loadPathsAlone()
{
    QByteArray order;
    if (loadPaths() && read(indexfiles::order, OrderValue::size, SongInfoIndex::maxSongs, order) &&
        order.size() / OrderValue::size == m_entries.size())
        return true;
    m_entries.clear();
    return false;
}

bool IndexLoader::areFilesThere(const QString &root)
{
    return std::all_of(indexfiles::all.begin(), indexfiles::all.end(), [&root](QLatin1String name) {
        return QFileInfo(root % QLatin1Char('/') % name).isFile();
    });
}

bool IndexLoader::isDamaged(const QString &root)
{
    QList<SongInfoIndex> songs;
    return areFilesThere(root) && !IndexLoader(root, songs).load();
}

bool IndexLoader::loadPaths()
{
    QByteArray bytes;
    if (!read(indexfiles::path, PathRecord::size, SongInfoIndex::maxSongs, bytes))
        return false;
    m_entries.reserve(bytes.size() / PathRecord::size);
    for (qsizetype pos = 0; pos < bytes.size(); pos += PathRecord::size) {
        const PathRecord record = PathRecord::decode(bytes.constData() + pos);
        // Ids and record numbers grow together; the look-up of songs by id relies on it.
        const bool ascending = m_entries.isEmpty() || record.id > m_entries.constLast().id;
        if (!ascending || record.id == SongInfoIndex::removedId)
            return false;
        SongInfoIndex entry;
        entry.id = record.id;
        entry.path = record.path;
        entry.fullPath = m_root % record.path;
        entry.date = record.date;
        entry.time = record.time;
        entry.posidx = static_cast<quint16>(m_entries.size());
        m_entries.append(std::move(entry));
    }
    return true;
}

bool IndexLoader::loadTitles()
{
    QByteArray bytes;
    if (!read(indexfiles::title, SongRecord::size, SongInfoIndex::maxSongs, bytes))
        return false;
    for (qsizetype pos = 0; pos < bytes.size(); pos += SongRecord::size) {
        SongRecord record = SongRecord::decode(bytes.constData() + pos);
        SongInfoIndex *const entry = entryOf(record.id);
        if (entry == nullptr)
            return false;
        entry->title = stringToUpper(std::move(record.title)).trimmed();
        entry->bpm = record.bpm;
        entry->fileType = record.fileType;
        entry->hasMarkers = record.hasMarkers ? 1 : 0;
    }
    return true;
}

bool IndexLoader::loadGroups(QLatin1String name, QString SongInfoIndex::*text)
{
    QByteArray bytes;
    constexpr int maxRecords = 2 * SongInfoIndex::maxSongs; // at most one header for each song
    if (!read(name, SongRecord::size, maxRecords, bytes))
        return false;
    QString groupText;
    for (qsizetype pos = 0; pos < bytes.size(); pos += SongRecord::size) {
        const char *const record = bytes.constData() + pos;
        if (GroupHeader::isHeader(record)) {
            groupText = stringToUpper(GroupHeader::decode(record).text).trimmed();
            continue;
        }
        SongInfoIndex *const entry = entryOf(SongRecord::idOf(record));
        if (entry == nullptr)
            return false;
        entry->*text = groupText;
    }
    return true;
}

bool IndexLoader::read(QLatin1String name, int recordSize, int maxRecords, QByteArray &bytes) const
{
    return readRecords(m_root + QLatin1Char('/') + name, recordSize, maxRecords, bytes);
}

SongInfoIndex *IndexLoader::entryOf(quint32 id)
{
    // On a memory from which no song was ever removed the ids are the places.
    const auto place = static_cast<qsizetype>(id);
    if (place < m_entries.size() && m_entries.at(place).id == id)
        return &m_entries[place];
    SongInfoIndex wanted;
    wanted.id = id;
    const auto found = std::lower_bound(m_entries.begin(), m_entries.end(), wanted, compareById);
    return found != m_entries.end() && found->id == id ? &*found : nullptr;
}
