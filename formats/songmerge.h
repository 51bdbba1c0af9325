// The rules by which a record's items are written into a song.
#pragma once

#include "formats/mfxheader.h"
#include "formats/mp3header.h"
#include "formats/rawmidifile.h"
#include "formats/songinfo.h"

/**
 * Writes a record into the data of a song, in memory. What the user has edited is written as it
 * stands, but for the markers. A record from the catalogue fills the items that the song lacks;
 * most items that the song already has stay.
 */
class SongMerge
{
public:
    /** Where the record comes from. */
    enum class Source { User, Catalogue };

    /** The record must outlive the merge. */
    SongMerge(const SongInfo &info, Source source);

    void into(RawMidiFile &midi) const;
    /** Into the two parts of an MFX song. */
    void into(MfxHeader &header, RawMidiFile &midi) const;
    void into(Mp3Header &tag) const;

    /** Gives the song these markers in the place of those that it has; its author stays. */
    static void replaceMarkers(RawMidiFile &midi, const QList<Marker> &markers);

private:
    void edit(RawMidiFile &midi) const;
    void edit(MfxHeader &header, RawMidiFile &midi) const;
    void fill(RawMidiFile &midi) const;
    void fill(MfxHeader &header) const;
    void fillArtist(MfxHeader &header) const;
    void fillPayload(RawMidiFile &midi) const;
    static void addMarkers(RawMidiFile &midi, const QList<Marker> &markers);

    const SongInfo &m_info;
    Source m_source;
};
