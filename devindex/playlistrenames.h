// Lets the playlists' path files follow songs and folders that get other names.
#pragma once

#include "devindex/playlistfiles.h"

#include <QList>
#include <QString>

#include <optional>

/**
 * While an index is built, the path files alone say which songs the playlists mean. The playlists
 * are read at the first rename.
 */
class PlaylistRenames
{
public:
    /** The memory with this root folder. */
    explicit PlaylistRenames(const QString &root);

    /**
     * A song or folder has a new path on the memory. False when a path file that names it could
     * not be written.
     */
    bool follow(const QString &path, const QString &newPath);

private:
    struct Playlist {
        quint16 number = 0;
        QStringList paths;
    };

    void read();

    const PlaylistFiles m_files;
    std::optional<QList<Playlist>> m_playlists;
};
