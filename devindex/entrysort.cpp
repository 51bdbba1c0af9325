#include "devindex/entrysort.h"

#include "devindex/devicetext.h"

#include <QHash>
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
    quint64 beginning; ///< eight bytes
    quint64 next;      ///< the eight behind them
    const char *bytes;
    qsizetype size;
    qsizetype position;

    bool hasTextOf(const TextKey &other) const
    {
        return size == other.size &&
               std::memcmp(bytes, other.bytes, static_cast<std::size_t>(size)) == 0;
    }

    bool operator<(const TextKey &other) const
    {
        if (beginning != other.beginning)
            return beginning < other.beginning;
        if (next != other.next)
            return next < other.next;
        const int order =
            std::memcmp(bytes, other.bytes, static_cast<std::size_t>(std::min(size, other.size)));
        if (order != 0)
            return order < 0;
        return size != other.size ? size < other.size : position < other.position;
    }
};

/** The first eight bytes, or zeros for those that there are not, as a number. */
quint64 beginningOf(const char *bytes, qsizetype size)
{
    quint64 beginning = 0;
    const qsizetype used = std::clamp<qsizetype>(size, 0, sizeof beginning);
    std::memcpy(&beginning, bytes, static_cast<std::size_t>(used));
    return qFromBigEndian(beginning);
}

/** Keys of texts that stand one behind the other; each ends where the next one begins. */
std::vector<TextKey> textKeys(const QByteArray &bytes, const std::vector<qsizetype> &ends)
{
    std::vector<TextKey> keys;
    keys.reserve(ends.size());
    qsizetype start = 0;
    for (const qsizetype end : ends) {
        const char *const key = bytes.constData() + start;
        const qsizetype size = end - start;
        const qsizetype half = std::min<qsizetype>(size, sizeof(quint64));
        keys.push_back({beginningOf(key, size), beginningOf(key + half, size - half), key, size,
                        static_cast<qsizetype>(keys.size())});
        start = end;
    }
    return keys;
}

/** Sorts by keys that append puts together. */
template <typename AppendKey>
void sortByText(QList<SongInfoIndex> &entries, AppendKey append)
{
    QByteArray bytes;
    std::vector<qsizetype> ends;
    ends.reserve(static_cast<std::size_t>(entries.size()));
    for (const SongInfoIndex &entry : std::as_const(entries)) {
        append(bytes, entry);
        ends.push_back(bytes.size());
    }
    std::vector<TextKey> keys = textKeys(bytes, ends);
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

EntryList listOf(const QList<SongInfoIndex> &entries)
{
    EntryList list;
    list.reserve(static_cast<std::size_t>(entries.size()));
    for (const SongInfoIndex &entry : entries)
        list.push_back(&entry);
    return list;
}

BuildOrders::BuildOrders(const QList<SongInfoIndex> &entries)
    : m_byNumber(listOf(entries))
    , m_none(m_byNumber.size())
{
    std::stable_sort(m_byNumber.begin(), m_byNumber.end(),
                     [](const SongInfoIndex *first, const SongInfoIndex *second) {
                         return first->posidx < second->posidx;
                     });
    m_titles = ranksOf(&SongInfoIndex::title);
    m_artists = ranksOf(&SongInfoIndex::artist);
    m_genres = ranksOf(&SongInfoIndex::genre);
}

BuildOrders::Ranks BuildOrders::ranksOf(QString SongInfoIndex::*text) const
{
    // Entries share an artist's or a genre's text. One that stands in the memory twice costs
    // nothing but a second key; to hash the texts themselves takes longer than to sort them.
    QHash<const QChar *, quint16> known;
    known.reserve(static_cast<qsizetype>(m_byNumber.size()));
    QByteArray bytes;
    std::vector<qsizetype> ends;
    Ranks textOf;
    textOf.reserve(m_byNumber.size());
    for (const SongInfoIndex *const entry : m_byNumber) {
        const qsizetype before = known.size();
        quint16 &number = known[(entry->*text).constData()];
        if (known.size() > before) {
            number = static_cast<quint16>(before);
            appendSortKey(bytes, entry->*text);
            ends.push_back(bytes.size());
        }
        textOf.push_back(number);
    }

    std::vector<TextKey> keys = textKeys(bytes, ends);
    std::sort(keys.begin(), keys.end());
    Ranks rankOf(keys.size());
    quint16 rank = 0;
    for (std::size_t i = 0; i < keys.size(); ++i) {
        if (i > 0 && !keys[i].hasTextOf(keys[i - 1]))
            ++rank;
        rankOf[static_cast<std::size_t>(keys[i].position)] = rank;
    }
    for (quint16 &number : textOf)
        number = rankOf[number];
    return textOf;
}

EntryList BuildOrders::sorted(bool mp3Only, const Ranks &first, const Ranks &second,
                              const Ranks &third) const
{
    constexpr int rankBits = 16;
    constexpr quint64 placeMask = 0xFFFF;
    std::vector<quint64> keys;
    keys.reserve(m_byNumber.size());
    for (std::size_t place = 0; place < m_byNumber.size(); ++place) {
        if (mp3Only && m_byNumber[place]->fileType != SongInfoIndex::Mp3)
            continue;
        quint64 key = first[place];
        key = key << rankBits | second[place];
        key = key << rankBits | third[place];
        keys.push_back(key << rankBits | place);
    }
    std::sort(keys.begin(), keys.end());
    EntryList list;
    list.reserve(keys.size());
    for (const quint64 key : keys)
        list.push_back(m_byNumber[key & placeMask]);
    return list;
}

EntryList BuildOrders::byTitle() const
{
    return sorted(false, m_titles, m_none, m_none);
}

EntryList BuildOrders::byArtist() const
{
    return sorted(false, m_artists, m_titles, m_none);
}

EntryList BuildOrders::byGenre() const
{
    return sorted(false, m_genres, m_titles, m_artists);
}

EntryList BuildOrders::mp3ByTitle() const
{
    return sorted(true, m_titles, m_genres, m_artists);
}

EntryList BuildOrders::mp3ByArtist() const
{
    return sorted(true, m_artists, m_titles, m_genres);
}

EntryList BuildOrders::mp3ByGenre() const
{
    return sorted(true, m_genres, m_titles, m_artists);
}

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
