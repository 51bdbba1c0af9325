// Finds out which entry of an index belongs to which file of its memory.
#pragma once

#include "devindex/foundsong.h"
#include "devindex/songinfoindex.h"

#include <QList>
#include <QString>

namespace entrymatcher
{

enum class Match {
    None,
    Same,
    NewSpelling, ///< the entry took the file's path; the index does not hold that yet
    OtherFile    ///< a second file whose name differs from the entry's only in case
};

/**
 * Compares an entry with a file. An entry whose file no longer exists under the entry's spelling
 * takes the file's spelling: names are loaded with "?" for characters that the index cannot hold,
 * and their case may have been changed.
 */
Match match(SongInfoIndex &entry, const QString &path, const QString &fullPath);

/**
 * Gives entries that were loaded from an index the names of their files where the index has only
 * "?" for some of their characters, so that several entries and several files may share one name
 * there. Each entry gets one file at most: the one with its time and texts, else the one with its
 * texts, else the next one in the order of the files. The absolute path of an entry without a file
 * is cleared.
 *
 * @param songs the songs on the memory, in the order in which they were found
 * @param rootSize the length of the memory's own path
 */
void nameUnclearEntries(QList<SongInfoIndex> &entries, const QList<FoundSong> &songs,
                        qsizetype rootSize);

} // namespace entrymatcher
