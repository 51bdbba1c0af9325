// What stands in the place of the list while it has nothing to show.
#include "library/historystore.h"
#include "library/settings.h"
#include "support/apptest.h"
#include "support/filterdriver.h"
#include "support/shorttext.h"
#include "support/songfolder.h"
#include "support/userdriver.h"
#include "support/windowundertest.h"
#include "windows/aboutdialog.h"
#include "windows/dropzone.h"
#include "windows/emptylistpage.h"
#include "windows/memorywindow.h"
#include "windows/nomatchpage.h"

#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QLabel>
#include <QMimeData>
#include <QSettings>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QStatusBar>

#include <algorithm>

using namespace filterdriver;

class TestListPlace : public AppFixture
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void emptyListTellsHowToBegin();
    void songsTakeThePlaceOfThePage();
    void lastSongRemovedBringsThePageBack();
    void chosenFolderIsImportedWithAllFoldersInIt();
    void folderWithoutSongsLeavesThePage();
    void songsButtonDoesWhatTheLargeOneDoes();
    void memoryThatHasSongsIsOneClickAway();
    void listsOfLateAreOpened();
    void lastListIsOpenedAgain();
    void nothingCanBePressedWhileWorkRuns();
    void dragOverTheWindowFillsTheDropZone();
    void failedDatabaseShowsNoPage();

    void filterWithoutAMatchSaysSo();
    void clearingTheFilterShowsAllSongsAndTheList();
    void lastShownSongRemovedIsNoMatch();
    void keysInTheFieldDoNotLeadIntoTheHiddenList();

private:
    QWidget *shown() const
    {
        return m_window->child<QStackedWidget>("listStackedWidget")->currentWidget();
    }
    EmptyListPage *page() const { return m_window->findChild<EmptyListPage *>(); }
    void press(const char *button) const
    {
        QTest::mouseClick(m_window->child<QAbstractButton>(button), Qt::LeftButton);
    }
    void start() { m_window = std::make_unique<WindowUnderTest>(); }
    void import(const QStringList &files)
    {
        m_window->setSelectedFiles(files);
        m_window->importUserLibrary();
    }

    std::unique_ptr<SongFolder> m_songs;
    std::unique_ptr<WindowUnderTest> m_window;
};

void TestListPlace::init()
{
    AppFixture::init();
    QFile::remove(QFileInfo(HistoryStore::defaultPath()).dir().filePath(s("lastlist.m3u8")));
    m_songs = std::make_unique<SongFolder>();
    start();
}

void TestListPlace::cleanup()
{
    m_window.reset();
    m_songs.reset();
    AppFixture::cleanup();
}

void TestListPlace::emptyListTellsHowToBegin()
{
    QCOMPARE(shown(), page());
    QVERIFY(!m_window->table()->isVisible());
    for (const char *step : {"step1Label", "step2Label", "step3Label", "dropLabel"}) {
        const auto *const label = m_window->child<QLabel>(step);
        QVERIFY2(label->isVisible() && !label->text().isEmpty(), step);
    }
    QVERIFY(!m_window->child<QWidget>("listsWidget")->isVisible()); // there is no list yet
}

void TestListPlace::songsTakeThePlaceOfThePage()
{
    QVERIFY(m_window->model()->addSong(SongInfo()));
    QCOMPARE(shown(), m_window->table());
    import({m_songs->bad(s("x.mid"))});
    QCOMPARE(shown(), page());
    import({m_songs->midi(s("a.mid"), "A")});
    QCOMPARE(shown(), m_window->table());
}

void TestListPlace::lastSongRemovedBringsThePageBack()
{
    import({m_songs->midi(s("a.mid"), "A")});
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    m_window->table()->setFocus();
    m_window->table()->selectRow(0);
    m_window->action("actionRemoveSong")->trigger();
    QCOMPARE(shown(), page());
    QCOMPARE(QApplication::focusWidget(), m_window->child<QWidget>("songsPushButton"));
}

