// Writes the texts of MP3 files in the player's form.
#pragma once

#include "formats/mp3preparation.h"
#include "library/historyrecorder.h"
#include "library/progress.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace tagjob
{
struct Song {
    Mp3Preparation preparation;
    SongInfo texts; ///< to be written
};

/** A song that is as it was, and why. */
struct Failure {
    QString path;
    QString reason; ///< in the user's words
};

struct Report {
    QStringList done; ///< the files that were written
    QList<Failure> failed;
    bool stopped = false; ///< the other songs were not touched
};

/**
 * Writes one song after the other; the user may stop it between two of them. Without a history
 * (null) nothing is kept.
 */
Report run(const QList<Song> &songs, HistoryRecorder *history, Progress &progress);

/** What the song at the path holds; the texts where it cannot be imported. */
SongInfo written(const QString &path, const SongInfo &texts);
} // namespace tagjob
