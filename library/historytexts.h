// The texts of the history: those that the user reads, and those that are kept.
#pragma once

#include "formats/songinfo.h"
#include "library/history.h"
#include "library/historystore.h"
#include "library/historyundo.h"

#include <QString>

namespace historytexts
{

/** What the user did, in his words. */
QString kindName(HistoryJob::Kind kind);

/** Why the history cannot be used; empty for one that can. */
QString problem(HistoryStore::State state);

/** How a song stands now that a job wrote. */
QString stateName(HistoryUndo::State state);

/** Says that old jobs had to go to make room. */
QString dropped(int jobs);

/** Title, artist, genre, author, key, tempo and length as a JSON object (RFC 8259). */
QString toText(const SongInfo &info);

/** The same backwards; what is missing or of another kind is empty or 0. */
SongInfo fromText(const QString &text);

} // namespace historytexts
