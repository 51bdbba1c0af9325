// Writes what an edit of several songs has shown into their files.
#pragma once

#include "formats/metasong.h"
#include "library/historyrecorder.h"
#include "library/progress.h"
#include "library/runreport.h"
#include "library/severalpreview.h"
#include "storage/leftovers.h"

#include <QCoreApplication>
#include <QList>
#include <QString>

#include <functional>

/**
 * A song is written only when it still holds what was shown as its old data, and when it will hold
 * exactly what was shown as its new ones; any other is left as it is and named. Stops between
 * songs.
 */
class SeveralEditor
{
    Q_DECLARE_TR_FUNCTIONS(SeveralEditor)

public:
    struct Report {
        int written = 0;
        RunReport problems; ///< the songs that were not saved
        bool stopped = false;
    };

    /** Told of each song that was tried: what it holds now; None when it was written. */
    using Tried = std::function<void(const SongInfo &now, SaveFailure failure)>;

    explicit SeveralEditor(Tried tried = {});

    /** Where the songs are kept before they are changed; without it they are not. */
    void setHistory(OpenHistory openHistory) { m_openHistory = std::move(openHistory); }

    /**
     * Writes the songs that change; the others are not touched. A path that comes twice is written
     * once.
     */
    Report run(const QList<SeveralSong> &songs, Progress &progress);

private:
    bool keepNext(const QList<SeveralSong> &songs, qsizetype place);
    void write(const SeveralSong &song, Report &report);
    QString problemBeforeSave(const SeveralSong &song, MetaSong &file, SaveFailure &failure) const;

    Tried m_tried;
    OpenHistory m_openHistory;
    std::unique_ptr<HistoryRecorder> m_history; ///< of the job that runs; null without one
    Leftovers m_leftovers;
};
