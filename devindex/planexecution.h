// Carries out what a transfer plan says.
#pragma once

#include "devindex/filecopier.h"
#include "devindex/transferplan.h"
#include "library/progress.h"

#include <QCoreApplication>
#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

/**
 * Copies first, folder by folder; then the index is updated once, after the songs are removed that
 * are to be. Songs are removed only when every song that was to be copied has arrived: one of them
 * may be the new version of a song that goes.
 *
 * The plan is not believed blindly: a file that lies in a place which was free when the plan was
 * made stays, and so does one to be removed that has changed since. The memory must be locked
 * meanwhile.
 */
class PlanExecution
{
    Q_DECLARE_TR_FUNCTIONS(PlanExecution)

public:
    /** A song and why it was not copied, or not removed. */
    struct Named {
        QString path;
        QString reason;
    };

    struct Result {
        QStringList copied;          ///< the songs of the list that have arrived
        QStringList replaced;        ///< songs of the memory whose place they took
        QStringList removedPictures; ///< that belonged to songs that were replaced
        QStringList alreadyThere;    ///< those that need not be copied
        QList<Named> skipped;        ///< those that were left out
        QList<Named> failed;         ///< those that should have been copied or removed
        QStringList notReached;      ///< those behind a stop
        QStringList removed;         ///< songs of the memory
        bool indexed = false;

        /** Nothing failed, and nothing was stopped. */
        bool isComplete() const { return failed.isEmpty() && notReached.isEmpty() && indexed; }
    };

    /**
     * Updates the memory's index. What it is given, unless that is null, takes songs away: it must
     * run while there is no index, or not at all; nothing may be written when it returns false.
     */
    using UpdateIndex = std::function<bool(const std::function<bool()> &removal)>;

    PlanExecution(OpenProgress openProgress, UpdateIndex updateIndex);

    Result run(const TransferPlan &plan);

private:
    void copyAll(const TransferPlan &plan);
    void copyInto(const QString &folder, const QList<int> &numbers, const TransferPlan &plan,
                  Progress &progress);
    bool hasFolder(const QString &folder, const TransferPlan &plan);
    void removeOldPictures(const FileCopier::Song &song);
    void tellSkipped(const TransferPlan::Item &item);
    void update(const TransferPlan &plan);
    void fail(const QList<int> &numbers, const TransferPlan &plan, const QString &reason);

    const OpenProgress m_openProgress;
    const UpdateIndex m_updateIndex;
    Result m_result;
    int m_done = 0;         ///< songs that copies were tried of
    bool m_allThere = true; ///< no song is missing that was to be on the memory
};
