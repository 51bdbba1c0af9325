// Finds and loads the module that makes the sound.
#pragma once

#include "sound/soundproblem.h"

class SoundParts;

namespace soundmodule
{
/** Whether the module can be loaded, as far as a look at the disk tells: None, or why not. */
SoundProblem::Kind problem();

/** Loads the module at the first call; null when it cannot be loaded. It stays until the end. */
SoundParts *parts();
} // namespace soundmodule
