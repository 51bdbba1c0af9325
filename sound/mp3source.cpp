#include "sound/mp3source.h"

#include "sound/pcm.h"

#include <algorithm>
#include <array>

Mp3Source::Mp3Source(SoundParts &parts, const QByteArray &bytes, qsizetype audioStart)
    : m_parts(parts)
    , m_bytes(bytes)
    , m_frames(bytes, audioStart)
    , m_decoder(parts.makeDecoder(bytes.sliced(std::clamp(audioStart, qsizetype{0}, bytes.size()))))
{
}

qsizetype Mp3Source::read(qint16 *samples, qsizetype frames, int longestWait)
{
    while (m_toSkip > 0) {
        constexpr qsizetype skippedAtOnce = 4096;
        std::array<qint16, skippedAtOnce * pcm::channels> skipped{};
        const qsizetype count = m_decoder->read(
            skipped.data(), std::min(skippedAtOnce, qsizetype(m_toSkip)), longestWait);
        m_toSkip -= count;
        if (count == 0 && m_decoder->isAtEnd())
            return 0;
        if (count == 0) {
            std::fill_n(samples, frames * pcm::channels, qint16{0});
            return frames;
        }
    }
    return readDecoded(samples, frames, longestWait);
}

qsizetype Mp3Source::readDecoded(qint16 *samples, qsizetype frames, int longestWait)
{
    const qsizetype count = m_decoder->read(samples, frames, longestWait);
    m_position += count;
    m_hasSounded = m_hasSounded || count > 0;
    if (count > 0 || m_decoder->isAtEnd())
        return count;
    // A player that got nothing would take the song to be over.
    std::fill_n(samples, frames * pcm::channels, qint16{0});
    return frames;
}

void Mp3Source::seek(qint64 frame)
{
    const qint64 wanted = std::max(frame, qint64{0});
    const Mp3Frames::Place place = m_frames.before(pcm::seconds(wanted));
    m_decoder = m_parts.makeDecoder(m_bytes.sliced(place.offset));
    m_toSkip = std::max(wanted - pcm::frames(place.seconds), qint64{0});
    m_position = wanted;
}

bool Mp3Source::isBroken() const
{
    return !m_hasSounded && m_decoder->isAtEnd();
}
