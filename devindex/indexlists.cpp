#include "devindex/indexlists.h"

#include "devindex/devicetext.h"
#include "devindex/indexfiles.h"
#include "devindex/indexrecords.h"
#include "storage/recordfile.h"

#include <QByteArrayView>
#include <QHash>
#include <QSet>

#include <algorithm>

namespace
{

using SongRecords = QHash<quint32, QByteArrayView>;

/** Songs and group headers. */
bool readList(const QString &root, QLatin1String name, QByteArray &bytes)
{
    return readRecords(root + QLatin1Char('/') + name, SongRecord::size,
                       2 * SongInfoIndex::maxSongs, bytes);
}

QByteArrayView recordAt(const QByteArray &bytes, qsizetype pos)
{
    return QByteArrayView(bytes).sliced(pos, SongRecord::size);
}

/** Characters that the list cannot hold stand there as "?": their order is not known. */
bool isInOrder(const QString &first, const QString &second)
{
    const QLatin1Char unknown('?');
    return first.contains(unknown) || second.contains(unknown) ||
           first.compare(second, Qt::CaseInsensitive) <= 0;
}

/** The records of the titles by id; empty unless each song has one. */
SongRecords titleRecords(const QByteArray &bytes, qsizetype songs)
{
    SongRecords records;
    QString previous;
    for (qsizetype pos = 0; pos < bytes.size(); pos += SongRecord::size) {
        const QByteArrayView record = recordAt(bytes, pos);
        const SongRecord song = SongRecord::decode(record.data());
        if (!isInOrder(previous, song.title))
            return {};
        previous = song.title;
        records.insert(song.id, record);
    }
    return records.size() == songs && bytes.size() == songs * SongRecord::size ? records
                                                                               : SongRecords();
}

bool groupsAgree(const QString &root, QLatin1String name, const SongRecords &titles)
{
    QByteArray bytes;
    if (!readList(root, name, bytes))
        return false;
    QSet<quint32> seen;
    QString group;
    QString title;
    int left = 0;
    for (qsizetype pos = 0; pos < bytes.size(); pos += SongRecord::size) {
        const QByteArrayView record = recordAt(bytes, pos);
        if (GroupHeader::isHeader(record.data())) {
            const GroupHeader header = GroupHeader::decode(record.data());
            if (left != 0 || header.count == 0 || !isInOrder(group, header.text))
                return false;
            group = header.text;
            title.clear();
            left = header.count;
            continue;
        }
        const SongRecord song = SongRecord::decode(record.data());
        if (--left < 0 || seen.contains(song.id) || titles.value(song.id) != record ||
            !isInOrder(title, song.title))
            return false;
        title = song.title;
        seen.insert(song.id);
    }
    return left == 0 && seen.size() == titles.size();
}

/** The places of the entries whose file another entry before them has. */
QList<qsizetype> doubles(const QList<SongInfoIndex> &entries)
{
    QList<qsizetype> places;
    QSet<QByteArray> paths;
    for (qsizetype place = 0; place < entries.size(); ++place) {
        const QByteArray key = pathSortKey(entries.at(place).path);
        // Two files whose names differ only in characters that the index cannot hold look alike.
        if (paths.contains(key) && !key.contains('?'))
            places.append(place);
        paths.insert(key);
    }
    return places;
}

} // namespace

bool indexlists::agree(const QString &root, const QList<SongInfoIndex> &entries)
{
    QByteArray titles;
    if (!readList(root, indexfiles::title, titles) || !doubles(entries).isEmpty())
        return false;
    const SongRecords records = titleRecords(titles, entries.size());
    const bool isEachThere =
        std::all_of(entries.cbegin(), entries.cend(),
                    [&records](const SongInfoIndex &entry) { return records.contains(entry.id); });
    return isEachThere && groupsAgree(root, indexfiles::artist, records) &&
           groupsAgree(root, indexfiles::genre, records);
}

void indexlists::distrust(QList<SongInfoIndex> &entries)
{
    const QList<qsizetype> places = doubles(entries);
    for (const qsizetype place : places) {
        entries[place].path.clear(); // leads to no file
        entries[place].fullPath.clear();
    }
    for (SongInfoIndex &entry : entries) {
        entry.date = 0;
        entry.time = 0;
    }
}
