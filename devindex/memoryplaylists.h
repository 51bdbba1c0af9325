// What the playlists on a memory hold, for the user to see.
#pragma once

#include "devindex/memorysongs.h"

#include <QList>
#include <QString>

/** A song of a playlist. */
struct PlaylistSong {
    quint32 id = 0;
    qsizetype place = -1; ///< in the memory's list of songs; negative when the player has lost it

    bool isLost() const { return place < 0; }
};

/** A playlist of the player's list. */
struct MemoryPlaylist {
    quint16 number = 0;
    bool isReadable = true; ///< false: its file is missing, cannot be read, or is one too many
    QList<PlaylistSong> songs;

    /** How many of its songs the player does not find. */
    int lostCount() const;
};

/** Many times what a musician puts into playlists; files of a stranger could fill the computer. */
constexpr qsizetype mostPlaylistSongs = 1'000'000;

/**
 * The playlists of the memory whose songs these are, in the player's order; nothing is changed. A
 * song counts as lost when the index has no such id, or when its file is gone. Of a playlist no
 * more songs are read than a memory can hold, and of all of them no more than mostPlaylistSongs.
 */
QList<MemoryPlaylist> playlistsOf(const MemorySongs &memory);
