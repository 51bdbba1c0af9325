// Takes songs of a transfer plan from their memory.
#pragma once

#include "devindex/songremoval.h"
#include "devindex/transferplan.h"
#include "library/keepalive.h"
#include "library/progress.h"

#include <QCoreApplication>
#include <QList>
#include <QString>

/**
 * A song that is not the file any more that was planned stays: another program, or a link, may have
 * brought something else to its path.
 */
class PlannedRemoval
{
    Q_DECLARE_TR_FUNCTIONS(PlannedRemoval)

public:
    /** A song, and why it is there still; an empty reason means that it is gone. */
    struct Outcome {
        QString path;
        QString reason;
    };

    explicit PlannedRemoval(const TransferPlan &plan);

    /**
     * Removes the songs that the plan wants removed. When this returns, they are gone from the
     * medium as well; those whose folder does not take that to the medium count as still there.
     * Once the user stops it, the rest stays.
     */
    QList<Outcome> run(Progress &progress);

    /** False when the medium did not confirm that all that was removed is gone. */
    bool isOnMedium() const { return m_onMedium; }

private:
    QString remove(const TransferPlan::Item &item);
    bool isAsPlanned(const TransferPlan::Item &item) const;
    void settle();

    const TransferPlan &m_plan;
    SongRemoval m_removal;
    KeepAlive m_keepAlive;
    QList<Outcome> m_outcomes;
    qsizetype m_settled = 0; ///< so many of them are certain
    bool m_onMedium = true;
};
