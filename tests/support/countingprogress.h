// A progress that remembers what it was told.
#pragma once

#include "library/progress.h"

#include <QList>

/** A progress without a window that says "cancelled" from a certain moment on. */
class CountingProgress : public Progress
{
public:
    void setMaximum(int) override {}
    void setValue(int done) override { values << done; }
    void updateProgress(int done) override { values << done; }
    bool wasCanceled() const override { return cancelAt >= 0 && values.size() >= cancelAt; }

    QList<int> values;
    int cancelAt = -1;
};
