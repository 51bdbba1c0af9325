// A MIDI file as a song: the functions of MetaSong for this format.
#pragma once

#include "formats/midimeasure.h"
#include "formats/rawmidifile.h"
#include "formats/savefailure.h"
#include "formats/songmerge.h"

class QFile;

/** The functions are those that each class of MetaSong's variant has; see there. */
class MidiSong
{
public:
    bool load(QFile &file);
    SongInfo::fileTypeEnum fileType() const { return m_midi.fileType(); }
    void read(SongInfo &info) const;
    SongMeasure measure() const { return midimeasure::of(m_midi); }
    void merge(const SongMerge &merge) { merge.into(m_midi); }
    void setMarkers(const QList<Marker> &markers) { SongMerge::replaceMarkers(m_midi, markers); }
    int addMarker(const QString &text, quint16 bar) { return m_midi.dbgInsertMarker(text, bar); }
    bool isComplete() const { return !m_midi.stream().isEmpty(); }
    bool canBeReadAgain() const;
    SaveFailure save(const QString &path);

    /** The song's music. */
    const RawMidiFile &midi() const { return m_midi; }

private:
    RawMidiFile m_midi;
};
