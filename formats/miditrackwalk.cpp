#include "formats/miditrackwalk.h"

#include "formats/midimetaevent.h"

namespace
{

constexpr int maxQuantityBytes = 4; // a variable-length quantity has no more
constexpr int statusBit = 0x80;
constexpr int continuationBit = 0x80;
constexpr int systemExclusive = 0xF0;
constexpr int escapedBytes = 0xF7;

// Data bytes of a channel message, or 0 for a status that is none.
int channelDataBytes(int status)
{
    switch (status & 0xF0) {
    case 0x80: // note off
    case 0x90: // note on
    case 0xA0: // key pressure
    case 0xB0: // controller
    case 0xE0: // pitch bend
        return 2;
    case 0xC0: // program
    case 0xD0: // channel pressure
        return 1;
    default:
        return 0;
    }
}

} // namespace

MidiTrackWalk::MidiTrackWalk(QByteArrayView bytes, qsizetype start)
    : m_bytes(bytes)
    , m_eventStart(start)
    , m_eventEnd(start)
{
}

bool MidiTrackWalk::liesWithinEvent(qsizetype position)
{
    while (!m_lost && m_eventEnd <= position)
        readEvent();
    return !m_lost && m_eventStart < position;
}

bool MidiTrackWalk::next()
{
    if (!m_lost)
        readEvent();
    return !m_lost;
}

void MidiTrackWalk::readEvent()
{
    m_eventStart = m_eventEnd;
    m_delta = 0;
    qsizetype deltaEnd = m_eventStart;
    int byte = continuationBit;
    while ((byte & continuationBit) != 0 && deltaEnd - m_eventStart <= maxQuantityBytes) {
        byte = byteAt(deltaEnd++);
        m_delta = (m_delta << 7) | static_cast<quint32>(byte & ~continuationBit);
    }
    m_lost = deltaEnd - m_eventStart > maxQuantityBytes || !skipEventData(deltaEnd);
}

bool MidiTrackWalk::skipEventData(qsizetype position)
{
    m_status = m_runningStatus;
    if ((byteAt(position) & statusBit) != 0)
        m_status = byteAt(position++);
    if (m_status == MidiMetaEvent::statusByte) {
        m_metaType = byteAt(position);
        if (m_metaType != MidiMetaEvent::Kravo)
            return skipCountedData(position + 1);
        m_dataStart = position - 1 + MidiMetaEvent::dataPos;
        m_eventEnd = MidiMetaEvent(m_bytes, position - 1).end();
        return m_eventEnd <= m_bytes.size();
    }
    if (m_status == systemExclusive || m_status == escapedBytes)
        return skipCountedData(position);
    m_runningStatus = m_status;
    return skipChannelData(position, channelDataBytes(m_status));
}

bool MidiTrackWalk::skipChannelData(qsizetype position, int count)
{
    m_dataStart = position;
    m_eventEnd = position + count;
    if (count == 0 || m_eventEnd > m_bytes.size())
        return false;
    return ((byteAt(position) | byteAt(m_eventEnd - 1)) & statusBit) == 0;
}

bool MidiTrackWalk::skipCountedData(qsizetype position)
{
    if (byteAt(position) == continuationBit)
        return false; // no program begins a length with zeros; this is one byte of a larger number
    qsizetype count = 0;
    for (int i = 0; i < maxQuantityBytes; ++i) {
        const int byte = byteAt(position++);
        count = (count << 7) | (byte & ~continuationBit);
        if ((byte & continuationBit) == 0) {
            m_dataStart = position;
            m_eventEnd = position + count;
            return m_eventEnd <= m_bytes.size();
        }
    }
    return false;
}
