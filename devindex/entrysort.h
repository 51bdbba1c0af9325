// Sorting the entries of an index.
#pragma once

#include "devindex/songinfoindex.h"

#include <QList>

/** Answers whether the first entry stands before the second. */
using EntryOrder = bool (*)(const SongInfoIndex &first, const SongInfoIndex &second);

/** Sorts the entries; those that are equal in the order keep theirs. Each entry is moved once. */
void sortEntries(QList<SongInfoIndex> &entries, EntryOrder order);

/** Moves the entries to the order in which their positions are given; each position stands once. */
void reorderEntries(QList<SongInfoIndex> &entries, const QList<qsizetype> &positions);
