#include "devindex/entrysort.h"

#include <algorithm>
#include <numeric>

void sortEntries(QList<SongInfoIndex> &entries, EntryOrder order)
{
    QList<qsizetype> positions(entries.size());
    std::iota(positions.begin(), positions.end(), 0);
    const SongInfoIndex *const first = entries.constData();
    std::stable_sort(positions.begin(), positions.end(), [&](qsizetype one, qsizetype other) {
        return order(first[one], first[other]);
    });
    reorderEntries(entries, positions);
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
