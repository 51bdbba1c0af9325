// One row of the reference catalogue.
#pragma once

#include "formats/marker.h"

#include <QList>
#include <QString>

/** What a catalogue lookup found. Texts come trimmed. */
class SongsDbRecord
{
public:
    /** Writes the record to the log, one line an item. */
    void dbgDump() const;

    QString title;
    QString artist;    ///< performer, persons with the surname first
    QString altartist; ///< performer as displayed, persons with the given name first
    QString genre;
    QString author;
    qint32 length = -1;    ///< seconds; -1 when the catalogue holds no number
    qint32 bpm = -1;       ///< beats per minute; -1 when the catalogue holds no number
    QString key;           ///< as the catalogue spells it, such as "F# -"
    QList<Marker> markers; ///< empty when the catalogue holds none
    QString filename;      ///< base name of the song's file; filled by Database::find() only
};
