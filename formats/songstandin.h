// What a song of some format would hold after an edit, without its file.
#pragma once

#include "formats/mfxheader.h"
#include "formats/mp3header.h"
#include "formats/rawmidifile.h"
#include "formats/songinfo.h"

/**
 * Holds an empty song of each format, into which records are merged by the code that edits real
 * songs: thousands of songs can be looked at between two presses of a key. A real song may hold
 * more than can be seen in its record, such as a second key signature behind the first one, and can
 * then keep something else; so whoever saves has to compare what he gets.
 */
class SongStandIn
{
public:
    SongStandIn();

    /**
     * The data of a song of before's format that held before's data, after the user has edited them
     * to be those of wanted. An unknown format holds what it held.
     */
    SongInfo held(const SongInfo &before, const SongInfo &wanted) const;

    /** True when title, artist, genre, author, length, tempo and key are the same. */
    static bool isSame(const SongInfo &first, const SongInfo &second);

private:
    RawMidiFile m_midi;
    MfxHeader m_header;
    Mp3Header m_tag;
};
