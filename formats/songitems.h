// Reads the items that RawMidiFile and Mp3Header both have, through functions of the same names.
#pragma once

#include "formats/songinfo.h"

/** Fills the record's items from a RawMidiFile or an Mp3Header. */
template <typename Tags>
void readItems(const Tags &tags, SongInfo &info)
{
    info.title = tags.title();
    info.artist = tags.artist();
    info.author = tags.author();
    info.genre = tags.genre();
    info.userBpm = tags.userBpm();
    info.key = tags.key();
    info.length = tags.length();
    info.isKravo = tags.isKravo();
}
