// Columns of the song table that a test drags and clicks.
#pragma once

#include "support/settled.h"
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
    QVERIFY(settled::processAll());
}

} // namespace columndriver
