// Layout of the MIDI meta events that carry a song's metadata, shared by all code that reads or
// writes them.
#pragma once

#include <QByteArray>
#include <QByteArrayView>

/**
 * One meta event (Standard MIDI Files 1.0: FF, type, length, data) inside the bytes of a file,
 * which must outlive it.
 *
 * The player takes the length as one single byte, not as a variable-length quantity, and so does
 * this class. Nothing is read past the end of the bytes: a byte that is missing counts as 0, a run
 * of data ends with the file.
 */
class MidiMetaEvent
{
public:
    enum TypeEnum : quint8 {
        CopyrightNotice = 0x02,
        TrackName = 0x03, ///< in the first track: the title of the song
        Marker = 0x06,    ///< the standard's marker; section markers are Kravo events
        CuePoint = 0x07,
        EndOfTrack = 0x2F,
        Kravo = 0x4B,         ///< the maker's own event; its first data byte is a sub-type
        Tempo = 0x51,         ///< microseconds in a quarter note (3 bytes, big-endian)
        TimeSignature = 0x58, ///< beats in a bar, power of two of the beat's part of a whole note
        KeySignature = 0x59
    };

    static constexpr quint8 statusByte = 0xFF;

    // Offsets from the status byte.
    static constexpr qsizetype typePos = 1;
    static constexpr qsizetype lengthPos = 2;
    static constexpr qsizetype dataPos = 3;

    static constexpr qsizetype headerSize = 4;    ///< delta time 0, FF, type, length
    static constexpr qsizetype maxDataSize = 255; ///< the largest length that its byte can hold

    /** Position of the next status byte FF with this type behind it, or -1. */
    static qsizetype indexOf(QByteArrayView bytes, quint8 type, qsizetype from);

    /** Position of the next delta time 0 with FF and this type behind it, or -1. */
    static qsizetype indexOfAtDeltaZero(QByteArrayView bytes, quint8 type, qsizetype from);

    /** The bytes of an event at delta time 0; none when the data exceed maxDataSize. */
    static QByteArray encode(quint8 type, const QByteArray &data);

    /** The event whose status byte is at the position (0 or greater). */
    MidiMetaEvent(QByteArrayView bytes, qsizetype position);

    /** The length byte, 0 to 255. */
    quint8 length() const;

    /** The length byte as the signed number that the player's texts go by: -128 to 127. */
    qint8 signedLength() const;

    /** Position behind the last data byte, by the unsigned length; may lie past the file's end. */
    qsizetype end() const;

    /** The data byte with this index, whatever the length byte says. */
    quint8 dataAt(qsizetype index) const;

    /** `size` data bytes from an index on; a negative size means all up to the file's end. */
    QByteArrayView data(qsizetype index, qsizetype size) const;

    /** True when the data byte with this index still belongs to the file. */
    bool holdsData(qsizetype index) const;

private:
    quint8 byteAt(qsizetype offset) const;

    QByteArrayView m_bytes;
    qsizetype m_position;
};
