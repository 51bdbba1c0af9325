// The hidden files that copies are while they are not whole.
#pragma once

#include <QString>

namespace unfinishedcopy
{

/**
 * Where a copy to the target grows: a hidden file beside it whose name no other copy has, be it of
 * another program. No song's suffix, so that nobody takes it for a song.
 */
QString pathFor(const QString &target);

/** Removes from the folder what programs left behind that ended in the middle of a copy. */
void removeLeftovers(const QString &folder);

} // namespace unfinishedcopy
