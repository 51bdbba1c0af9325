// Columns of the song table that a test drags and clicks.
#pragma once

#include "support/settled.h"
#include "support/shorttext.h"
#include "support/songfolder.h"
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

/** Puts two songs of the folder into the list: "b.mid", "Bravo", and "a.mid", "Alpha". */
inline void importTwo(WindowUnderTest &window, const SongFolder &songs)
{
    window.setSelectedFiles({songs.midi(s("b.mid"), "Bravo"), songs.midi(s("a.mid"), "Alpha")});
    window.importUserLibrary();
    settle(window);
}

} // namespace columndriver
