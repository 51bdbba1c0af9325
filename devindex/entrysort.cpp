#include "devindex/entrysort.h"

#include "devindex/devicetext.h"

#include <QtEndian>

#include <algorithm>
#include <cstring>
#include <vector>

namespace
{

/** Puts the entries into the order of the keys, each of which knows the position of its entry. */
template <typename Key>
void reorderByKeys(QList<SongInfoIndex> &entries, std::vector<Key> &keys)
{
    std::sort(keys.begin(), keys.end());
    QList<qsizetype> positions;
    positions.reserve(entries.size());
    for (const Key &key : keys)
        positions.append(key.position);
    reorderEntries(entries, positions);
}

struct NumberKey {
    quint32 number;
    qsizetype position;

    bool operator<(const NumberKey &other) const
    {
        return number != other.number ? number < other.number : position < other.position;
    }
};

/** The sort key of an entry's texts; its first bytes decide most comparisons by themselves. */
struct TextKey {
    quint64 beginning;
    const char *bytes;
    qsizetype size;
    qsizetype position;

    bool operator<(const TextKey &other) const
    {
        if (beginning != other.beginning)
            return beginning < other.beginning;
        const int order =
            std::memcmp(bytes, other.bytes, static_cast<std::size_t>(std::min(size, other.size)));
        if (order != 0)
            return order < 0;
        return size != other.size ? size < other.size : position < other.position;
    }
};

quint64 beginningOf(const char *bytes, qsizetype size)
{
    quint64 beginning = 0;
    std::memcpy(&beginning, bytes, static_cast<std::size_t>(std::min<qsizetype>(size, 8)));
    return qFromBigEndian(beginning);
}

/** Sorts by keys that append puts together. */
template <typename AppendKey>
void sortByText(QList<SongInfoIndex> &entries, AppendKey append)
{
    QByteArray bytes;
    QList<qsizetype> ends;
    ends.reserve(entries.size());
    for (const SongInfoIndex &entry : std::as_const(entries)) {
        append(bytes, entry);
        ends.append(bytes.size());
    }
    std::vector<TextKey> keys;
    keys.reserve(static_cast<std::size_t>(entries.size()));
    qsizetype start = 0;
    for (qsizetype position = 0; position < ends.size(); ++position) {
        const char *const key = bytes.constData() + start;
        const qsizetype size = ends.at(position) - start;
        keys.push_back({beginningOf(key, size), key, size, position});
        start = ends.at(position);
    }
    reorderByKeys(entries, keys);
}

void sortByTextThenTitle(QList<SongInfoIndex> &entries, QString SongInfoIndex::*text)
{
    sortByText(entries, [text](QByteArray &key, const SongInfoIndex &entry) {
        appendSortKey(key, entry.*text);
        key += '\0'; // below every character
        appendSortKey(key, entry.title);
    });
}

} // namespace

void sortByPosidx(QList<SongInfoIndex> &entries)
{
    std::vector<NumberKey> keys;
    keys.reserve(static_cast<std::size_t>(entries.size()));
    for (const SongInfoIndex &entry : std::as_const(entries))
        keys.push_back({entry.posidx, static_cast<qsizetype>(keys.size())});
    reorderByKeys(entries, keys);
}

void sortByTitle(QList<SongInfoIndex> &entries)
{
    sortByText(entries, [](QByteArray &key, const SongInfoIndex &entry) {
        appendSortKey(key, entry.title);
    });
}

void sortByArtist(QList<SongInfoIndex> &entries)
{
    sortByTextThenTitle(entries, &SongInfoIndex::artist);
}

void sortByGenre(QList<SongInfoIndex> &entries)
{
    sortByTextThenTitle(entries, &SongInfoIndex::genre);
}

void reorderEntries(QList<SongInfoIndex> &entries, const QList<qsizetype> &positions)
{
    if (std::is_sorted(positions.cbegin(), positions.cend()))
        return;
    QList<SongInfoIndex> reordered;
    reordered.reserve(positions.size());
    for (const qsizetype position : positions)
        reordered.append(std::move(entries[position]));
    entries = std::move(reordered);
}
