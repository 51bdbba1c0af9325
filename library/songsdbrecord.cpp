#include "library/songsdbrecord.h"

#include "storage/diagnostics.h"

void SongsDbRecord::dbgDump() const
{
    logDebug() << "  Title     :" << title;
    logDebug() << "  Genre     :" << genre;
    logDebug() << "  Artist    :" << artist;
    logDebug() << "  AltArtist :" << altartist;
    logDebug() << "  Author    :" << author;
    logDebug() << "  Bpm       :" << bpm;
    logDebug() << "  Key       :" << key;
    logDebug() << "  Length    :" << length;
    if (markers.isEmpty()) {
        logDebug() << "  NO Markers";
        return;
    }
    logDebug() << "  Markers:";
    for (const Marker &marker : markers)
        logDebug() << "    bar:" << marker.bar << "  text:" << marker.text;
}
