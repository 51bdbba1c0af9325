// MIDI files for the tests of the metadata in their bytes.
#pragma once

#include "formats/rawmidifile.h"
#include "support/songbytes.h"

namespace midifilemaker
{

using songbytes::bigEndian;
using songbytes::kravoEvent;
using songbytes::markerEvent;
using songbytes::metaEvent;
using songbytes::midiFile;
using songbytes::notes;
using songbytes::track;

// Where things stand in a file whose first track follows a header chunk of the usual 14 bytes.
inline constexpr int lengthPos = 18;
inline constexpr int eventsPos = 22;

// Bytes given as numbers, which string literals with zeros and hexadecimal escapes hide.
inline QByteArray bytes(std::initializer_list<int> values)
{
    QByteArray out;
    for (const int value : values)
        out.append(static_cast<char>(value));
    return out;
}

/** A file of one track: these events, some music, "end of track". */
inline QByteArray songFile(const QByteArray &events)
{
    return midiFile({track(events + notes())});
}

/** A file whose data end right behind these bytes, the track length as given. */
inline QByteArray cutFile(const QByteArray &events, quint32 trackLength)
{
    return "MThd" + bytes({0, 0, 0, 6, 0, 0, 0, 1, 0, 96}) + "MTrk" + bigEndian(trackLength, 4) +
           events;
}

inline QByteArray cutFile(const QByteArray &events)
{
    return cutFile(events, static_cast<quint32>(events.size()));
}

inline RawMidiFile loaded(const QByteArray &file)
{
    RawMidiFile midi;
    if (!midi.loadData(file))
        qFatal("a test file was refused");
    return midi;
}

inline QByteArray storedLength(const RawMidiFile &midi)
{
    return midi.stream().mid(static_cast<qsizetype>(midi.trackLengthPos()), 4);
}

inline const QByteArray fullHead =
    kravoEvent(6, bytes({0, 1}) + "Intro") + markerEvent(17, "Chorus") + kravoEvent(4, "215") +
    metaEvent(0x59, bytes({4, 0})) + kravoEvent(5, "128") + kravoEvent(1, "Folk") +
    kravoEvent(3, "Trad. author") + kravoEvent(2, "Some artist") +
    metaEvent(0x02, "(c) K-Ravo 2012") + metaEvent(0x03, "My song");

inline void callEverything(RawMidiFile &midi)
{
    midi.title();
    midi.genre();
    midi.artist();
    midi.author();
    midi.length();
    midi.userBpm();
    midi.markersList();
    midi.key();
    midi.isKravo();
    midi.hasMarkers();
    midi.setTitle(QStringLiteral("t"));
    midi.setArtist(QStringLiteral("a"));
    midi.setAuthor(QStringLiteral("b"));
    midi.setGenre(QStringLiteral("g"));
    midi.setUserBpm(1);
    midi.setKey(QStringLiteral("C"));
    midi.setLength(1);
    midi.setMarkersList({Marker{1, QStringLiteral("m")}});
}

} // namespace midifilemaker
