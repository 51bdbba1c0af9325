// Gives the files of many songs the names that were shown.
#pragma once

#include "devindex/severalrenames.h"
#include "library/historyrecorder.h"
#include "library/progress.h"
#include "library/runreport.h"
#include "storage/leftovers.h"

#include <QCoreApplication>
#include <QList>
#include <QString>

#include <functional>

/** Stops between files. A file whose new name has been taken since it was shown keeps its own. */
class SeveralRenamer
{
    Q_DECLARE_TR_FUNCTIONS(SeveralRenamer)

public:
    struct Report {
        int renamed = 0;
        QList<SongFinding> problems; ///< the files that keep their names, or may lose the new ones
        bool stopped = false;
    };

    /** Told of each file that has got its new name. */
    using Renamed = std::function<void(const QString &path, const QString &newPath)>;

    explicit SeveralRenamer(Renamed renamed = {});

    /** Where it is kept which file had which name; without it that is not kept. */
    void setHistory(OpenHistory openHistory) { m_openHistory = std::move(openHistory); }

    Report run(const QList<SeveralRename> &songs, Progress &progress);

private:
    bool rename(const SeveralRename &song, Report &report);

    Renamed m_renamed;
    OpenHistory m_openHistory;
    std::unique_ptr<HistoryRecorder> m_history; ///< of the job that runs; null without one
    Leftovers m_leftovers;
};
