// Heads of song files, for the tests of what the index reads in them.
#pragma once

#include "devindex/songhead.h"
#include "support/devicememory.h"
#include "support/songbytes.h"

namespace headsofsongs
{

using namespace songbytes;

inline SongInfoIndex headOf(const QByteArray &bytes, const char *fileName = "/card/Demo.mid")
{
    SongInfoIndex entry;
    readSongHead(bytes, QString::fromUtf8(fileName), entry);
    return entry;
}

/** A MIDI file whose head holds these events. */
inline QByteArray midi(const QByteArray &events)
{
    return midiFile({track(events + notes())});
}

inline QByteArray tempo(int microseconds)
{
    return metaEvent(0x51, bigEndian(static_cast<quint32>(microseconds), 3));
}

inline const QString unknown = QStringLiteral("<UNKNOWN>");

} // namespace headsofsongs
