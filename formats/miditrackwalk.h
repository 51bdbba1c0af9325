// Finds the events of a MIDI track, as far as the track is valid.
#pragma once

#include <QByteArrayView>

/**
 * Walks from event to event through a track (Standard MIDI Files 1.0, running status included).
 *
 * Metadata events are found by their bytes "00 FF type". Those bytes are also there when the 00
 * belongs to something else: it can end a longer delta time such as 83 00, be the velocity of a
 * note or the length of an empty text, while FF and the type are the delta time of what follows.
 * Removing such bytes would damage the music. This walk recognises them. Where the track is invalid
 * the walk ends, and nothing is known about the bytes that follow.
 */
class MidiTrackWalk
{
public:
    /** A walk through the bytes, from the first event's delta time on. */
    MidiTrackWalk(QByteArrayView bytes, qsizetype start);

    /**
     * True when the byte at the position is known to belong to an event that begins before it. Ask
     * for ascending positions.
     */
    bool liesWithinEvent(qsizetype position);

    /** Goes on to the next event; false behind the last one that is valid. */
    bool next();

    /** @name The event that next() found. */
    ///@{
    /** Ticks since the event before. */
    quint32 delta() const { return m_delta; }
    /** With its channel; one that runs on from an earlier event stands here, too. */
    int status() const { return m_status; }
    /** Of an event with MidiMetaEvent::statusByte. */
    int metaType() const { return m_metaType; }
    /** Without status, meta type and length; as valid as the bytes. */
    QByteArrayView data() const { return m_bytes.sliced(m_dataStart, m_eventEnd - m_dataStart); }
    ///@}

private:
    void readEvent();
    bool skipEventData(qsizetype position);
    bool skipChannelData(qsizetype position, int count);
    bool skipCountedData(qsizetype position);
    // In the class, since it is called for every byte of the music.
    int byteAt(qsizetype position) const
    {
        return position < m_bytes.size() ? static_cast<quint8>(m_bytes[position]) : 0;
    }

    QByteArrayView m_bytes;
    qsizetype m_eventStart; ///< first byte of the current event's delta time
    qsizetype m_eventEnd;   ///< first byte after the current event
    qsizetype m_dataStart = 0;
    quint32 m_delta = 0;
    int m_status = 0;
    int m_metaType = 0;
    int m_runningStatus = 0;
    bool m_lost = false;
};
