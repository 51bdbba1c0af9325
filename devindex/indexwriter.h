// Writes single index files from entries that stand in the right order already.
#pragma once

#include "devindex/entrysort.h"
#include "devindex/indexrecords.h"

#include <QString>

/**
 * The writers of the index files. Each creates or replaces the file at path and returns the number
 * of records or groups, or 0 where nothing is counted. When the file cannot be created, or not
 * every byte of it could be written, they stop at once and return -1.
 */
namespace indexwriter
{

/** The path file; entries by record number. */
int writePaths(const QString &path, const EntryList &entries);

/** The order file; entries by path. */
int writeOrder(const QString &path, const EntryList &entries);

/** A title file; entries by title. The first letters of the titles are added to alpha. */
int writeTitles(const QString &path, const EntryList &entries, AlphaTable &alpha);

/**
 * An artist or genre file; entries by that text. Entries whose text is the same but for its case
 * stand in one group. The first letters of the groups are added to alpha.
 */
int writeGroups(const QString &path, const EntryList &entries, QString SongInfoIndex::*text,
                AlphaTable &alpha);

/** A table of first letters. */
int writeAlpha(const QString &path, const AlphaTable &alpha);

/** The file of counts. */
int writeCounts(const QString &path, const CountRecord &counts);

} // namespace indexwriter
