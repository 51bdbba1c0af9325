// The player's playlists and the path files that carry them over a rebuild of the index.
#pragma once

#include "devindex/songinfoindex.h"

#include <QByteArray>
#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>

class PathFinder;
class QFile;

/**
 * The playlists on one memory. They name songs by id; their path files name them by path. Of a
 * playlist no more songs are looked at than a memory can hold. Links are passed over: what is
 * written stays on the memory.
 */
class PlaylistFiles
{
public:
    enum class Outcome {
        Nothing, ///< there is no such file, or a link or folder has its name
        Done,
        Failed ///< the medium does not let it be read or written
    };

    explicit PlaylistFiles(const QString &root);

    /**
     * The numbers of the playlists in the order of the player's list, each once; a record that is
     * cut off at the end is left out.
     */
    Outcome readNumbers(QList<quint16> &numbers) const;

    /** The ids of a playlist's songs in its order; of a record that is cut off nothing is taken. */
    Outcome readIds(quint16 number, QList<quint32> &ids) const;

    /** True when the playlist is there and its path file is not. */
    bool needsPathFile(quint16 number) const;

    /**
     * Writes the playlist's path file from entries in ascending order of ids. A song that is not
     * among them gets an empty path. A path file with the same content stays as it is. When it
     * cannot be written, it is removed.
     */
    Outcome savePaths(quint16 number, const QList<SongInfoIndex> &entries) const;

    /** Makes sure that the playlist can be written, without changing its bytes. */
    Outcome allowWriting(quint16 number) const;

    /**
     * Writes the songs' ids into the playlist, song by song of its path file. A song that is gone
     * is passed over without a step in the playlist, so that the ids behind it land one record
     * earlier; the player's playlists have always been restored like this. A short read or write
     * ends it.
     */
    Outcome restoreIds(quint16 number, PathFinder &songs) const;

    /** The file of the playlist's songs, as a path below the root. */
    static QString songsName(quint16 number);

    /** The paths in the playlist's path file; none where there is no such file. */
    QStringList readPaths(quint16 number) const;

    /** Gives the playlist's path file these paths; false when it could not be written. */
    bool writePaths(quint16 number, const QStringList &paths) const;

    /**
     * Gives the playlist's songs whose ids are not among the known ones the ids of the songs that
     * the path file names in their places. Nothing when the path file does not have as many songs
     * as the playlist, which then was changed after it was made. The number of songs that got an
     * id is added to mended.
     */
    Outcome mendIds(quint16 number, const QSet<quint32> &known, PathFinder &songs,
                    int &mended) const;

private:
    static QByteArray pathsOf(QFile &playlist, const QList<SongInfoIndex> &entries);
    static void writeIds(QFile &paths, PathFinder &songs, QFile &playlist);
    QString fileName(quint16 number, QLatin1String suffix) const;
    static QString nameBelowRoot(quint16 number, QLatin1String suffix);

    QString m_root;
};
