// The songs and the player's memory that the demonstration works with.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/**
 * Makes the songs in FOLDER/music and the memory in FOLDER/memories/CARD anew, as they were before
 * the first change. Returns the songs; nothing when one could not be made.
 */
std::optional<QStringList> gatherDemoSongs(const QString &folder);

/** The song that was added later: the list does not hold it at first. */
QString laterDemoSong(const QString &folder);