void TestListPlace::chosenFolderIsImportedWithAllFoldersInIt()
{
    QVERIFY(QDir(m_songs->path()).mkpath(s("Pop/1970")));
    m_songs->midi(s("Pop/1970/x.KAR"), "X");
    m_songs->midi(s("Pop/y.mid"), "Y");
    m_songs->bad(s("Pop/cover.jpg"));
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    UserDriver user;
    user.pick({m_songs->path()});
    m_window->child<QPushButton>("folderPushButton")->setFocus();
    press("folderPushButton");
    QVERIFY(user.allPicked());
    QCOMPARE(m_window->shownNames(), (QStringList{s("x.KAR"), s("y.mid")}));
    QVERIFY(m_window->updateButton()->isEnabled());
    int copied = 0;
    QVERIFY(m_window->copyFiles(m_work->path(), copied)); // they are what a transfer copies
    QCOMPARE(copied, 2);
    QCOMPARE(m_window->focusWidget(), m_window->table()); // not a button that is out of sight
}

void TestListPlace::folderWithoutSongsLeavesThePage()
{
    QVERIFY(QDir(m_songs->path()).mkdir(s("empty")));
    UserDriver user;
    user.pick({m_songs->filePath(s("empty"))});
    press("folderPushButton");
    QCOMPARE(m_window->child<QStatusBar>("statusBar")->currentMessage(), s("Nessuna song trovata"));
    QCOMPARE(shown(), page());
    press("folderPushButton"); // cancelled
    QCOMPARE(shown(), page());
}

void TestListPlace::songsButtonDoesWhatTheLargeOneDoes()
{
    UserDriver user;
    user.pick({m_songs->midi(s("a.mid"), "A")});
    press("songsPushButton");
    QCOMPARE(m_window->shownNames(), QStringList{s("a.mid")});
    QVERIFY(m_window->transferButton()->isEnabled());
}

void TestListPlace::memoryThatHasSongsIsOneClickAway()
{
    const QSignalSpy opened(m_window->action("actionMemory"), &QAction::triggered);
    QVERIFY(m_window->child<QLabel>("memoryLabel")->isVisible());
    press("memoryPushButton");
    QCOMPARE(opened.count(), 1);
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto isMemory = [](const QWidget *window) {
        return window->isVisible() && qobject_cast<const MemoryWindow *>(window) != nullptr;
    };
    QVERIFY(std::any_of(windows.cbegin(), windows.cend(), isMemory));
}

void TestListPlace::listsOfLateAreOpened()
{
    m_songs->midi(s("a.mid"), "A");
    const QString list = m_songs->write(s("Sommer & Co.m3u8"), "a.mid\n");
    {
        QSettings store(settings::organisation, settings::application);
        store.setValue(settings::recentLists, QStringList{m_songs->filePath(s("gone.m3u8")), list});
    }
    m_window.reset();
    start();
    QToolButton *offered = nullptr;
    const QList<QToolButton *> buttons = page()->findChildren<QToolButton *>();
    for (QToolButton *const button : buttons) {
        if (!button->isVisible())
            continue;
        QVERIFY2(offered == nullptr, "one that is gone is not offered");
        offered = button;
    }
    QVERIFY(offered != nullptr);
    QCOMPARE(offered->text(), s("Sommer && Co"));
    QVERIFY(offered->focusPolicy() & Qt::TabFocus);
    QTest::mouseClick(offered, Qt::LeftButton);
    QCOMPARE(m_window->shownNames(), QStringList{s("a.mid")});
}

void TestListPlace::lastListIsOpenedAgain()
{
    import({m_songs->midi(s("b.mid"), "B"), m_songs->midi(s("a.mid"), "A")});
    m_window->close();
    m_window.reset();
    start();
    QVERIFY(m_window->child<QWidget>("lastListToolButton")->isVisible());
    press("lastListToolButton");
    QCOMPARE(m_window->shownNames(), (QStringList{s("b.mid"), s("a.mid")}));
}

void TestListPlace::nothingCanBePressedWhileWorkRuns()
{
    bool looked = false;
    ModalAnswers user;
    user.add([&](QWidget *modal) {
        looked = true;
        const QList<QWidget *> buttons = page()->workButtons();
        for (const QWidget *const button : buttons)
            QTest::qVerify(!button->isEnabled(), "button", "", __FILE__, __LINE__);
        return modal->close();
    });
    m_window->action("actionAbout")->trigger();
    QVERIFY(looked);
    QVERIFY(m_window->child<QWidget>("folderPushButton")->isEnabled());
}

