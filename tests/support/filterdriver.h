// Songs that are filtered in the main window.
#pragma once

#include "support/apptest.h"
#include "support/shorttext.h"
#include "support/songfolder.h"
#include "support/userdriver.h"
#include "support/windowundertest.h"

namespace filterdriver
{

inline QLineEdit *field(const WindowUnderTest &window)
{
    return window.child<QLineEdit>("filterLineEdit");
}

/** Types the text into the emptied field, key by key. */
inline void type(const WindowUnderTest &window, const QString &text)
{
    field(window)->clear();
    for (const QChar &letter : text)
        QTest::sendKeyEvent(QTest::Click, field(window), Qt::Key_unknown, letter, {});
}

/** The file names of the rows that can be seen, from top to bottom. */
inline QString visible(const WindowUnderTest &window)
{
    QStringList names;
    for (int row = 0; row < window.model()->goodRowCount(); ++row) {
        if (!window.table()->isRowHidden(row) &&
            !window.table()->visualRect(window.model()->index(row, 2)).isEmpty())
            names << window.model()->shortName(row);
    }
    return names.join(QLatin1Char(' '));
}

/** Three songs: a.mid "Alpha", b.mid "Beta", c.mid "Alphabet". */
struct ThreeSongs {
    ThreeSongs()
    {
        window.setSelectedFiles({songs.midi(s("a.mid"), "Alpha"), songs.midi(s("b.mid"), "Beta"),
                                 songs.midi(s("c.mid"), "Alphabet")});
        window.importUserLibrary();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
    }

    const SongFolder songs;
    WindowUnderTest window;
};

} // namespace filterdriver
