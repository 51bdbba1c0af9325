// Gives a song the length, tempo and key that its music has, where it says nothing of them.
#pragma once

#include "formats/songinfo.h"
#include "formats/songmeasure.h"

namespace musicfill
{
/** True when the record has no length, no tempo or no key. */
bool lacksValue(const SongInfo &info);

/**
 * The record with what was measured in the place of each value that it lacks: whole seconds up to
 * 99:59, a tempo up to 999. What is known already, or cannot be measured, stays as it is.
 */
SongInfo filled(SongInfo info, const SongMeasure &measure);
} // namespace musicfill
