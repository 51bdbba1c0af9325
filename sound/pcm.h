// The one form in which sound is made, played and written: 16 bits, left and right in turn.
#pragma once

#include <QtGlobal>

namespace pcm
{
inline constexpr int sampleRate = 44100;
inline constexpr int channels = 2;
inline constexpr qsizetype bytesInFrame = qsizetype{channels} * qsizetype{sizeof(qint16)};

/** No song is longer: what says so is broken, and its sound would fill a disk. */
inline constexpr int longestSeconds = 6 * 60 * 60;

/** Frames in so many seconds; each has a sample for the left and one for the right. */
inline constexpr qint64 frames(double seconds)
{
    return static_cast<qint64>(seconds * sampleRate);
}

inline constexpr double seconds(qint64 frames)
{
    return static_cast<double>(frames) / sampleRate;
}
} // namespace pcm
