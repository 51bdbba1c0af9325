// Makes the index files of a memory from the entries of an index.
#pragma once

#include "devindex/entrysort.h"
#include "devindex/indexstate.h"
#include "devindex/songhead.h"

#include <QCoreApplication>
#include <QLatin1String>
#include <QSet>
#include <QString>

#include <optional>

class SongAdder;

class IndexBuild
{
    Q_DECLARE_TR_FUNCTIONS(Index)

public:
    IndexBuild(IndexState &state, IndexObserver &observer);

    /**
     * Reads what is new or changed, and marks the entries whose files are gone. The time of a file
     * that scanned has seen is not read again; scanned may be null.
     */
    void refreshEntries(const SongAdder *scanned);

    /** Writes all index files, and the new ids into the playlists; false when that failed. */
    bool write();

    /**
     * Removes the file of counts, on the medium as well, before any other index file changes: if
     * the work is cut off after that, the player sees no index. Where the playlists get new ids the
     * old path file is removed too, so that the new ids are never looked up in it.
     */
    bool removeCounts() const;

    /** Writes the file of counts: it appears with its bytes or not at all. -1 when it does not. */
    int writeCounts() const;

private:
    void refresh(SongInfoIndex &entry, const SongAdder *scanned);
    void readNew(SongInfoIndex &entry);
    bool isHidden(const SongInfoIndex &entry) const;
    std::optional<FileStamp> readSong(SongInfoIndex &entry);
    bool removeLinks() const;
    bool writeOrder() const;
    bool restorePlaylists();
    bool writeSongFiles(const BuildOrders &orders);
    bool writeAlpha(QLatin1String name) const;

    IndexState &m_state;
    IndexObserver &m_observer;
    SongHeadBuffer m_head{};
    QSet<QString> m_texts; ///< each artist and genre once, since many songs share them
};
