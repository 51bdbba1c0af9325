// Takes back what a job of the history did to songs.
#pragma once

#include "library/historyrecorder.h"
#include "library/historystore.h"
#include "library/progress.h"

#include <QCoreApplication>
#include <QList>
#include <QMultiHash>
#include <QString>
#include <QStringList>

#include <functional>

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

    struct Report {
        QStringList done; ///< where the songs lie now
        QList<Failure> failed;
        bool stopped = false;
        int alreadyOld = 0;
    };

    /** The store must be open and outlive the object. */
    explicit HistoryUndo(HistoryStore &store);

    /** Songs that the user has at hand: one that was moved is looked for among them. */
    void setKnownSongs(const QStringList &paths);

    Found find(const HistorySong &song);

    /**
     * Gives the songs of the job back what they were, the last one first. A song that was changed
     * since is left alone, and reported, unless alsoChanged. Stops between songs.
     */
    Report takeBack(const HistoryJob &job, const QList<HistorySong> &songs, bool alsoChanged,
                    HistoryRecorder &recorder, Progress &progress);

private:
    QString takeBackOne(const HistorySong &song, const QString &path, HistoryRecorder &recorder);
    QString renameBack(const HistorySong &song, const QString &path, HistoryRecorder &recorder);

    HistoryStore &m_store;
    QMultiHash<qint64, QString> m_known; ///< by their sizes
};
