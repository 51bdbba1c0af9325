// Paths that begin with a colon, as the user gave them and as Qt opens them.
#pragma once

#include <QLatin1String>
#include <QString>

namespace givenpath
{

/**
 * Stands in front of a path that begins with a colon: Qt takes such paths for the files that are
 * part of the program. Nobody writes a path like this, so that it can be told.
 */
inline constexpr QLatin1String beforeColon(".//");

/** The path as the user gave it, for what the program prints. */
inline QString shown(const QString &path)
{
    return path.startsWith(QLatin1String(".//:")) ? path.mid(beforeColon.size()) : path;
}

} // namespace givenpath
