// The maker of the player, who publishes songs for it and names himself in their copyright notices.
#pragma once

#include <QLatin1String>
#include <QString>

namespace publisher
{
inline constexpr QLatin1String name{"K-RAVO"};
/** Counts in MIDI files only; an MP3 is not recognised by it. */
inline constexpr QLatin1String midiName{"TORVELIX"};

/** True when the copyright notice contains the name, in whatever case. */
bool isNamedIn(const QString &copyright, QLatin1String name);
} // namespace publisher
