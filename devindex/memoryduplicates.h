// Songs that lie on a memory more than once.
#pragma once

#include "devindex/memorysongs.h"
#include "library/progress.h"

#include <QList>

#include <optional>

namespace memoryduplicates
{

/** Places in the list of songs, ascending; at least two. */
using Group = QList<qsizetype>;

/**
 * Songs with one title and one artist, ignoring case. Songs of which the player shows only the
 * file name count for nothing: what they are is not known. Nor do songs that are not there.
 */
QList<Group> sameTitle(const QList<MemorySong> &songs);

/**
 * Songs whose files hold the same bytes. Only files of one size are read; the progress is told how
 * many bytes in units of 64 KiB. A file that cannot be read, or that has got
 * another size, is the same as no other; unread, where given, gets its place. Nothing when the user
 * stopped it.
 */
std::optional<QList<Group>> sameBytes(const QList<MemorySong> &songs, Progress &progress,
                                      Group *unread = nullptr);

} // namespace memoryduplicates
