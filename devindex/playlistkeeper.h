// Keeps the songs of the playlists known while the index to which their ids belong is replaced.
#pragma once

#include "devindex/playlistfiles.h"

#include <QList>
#include <QString>

/**
 * From the moment at which an index build touches the old index until the new one is whole, only
 * the path files say which songs a playlist means. So they are brought up to date first, from the
 * index that is there. The build removes the path file of the old index, on the medium too, before
 * it writes new ids into a playlist. So, wherever the build is cut off, an index that can still be
 * read matches the ids in the playlists.
 */
class PlaylistKeeper
{
public:
    explicit PlaylistKeeper(const QString &root);

    /**
     * Brings every path file up to date from the index on the memory. Where that cannot be read,
     * what the path files say is kept. Numbers becomes the playlists' numbers.
     *
     * Nothing without playlists; Failed, with the index untouched, when the medium does not let a
     * path file be written, or a list or playlist be read.
     */
    PlaylistFiles::Outcome savePaths(QList<quint16> &numbers) const;

    /** The same, and makes sure that new ids can be written into each playlist. */
    PlaylistFiles::Outcome prepareForNewIds(QList<quint16> &numbers) const;

    /**
     * Writes the songs' new ids into the playlists. Failed when one of them could not be written.
     */
    PlaylistFiles::Outcome restoreIds(const QList<quint16> &numbers,
                                      QList<SongInfoIndex> &songs) const;

private:
    QString m_root;
    PlaylistFiles m_playlists;
};
