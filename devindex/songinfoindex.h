// One song of the player's index.
#pragma once

#include <QString>

struct SongInfoIndex {
    QString title;
    QString artist;
    QString genre;
    quint32 id = 0;
    quint8 fileType = 0;
    quint8 bpm = 0;
    quint8 reserved = 0;
    quint8 hasMarkers = 0;
    QString fullPath;
    QString path;
    quint16 posidx = 0;
    quint32 date = 0;
    quint32 time = 0;
};
