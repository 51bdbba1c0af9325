// The jobs of the driver that are kept in a history, and that take one back.
#pragma once

#include "devindex/jobundo.h"
#include "library/userhistory.h"
#include "support/recordedprogress.h"

#include <QFileInfo>

#include <functional>
#include <memory>

namespace historyjobs
{

/** Says what kind of thing happened, and what. */
using Say = std::function<void(const QString &kind, const QString &text)>;

inline const QString failure = QStringLiteral("failure");

/** The user wants no song changed that cannot be taken back. */
inline std::unique_ptr<HistoryRecorder> recorder(HistoryStore &store, HistoryJob::Kind kind,
                                                 const Say &say, qint64 takesBack = 0)
{
    return std::make_unique<HistoryRecorder>(
        store, kind,
        [say](const QString &reason) {
            say(failure, reason);
            return false;
        },
        takesBack);
}

/** Names the songs that the history says were changed, and takes the last job back. */
inline bool takeLastBack(const QString &history, const Say &say)
{
    HistoryStore store(history);
    if (QFileInfo::exists(history) && store.open() != HistoryStore::State::Ready) {
        say(failure, QStringLiteral("the history cannot be used"));
        return false;
    }
    store.settle();
    const std::optional<HistoryJob> job = UserHistory::last(store.jobs());
    if (!job)
        return true;
    QList<HistorySong> written = store.songs(job->number);
    written.removeIf([](const HistorySong &song) { return song.newDigest.isEmpty(); });
    for (const HistorySong &song : std::as_const(written))
        say(QStringLiteral("kept"), song.path);
    ProgressRecord record;
    RecordedProgress progress(record, {}, {}, 0);
    const auto kept = recorder(store, HistoryJob::Kind::TakeBack, say, job->number);
    // Who wrote the songs of a job that was cut off, nothing tells: they count as changed since.
    const HistoryUndo::Report report =
        JobUndo(store, recordedBy(record)).takeBack(*job, written, true, *kept, progress);
    for (const HistoryUndo::Failure &song : report.failed)
        say(failure, song.path + QStringLiteral(": ") + song.reason);
    return report.failed.isEmpty() && !report.stopped;
}

} // namespace historyjobs
