// What the music of a song says of itself, whatever its metadata say.
#pragma once

#include "formats/marker.h"

#include <QList>
#include <QString>

/** What cannot be told from the music is 0 or empty. */
struct SongMeasure {
    double length = 0;         ///< seconds
    int bpm = 0;               ///< the tempo that holds longest, in quarter notes a minute
    QString key;               ///< key name, such as "E" or "A-"
    bool isKeyGuessed = false; ///< from the notes, for want of a key signature
    QList<Marker> markers;     ///< texts that mark places in the music, in ascending order of bars
};
