// What the user changed in a song, written into the tag of its MP3 file.
#pragma once

#include "formats/mp3header.h"
#include "formats/songinfo.h"

/**
 * Writes title, artist, author, genre, tempo, key and length of the record into the tag. An item
 * that the user did not change keeps its frame where that holds more than a new frame could: in
 * another encoding, several artists, milliseconds, a tempo with decimals, a key that the player
 * does not know, a compressed text.
 */
void writeEditedItems(Mp3Header &tag, const SongInfo &info);
