// The songs on a memory, each held against the player's index.
#pragma once

#include "devindex/songinfoindex.h"
#include "library/progress.h"

#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

/** A song that lies on a memory, or that its index lists. */
struct MemorySong {
    enum class State : quint8 {
        Indexed,    ///< the player shows it as it is
        NotIndexed, ///< the player does not find it until the index is updated
        Changed,    ///< the file was changed after the index was made
        Gone,       ///< the index lists it, but there is no such file
        Unreadable  ///< the index lists it; whether it is there the folder does not tell
    };

    SongInfoIndex info; ///< of the index; of a song that is new or was changed, what the file tells
    QString companion;  ///< name of the karaoke pictures' file beside it; empty without one
    qint64 size = 0;    ///< of the song alone, in bytes
    State state = State::Indexed;
    bool showsOnlyName = false; ///< the player reads no title, artist and genre in the file
    bool isBehindLink = false;  ///< a symbolic link leads to it: it may lie anywhere
};
Q_DECLARE_TYPEINFO(MemorySong, Q_RELOCATABLE_TYPE);

/** True when the file lies there as it was when it was listed: what is changed is what was seen. */
bool isAsListed(const MemorySong &song);

/**
 * Reads only: nothing on the memory is changed. The songs are those that an update of the index
 * would look at. The index is taken for what a stranger may have written: its paths are compared
 * with what was found and never followed.
 */
class MemorySongs
{
public:
    enum class Outcome { Done, Stopped, NoMemory };

    enum class IndexState {
        Absent,  ///< a file of it is missing: the player finds no songs
        Damaged, ///< all files are there but do not belong together
        Whole
    };

    /** The memory with this root folder. */
    explicit MemorySongs(const QString &root);

    /**
     * Reads the index and walks through the folders. The progress is told the number of songs found
     * so far and asked whether to stop. NoMemory, with no songs, when the root cannot be read or is
     * not the same folder at the end: half of a memory that was pulled tells nothing.
     */
    Outcome read(Progress &progress);

    /** In the order of the walk; behind them those that were not found. */
    const QList<MemorySong> &songs() const { return m_songs; }

    QString root() const { return m_root; }
    IndexState indexState() const { return m_indexState; }

    /** When the index was made; invalid without one. */
    QDateTime indexTime() const { return m_indexTime; }

    /** The songs in this state. */
    int count(MemorySong::State state) const;

    /** Folders that could not be read, or not wholly, as paths on the memory. */
    const QStringList &unreadableFolders() const { return m_unreadable; }

private:
    QList<SongInfoIndex> readIndex();
    void compare(const QList<SongInfoIndex> &entries, const Progress &progress);
    void take(MemorySong &song, const SongInfoIndex &entry) const;
    void addMissing(const SongInfoIndex &entry);

    const QString m_root;
    QList<MemorySong> m_songs;
    QStringList m_unreadable;
    IndexState m_indexState = IndexState::Absent;
    QDateTime m_indexTime;
};
