// Where the frames of an MP3 file in memory begin.
#pragma once

#include <QByteArray>

#include <vector>

class Mp3Frames
{
public:
    /** Walks through the audio of a file from its first byte on, once; other bytes are skipped. */
    Mp3Frames(QByteArrayView bytes, qsizetype audioStart);

    /** Seconds of all frames; 0 when there are none or their size cannot be told. */
    double length() const;

    struct Place {
        qsizetype offset = 0;
        double seconds = 0; ///< from the beginning of the song to the sound at the offset
    };

    /**
     * Where to begin so that the sound from these seconds on can be decoded: frames lean on those
     * in front of them, so the place is a little earlier.
     */
    Place before(double seconds) const;

private:
    /** Of so many frames the place of one is kept: memory for what nobody hears would be wasted. */
    static constexpr qsizetype step = 8;

    std::vector<qsizetype> m_offsets;
    qsizetype m_count = 0;
    qsizetype m_start;
    double m_frameSeconds = 0;
};
