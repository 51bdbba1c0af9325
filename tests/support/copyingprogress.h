// A progress without a window: it remembers what it was told, and can be made to ask for a stop.
#pragma once

#include "library/progress.h"

#include <QList>

#include <functional>

class CopyingProgress : public Progress
{
public:
    void setMaximum(int steps) override { maximum = steps; }
    void setValue(int done) override { values.append(done); }
    void updateProgress(int done) override
    {
        updates.append(done);
        if (onUpdate)
            onUpdate(done);
    }
    bool wasCanceled() const override { return canceled; }

    int maximum = 0;
    bool canceled = false;
    QList<int> values;
    QList<int> updates;
    std::function<void(int)> onUpdate;
};
