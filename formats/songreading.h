// Reading song files whole.
#pragma once

#include <QByteArray>
#include <QFile>

namespace songreading
{
/**
 * Files that are held in memory whole may not be larger. A MIDI cable carries 3125 bytes a second:
 * sending 64 MiB takes almost six hours, so no song is refused, but a disk image that happens to
 * begin like one is.
 */
inline constexpr qint64 largestFileInMemory = qint64{64} * 1024 * 1024;

/** Opens a regular file for reading; reading a device or a pipe could go on or wait for ever. */
bool openRegularFile(QFile &file);

/**
 * The same for a file that may be a song: false when it is empty. The system has files that look
 * regular and empty, such as /proc/kmsg, and reading them could wait for ever, too.
 */
bool openSong(QFile &file);

/**
 * Reads from here to the end. False when not everything could be read: a song that was loaded in
 * part would lose the rest when it is saved. False, with a line in the log, when there is more than
 * largestFileInMemory.
 */
bool readToEnd(QFile &file, QByteArray &bytes);
} // namespace songreading
