// The filtered list: which song is chosen, and songs that arrive or change.
#include "support/apptest.h"
#include "support/filterdriver.h"
#include "support/settled.h"
#include "support/songfolder.h"
#include "support/userdriver.h"
#include "support/windowundertest.h"

#include <QApplication>
#include <QMenu>
#include <QProgressDialog>
#include <QTest>

using namespace filterdriver;

class TestSongFilterList : public AppFixture
{
    Q_OBJECT

private slots:
    void init() { AppFixture::init(); }
    void cleanup() { AppFixture::cleanup(); }

    void hiddenSongIsNoLongerChosen();
    void shownSongStaysChosen();
    void nextSongShownIsChosenAfterARemoval();
    void removingTheLastSongShownLeavesNothingChosen();
    void arrowKeysSkipHiddenRows();
    void typingInTheListNeverEndsOnAHiddenRow();
    void rowMenuActsOnTheRowThatIsSeen();

    void importIsFiltered();
    void rowsThatArriveAreFiltered();
    void changedSongIsLookedAtAgain();
    void sortingKeepsWhatIsHidden();
    void workflowIsNotDisturbed();
    void failedDatabaseLeavesTheFieldDisabled();
};

// ---------------------------------------------------------------- choice
void TestSongFilterList::hiddenSongIsNoLongerChosen()
{
    const ThreeSongs three;
    three.window.table()->selectRow(0);
    QVERIFY(three.window.action("actionRemoveSong")->isEnabled());
    type(three.window, s("beta"));
    QVERIFY(!three.window.table()->currentIndex().isValid());
    QVERIFY(three.window.table()->selectionModel()->selectedRows().isEmpty());
    for (const char *name : {"actionEditSong", "actionRemoveSong", "actionDeleteSongFile"})
        QVERIFY2(!three.window.action(name)->isEnabled(), name);
    three.window.table()->setFocus();
    QTest::keyClick(three.window.windowHandle(), Qt::Key_Delete);
    QCOMPARE(three.window.model()->goodRowCount(), 3);
    field(three.window)->clear();
    QVERIFY(three.window.table()->selectionModel()->selectedRows().isEmpty());
    QTest::keyClick(three.window.windowHandle(), Qt::Key_Delete);
    QCOMPARE(three.window.model()->goodRowCount(), 3);
}

void TestSongFilterList::shownSongStaysChosen()
{
    const ThreeSongs three;
    three.window.table()->selectRow(1);
    type(three.window, s("bet"));
    QCOMPARE(three.window.table()->currentIndex().row(), 1);
    QVERIFY(three.window.action("actionRemoveSong")->isEnabled());
}

void TestSongFilterList::nextSongShownIsChosenAfterARemoval()
{
    const ThreeSongs three;
    type(three.window, s("alpha"));
    three.window.table()->selectRow(0);
    three.window.table()->setFocus();
    QTest::keyClick(three.window.windowHandle(), Qt::Key_Delete);
    QCoreApplication::processEvents();
    QCOMPARE(three.window.shownNames(), (QStringList{s("b.mid"), s("c.mid")}));
    QCOMPARE(three.window.table()->currentIndex().row(), 1); // and not the hidden b.mid
    QTest::keyClick(three.window.windowHandle(), Qt::Key_Delete);
    QCOMPARE(three.window.shownNames(), QStringList{s("b.mid")});
}

void TestSongFilterList::removingTheLastSongShownLeavesNothingChosen()
{
    const ThreeSongs three;
    type(three.window, s("beta"));
    three.window.table()->selectRow(1);
    three.window.table()->setFocus();
    QTest::keyClick(three.window.windowHandle(), Qt::Key_Delete);
    QVERIFY(!three.window.action("actionRemoveSong")->isEnabled()); // at once
    QTest::keyClick(three.window.windowHandle(), Qt::Key_Delete);
    QCoreApplication::processEvents();
    QTest::keyClick(three.window.windowHandle(), Qt::Key_Delete);
    QCOMPARE(three.window.shownNames(), (QStringList{s("a.mid"), s("c.mid")}));
    QVERIFY(!three.window.table()->currentIndex().isValid());
}

void TestSongFilterList::arrowKeysSkipHiddenRows()
{
    const ThreeSongs three;
    type(three.window, s("alpha"));
    three.window.table()->selectRow(0);
    three.window.table()->setFocus();
    QTest::keyClick(three.window.windowHandle(), Qt::Key_Down);
    QCOMPARE(three.window.table()->currentIndex().row(), 2);
    QTest::keyClick(three.window.windowHandle(), Qt::Key_Up);
    QCOMPARE(three.window.table()->currentIndex().row(), 0);
}

void TestSongFilterList::typingInTheListNeverEndsOnAHiddenRow()
{
    const ThreeSongs three;
    type(three.window, s("alpha"));
    three.window.table()->setCurrentIndex(three.window.model()->index(0, 2));
    three.window.table()->setFocus();
    QTest::keyClicks(three.window.table(), s("b")); // "Beta" is hidden
    QCoreApplication::processEvents();
    QVERIFY(!three.window.table()->isRowHidden(three.window.table()->currentIndex().row()));
}

