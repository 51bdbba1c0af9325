#include "formats/midimetaevent.h"

#include <algorithm>

namespace
{

constexpr char deltaZero = '\x00';
constexpr char status = static_cast<char>(MidiMetaEvent::statusByte);

} // namespace

// Status bytes are rare among notes: looking for them alone is many times faster than for both
// bytes, and a file is searched to its end for every item that it does not have.
qsizetype MidiMetaEvent::indexOf(QByteArrayView bytes, quint8 type, qsizetype from)
{
    qsizetype position = bytes.indexOf(status, std::max<qsizetype>(from, 0));
    while (position >= 0 && position + typePos < bytes.size()) {
        if (static_cast<quint8>(bytes.at(position + typePos)) == type)
            return position;
        position = bytes.indexOf(status, position + 1);
    }
    return -1;
}

qsizetype MidiMetaEvent::indexOfAtDeltaZero(QByteArrayView bytes, quint8 type, qsizetype from)
{
    qsizetype position = indexOf(bytes, type, std::max<qsizetype>(from, 0) + 1);
    while (position >= 0 && bytes.at(position - 1) != deltaZero)
        position = indexOf(bytes, type, position + 1);
    return position >= 0 ? position - 1 : -1;
}

QByteArray MidiMetaEvent::encode(quint8 type, const QByteArray &data)
{
    if (data.size() > maxDataSize)
        return QByteArray();
    const char header[headerSize] = {deltaZero, status, static_cast<char>(type),
                                     static_cast<char>(data.size())};
    return QByteArray(header, headerSize) + data;
}

MidiMetaEvent::MidiMetaEvent(QByteArrayView bytes, qsizetype position)
    : m_bytes(bytes)
    , m_position(position)
{
}

quint8 MidiMetaEvent::length() const
{
    return byteAt(lengthPos);
}

qint8 MidiMetaEvent::signedLength() const
{
    return static_cast<qint8>(length());
}

qsizetype MidiMetaEvent::end() const
{
    return m_position + dataPos + length();
}

quint8 MidiMetaEvent::dataAt(qsizetype index) const
{
    return byteAt(dataPos + index);
}

QByteArrayView MidiMetaEvent::data(qsizetype index, qsizetype size) const
{
    const qsizetype start = std::min(m_position + dataPos + index, m_bytes.size());
    const qsizetype rest = m_bytes.size() - start;
    return m_bytes.sliced(start, size < 0 ? rest : std::min(size, rest));
}

bool MidiMetaEvent::holdsData(qsizetype index) const
{
    return m_position + dataPos + index < m_bytes.size();
}

quint8 MidiMetaEvent::byteAt(qsizetype offset) const
{
    const qsizetype position = m_position + offset;
    return position < m_bytes.size() ? static_cast<quint8>(m_bytes.at(position)) : quint8(0);
}
