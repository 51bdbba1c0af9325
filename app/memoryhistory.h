// The history of what the memory window changes, for work on another thread.
#pragma once

#include "library/userhistory.h"
#include "windows/backgroundjob.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

/** Made, used and destroyed by the work itself: a database belongs to one thread. */
class MemoryHistory
{
    Q_DECLARE_TR_FUNCTIONS(MemoryHistory)

public:
    /** Has the job ask whether to go on without a history; it must outlive the object. */
    explicit MemoryHistory(BackgroundJob &job);

    /** Begins a job of the history, which ends with the object that is returned. */
    std::unique_ptr<HistoryRecorder> recorder(HistoryJob::Kind kind)
    {
        return m_history.recorder(kind);
    }

    /**
     * Sees to it that the song at the place is kept before it is written, and keeps some that come
     * after it for the same wait. The paths are those on the memory. False when it must not be
     * written.
     */
    static bool keepNext(HistoryRecorder &recorder, const QString &root, const QStringList &paths,
                         qsizetype place);

    /** Why songs are not changed when the user does not go on without a history. */
    static QString whyRefused() { return tr("la cronologia non può essere scritta"); }

private:
    UserHistory m_history;
};
