// Columns of the song table that a test drags and clicks.
#pragma once

#include "support/shorttext.h"
#include "support/windowundertest.h"

#include <QHeaderView>

namespace columndriver
{

inline QHeaderView *header(const WindowUnderTest &window)
{
    return window.table()->horizontalHeader();
}

/** Lets the window lay itself out. */
inline void settle(WindowUnderTest &window)
{
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QTest::qWait(20);
}

} // namespace columndriver
