// The walk through the folders of a memory that finds its songs.
#pragma once

#include "devindex/folderlisting.h"
#include "devindex/foundsong.h"
#include "devindex/indexstate.h"
#include "devindex/itemrenamer.h"

#include <QCoreApplication>
#include <QList>
#include <QSet>
#include <QString>

/** One walk. Names too long for the player are shortened on the way. */
class MemoryScan
{
    Q_DECLARE_TR_FUNCTIONS(Index)

public:
    MemoryScan(IndexState &state, IndexObserver &observer, ItemRenamer &renamer);

    /** Removes on the way what killed programs have left in the folders of the memory. */
    void tidyFolders() { m_tidies = true; }

    /**
     * The songs of a folder and of all folders in it, in the order in which they were found. The
     * player's own folders, those of operating systems and hidden files are passed over. Counts
     * the songs in the state, where the folders that cannot be read are noted, too. These, and
     * names that cannot be used, are reported.
     */
    QList<FoundSong> songsIn(const QString &dir, SongTimes times = SongTimes::Ask);

private:
    void scanFolder(const QString &dir, bool isLink, bool throughLink);
    void scanFile(const QString &path, const FolderItem &file, bool throughLink);
    QString renamed(const QString &path, bool throughLink);
    void tellUnread(const QString &folder, const FolderListing &listing);

    IndexState &m_state;
    IndexObserver &m_observer;
    ItemRenamer &m_renamer;
    SongTimes m_times = SongTimes::Ask;
    bool m_tidies = false;
    QSet<FolderId> m_active; ///< folders being scanned
    QSet<FolderId> m_unread; ///< folders whose faults were reported
    QSet<FolderId> m_linked; ///< folders that were entered through a symbolic link
    QList<FoundSong> m_songs;
};
