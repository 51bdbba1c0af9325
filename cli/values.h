// The values of options, from the text that the user gave; nothing when it is not valid.
#pragma once

#include "devindex/index.h"

#include <QString>
#include <QtGlobal>

#include <optional>

namespace values
{

/** "yes" or "no". */
std::optional<bool> yesOrNo(const QString &text);

/** The name of a key that a song can have, without blanks, or an empty text for none. */
std::optional<QString> key(const QString &text);

/** Beats per minute, 0 to 999; 0 for none. */
std::optional<qint32> tempo(const QString &text);

/** Minutes, ":" and two digits of seconds, up to 99:59. In seconds. */
std::optional<qint32> length(const QString &text);

/** "title", "artist" or "genre". */
std::optional<Index::SORT_MODE> sortMode(const QString &text);

} // namespace values
