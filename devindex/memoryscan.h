// The walk through the folders of a memory that finds its songs.
#pragma once

#include "devindex/folderlisting.h"
#include "devindex/foundsong.h"
#include "devindex/indexstate.h"
#include "devindex/itemrenamer.h"

#include <QList>
#include <QSet>
#include <QString>

/** One walk. Names too long for the player are shortened on the way. */
class MemoryScan
{
public:
    MemoryScan(IndexState &state, IndexObserver &observer, ItemRenamer &renamer);

    /**
     * The songs of a folder and of all folders in it, in the order in which they were found. The
     * player's own folders, those of operating systems and hidden files are passed over. Counts
     * the songs in the state.
     */
    QList<FoundSong> songsIn(const QString &dir, SongTimes times = SongTimes::Ask);

private:
    void scanFolder(const QString &dir, bool isLink, bool throughLink);
    void scanFile(const QString &path, const FolderItem &file, bool throughLink);
    QString renamed(const QString &path, bool throughLink);

    IndexState &m_state;
    IndexObserver &m_observer;
    ItemRenamer &m_renamer;
    SongTimes m_times = SongTimes::Ask;
    QSet<FolderId> m_active; ///< folders being scanned
    QSet<FolderId> m_linked; ///< folders that were entered through a symbolic link
    QList<FoundSong> m_songs;
};
