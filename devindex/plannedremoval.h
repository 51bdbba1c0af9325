// Takes songs of a transfer plan from their memory.
#pragma once

#include "devindex/transferplan.h"

#include <QCoreApplication>
#include <QList>
#include <QString>

/**
 * Removes each song with its karaoke pictures and with what a save that was cut off left beside
 * it. A song that is not the file any more that was planned stays: another program, or a link, may
 * have brought something else to its path.
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
     */
    QList<Outcome> run();

private:
    QString remove(const TransferPlan::Item &item) const;
    bool isAsPlanned(const TransferPlan::Item &item) const;

    const TransferPlan &m_plan;
};
