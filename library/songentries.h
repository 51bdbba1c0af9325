// Entries of the user's own catalogue, made of songs.
#pragma once

#include "library/progress.h"
#include "library/songsdbrecord.h"

#include <QCoreApplication>
#include <QList>
#include <QString>
#include <QStringList>

class SongEntries
{
    Q_DECLARE_TR_FUNCTIONS(SongEntries)

public:
    struct Failure {
        QString path;
        QString reason;
    };

    QList<SongsDbRecord> entries;
    QStringList paths;       ///< of the songs that the entries were made of, in their order
    QList<Failure> failures; ///< songs without an entry; of several with one name all but the first
    bool isStopped = false;  ///< the user stopped it before the last song

    /** Reads the songs at these paths. */
    static SongEntries read(const QStringList &paths, Progress &progress);
};
