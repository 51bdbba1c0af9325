// Measures the music of a MIDI file.
#pragma once

#include "formats/songmeasure.h"

class RawMidiFile;

namespace midimeasure
{
/** More texts than this do not mark the sections of a song; those behind them are left out. */
inline constexpr qsizetype mostMarkers = 1000;

/**
 * Reads all tracks up to their ends, or as far as they are valid. The song ends with the last event
 * of all, the end of a track included, as sequencers and the usual players take it. Its key is its
 * first key signature, or else what its notes, without the drums, make likely. Takes time and
 * memory in proportion to the file, whatever it holds. Nothing for a file that was not loaded.
 */
SongMeasure of(const RawMidiFile &midi);
} // namespace midimeasure
