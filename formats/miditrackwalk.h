// Finds where the events of a MIDI track begin, as far as the track is valid.
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

private:
    void readEvent();
    bool skipEventData(qsizetype position);
    bool skipChannelData(qsizetype position, int count);
    bool skipCountedData(qsizetype position);
    int byteAt(qsizetype position) const;

    QByteArrayView m_bytes;
    qsizetype m_eventStart; ///< first byte of the current event's delta time
    qsizetype m_eventEnd;   ///< first byte after the current event
    int m_runningStatus = 0;
    bool m_lost = false;
};
