// The desktop's bin for deleted files.
#pragma once

#include <QString>

namespace desktopbin
{

/**
 * Moves the file into the user's bin, from which he can take it back. Only where the bin lies on
 * the file's own file system and is there already, or is that of his home: a stick or a memory of
 * the player never gets one, as the player would find the songs in it. False when the file is where
 * it was.
 */
bool take(const QString &path);

} // namespace desktopbin
