// Keeps entries in the player's order of paths while thousands of songs are added.
#pragma once

#include "devindex/songinfoindex.h"

#include <QByteArray>
#include <QList>

/** A list whose entries are in path order already; for adding single songs. */
class SortedEntries
{
public:
    explicit SortedEntries(QList<SongInfoIndex> &entries);

    qsizetype size() const { return m_entries.size(); }
    QByteArray keyAt(qsizetype place) const;
    SongInfoIndex &entryAt(qsizetype place) { return m_entries[place]; }
    void insert(qsizetype place, const SongInfoIndex &entry, const QByteArray &key);

private:
    QList<SongInfoIndex> &m_entries;
};

/**
 * A list of entries seen in path order. New entries are appended to the list and only their place
 * in the order is inserted, so that no entries are moved for a folder that sorts before many
 * others; each path is encoded once. apply() brings the list itself into the order.
 */
class PathOrder
{
public:
    /** The entries may stand in any order; entries with equal paths keep theirs. */
    explicit PathOrder(QList<SongInfoIndex> &entries);

    qsizetype size() const { return m_order.size(); }
    const QByteArray &keyAt(qsizetype place) const { return m_keys.at(m_order.at(place)); }
    SongInfoIndex &entryAt(qsizetype place) { return m_entries[m_order.at(place)]; }
    void insert(qsizetype place, const SongInfoIndex &entry, const QByteArray &key);

    /** Moves the entries into path order. The object cannot be used after it. */
    void apply() const;

private:
    QList<SongInfoIndex> &m_entries;
    QList<QByteArray> m_keys; ///< pathSortKey of each entry, as the entries stand
    QList<qsizetype> m_order; ///< positions in the list, in path order
};

/**
 * The place in an order (one of the above) behind all entries whose key is not greater. Found at
 * once when it is the expected one, as it mostly is for songs that come folder by folder.
 */
template <typename Order>
qsizetype placeBehind(const Order &order, const QByteArray &key, qsizetype expected = 0)
{
    const bool fits = expected > 0 && expected <= order.size() &&
                      !(key < order.keyAt(expected - 1)) &&
                      (expected == order.size() || key < order.keyAt(expected));
    if (fits)
        return expected;
    qsizetype first = 0;
    qsizetype last = order.size();
    while (first < last) {
        const qsizetype middle = first + (last - first) / 2;
        if (key < order.keyAt(middle))
            last = middle;
        else
            first = middle + 1;
    }
    return first;
}
