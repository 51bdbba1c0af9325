// Gives a file or folder on a memory another name, together with what belongs to it.
#pragma once

#include <QString>

namespace songrenamer
{

enum class Outcome {
    Renamed,
    Failed,    ///< everything has its old name, unless even that could not be given back
    Unfinished ///< the last save of the song was cut off and cannot be undone; nothing was done
};

struct Result {
    Outcome outcome = Outcome::Failed;
    bool onMedium = true; ///< false when a power cut may still give the items other names
};

/**
 * Renames a file or folder; both paths lie in one folder. The karaoke pictures of an MP3 get its
 * new name, or the song keeps its old one. A song whose last save was cut off gets its old bytes
 * back first: under another name its journal would not be found any more.
 */
Result rename(const QString &path, const QString &newPath);

/** True when the folder that holds the path lies outside the root: a symbolic link leads there. */
bool liesOutside(const QString &root, const QString &path);

} // namespace songrenamer
