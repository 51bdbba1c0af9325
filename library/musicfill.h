// Gives a song the length, tempo, key and markers that its music has.
#pragma once

#include "formats/songinfo.h"
#include "formats/songmeasure.h"

#include <QList>

namespace musicfill
{
/** True when the record has no length, no tempo or no key. */
bool lacksValue(const SongInfo &info);

/**
 * The record with what was measured in the place of each value that it lacks: whole seconds up to
 * 99:59, a tempo up to 999. What is known already, or cannot be measured, stays as it is, and so do
 * the markers.
 */
SongInfo filled(SongInfo info, const SongMeasure &measure);

/**
 * The record with all that was measured, in the same limits, whatever it says; but a song in whose
 * music no place is marked keeps its markers.
 */
SongInfo replaced(SongInfo info, const SongMeasure &measure);

/**
 * The marked places as markers of the player: its texts are shorter and of one line, and a bar has
 * one marker, the first of those there.
 */
QList<Marker> playerMarkers(const QList<Marker> &found);
} // namespace musicfill
