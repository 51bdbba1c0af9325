// Whether the lists of an index say one thing about its songs.
#pragma once

#include "devindex/songinfoindex.h"

#include <QList>
#include <QString>

namespace indexlists
{

/**
 * True when the lists of titles, artists and genres of the memory with this root hold each of the
 * entries, which were loaded from there, once, in order, and with the same bytes, and when no two
 * entries are one file. What a list says falsely in good order does not show.
 */
bool agree(const QString &root, const QList<SongInfoIndex> &entries);

/**
 * Makes the next build of the index read all songs again. Of several entries for one file the first
 * stays.
 */
void distrust(QList<SongInfoIndex> &entries);

} // namespace indexlists
