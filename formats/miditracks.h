// The tracks of a MIDI file, for those who read its music.
#pragma once

#include <QByteArrayView>
#include <QList>
#include <QtGlobal>

class RawMidiFile;

namespace miditracks
{
/** The two bytes of the header that say what a tick is; 0 for a file that was not loaded. */
quint16 timeDivisionOf(const RawMidiFile &midi);

/**
 * The events of each track, as valid as the loaded bytes; tracks that are cut off end with them.
 * Chunks of other kinds, which may stand between the tracks, are left out.
 */
QList<QByteArrayView> of(const RawMidiFile &midi);
} // namespace miditracks
