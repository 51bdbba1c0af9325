// Imports through the main window.
#pragma once

#include "support/userdriver.h"
#include "support/windowundertest.h"

namespace importdriver
{

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

/** Lets the user pick these files with the folder button. */
inline void importThrough(WindowUnderTest &window, UserDriver &user, const QStringList &files)
{
    user.pick(files);
    QTest::mouseClick(window.selectButton(), Qt::LeftButton);
}

} // namespace importdriver
