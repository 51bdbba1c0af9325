// A song as sound, from which one part after the other is read.
#pragma once

#include <QtGlobal>

class SoundSource
{
public:
    SoundSource() = default;
    virtual ~SoundSource() = default;
    Q_DISABLE_COPY_MOVE(SoundSource)

    /**
     * Fills the samples, two for each frame, with what comes next; returns the number of frames, 0
     * behind the end. Waits no longer than so many milliseconds: what is missing then is silence,
     * which does not count as a part of the song.
     */
    virtual qsizetype read(qint16 *samples, qsizetype frames, int longestWait) = 0;

    /** Goes to a place in the song, in frames from its beginning; one behind the end is the end. */
    virtual void seek(qint64 frame) = 0;

    /** The place in the song from which read() reads next. */
    virtual qint64 position() const = 0;

    /** True when nothing of the bytes could be turned into sound. */
    virtual bool isBroken() const = 0;
};
