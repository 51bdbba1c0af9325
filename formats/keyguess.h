// Guesses the key of a song from its notes.
#pragma once

#include <QString>

#include <array>

/** How long the twelve notes of the octave sound in a song, from C upwards, in whatever unit. */
using PitchClassLengths = std::array<double, 12>;

/** The name of the key that they fit best; empty when they say nothing. */
QString guessedKey(const PitchClassLengths &lengths);
