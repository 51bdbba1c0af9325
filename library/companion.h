// The karaoke pictures that belong to an MP3.
#pragma once

#include <QString>
#include <QStringList>

/**
 * The companion of a song: the file beside an MP3 that has its name and ends in ".cdg". An empty
 * text when the path is no MP3 or no such file is there.
 */
QString companionOf(const QString &path);

/** The paths at which the companion of this song, an MP3, is looked for; none for other paths. */
QStringList companionPaths(const QString &path);

/** The companion's path when its song, an MP3, goes to target; the suffix keeps its letter case. */
QString companionTarget(const QString &companion, const QString &target);
