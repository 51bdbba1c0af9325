#include "formats/songstandin.h"

#include "formats/metasong.h"
#include "formats/mfxlayout.h"
#include "formats/songitems.h"
#include "formats/songmerge.h"

namespace
{

/** A MIDI file of one track, in which nothing but the end of the track stands. */
QByteArray emptyMidi()
{
    return QByteArray("MThd\0\0\0\6\0\0\0\1\0\x60"
                      "MTrk\0\0\0\4\0\xFF\x2F\0",
                      26);
}

template <typename Value>
void keepWhere(bool isUnchanged, Value &held, const Value &before)
{
    if (isUnchanged)
        held = before;
}

/** An item of a tag that the user did not change keeps its frame. */
void keepUnchanged(SongInfo &held, const SongInfo &before, const SongInfo &wanted)
{
    keepWhere(wanted.title == before.title, held.title, before.title);
    keepWhere(wanted.artist == before.artist, held.artist, before.artist);
    keepWhere(wanted.genre == before.genre, held.genre, before.genre);
    keepWhere(wanted.author == before.author, held.author, before.author);
    keepWhere(wanted.length == before.length, held.length, before.length);
    keepWhere(wanted.userBpm == before.userBpm, held.userBpm, before.userBpm);
    keepWhere(wanted.key == before.key, held.key, before.key);
}

} // namespace

SongStandIn::SongStandIn()
{
    m_midi.loadData(emptyMidi());
    m_header.loadHeader(QByteArray("_MF5").leftJustified(mfxlayout::longHeaderSize, '\0'));
    m_tag.loadHeader(QByteArray(Mp3Header::headerSize, '\0'));
}

SongInfo SongStandIn::held(const SongInfo &before, const SongInfo &wanted) const
{
    const SongMerge merge(wanted, SongMerge::Source::User);
    SongInfo held = before;
    if (before.format == MetaSong::getFormatString(SongInfo::FileMidi0)) {
        RawMidiFile midi = m_midi;
        merge.into(midi);
        readItems(midi, held);
    } else if (before.format == MetaSong::getFormatString(SongInfo::FileMp3)) {
        Mp3Header tag = m_tag;
        merge.into(tag);
        readItems(tag, held);
        keepUnchanged(held, before, wanted);
    } else if (before.format.startsWith(QLatin1String("MF"))) {
        MfxHeader header = m_header;
        RawMidiFile midi = m_midi;
        merge.into(header, midi);
        held.title = header.title();
        held.artist = header.artist();
        held.genre = header.genre();
        held.author = header.author();
        held.userBpm = header.tempo();
        held.key = midi.key();
        held.length = midi.length();
    }
    held.isKravo = before.isKravo;
    return held;
}

bool SongStandIn::isSame(const SongInfo &first, const SongInfo &second)
{
    return first.title == second.title && first.artist == second.artist &&
           first.genre == second.genre && first.author == second.author &&
           first.length == second.length && first.userBpm == second.userBpm &&
           first.key == second.key;
}
