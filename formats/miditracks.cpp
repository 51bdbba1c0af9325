#include "formats/miditracks.h"

#include "formats/rawmidifile.h"
#include "storage/songlayout.h"

#include <QtEndian>

#include <algorithm>

quint16 miditracks::timeDivisionOf(const RawMidiFile &midi)
{
    const QByteArray &bytes = midi.stream();
    if (bytes.size() < songlayout::timeDivisionPos + qsizetype(sizeof(quint16)))
        return 0;
    return qFromBigEndian<quint16>(bytes.constData() + songlayout::timeDivisionPos);
}

QList<QByteArrayView> miditracks::of(const RawMidiFile &midi)
{
    QList<QByteArrayView> tracks;
    const QByteArrayView bytes(midi.stream());
    qsizetype start = midi.trackStart();
    qsizetype size = midi.trackLength();
    for (quint32 left = midi.trackCount(); left > 0 && start <= bytes.size();) {
        const qsizetype magic = start - songlayout::chunkHeaderSize;
        if (bytes.sliced(magic).startsWith(songlayout::midiTrackMagic)) {
            tracks.append(bytes.sliced(start, std::min(size, bytes.size() - start)));
            --left;
        }
        start += size + songlayout::chunkHeaderSize;
        if (start <= bytes.size())
            size = qFromBigEndian<quint32>(bytes.data() + start - songlayout::chunkHeaderSize +
                                           songlayout::chunkSizePos);
    }
    return tracks;
}
