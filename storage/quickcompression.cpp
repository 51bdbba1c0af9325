#include "storage/quickcompression.h"

#include <QPromise>
#include <QThreadPool>
#include <QtAlgorithms>
#include <QtEndian>
#include <QtGlobal>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <memory>

namespace
{

constexpr qsizetype sizeBytes = 4;
constexpr qsizetype shortestMatch = 4;
constexpr qsizetype farthest = 65535;
constexpr qsizetype more = 15; ///< a half byte that says so
constexpr qsizetype mostInByte = 255;
constexpr int hashBits = 13;

quint32 fourAt(const char *bytes)
{
    return qFromUnaligned<quint32>(bytes);
}

quint32 hashOf(quint32 four)
{
    constexpr quint32 golden = 2654435761U; // 2^32 by the golden ratio spreads all bits upwards
    return (four * golden) >> (32 - hashBits);
}

/** How many bytes at the two places are equal; the later place has so many bytes at most. */
qsizetype equalBytes(const char *earlier, const char *later, qsizetype most)
{
    constexpr qsizetype step = sizeof(quint64);
    qsizetype count = 0;
    for (; count + step <= most; count += step) {
        const quint64 unequal =
            qFromLittleEndian<quint64>(earlier + count) ^ qFromLittleEndian<quint64>(later + count);
        if (unequal != 0)
            return count + static_cast<qsizetype>(qCountTrailingZeroBits(unequal) / 8);
    }
    while (count < most && earlier[count] == later[count])
        ++count;
    return count;
}

/** The most bytes that so many plain ones can become. */
qsizetype largestCompressed(qsizetype size)
{
    constexpr qsizetype ofLastPiece = 2;
    return sizeBytes + size + size / mostInByte + ofLastPiece;
}

/** Writes behind one another into bytes that have room for it. */
class Writer
{
public:
    explicit Writer(char *bytes)
        : m_next(bytes)
    {
    }

    const char *next() const { return m_next; }

    /** A match of 0 bytes is none: the last piece. */
    void addPiece(const char *literals, qsizetype count, qsizetype distance, qsizetype match)
    {
        const qsizetype length = match == 0 ? 0 : match - shortestMatch;
        addByte(std::min(count, more) << 4 | std::min(length, more));
        addRest(count);
        std::memcpy(m_next, literals, static_cast<std::size_t>(count));
        m_next += count;
        if (match == 0)
            return;
        addByte(distance & 0xFF);
        addByte(distance >> 8);
        addRest(length);
    }

private:
    void addByte(qsizetype byte) { *m_next++ = static_cast<char>(byte); }

    void addRest(qsizetype length)
    {
        if (length < more)
            return;
        qsizetype rest = length - more;
        for (; rest >= mostInByte; rest -= mostInByte)
            addByte(mostInByte);
        addByte(rest);
    }

    char *m_next;
};

/** Takes pieces from compressed bytes; every length and distance may be anything. */
class Reader
{
public:
    explicit Reader(const QByteArray &bytes)
        : m_bytes(bytes)
        , m_pos(sizeBytes)
    {
    }

    bool isAtEnd() const { return m_pos >= m_bytes.size(); }

    /** -1 behind the end. */
    int byte() { return isAtEnd() ? -1 : static_cast<unsigned char>(m_bytes.at(m_pos++)); }

    /** The length that the half byte begins; -1 when it is cut off. */
    qsizetype length(qsizetype half)
    {
        if (half < more)
            return half;
        qsizetype length = more;
        for (int next = mostInByte; next == mostInByte;) {
            next = byte();
            if (next < 0)
                return -1;
            length += next;
        }
        return length;
    }

    bool copyTo(QByteArray &out, qsizetype count)
    {
        if (count < 0 || count > m_bytes.size() - m_pos)
            return false;
        out.append(m_bytes.constData() + m_pos, count);
        m_pos += count;
        return true;
    }

private:
    const QByteArray &m_bytes;
    qsizetype m_pos;
};

/** Repeats what was written at the distance; the two may overlap. False for what is not there. */
bool repeat(QByteArray &out, qsizetype distance, qsizetype count, qsizetype size)
{
    if (distance < 1 || distance > out.size() || count > size - out.size())
        return false;
    for (qsizetype from = out.size() - distance; count > 0; --count)
        out.append(out.at(from++));
    return true;
}

} // namespace

QByteArray quickcompression::compressed(const QByteArray &plain)
{
    const char *const bytes = plain.constData();
    const qsizetype size = plain.size();
    QByteArray out(largestCompressed(size), Qt::Uninitialized);
    qToBigEndian(static_cast<quint32>(size), out.data());
    Writer writer(out.data() + sizeBytes);
    // Where four bytes with this hash were seen last, plus one.
    std::array<quint32, 1U << hashBits> seen{};
    qsizetype literals = 0;
    for (qsizetype pos = 0; pos + shortestMatch <= size;) {
        const quint32 four = fourAt(bytes + pos);
        quint32 &place = seen[hashOf(four)];
        const qsizetype before = qsizetype{place} - 1;
        place = static_cast<quint32>(pos + 1);
        if (before < 0 || pos - before > farthest || fourAt(bytes + before) != four) {
            // Noise is passed over in longer and longer steps.
            pos += 1 + ((pos - literals) >> 6);
            continue;
        }
        const qsizetype match = equalBytes(bytes + before, bytes + pos, size - pos);
        writer.addPiece(bytes + literals, pos - literals, pos - before, match);
        pos += match;
        literals = pos;
    }
    writer.addPiece(bytes + literals, size - literals, 0, 0);
    out.truncate(writer.next() - out.constData());
    return out;
}

QFuture<QByteArray> quickcompression::compressedMeanwhile(const QByteArray &plain)
{
    const auto promise = std::make_shared<QPromise<QByteArray>>();
    promise->start();
    QThreadPool::globalInstance()->start([promise, plain] {
        promise->addResult(compressed(plain));
        promise->finish();
    });
    return promise->future();
}

std::optional<QByteArray> quickcompression::plain(const QByteArray &compressed, qsizetype largest)
{
    if (compressed.size() < sizeBytes)
        return {};
    const qsizetype size = qFromBigEndian<quint32>(compressed.constData());
    if (size > largest)
        return {};
    QByteArray out;
    // A damaged size must not eat all memory; one byte stands for 255 at most.
    out.reserve(std::min(size, compressed.size() * mostInByte));
    Reader reader(compressed);
    while (!reader.isAtEnd()) {
        const int token = reader.byte();
        const qsizetype literals = reader.length(token >> 4);
        if (literals > size - out.size() || !reader.copyTo(out, literals))
            return {};
        if (reader.isAtEnd())
            return out.size() == size ? std::optional(out) : std::nullopt;
        const int low = reader.byte();
        const int high = reader.byte();
        const qsizetype match = reader.length(token & 0xF);
        if (high < 0 || match < 0 ||
            !repeat(out, qsizetype{high} << 8 | low, match + shortestMatch, size))
            return {};
    }
    return {};
}
