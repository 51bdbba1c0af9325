// Takes jobs of the history back, also those that changed songs on a player's memory.
#pragma once

#include "library/historyundo.h"
#include "library/progress.h"

#include <QCoreApplication>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

/**
 * A song on a memory that has an index is changed under the lock of the memory, and the index is
 * made true again, once for all songs: the player would not find a renamed song otherwise.
 */
class JobUndo
{
    Q_DECLARE_TR_FUNCTIONS(JobUndo)

public:
    /** The store must be open and outlive the object; opens progresses of the index. */
    JobUndo(HistoryStore &store, OpenProgress openProgress);

    /** Songs that the user has at hand: one that was moved is looked for among them. */
    void setKnownSongs(const QStringList &paths) { m_undo.setKnownSongs(paths); }

    /** As HistoryUndo::takeBack(); a memory whose index is not true now has failed, too. */
    HistoryUndo::Report takeBack(const HistoryJob &job, const QList<HistorySong> &songs,
                                 bool alsoChanged, HistoryRecorder &recorder, Progress &progress);

private:
    struct Work;

    QString memoryOf(const QString &path);
    void takeBackOn(const QString &root, const QList<HistorySong> &songs, Work &work);
    QString renameSong(const QString &path, const QString &target);

    HistoryStore &m_store;
    HistoryUndo m_undo;
    const OpenProgress m_openProgress;
    QHash<QString, QString> m_memories; ///< by folder, the root of its memory or nothing
    QStringList m_untrue;               ///< memories whose index a rename has left untrue
};
