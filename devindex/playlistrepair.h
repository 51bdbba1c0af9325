// Finds the songs that the playlists on a memory have lost.
#pragma once

#include <QCoreApplication>
#include <QString>

/**
 * The player's playlists name songs by their ids in the index. Where an id leads nowhere, the path
 * file that was made beside the playlist at the last build may still tell which song was meant.
 */
class PlaylistRepair
{
    Q_DECLARE_TR_FUNCTIONS(PlaylistRepair)

public:
    struct Report {
        QString refusal;    ///< why nothing was done; empty when the work was begun
        int foundAgain = 0; ///< songs that are in their playlists again
        int failed = 0;     ///< playlists that could not be read or written
    };

    /** The memory with this root folder. */
    explicit PlaylistRepair(const QString &root);

    /**
     * Takes the lock of the memory and writes the ids of the songs that are found again into the
     * playlists; everything else in them stays. Playlists that were changed after their path file
     * was made are left alone.
     */
    Report run() const;

private:
    const QString m_root;
};
