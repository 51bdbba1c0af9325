// The data of a song as the history keeps it, for the user to see.
#pragma once

#include "formats/songinfo.h"

#include <QString>

namespace historytexts
{

/** Title, artist, genre, author, key, tempo and length as a JSON object (RFC 8259). */
QString toText(const SongInfo &info);

/** The same backwards; what is missing or of another kind is empty or 0. */
SongInfo fromText(const QString &text);

} // namespace historytexts