void TestSongFilterList::rowMenuActsOnTheRowThatIsSeen()
{
    const ThreeSongs three;
    type(three.window, s("alphabet"));
    QTimer chooser;
    QObject::connect(&chooser, &QTimer::timeout, &chooser, [&] {
        auto *const menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (menu == nullptr)
            return;
        chooser.stop();
        menu->setActiveAction(menu->actions().first());
        QTest::keyClick(menu, Qt::Key_Return);
    });
    chooser.start(5);
    emit three.window.table()->customContextMenuRequested(QPoint(20, 5)); // the first row seen
    QCOMPARE(three.window.shownNames(), (QStringList{s("a.mid"), s("b.mid")}));
}

// ---------------------------------------------------------------- changing rows
void TestSongFilterList::importIsFiltered()
{
    const SongFolder songs;
    WindowUnderTest window;
    type(window, s("special"));
    QStringList files;
    for (int i = 0; i < 600; ++i)
        files << songs.midi(s("%1.mid").arg(i), i % 100 == 7 ? "A special one" : "Plain");
    window.setSelectedFiles(files);
    for (int i = 0; i < 2; ++i) { // the second import replaces rows that are hidden
        window.importUserLibrary();
        QCOMPARE(window.model()->goodRowCount(), 600);
        QCOMPARE(visible(window), s("7.mid 107.mid 207.mid 307.mid 407.mid 507.mid"));
    }
    field(window)->clear();
    for (int row = 0; row < 600; ++row)
        QVERIFY(!window.table()->isRowHidden(row));
}

void TestSongFilterList::rowsThatArriveAreFiltered()
{
    ThreeSongs three;
    three.songs.midi(s("d.mid"), "Delta");
    three.songs.midi(s("e.mid"), "Alpha the second");
    type(three.window, s("alpha"));
    int valid = 0;
    int kravo = 0;
    int bad = 0;
    three.window.scanDir(three.songs.path(), valid, kravo, bad);
    QCOMPARE(valid, 5);
    QCOMPARE(visible(three.window), s("a.mid c.mid a.mid c.mid e.mid"));
    SongInfo info;
    info.title = s("No match");
    three.window.model()->addSong(info);
    QTRY_VERIFY(three.window.table()->isRowHidden(8));
}

void TestSongFilterList::changedSongIsLookedAtAgain()
{
    const ThreeSongs three;
    type(three.window, s("beta"));
    SongInfo info;
    info.title = s("Beta too");
    three.window.model()->updateRow(0, info);
    QTRY_COMPARE(visible(three.window), s("a.mid b.mid"));
    info.title = s("Gamma");
    three.window.model()->updateRow(1, info);
    QTRY_COMPARE(visible(three.window), s("a.mid"));
}

void TestSongFilterList::sortingKeepsWhatIsHidden()
{
    const ThreeSongs three;
    type(three.window, s("alpha"));
    three.window.table()->sortByColumn(2, Qt::DescendingOrder); // Beta, Alphabet, Alpha
    QCoreApplication::processEvents();
    QCOMPARE(visible(three.window), s("c.mid a.mid"));
    QCOMPARE(three.window.shownNames(), (QStringList{s("b.mid"), s("c.mid"), s("a.mid")}));
    three.window.table()->sortByColumn(-1, Qt::AscendingOrder);
    QCoreApplication::processEvents();
    QCOMPARE(visible(three.window), s("a.mid c.mid"));
}

void TestSongFilterList::workflowIsNotDisturbed()
{
    const SongFolder songs;
    QStringList files;
    for (int i = 0; i < 200; ++i)
        files << songs.midi(s("%1.mid").arg(i), "Plain");
    WindowUnderTest window;
    window.setSelectedFiles(files);
    ModalAnswers user;
    int hidden = -1;
    user.add([&](QWidget *modal) {
        if (qobject_cast<QProgressDialog *>(modal) == nullptr || hidden >= 0)
            return false;
        window.action("actionFindSong")->trigger();
        field(window)->setText(s("199.mid"));
        if (!settled::processAll())
            return false;
        hidden = 0;
        for (int row = 0; row < window.model()->goodRowCount(); ++row)
            hidden += window.table()->isRowHidden(row) ? 1 : 0;
        return true;
    });
    window.importUserLibrary();
    QCOMPARE(hidden, 0); // it waits until nothing runs any more
    QCOMPARE(visible(window), s("199.mid"));
}

void TestSongFilterList::failedDatabaseLeavesTheFieldDisabled()
{
    const QByteArray before = qgetenv("TMPDIR");
    qputenv("TMPDIR", "/dev/null");
    const WindowUnderTest window;
    before.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", before);
    QVERIFY(window.table()->model() == nullptr);
    QVERIFY(!field(window)->isEnabled());
    QVERIFY(!window.action("actionFindSong")->isEnabled());
}

int main(int argc, char *argv[])
{
    return runAppTest<TestSongFilterList>(argc, argv);
}

#include "test_songfilter_list.moc"
