#include "formats/midisong.h"

#include "formats/songitems.h"
#include "formats/songreading.h"
#include "formats/songsaving.h"
#include "storage/diagnostics.h"

bool MidiSong::load(QFile &file)
{
    QByteArray bytes;
    return songreading::readToEnd(file, bytes) && m_midi.loadData(bytes);
}

void MidiSong::read(SongInfo &info) const
{
    readItems(m_midi, info);
    info.markers = m_midi.markersList();
}

bool MidiSong::canBeReadAgain() const
{
    return m_midi.stream().size() <= songreading::largestFileInMemory;
}

SaveFailure MidiSong::save(const QString &path)
{
    return songsaving::rewrite(path, [this] {
        logDebug() << "[MetaSong::saveToFile] MIDI";
        return m_midi.stream();
    });
}
