// Which name of the user's own choice a song of a transfer plan can have on the memory.
#pragma once

#include "devindex/transferplan.h"

#include <QCoreApplication>
#include <QString>

class PlannedName
{
    Q_DECLARE_TR_FUNCTIONS(PlannedName)

public:
    /**
     * Why the song of this number cannot be copied beside the one that is there under the name, in
     * a few words for the user; empty when it can. The name, with its suffix, must keep the
     * player's rules, and nothing on the memory or in the plan may have it, whatever remedies are
     * chosen now.
     */
    static QString whyNot(const TransferPlan &plan, int number, const QString &name);

    /** The song gets the name when it is kept beside another one; false when it cannot have it. */
    static bool set(TransferPlan &plan, int number, const QString &name);
};
