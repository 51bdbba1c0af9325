// Columns of the song table that a test drags and clicks.
#pragma once

#include "support/windowundertest.h"

#include <QHeaderView>

namespace columndriver
{

inline QString s(const char *text)
{
    return QString::fromUtf8(text);
}

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
