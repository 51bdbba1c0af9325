// The maker of the player, whose name stands in the copyright notices of the songs that he
// publishes.
#pragma once

#include <QLatin1String>
#include <QString>

namespace publisher
{
inline constexpr QLatin1String name{"K-RAVO"};
/** A second name that is looked for in MIDI files only, not in MP3 files. */
inline constexpr QLatin1String midiName{"TORVELIX"};

/** True when the copyright notice contains the name, in whatever case. */
bool isNamedIn(const QString &copyright, QLatin1String name);
} // namespace publisher
