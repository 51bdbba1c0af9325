#include "sound/mp3frames.h"

#include "formats/mp3frame.h"

#include <algorithm>
#include <optional>

Mp3Frames::Mp3Frames(QByteArrayView bytes, qsizetype audioStart)
    : m_start(std::clamp(audioStart, qsizetype{0}, bytes.size()))
{
    std::optional<Mp3Frame> kind;
    for (qsizetype pos = m_start; pos + Mp3Frame::headerSize <= bytes.size();) {
        const auto frame = Mp3Frame::at(bytes.sliced(pos, Mp3Frame::headerSize));
        if (!frame || pos + frame->size > bytes.size() || (kind && !frame->goesWith(*kind))) {
            ++pos;
            continue;
        }
        if (!kind) {
            // Any bytes may look like a header; one more behind the frame makes it sure.
            const qsizetype next = pos + frame->size;
            const auto following = Mp3Frame::at(bytes.sliced(next));
            if (next < bytes.size() && (!following || !following->goesWith(*frame))) {
                ++pos;
                continue;
            }
            kind = frame;
        }
        if (m_count % step == 0)
            m_offsets.push_back(pos);
        ++m_count;
        pos += frame->size;
    }
    if (kind)
        m_frameSeconds = static_cast<double>(kind->samples) / kind->sampleRate;
}

double Mp3Frames::length() const
{
    return static_cast<double>(m_count) * m_frameSeconds;
}

Mp3Frames::Place Mp3Frames::before(double seconds) const
{
    if (m_offsets.empty() || m_frameSeconds <= 0)
        return {m_start, 0};
    const auto frame = static_cast<qsizetype>(std::max(seconds, 0.0) / m_frameSeconds);
    const qsizetype kept =
        std::clamp(frame / step - 1, qsizetype{0}, qsizetype(m_offsets.size()) - 1);
    return {m_offsets[static_cast<std::size_t>(kept)],
            static_cast<double>(kept * step) * m_frameSeconds};
}
