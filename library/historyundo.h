// Takes back what a job of the history did to songs.
#pragma once

#include "library/historyrecorder.h"
#include "library/historystore.h"
#include "library/progress.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QHash>
#include <QList>
#include <QMultiHash>
#include <QString>
#include <QStringList>

#include <functional>
#include <utility>

/** Taking back is a job itself, and can be taken back. */
class HistoryUndo
{
    Q_DECLARE_TR_FUNCTIONS(HistoryUndo)

public:
    /** How a song that a job wrote stands now. */
    enum class State {
        AsLeft,     ///< just as the job left it
        Moved,      ///< likewise, but at another place
        AlreadyOld, ///< just as it was before the job
        Changed,    ///< something else was done to it since
        Unreadable, ///< it is where it was, but cannot be read as a song
        Missing     ///< it is not where it was, nor among the songs that are known
    };

    struct Found {
        State state = State::Missing;
        QString path; ///< where the song lies now
    };

    struct Failure {
        QString path;
        QString reason;
    };

    /** A song that has its old name again. */
    struct Renamed {
        QString path; ///< where it was
        QString newPath;
    };

    struct Report {
        QStringList done; ///< where the songs lie now
        QList<Renamed> renamed;
        QList<Failure> failed;
        bool stopped = false;
        int alreadyOld = 0;
        int leftAlone = 0; ///< of those that failed, those of which nothing else is to be expected

        /** A drive may be connected again; a song that is not in its folder is gone. */
        void missing(const QString &path, const QString &reason)
        {
            failed.append({path, reason});
            leftAlone += QFileInfo(QFileInfo(path).path()).isDir() ? 1 : 0;
        }
    };

    /** The store must be open and outlive the object. */
    explicit HistoryUndo(HistoryStore &store);

    /** Songs that the user has at hand: one that was moved is looked for among them. */
    void setKnownSongs(const QStringList &paths);

    /** Gives a song another name; why that failed, empty when it did not. */
    using RenameSong = std::function<QString(const QString &path, const QString &target)>;

    /** What gives songs their old names in place of renameSong(). */
    void setRename(RenameSong rename) { m_rename = std::move(rename); }

    /**
     * Gives the song the other name, together with its karaoke pictures or not at all. Says why
     * not.
     */
    static QString renameSong(const QString &path, const QString &target);

    Found find(const HistorySong &song);

    /**
     * Gives the songs of a job back what they were, the last one first. A song that was changed
     * since is left alone, and reported, unless alsoChanged. Stops between songs.
     */
    Report takeBack(const QList<HistorySong> &songs, bool alsoChanged, HistoryRecorder &recorder,
                    Progress &progress);

private:
    QString takeBackOne(const HistorySong &song, const Found &found, HistoryRecorder &recorder,
                        Report &report);
    QString renameBack(const HistorySong &song, const QString &path, HistoryRecorder &recorder,
                       Report &report);
    static QString nameBefore(const HistorySong &song, const QString &path);
    QStringList knownWith(const HistorySong &song);
    bool isAnothers(const HistorySong &song, const QString &path);

    HistoryStore &m_store;
    RenameSong m_rename;
    QMultiHash<qint64, QString> m_known;          ///< by their sizes: those not looked at yet
    QMultiHash<QByteArray, QString> m_knownBytes; ///< by their digests, as they were then
    QHash<qint64, QMultiHash<QString, qint64>> m_written; ///< by job: its songs by their places
};
