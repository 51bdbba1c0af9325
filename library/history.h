// What was done to the user's songs, and what is needed to take it back.
#pragma once

#include "formats/songinfo.h"

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>
#include <QtGlobal>

/** One job that wrote songs. */
struct HistoryJob {
    /** What the user did; the numbers are stored. */
    enum class Kind : quint8 {
        Synchronise = 1,
        Edit = 2,
        EditSeveral = 3,
        Tags = 4,
        Rename = 5,
        TakeBack = 6,
        Measure = 7
    };

    qint64 number = 0; ///< never used twice
    QDateTime time;    ///< when it began
    Kind kind = Kind::Edit;
    int songs = 0;          ///< that it wrote
    qint64 takesBack = 0;   ///< number of the job that it took back; 0 for none
    qint64 takenBackBy = 0; ///< number of the last job that took it back; 0 for none
    bool isUndone = false;  ///< taken back as a whole, and that is still so
};
Q_DECLARE_TYPEINFO(HistoryJob, Q_RELOCATABLE_TYPE);

/** One song that a job wrote. */
struct HistorySong {
    qint64 id = 0;
    qint64 job = 0;
    QString path;         ///< where it lay
    QString newPath;      ///< where a job that renames put it; else empty
    QByteArray oldDigest; ///< of the file before; see SongSnapshot
    QByteArray newDigest; ///< of the file afterwards; empty while that is not known
    qint64 newSize = 0;   ///< of the file afterwards, in bytes
    SongInfo before;      ///< title, artist, genre, author, key, tempo and length
    SongInfo after;       ///< likewise
};
Q_DECLARE_TYPEINFO(HistorySong, Q_RELOCATABLE_TYPE);
