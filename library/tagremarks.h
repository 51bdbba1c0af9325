// What the user is told about the tags of an MP3 file.
#pragma once

#include "formats/mp3preparation.h"

#include <QString>
#include <QStringList>

namespace tagremarks
{
/** Why the player cannot show the texts, in the user's words; empty when it can. */
QString reasonText(TagTroubles troubles);

/** A sentence for a song of the list: that the player cannot show its texts, and why. */
QString songText(TagTroubles troubles);

/** What the user should know before the tags are written. */
QStringList remarks(const Mp3Preparation &preparation);
} // namespace tagremarks
