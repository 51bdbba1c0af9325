// Writes a song's sound into a file.
#pragma once

#include "sound/soundproblem.h"

#include <QString>

#include <functional>

class SongSound;
class SoundParts;

namespace rendering
{
/** Gets the seconds that are done; returns false to stop. */
using GoOn = std::function<bool(double seconds)>;

enum class Outcome { Done, Stopped, CannotPlay, CannotWrite };

struct Result {
    Outcome outcome = Outcome::Done;
    SoundProblem::Kind problem = SoundProblem::None; ///< why it cannot be played
    double seconds = 0;
};

/**
 * Writes the loaded song as a WAV file, whose name leads to the old file until the new one is
 * whole. The sound font is the user's choice; empty for an installed one.
 */
Result toWave(SongSound &song, SoundParts &parts, const QString &soundFont, const QString &path,
              const GoOn &goOn);
} // namespace rendering
