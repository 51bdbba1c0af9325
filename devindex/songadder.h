// Adds the songs that a scan has found to the entries of an index.
#pragma once

#include "devindex/foundsong.h"
#include "devindex/indexstate.h"

#include <QCoreApplication>
#include <QList>
#include <QString>

#include <optional>
#include <vector>

class SongAdder
{
    Q_DECLARE_TR_FUNCTIONS(Index)

public:
    SongAdder(IndexState &state, IndexObserver &observer);

    /** Adds songs to entries in any order and brings them into path order. */
    void addAll(const QList<FoundSong> &songs);

    /**
     * Adds a song to entries, which must be in path order, unless it is there already. A second
     * file whose name differs only in case counts as there, and is reported. False, after an error
     * was reported, when the song cannot be indexed.
     */
    bool add(const FoundSong &song);

    /** What was seen of an entry's file when it was added or found again. */
    std::optional<FileStamp> stampOf(const SongInfoIndex &entry) const;

private:
    struct Seen {
        quint32 id = SongInfoIndex::removedId;
        std::optional<FileStamp> stamp;
    };

    template <typename Order>
    bool addTo(Order &order, const FoundSong &song);
    bool pathOnMemory(const QString &fullPath, QString &path);
    bool isIndexedAs(SongInfoIndex &entry, const QString &path, const QString &fullPath);
    bool hasRoomFor(const QString &fullPath);
    void see(const SongInfoIndex &entry, const std::optional<FileStamp> &stamp);

    IndexState &m_state;
    IndexObserver &m_observer;
    std::vector<Seen> m_seen;      ///< by record number, which no two entries share
    qsizetype m_expectedPlace = 0; ///< where the next song should stand
};
