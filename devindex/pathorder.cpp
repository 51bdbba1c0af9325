#include "devindex/pathorder.h"

#include "devindex/devicetext.h"
#include "devindex/entrysort.h"

#include <algorithm>
#include <numeric>

SortedEntries::SortedEntries(QList<SongInfoIndex> &entries)
    : m_entries(entries)
{
}

QByteArray SortedEntries::keyAt(qsizetype place) const
{
    return pathSortKey(m_entries.at(place).path);
}

void SortedEntries::insert(qsizetype place, const SongInfoIndex &entry, const QByteArray &)
{
    m_entries.insert(place, entry);
}

PathOrder::PathOrder(QList<SongInfoIndex> &entries)
    : m_entries(entries)
    , m_order(entries.size())
{
    m_keys.reserve(entries.size());
    for (const SongInfoIndex &entry : std::as_const(entries))
        m_keys.append(pathSortKey(entry.path));
    std::iota(m_order.begin(), m_order.end(), 0);
    if (std::is_sorted(m_keys.cbegin(), m_keys.cend()))
        return; // as a memory's index is from its first build on, mostly
    std::stable_sort(m_order.begin(), m_order.end(), [this](qsizetype first, qsizetype second) {
        return m_keys.at(first) < m_keys.at(second);
    });
}

void PathOrder::insert(qsizetype place, const SongInfoIndex &entry, const QByteArray &key)
{
    m_order.insert(place, m_entries.size());
    m_entries.append(entry);
    m_keys.append(key);
}

void PathOrder::apply() const
{
    reorderEntries(m_entries, m_order);
}
