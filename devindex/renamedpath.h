// What the rename of a song or folder does to paths.
#pragma once

#include <QString>

namespace renamedpath
{

/**
 * Gives a path, as an index or a path file has it, the new name of what it leads to or of a folder
 * that it leads through. Names are compared without regard to case and to characters for which the
 * file has only "?". False when the path leads elsewhere.
 */
bool follow(QString &path, const QString &renamed, const QString &newPath);

} // namespace renamedpath
