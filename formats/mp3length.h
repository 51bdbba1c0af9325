// How long an MP3 file plays.
#pragma once

#include <QtGlobal>

class QFile;

namespace mp3length
{
/** Between tag and audio, or between frames, at most so many other bytes are passed over. */
inline constexpr qint64 mostOtherBytes = qint64{1024} * 1024;

/**
 * Seconds, by the frames from the first audio byte on. Where the first frame holds the number of
 * all frames (a header "Xing", "Info" or "VBRI"), and the file is neither cut off nor longer than
 * it says, and has a bit rate that can be, that number counts, or else all frames are counted;
 * those that do not tell their bit rate ("free format") as far as they follow each other. 0 for a
 * file without frames. The file is open for reading; its place is another one afterwards.
 */
double of(QFile &file, qint64 audioStart);
} // namespace mp3length
