// The reference catalogue and the in-memory table of the user's songs.
#pragma once

#include "library/songsdbrecord.h"

#include <QSqlDatabase>
#include <QString>
#include <QStringList>

class Database
{
public:
    enum statusEnum { StatusNew = 0, StatusSynced = 1, StatusEdited = 2, StatusNotSynced = 3 };

    bool init();
    QSqlDatabase userLibraryDb() const;
    QStringList artistsList() const;
    QStringList genresList() const;
    bool getRecordByFilename(const QString &filename, SongsDbRecord &record) const;
    bool getRecordByTitle(const QString &title, SongsDbRecord &record) const;
    bool clearUserLibraryDb();
    void populateArtistsList();
    void populateGenresList();
    static void splitMarkers(const QString &text, QList<Marker> &markers);
};