void TestListPlace::dragOverTheWindowFillsTheDropZone()
{
    const auto *const zone = m_window->findChild<DropZone *>();
    const QString before = m_window->child<QLabel>("dropLabel")->text();
    QMimeData song;
    song.setUrls({QUrl::fromLocalFile(m_songs->midi(s("a.mid"), "A"))});
    QMimeData foreign;
    foreign.setUrls({QUrl::fromLocalFile(s("/tmp/readme.txt"))});
    const auto enter = [&](const QMimeData &data) {
        QDragEnterEvent event(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(m_window.get(), &event);
    };
    enter(foreign);
    QVERIFY(!zone->isHighlighted());
    enter(song);
    QVERIFY(zone->isHighlighted());
    QVERIFY(m_window->child<QLabel>("dropLabel")->text() != before);
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(m_window.get(), &leave);
    QVERIFY(!zone->isHighlighted());
    QCOMPARE(m_window->child<QLabel>("dropLabel")->text(), before);
    enter(song);
    QDropEvent drop(QPointF(60, 60), Qt::CopyAction, &song, Qt::LeftButton, {});
    QCoreApplication::sendEvent(m_window.get(), &drop);
    QVERIFY(!zone->isHighlighted());
    QTRY_COMPARE(m_window->shownNames(), QStringList{s("a.mid")});
    QTRY_COMPARE(shown(), m_window->table());
}

void TestListPlace::failedDatabaseShowsNoPage()
{
    m_window.reset();
    const QByteArray before = qgetenv("TMPDIR");
    qputenv("TMPDIR", "/dev/null");
    start();
    before.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", before);
    QVERIFY(page() == nullptr);
    QCOMPARE(shown(), m_window->table());
}

// ---------------------------------------------------------------- no match

void TestListPlace::filterWithoutAMatchSaysSo()
{
    import({m_songs->midi(s("a.mid"), "A"), m_songs->midi(s("b.mid"), "B")});
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    field(*m_window)->setFocus();
    type(*m_window, s("nothing like it"));
    QCOMPARE(shown(), m_window->findChild<NoMatchPage *>());
    QVERIFY(m_window->child<QLabel>("noMatchLabel")->isVisible());
    QCOMPARE(QApplication::focusWidget(), field(*m_window)); // the user is still typing
    type(*m_window, s("b.mid"));
    QCOMPARE(shown(), m_window->table());
}

void TestListPlace::clearingTheFilterShowsAllSongsAndTheList()
{
    import({m_songs->midi(s("a.mid"), "A"), m_songs->midi(s("b.mid"), "B")});
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    type(*m_window, s("a.mid"));
    m_window->child<QToolButton>("stateToolButton1")->click(); // there is no synchronised one
    QCOMPARE(shown(), m_window->findChild<NoMatchPage *>());
    m_window->child<QPushButton>("clearFilterPushButton")->setFocus();
    QTest::keyClick(m_window->child<QPushButton>("clearFilterPushButton"), Qt::Key_Space);
    QCOMPARE(visible(*m_window), s("a.mid b.mid"));
    QCOMPARE(field(*m_window)->text(), QString());
    QVERIFY(!m_window->child<QToolButton>("stateToolButton1")->isChecked());
    QCOMPARE(QApplication::focusWidget(), m_window->table());
}

void TestListPlace::lastShownSongRemovedIsNoMatch()
{
    import({m_songs->midi(s("a.mid"), "A"), m_songs->midi(s("b.mid"), "B")});
    type(*m_window, s("a.mid"));
    m_window->table()->selectRow(0);
    m_window->action("actionRemoveSong")->trigger();
    QTRY_COMPARE(shown(), m_window->findChild<NoMatchPage *>());
}

void TestListPlace::keysInTheFieldDoNotLeadIntoTheHiddenList()
{
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    field(*m_window)->setFocus();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Down, Qt::Key_Escape}) {
        QTest::keyClick(field(*m_window), key);
        QCOMPARE(QApplication::focusWidget(), field(*m_window));
    }
}

int main(int argc, char *argv[])
{
    return runAppTest<TestListPlace>(argc, argv);
}

#include "test_listplace.moc"
