// Keeps what one job is going to change, so that it can be taken back.
#pragma once

#include "library/historystore.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <utility>

/**
 * Made when a job that writes songs begins, destroyed when it has ended. A job that writes nothing
 * leaves nothing. Nothing that goes wrong here keeps a song from being written, unless the user
 * wants it so.
 */
class HistoryRecorder
{
public:
    /** So many songs are kept together where the next ones are known. */
    static constexpr int songsAtOnce = 64;

    /** Asks, with the reason, whether the songs are to be changed without a history. */
    using AskWithout = std::function<bool(const QString &reason)>;

    /** Told, at the end, how many old jobs had to go to make room. */
    using TellDropped = std::function<void(int jobs)>;

    /** The store must outlive the object; it is opened when the first song is kept. */
    HistoryRecorder(HistoryStore &store, HistoryJob::Kind kind, AskWithout askWithout,
                    qint64 takesBack = 0);
    ~HistoryRecorder();
    Q_DISABLE_COPY_MOVE(HistoryRecorder)

    void setTellDropped(TellDropped tell) { m_tellDropped = std::move(tell); }

    /**
     * Keeps the songs as they are now, before any of them is written: many at a time cost one wait
     * for the disk. A file that is no song is left out. False when the user does not want to go on
     * without a history; he is asked once a job.
     */
    bool keep(const QStringList &paths);

    /** As keep(), of a song that is going to get another name. */
    bool keepRenamed(const QString &path, const QString &newPath);

    /** True when the song is kept and neither written() nor forget() was called for it. */
    bool isKept(const QString &path) const { return m_kept.contains(path); }

    /**
     * The job has done what it does to the song, or has failed in it: what the song said before,
     * and what it says now. A song that holds the same bytes as before leaves nothing.
     */
    void written(const QString &path, const SongInfo &before, const SongInfo &after);

    /** The song was left as it is. */
    void forget(const QString &path);

    /** The number of the job; 0 as long as nothing is kept. */
    qint64 job() const { return m_job; }

    /** How many old jobs had to go for this one. */
    int dropped() const { return m_dropped; }

private:
    struct Kept {
        qint64 id = 0;
        QByteArray digest;
        QString path; ///< where the song is afterwards
    };

    bool begin();
    bool keepEntries(const QList<HistoryStore::Entry> &entries);
    bool goOnWithout(const QString &reason);

    HistoryStore &m_store;
    const HistoryJob::Kind m_kind;
    const AskWithout m_askWithout;
    const qint64 m_takesBack;
    TellDropped m_tellDropped;
    qint64 m_job = 0;
    int m_dropped = 0;
    QHash<QString, Kept> m_kept;           ///< by the path before
    QList<HistoryStore::Ending> m_endings; ///< that are not in the store yet
    bool m_isOff = false;                  ///< the user goes on without
    bool m_isRefused = false;              ///< the user does not
};

/** Opens the history for one job; null where none is kept. */
using OpenHistory = std::function<std::unique_ptr<HistoryRecorder>(HistoryJob::Kind kind)>;
