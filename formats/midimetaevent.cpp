#include "formats/midimetaevent.h"

#include <algorithm>

namespace
{

constexpr char DeltaZero = '\x00';
constexpr char Status = '\xFF';

// Offsets from the status byte; the delta time stands before it.
constexpr qsizetype LengthOffset = 2;
constexpr qsizetype DataOffset = 3;

} // namespace

// Status bytes are rare among notes: looking for them alone is many times faster than for both
// bytes, and a file is searched to its end for every item that it does not have.
qsizetype MidiMetaEvent::indexOf(QByteArrayView bytes, quint8 type, qsizetype from)
{
    qsizetype position = bytes.indexOf(Status, std::max<qsizetype>(from, 0));
    while (position >= 0 && position + 1 < bytes.size()) {
        if (static_cast<quint8>(bytes.at(position + 1)) == type)
            return position;
        position = bytes.indexOf(Status, position + 1);
    }
    return -1;
}

qsizetype MidiMetaEvent::indexOfAtDeltaZero(QByteArrayView bytes, quint8 type, qsizetype from)
{
    qsizetype position = indexOf(bytes, type, std::max<qsizetype>(from, 0) + 1);
    while (position >= 0 && bytes.at(position - 1) != DeltaZero)
        position = indexOf(bytes, type, position + 1);
    return position >= 0 ? position - 1 : -1;
}

QByteArray MidiMetaEvent::encode(quint8 type, const QByteArray &data)
{
    if (data.size() > MaxDataSize)
        return QByteArray();
    const char header[HeaderSize] = {DeltaZero, Status, static_cast<char>(type),
                                     static_cast<char>(data.size())};
    return QByteArray(header, HeaderSize) + data;
}

MidiMetaEvent::MidiMetaEvent(QByteArrayView bytes, qsizetype position)
    : m_bytes(bytes)
    , m_position(position)
{
}

quint8 MidiMetaEvent::length() const
{
    return byteAt(LengthOffset);
}

qint8 MidiMetaEvent::signedLength() const
{
    return static_cast<qint8>(length());
}

qsizetype MidiMetaEvent::end() const
{
    return m_position + DataOffset + length();
}

quint8 MidiMetaEvent::dataAt(qsizetype index) const
{
    return byteAt(DataOffset + index);
}

QByteArrayView MidiMetaEvent::data(qsizetype index, qsizetype size) const
{
    const qsizetype start = std::min(m_position + DataOffset + index, m_bytes.size());
    const qsizetype rest = m_bytes.size() - start;
    return m_bytes.sliced(start, size < 0 ? rest : std::min(size, rest));
}

bool MidiMetaEvent::holdsData(qsizetype index) const
{
    return m_position + DataOffset + index < m_bytes.size();
}

quint8 MidiMetaEvent::byteAt(qsizetype offset) const
{
    const qsizetype position = m_position + offset;
    return position < m_bytes.size() ? static_cast<quint8>(m_bytes.at(position)) : quint8(0);
}
