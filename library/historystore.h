// The file in which the history of the user's songs is kept.
#pragma once

#include "formats/songsnapshot.h"
#include "library/history.h"
#include "library/historyschema.h"
#include "library/sqlconnection.h"

#include <QByteArray>
#include <QFuture>
#include <QList>
#include <QSqlQuery>
#include <QString>

#include <optional>

/**
 * An SQLite file. What is added is on the disk when the function returns, so that no song is
 * touched before; what only tells how a song ended is safe from a crash of this program, but may be
 * lost with a power cut: settle() finds it out.
 *
 * Several programs may use one file at a time. The file is taken for what a stranger may have
 * written: one with another layout is refused, and no number or text in it is relied on.
 */
class HistoryStore
{
public:
    enum class State {
        Closed,
        Ready,
        Unwritable, ///< the folder or the file cannot be made or written
        Damaged,    ///< it is no history, or not one that can be read
        Newer       ///< a later version of this program made it
    };

    /** Where the user's history lies, whichever of the programs asks. */
    static QString defaultPath();

    static constexpr qint64 defaultLimit = qint64{1} << 30;

    /** The file at the path, which may hold so many bytes of songs. */
    explicit HistoryStore(const QString &path, qint64 limit = defaultLimit);

    /** Opens the file, and makes it where there is none. */
    State open();

    /** How many bytes of songs the file may hold from now on. */
    void setLimit(qint64 bytes);

    State state() const { return m_state; }
    QString path() const { return m_path; }

    /** A new job; its number, or nothing when it cannot be kept. */
    std::optional<qint64> addJob(HistoryJob::Kind kind, qint64 takesBack = 0);

    /** A song as it is before a job writes it. */
    struct Entry {
        QString path;
        QString newPath; ///< of a job that renames
        SongSnapshot snapshot;
        std::optional<QFuture<QByteArray>> compressed = {}; ///< its bytes, when that has begun
    };

    /** How a job has left a song. */
    struct Ending {
        qint64 song = 0;
        SongInfo before;
        SongInfo after;
        qint64 size = 0;
        QByteArray digest; ///< of the file now; empty for a song that was not written after all
    };

    /**
     * Keeps the songs; their ids in the same order, or none when they cannot be kept. What is known
     * of earlier ones is told in the same step, or not at all.
     */
    QList<qint64> addSongs(qint64 job, const QList<Entry> &entries,
                           const QList<Ending> &endings = {});

    /** Tells how the songs have ended. */
    bool end(const QList<Ending> &endings);

    /** Everything that the job did has been taken back, as far as that was possible and wished. */
    bool setUndone(qint64 job);

    /** Removes the job if it wrote no song. */
    bool removeIfEmpty(qint64 job);

    /**
     * Drops the oldest jobs until the limit holds, but for the one that runs, the one that it
     * takes back, and those that may run in other programs. How many were dropped, or -1.
     */
    int makeRoom(qint64 runningJob);

    /** All jobs that wrote songs, the last one first. */
    QList<HistoryJob> jobs();

    /** The songs of a job, in the order in which they were written. */
    QList<HistorySong> songs(qint64 job);

    /** What was kept of the song; nothing when it is damaged. */
    std::optional<SongSnapshot> snapshot(const HistorySong &song);

    /**
     * Finds out how the songs ended whose jobs were cut off between two steps. A song that has
     * other bytes since may also have got them from somebody else: it counts as changed since. A
     * job that runs meanwhile tells better afterwards.
     */
    void settle();

private:
    State prepare();
    static State stateFor(historyschema::Content content);
    bool writeEndings(const QList<Ending> &endings);
    qint64 jobTakenBackBy(qint64 job);
    void settleSong(const HistorySong &song);
    std::optional<SongSnapshot> nextState(const HistorySong &song);
    bool execute(const QString &statement);
    bool execute(QSqlQuery &query);

    QString m_path;
    qint64 m_limit;
    std::optional<qint64> m_room; ///< bytes up to the limit; nothing as long as it is not known
    SqlConnection m_connection;
    State m_state = State::Closed;
};
