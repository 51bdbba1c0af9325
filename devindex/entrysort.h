// Sorting the entries of an index by tens of thousands.
#pragma once

#include "devindex/songinfoindex.h"

#include <QList>

/**
 * These sort as the comparison of the same name does (see songinfoindex.h), entries that are equal
 * keeping their order. The keys are made once for each entry and lie close together: with entries
 * and texts spread over the memory, each comparison would wait for it several times.
 */
void sortByPosidx(QList<SongInfoIndex> &entries);
void sortByTitle(QList<SongInfoIndex> &entries);
void sortByArtist(QList<SongInfoIndex> &entries);
void sortByGenre(QList<SongInfoIndex> &entries);

/** Moves the entries to the order in which their positions are given; each position stands once. */
void reorderEntries(QList<SongInfoIndex> &entries, const QList<qsizetype> &positions);
