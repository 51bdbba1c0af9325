// Takes jobs of the history back, with a progress and a report over a window.
#pragma once

#include "library/historyundo.h"
#include "library/userhistory.h"

#include <QMessageBox>

#include <memory>

class FileListDialog;

/** Tells what came of it; a button leads to the songs that stayed as they are. */
class TakingBack : public QMessageBox
{
    Q_OBJECT

public:
    explicit TakingBack(const HistoryUndo::Report &report, QWidget *parent = nullptr);

    /** What is to be taken back. */
    struct Job {
        HistoryJob job;
        QList<HistorySong> songs; ///< all of the job's or some
        bool alsoChanged = false; ///< also those that were changed since
    };

    /**
     * Does it and shows the report; the known songs are those among which a moved one is looked
     * for. Returns what came of it. The history must be open.
     */
    static HistoryUndo::Report run(UserHistory &history, const Job &job,
                                   const QStringList &knownSongs, QWidget *parent);

    /** The songs that stayed as they are, each with the reason. */
    static std::unique_ptr<FileListDialog> details(const HistoryUndo::Report &report,
                                                   QWidget *parent = nullptr);

    /** The job in a few words: its kind, when it began, how many songs it wrote. */
    static QString described(const HistoryJob &job);
};
