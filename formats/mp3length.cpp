#include "formats/mp3length.h"

#include "formats/mp3frame.h"
#include "formats/trailingtags.h"

#include <QByteArray>
#include <QFile>
#include <QtEndian>

#include <algorithm>
#include <optional>

namespace
{

/** Reads a file's bytes from ascending positions, many at a time. */
class AudioBytes
{
public:
    AudioBytes(QFile &file, qint64 end)
        : m_file(file)
        , m_end(end)
    {
    }

    qint64 end() const { return m_end; }

    /** So many bytes, or those that there are. */
    QByteArrayView at(qint64 pos, qsizetype size)
    {
        if (pos < m_start || pos + size > m_start + m_block.size())
            load(pos);
        const qsizetype offset = std::clamp<qint64>(pos - m_start, 0, m_block.size());
        return QByteArrayView(m_block).sliced(offset, std::min(size, m_block.size() - offset));
    }

private:
    void load(qint64 pos)
    {
        constexpr qint64 blockSize = qint64{256} * 1024;
        m_start = pos;
        m_block.clear();
        if (pos < m_end && m_file.seek(pos))
            m_block = m_file.read(std::min(blockSize, m_end - pos));
    }

    QFile &m_file;
    qint64 m_end;
    qint64 m_start = 0;
    QByteArray m_block;
};

struct FoundFrame {
    qint64 pos = 0;
    Mp3Frame frame;
};

/** A header alone may stand in any bytes by chance; one more behind the frame makes it sure. */
bool isFollowed(AudioBytes &bytes, qint64 pos, const Mp3Frame &frame)
{
    const qint64 next = pos + frame.size;
    if (next >= bytes.end())
        return next == bytes.end();
    const auto following = Mp3Frame::at(bytes.at(next, Mp3Frame::headerSize));
    return following && following->goesWith(frame);
}

/** The next frame from the position on, behind other bytes if need be. */
std::optional<FoundFrame> findFrame(AudioBytes &bytes, qint64 from)
{
    constexpr qsizetype step = 4096;
    constexpr qsizetype overlap = Mp3Frame::headerSize - 1;
    const qint64 end = std::min(bytes.end(), from + mp3length::mostOtherBytes);
    for (qint64 start = from; start < end; start += step) {
        const QByteArray block = bytes.at(start, step + overlap).toByteArray();
        qsizetype place = block.indexOf('\xFF');
        for (; place >= 0 && place < step; place = block.indexOf('\xFF', place + 1)) {
            const auto frame = Mp3Frame::at(QByteArrayView(block).sliced(place));
            if (frame && isFollowed(bytes, start + place, *frame))
                return FoundFrame{start + place, *frame};
        }
    }
    return std::nullopt;
}

/** What the encoder wrote into the first frame in the place of samples. */
struct StreamHeader {
    std::optional<quint32> frames;
    std::optional<quint32> bytes; ///< of the whole stream
};

quint32 numberAt(QByteArrayView bytes, qsizetype pos)
{
    return pos + qsizetype(sizeof(quint32)) <= bytes.size()
               ? qFromBigEndian<quint32>(bytes.data() + pos)
               : 0;
}

std::optional<StreamHeader> streamHeaderOf(AudioBytes &bytes, const FoundFrame &first)
{
    // "Xing" or, for a constant bit rate, "Info": flags, then each number that they announce.
    constexpr quint32 hasFrames = 1;
    constexpr quint32 hasBytes = 2;
    constexpr qsizetype numberSize = 4;
    const QByteArrayView frame = bytes.at(first.pos, first.frame.size);
    const QByteArrayView xing = frame.sliced(std::min(first.frame.mainDataPos(), frame.size()));
    if (xing.startsWith("Xing") || xing.startsWith("Info")) {
        StreamHeader header;
        const quint32 flags = numberAt(xing, numberSize);
        qsizetype pos = 2 * numberSize;
        if ((flags & hasFrames) != 0) {
            header.frames = numberAt(xing, pos);
            pos += numberSize;
        }
        if ((flags & hasBytes) != 0)
            header.bytes = numberAt(xing, pos);
        return header;
    }
    // "VBRI": version, delay and quality (2 bytes each), bytes, frames.
    constexpr qsizetype vbriPos = 36;
    constexpr qsizetype vbriBytesPos = 10;
    const QByteArrayView vbri = frame.sliced(std::min(vbriPos, frame.size()));
    if (vbri.startsWith("VBRI"))
        return StreamHeader{numberAt(vbri, vbriBytesPos + numberSize),
                            numberAt(vbri, vbriBytesPos)};
    return std::nullopt;
}

double secondsOf(qint64 frames, const Mp3Frame &frame)
{
    return static_cast<double>(frames) * frame.samples / frame.sampleRate;
}

/** The bit rates that a stream of Layer III can have, in thousands of bits in a second. */
struct BitRates {
    int lowest;
    int highest;
};

BitRates bitRatesOf(const Mp3Frame &frame)
{
    return frame.version == 1 ? BitRates{32, 320} : BitRates{8, 160};
}

/** True when the stream is as long as its header says, and its number of frames is possible. */
bool isTrue(const StreamHeader &header, const Mp3Frame &frame, qint64 streamSize,
            const BitRates &possible)
{
    if (!header.frames || *header.frames == 0 || !header.bytes)
        return false;
    constexpr qint64 smallestFrame = 24;
    constexpr qint64 smallTail = 4096; // a tag behind the audio that is none of the usual ones
    constexpr double rounding = 1;
    const qint64 behind = streamSize - qint64{*header.bytes};
    if (behind < 0 || behind > smallTail || *header.frames * smallestFrame > streamSize)
        return false;
    // The frame with the header has no sound.
    const double bits = static_cast<double>(*header.bytes - frame.size) * 8;
    const double bitRate = bits / 1000 / secondsOf(*header.frames, frame);
    return bitRate >= possible.lowest - rounding && bitRate <= possible.highest + rounding;
}

constexpr qsizetype bitRatePos = 2; // in a frame's header; the padding bit is in the same byte
constexpr int paddingBit = 2;

/** True for two headers of one stream, of which one frame may be filled up with a byte more. */
bool isSameStream(QByteArrayView first, QByteArrayView second)
{
    return second.size() == Mp3Frame::headerSize &&
           first.first(bitRatePos) == second.first(bitRatePos) &&
           ((first.at(bitRatePos) ^ second.at(bitRatePos)) & ~paddingBit) == 0;
}

int paddingOf(QByteArrayView header)
{
    return (header.at(bitRatePos) & paddingBit) / paddingBit;
}

/**
 * The bytes of each frame, without padding, of a stream that does not tell its bit rate: so many as
 * lie between its first headers. 0 where no two more headers follow in equal distance.
 */
qsizetype freeFormatSize(AudioBytes &bytes, qint64 start, QByteArrayView header)
{
    constexpr qsizetype smallest = 24;
    constexpr qsizetype largest = 5761; // at the lowest sampling rate
    for (qsizetype size = smallest; size <= largest; ++size) {
        const qint64 second = start + size + paddingOf(header);
        const QByteArray found = bytes.at(second, Mp3Frame::headerSize).toByteArray();
        if (!isSameStream(header, found))
            continue;
        const qint64 third = second + size + paddingOf(found);
        if (isSameStream(header, bytes.at(third, Mp3Frame::headerSize)))
            return size;
    }
    return 0;
}

/** The whole frames of such a stream, one after the other. */
qint64 freeFormatFrames(AudioBytes &bytes, qint64 start, QByteArrayView header)
{
    const qsizetype size = freeFormatSize(bytes, start, header);
    qint64 frames = 0;
    qint64 pos = start;
    while (size > 0) {
        const QByteArrayView next = bytes.at(pos, Mp3Frame::headerSize);
        if (!isSameStream(header, next))
            break;
        pos += size + paddingOf(next);
        if (pos > bytes.end())
            break;
        ++frames;
    }
    return frames;
}

/**
 * The length of a stream of Layer III whose headers do not tell its bit rate. Nothing for other
 * streams.
 */
std::optional<double> lengthOfFreeFormat(AudioBytes &bytes, qint64 start)
{
    constexpr int anyBitRate = 0x10;
    constexpr BitRates possible{8, 640};
    constexpr qsizetype numbersEnd = 64; // the frame is longer, but nothing else of it is read
    const QByteArray header = bytes.at(start, Mp3Frame::headerSize).toByteArray();
    if (header.size() < Mp3Frame::headerSize || (header.at(bitRatePos) & 0xF0) != 0)
        return std::nullopt;
    QByteArray readable = header;
    readable[bitRatePos] = static_cast<char>(header.at(bitRatePos) | anyBitRate);
    auto frame = Mp3Frame::at(readable);
    if (!frame || frame->layer != 3)
        return std::nullopt;
    frame->size = numbersEnd;
    const auto said = streamHeaderOf(bytes, FoundFrame{start, *frame});
    if (said && isTrue(*said, *frame, bytes.end() - start, possible))
        return secondsOf(*said->frames, *frame);
    const qint64 frames = freeFormatFrames(bytes, start, header);
    if (frames == 0)
        return std::nullopt;
    return secondsOf(said ? frames - 1 : frames, *frame); // the one with the numbers has no sound
}

/** Goes from frame to frame. */
double walk(AudioBytes &bytes, const FoundFrame &first)
{
    double seconds = 0;
    std::optional<FoundFrame> at = first;
    while (at) {
        qint64 frames = 0;
        qint64 pos = at->pos;
        std::optional<Mp3Frame> frame = at->frame;
        while (frame && frame->goesWith(at->frame) && pos + frame->size <= bytes.end()) {
            ++frames;
            pos += frame->size;
            frame = Mp3Frame::at(bytes.at(pos, Mp3Frame::headerSize));
        }
        seconds += secondsOf(frames, at->frame);
        at = frames > 0 ? findFrame(bytes, pos) : std::nullopt;
    }
    return seconds;
}

} // namespace

double mp3length::of(QFile &file, qint64 audioStart)
{
    const TrailingTags tags = TrailingTags::read(file);
    AudioBytes bytes(file, file.size() - tags.ape.size() - tags.id3v1.size());
    if (const auto seconds = lengthOfFreeFormat(bytes, audioStart))
        return *seconds;
    std::optional<FoundFrame> first = findFrame(bytes, audioStart);
    if (!first)
        return 0;
    if (const auto header = streamHeaderOf(bytes, *first)) {
        if (isTrue(*header, first->frame, bytes.end() - first->pos, bitRatesOf(first->frame)))
            return secondsOf(*header->frames, first->frame);
        // The frame with the header has no sound.
        first = findFrame(bytes, first->pos + first->frame.size);
    }
    return first ? walk(bytes, *first) : 0;
}
