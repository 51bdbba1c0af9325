// The history of the user who runs the program.
#pragma once

#include "library/history.h"
#include "library/historyrecorder.h"
#include "library/historystore.h"

#include <QString>

#include <memory>
#include <optional>

/** The store in the user's data folder with the limit that the user set. */
class UserHistory
{
public:
    static constexpr int defaultLimit = 1024;   ///< megabytes
    static constexpr int smallestLimit = 10;    ///< megabytes
    static constexpr int largestLimit = 100000; ///< megabytes

    /** Asks when a job can have no history, and is told what old jobs had to go. */
    UserHistory(HistoryRecorder::AskWithout askWithout, HistoryRecorder::TellDropped tellDropped);

    HistoryStore &store() { return m_store; }

    /**
     * Opens the store to look at it, and finds out about jobs that were cut off. Where there is
     * none yet, none is made: the state is Closed.
     */
    HistoryStore::State open();

    /** For the workflows that write songs; the object must outlive it. */
    OpenHistory opener();

    /** For taking a job back; 0 for a job that takes back none. */
    std::unique_ptr<HistoryRecorder> recorder(HistoryJob::Kind kind, qint64 takesBack = 0);

    /** The job that the user means by the last one: neither taken back nor one that takes back. */
    static std::optional<HistoryJob> last(const QList<HistoryJob> &jobs);

    /** True for a job that another one took back, unless that was taken back itself. */
    static bool isTakenBack(const HistoryJob &job, const QList<HistoryJob> &jobs);

    /** How much may be kept, in megabytes; a setting of the user. */
    static int limit();
    static void setLimit(int megabytes);

private:
    const HistoryRecorder::AskWithout m_askWithout;
    const HistoryRecorder::TellDropped m_tellDropped;
    HistoryStore m_store;
};
