// One row of the reference catalogue.
#pragma once

#include "formats/marker.h"

#include <QList>
#include <QString>

class SongsDbRecord
{
public:
    void dbgDump() const;

    QString title;
    QString artist;
    QString altartist;
    QString genre;
    QString author;
    qint32 length = -1;
    qint32 bpm = -1;
    QString key;
    QList<Marker> markers;
};
