// Song files put together byte by byte, without any code of the program under test.
#pragma once

#include <QByteArray>
#include <QList>

namespace songbytes
{

inline QByteArray bigEndian(quint64 value, int bytes)
{
    QByteArray out;
    for (int shift = 8 * (bytes - 1); shift >= 0; shift -= 8)
        out.append(static_cast<char>((value >> shift) & 0xFF));
    return out;
}

inline QByteArray littleEndian(quint64 value, int bytes)
{
    QByteArray out;
    for (int i = 0; i < bytes; ++i)
        out.append(static_cast<char>((value >> (8 * i)) & 0xFF));
    return out;
}

/** A meta event at delta time 0: FF type length data. */
inline QByteArray metaEvent(int type, const QByteArray &data)
{
    return QByteArray("\x00\xFF", 2) + static_cast<char>(type) + static_cast<char>(data.size()) +
           data;
}

/** The maker's meta event 4B: the sub-type byte, then the payload. */
inline QByteArray kravoEvent(int subType, const QByteArray &payload)
{
    return metaEvent(0x4B, static_cast<char>(subType) + payload);
}

inline QByteArray markerEvent(int bar, const QByteArray &text)
{
    return kravoEvent(6, bigEndian(static_cast<quint32>(bar), 2) + text);
}

/** A track chunk: the events, closed by "end of track". */
inline QByteArray track(const QByteArray &events)
{
    const QByteArray all = events + QByteArray("\x00\xFF\x2F\x00", 4);
    return "MTrk" + bigEndian(static_cast<quint32>(all.size()), 4) + all;
}

/** A few notes, so that a track holds music that must survive. */
inline QByteArray notes()
{
    return QByteArray("\x00\x90\x3C\x64\x60\x80\x3C\x40\x00\x90\x40\x64\x60\x80\x40\x40", 16);
}

/** A Standard MIDI File of the tracks (each made by track()), 96 ticks a quarter note. */
inline QByteArray midiFile(const QList<QByteArray> &tracks, int format = 0)
{
    QByteArray out = "MThd" + bigEndian(6, 4) + bigEndian(static_cast<quint32>(format), 2) +
                     bigEndian(static_cast<quint32>(tracks.size()), 2) + bigEndian(96, 2);
    for (const QByteArray &bytes : tracks)
        out += bytes;
    return out;
}

/** An ID3v2.3 text frame with the encoding byte 0 (ISO-8859-1). */
inline QByteArray id3Frame(const QByteArray &id, const QByteArray &text)
{
    return id + bigEndian(static_cast<quint32>(text.size() + 1), 4) + QByteArray(3, '\0') + text;
}

/** An ID3v2.3 tag of the frames; its size stands in four bytes of seven bits. */
inline QByteArray id3Tag(const QByteArray &frames)
{
    const auto size = static_cast<quint32>(frames.size());
    QByteArray out("ID3\x03\x00\x00", 6);
    for (int shift = 21; shift >= 0; shift -= 7)
        out.append(static_cast<char>((size >> shift) & 0x7F));
    return out + frames;
}

} // namespace songbytes
