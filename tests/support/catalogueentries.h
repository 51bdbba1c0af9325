// Entries of a catalogue, and what they hold as one text.
#pragma once

#include "library/markertexts.h"
#include "library/songsdbrecord.h"
#include "support/shorttext.h"

#include <QStringList>

namespace catalogueentries
{

inline SongsDbRecord entry(const char *filename, const char *title)
{
    SongsDbRecord made;
    made.filename = s(filename);
    made.title = s(title);
    made.artist = s("Me");
    made.altartist = s("Me");
    made.genre = s("OWN");
    made.author = s("Myself");
    made.length = 61;
    made.bpm = 99;
    made.key = s("A-");
    made.markers = {{1, s("Intro")}, {9, s("Verse")}};
    return made;
}

inline QString described(const SongsDbRecord &record)
{
    return QStringList{record.title,
                       record.artist,
                       record.altartist,
                       record.genre,
                       record.author,
                       QString::number(record.length),
                       QString::number(record.bpm),
                       record.key,
                       record.filename,
                       markertexts::toText(record.markers)}
        .join(QLatin1Char('|'));
}

inline QStringList allOf(const QList<SongsDbRecord> &records)
{
    QStringList texts;
    for (const SongsDbRecord &record : records)
        texts.append(described(record));
    return texts;
}

} // namespace catalogueentries
