// The header of one frame of MPEG audio.
#pragma once

#include <QByteArrayView>

#include <optional>

/**
 * What the four bytes in front of a frame say (ISO/IEC 11172-3 and 13818-3, and the lower sampling
 * rates that are called MPEG 2.5).
 */
struct Mp3Frame {
    static constexpr qsizetype headerSize = 4;

    int version = 0; ///< 1, 2, or 3 for MPEG 2.5
    int layer = 0;   ///< 1 to 3
    bool isMono = false;
    int sampleRate = 0; ///< in a second
    int samples = 0;    ///< that the frame holds for each channel
    qsizetype size = 0; ///< of the whole frame, in bytes

    /**
     * Nothing for fewer than four bytes and for bytes that are no header. A frame whose bit rate is
     * not in the header ("free format") counts as none: its size cannot be told.
     */
    static std::optional<Mp3Frame> at(QByteArrayView bytes);

    /** True for frames that can stand in one stream. */
    bool goesWith(const Mp3Frame &other) const
    {
        return version == other.version && layer == other.layer && sampleRate == other.sampleRate;
    }

    /** Offset from the header to where Layer III keeps the samples, behind its side information. */
    qsizetype mainDataPos() const;
};
