// Whether an index still shows what a song file tells.
#pragma once

#include <QByteArray>
#include <QString>

/** What the lists of an index say of a song. */
struct ListedSong {
    QByteArray record; ///< of the list of titles
    QString artist;    ///< of its group
    QString genre;

    /**
     * True when the song file at the path, whose name on the memory this is, would be listed like
     * this now; also for one that cannot be read.
     */
    bool shows(const QString &path) const;
};
