// The player's playlists and the path files that carry them over a rebuild of the index.
#pragma once

#include "devindex/songinfoindex.h"

#include <QList>
#include <QString>

class PathOrder;
class QFile;
class RecordWriter;

/**
 * The playlists on one memory. They name songs by id; their path files name them by path. Of a
 * playlist no more songs are looked at than a memory can hold. Links are passed over: what is
 * written stays on the memory.
 */
class PlaylistFiles
{
public:
    enum class Outcome {
        Nothing, ///< there is no such file, or links and folders lie in its place
        Done,
        Failed ///< the medium does not let it be read or written
    };

    explicit PlaylistFiles(const QString &root);

    /**
     * The numbers of the playlists in the order of the player's list, each once; a record that is
     * cut off at the end is left out.
     */
    Outcome readNumbers(QList<quint16> &numbers) const;

    /** True when the playlist is there and its path file is not. */
    bool needsPathFile(quint16 number) const;

    /**
     * Writes the playlist's path file from entries in ascending order of ids. A song that is not
     * among them gets an empty path. After a failure there is no path file.
     */
    Outcome savePaths(quint16 number, const QList<SongInfoIndex> &entries) const;

    /**
     * Writes the entries' ids into the playlist, song by song of its path file. A song that is gone
     * is passed over without a step in the playlist, so that the ids behind it land one record
     * earlier; the player's playlists have always been restored like this. A short read or write
     * ends it.
     */
    Outcome restoreIds(quint16 number, PathOrder &entries) const;

private:
    static bool writePaths(QFile &playlist, const QList<SongInfoIndex> &entries,
                           RecordWriter &paths);
    static void writeIds(QFile &paths, PathOrder &entries, QFile &playlist);
    QString fileName(quint16 number, QLatin1String suffix) const;

    QString m_root;
};
