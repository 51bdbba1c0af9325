// Songs that are dropped on the window, or that the desktop asks the program to open.
#include "app/songdrop.h"
#include "formats/songnames.h"
#include "support/apptest.h"
#include "support/shorttext.h"
#include "support/songfolder.h"
#include "support/userdriver.h"
#include "support/windowundertest.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QFileOpenEvent>
#include <QMimeData>
#include <QProgressDialog>
#include <QStatusBar>

#include <sys/stat.h>

namespace
{

/** What a file manager sends while the user drags these files and folders. */
class Dragged
{
public:
    explicit Dragged(const QStringList &paths)
    {
        QList<QUrl> urls;
        for (const QString &path : paths)
            urls << QUrl::fromLocalFile(path);
        data.setUrls(urls);
    }

    bool enters(QWidget &window) const
    {
        QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction | Qt::MoveAction, &data,
                              Qt::LeftButton, {});
        enter.ignore();
        QCoreApplication::sendEvent(&window, &enter);
        return enter.isAccepted();
    }

    bool moves(QWidget &window) const
    {
        QDragMoveEvent move(QPoint(60, 60), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton,
                            {});
        move.ignore();
        QCoreApplication::sendEvent(&window, &move);
        return move.isAccepted();
    }

    /** True when the drop was taken, and as a copy: the files must not be moved away. */
    bool drops(QWidget &window) const
    {
        QDropEvent drop(QPointF(60, 60), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton,
                        {});
        drop.setDropAction(Qt::MoveAction);
        drop.ignore();
        QCoreApplication::sendEvent(&window, &drop);
        return drop.isAccepted() && drop.dropAction() == Qt::CopyAction;
    }

    /** The whole way of the mouse. */
    bool isDroppedOn(QWidget &window) const
    {
        return enters(window) && moves(window) && drops(window);
    }

    QMimeData data;
};

void letTheDesktopOpen(const QStringList &paths)
{
    for (const QString &path : paths) {
        QFileOpenEvent open(path);
        QCoreApplication::sendEvent(qApp, &open);
    }
}

/** Waits until what was dropped or opened has been taken up or given up. */
bool waitForItsTurn(const QWidget &window)
{
    const auto *const collecting = window.findChild<SongDrop *>()->findChild<QTimer *>();
    return QTest::qWaitFor([collecting] { return !collecting->isActive(); });
}

} // namespace

class TestSongDrop : public AppFixture
{
    Q_OBJECT

private slots:
    void init() { AppFixture::init(); }
    void cleanup() { AppFixture::cleanup(); }

    void droppedFilesAreImported();
    void droppedFilesReplaceTheList();
    void droppedFolderIsSearched();
    void dropIsImportedAfterItsEvent();
    void fieldLetsDropsThrough();
    void foreignFilesAreRefused_data();
    void foreignFilesAreRefused();
    void foreignFileAmongSongsIsToldAsUnreadable();
    void linksThatLeadToNoFileAreLeftOut();
    void pipeAndDeviceAreToldAsUnreadable();
    void folderWithoutSongsChangesNothing();
    void dropDuringAWorkflowIsRefused();
    void dropBeforeAWorkflowIsNotImportedDuringIt();
    void failedDatabaseRefusesDrops();

    void filesThatTheDesktopOpensAreImported();
    void otherFilesOfTheDesktopAreIgnored();
    void desktopCannotInterruptAWorkflow();

    void dialogOpensInTheLastFolder();

    void extensionsAreKnownInEitherCase_data();
    void extensionsAreKnownInEitherCase();
};

void TestSongDrop::droppedFilesAreImported()
{
    const SongFolder songs;
    WindowUnderTest window;
    const Dragged dragged({songs.midi(s("b.mid"), "B"), songs.mp3(s("A.MP3"), "A")});
    QVERIFY(dragged.isDroppedOn(window));
    QTRY_COMPARE(window.shownNames(), (QStringList{s("b.mid"), s("A.MP3")}));
    QVERIFY(window.updateButton()->isEnabled());
    QVERIFY(window.transferButton()->isEnabled());
    int copied = 0;
    QVERIFY(window.copyFiles(m_work->path(), copied)); // they are what a transfer copies
    QCOMPARE(copied, 2);
}

void TestSongDrop::droppedFilesReplaceTheList()
{
    const SongFolder songs;
    WindowUnderTest window;
    window.setSelectedFiles({songs.midi(s("old.mid"), "Old")});
    window.importUserLibrary();
    QVERIFY(Dragged({songs.midi(s("new.mid"), "New")}).isDroppedOn(window));
    QTRY_COMPARE(window.shownNames(), QStringList{s("new.mid")});
}

void TestSongDrop::droppedFolderIsSearched()
{
    const SongFolder songs;
    QVERIFY(QDir(songs.path()).mkpath(s("Pop/1970")));
    songs.midi(s("Pop/1970/x.KAR"), "X");
    songs.midi(s("Pop/y.mid"), "Y");
    songs.bad(s("Pop/cover.jpg"));
    WindowUnderTest window;
    QVERIFY(Dragged({songs.path()}).isDroppedOn(window));
    QTRY_COMPARE(window.shownNames(), (QStringList{s("x.KAR"), s("y.mid")}));
    QVERIFY(!window.child<QWidget>("unreadablePushButton")->isVisible());
}

void TestSongDrop::dropIsImportedAfterItsEvent()
{
    const SongFolder songs;
    WindowUnderTest window;
    QVERIFY(Dragged({songs.midi(s("a.mid"), "A")}).isDroppedOn(window));
    QCOMPARE(window.model()->goodRowCount(), 0); // the file manager still waits here
    QTRY_COMPARE(window.model()->goodRowCount(), 1);
}

void TestSongDrop::fieldLetsDropsThrough()
{
    const WindowUnderTest window;
    QVERIFY(!window.child<QLineEdit>("filterLineEdit")->acceptDrops());
    QVERIFY(window.acceptDrops());
}

void TestSongDrop::foreignFilesAreRefused_data()
{
    QTest::addColumn<QList<QUrl>>("urls");
    QTest::newRow("a text") << QList<QUrl>{QUrl::fromLocalFile(s("/tmp/readme.txt"))};
    QTest::newRow("a page") << QList<QUrl>{QUrl(s("https://example.org/song.mid"))};
    QTest::newRow("nothing") << QList<QUrl>();
}

void TestSongDrop::foreignFilesAreRefused()
{
    QFETCH(QList<QUrl>, urls);
    const SongFolder songs;
    WindowUnderTest window;
    window.setSelectedFiles({songs.midi(s("old.mid"), "Old")});
    window.importUserLibrary();
    Dragged dragged({});
    dragged.data.setUrls(urls);
    dragged.data.setText(s("/tmp/song.mid"));
    QVERIFY(!dragged.enters(window));
    QVERIFY(!dragged.moves(window));
    QVERIFY(!dragged.drops(window));
    QVERIFY(waitForItsTurn(window));
    QCOMPARE(window.shownNames(), QStringList{s("old.mid")});
}

void TestSongDrop::foreignFileAmongSongsIsToldAsUnreadable()
{
    const SongFolder songs;
    WindowUnderTest window;
    QVERIFY(Dragged({songs.bad(s("readme.txt")), songs.midi(s("a.mid"), "A")}).isDroppedOn(window));
    QTRY_COMPARE(window.shownNames(), QStringList{s("a.mid")});
    QVERIFY(window.child<QWidget>("unreadablePushButton")->isVisible());
}

void TestSongDrop::linksThatLeadToNoFileAreLeftOut()
{
    const SongFolder songs;
    WindowUnderTest window;
    Dragged dragged({songs.midi(s("a.mid"), "A")});
    QList<QUrl> urls = dragged.data.urls();
    urls << QUrl(s("file:")) << QUrl(s("file://")) << QUrl(s("https://host.example/b.mid"))
         << QUrl(s("mailto:c.mid")) << QUrl() << QUrl(s("d.mid"));
    dragged.data.setUrls(urls);
    QVERIFY(dragged.isDroppedOn(window));
    QTRY_COMPARE(window.model()->goodRowCount(), 1);
    QVERIFY(window.child<QPushButton>("unreadablePushButton")->isHidden());
}

void TestSongDrop::pipeAndDeviceAreToldAsUnreadable()
{
    const SongFolder songs;
    const QString pipe = songs.filePath(s("pipe.mid"));
    QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    const QString device = songs.filePath(s("zero.mp3"));
    QVERIFY(QFile::link(s("/dev/zero"), device));
    WindowUnderTest window;
    QVERIFY(Dragged({songs.midi(s("a.mid"), "A"), pipe, device}).isDroppedOn(window));
    QTRY_COMPARE(window.model()->goodRowCount(), 1);
    const auto *const button = window.child<QPushButton>("unreadablePushButton");
    QCOMPARE(button->text().section(QLatin1Char(' '), 0, 0), s("2"));
}

void TestSongDrop::folderWithoutSongsChangesNothing()
{
    const SongFolder songs;
    QVERIFY(QDir(songs.path()).mkdir(s("empty")));
    WindowUnderTest window;
    window.setSelectedFiles({songs.midi(s("old.mid"), "Old")});
    window.importUserLibrary();
    QVERIFY(Dragged({songs.filePath(s("empty"))}).isDroppedOn(window));
    QTRY_COMPARE(window.child<QStatusBar>("statusBar")->currentMessage(),
                 s("Nessuna song trovata"));
    QCOMPARE(window.shownNames(), QStringList{s("old.mid")});
    QVERIFY(window.updateButton()->isEnabled());
}

void TestSongDrop::dropDuringAWorkflowIsRefused()
{
    const SongFolder songs;
    QStringList files;
    for (int i = 0; i < 500; ++i)
        files << songs.midi(s("%1.mid").arg(i), "A");
    WindowUnderTest window;
    window.setSelectedFiles(files);
    const Dragged dragged({songs.midi(s("late.mid"), "Late")});
    int tries = 0;
    int taken = 0;
    ModalAnswers user;
    user.add([&](QWidget *modal) {
        if (qobject_cast<QProgressDialog *>(modal) == nullptr)
            return false;
        ++tries;
        taken += dragged.enters(window) || dragged.moves(window) || dragged.drops(window) ? 1 : 0;
        return true;
    });
    window.importUserLibrary();
    QVERIFY(tries > 0);
    QCOMPARE(taken, 0);
    QVERIFY(waitForItsTurn(window));
    QCOMPARE(window.model()->goodRowCount(), 500);
    QVERIFY(dragged.isDroppedOn(window)); // afterwards it is welcome
    QTRY_COMPARE(window.model()->goodRowCount(), 1);
}

void TestSongDrop::dropBeforeAWorkflowIsNotImportedDuringIt()
{
    const SongFolder songs;
    WindowUnderTest window;
    ModalAnswers user;
    bool asked = false;
    user.add([&](QWidget *modal) {
        if (asked)
            return modal->close();
        asked = true;
        waitForItsTurn(window); // the drop's turn comes now
        return modal->close();
    });
    QVERIFY(Dragged({songs.midi(s("a.mid"), "A")}).isDroppedOn(window));
    window.action("actionAbout")->trigger();
    QVERIFY(asked);
    QVERIFY(waitForItsTurn(window));
    QCOMPARE(window.model()->goodRowCount(), 0);
}

void TestSongDrop::failedDatabaseRefusesDrops()
{
    const SongFolder songs;
    const QString song = songs.midi(s("a.mid"), "A");
    const QByteArray before = qgetenv("TMPDIR");
    qputenv("TMPDIR", "/dev/null");
    WindowUnderTest window;
    before.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", before);
    QVERIFY(!Dragged({song}).enters(window));
    letTheDesktopOpen({song});
    QVERIFY(window.findChild<SongDrop *>() == nullptr); // nobody has taken them
    QVERIFY(window.table()->model() == nullptr);
}

// ---------------------------------------------------------------- the program's icon

void TestSongDrop::filesThatTheDesktopOpensAreImported()
{
    const SongFolder songs;
    QVERIFY(QDir(songs.path()).mkdir(s("more")));
    songs.midi(s("more/c.mid"), "C");
    WindowUnderTest window;
    letTheDesktopOpen(
        {songs.midi(s("a.mid"), "A"), songs.midi(s("b.mid"), "B"), songs.filePath(s("more"))});
    // One event a file, but one import of all of them.
    QTRY_COMPARE(window.shownNames(), (QStringList{s("a.mid"), s("b.mid"), s("c.mid")}));
}

void TestSongDrop::otherFilesOfTheDesktopAreIgnored()
{
    const SongFolder songs;
    WindowUnderTest window;
    window.setSelectedFiles({songs.midi(s("old.mid"), "Old")});
    window.importUserLibrary();
    letTheDesktopOpen({songs.bad(s("readme.txt"))});
    QFileOpenEvent page(QUrl(s("https://example.org/song.mid")));
    QCoreApplication::sendEvent(qApp, &page);
    QVERIFY(waitForItsTurn(window));
    QCOMPARE(window.shownNames(), QStringList{s("old.mid")});
}

void TestSongDrop::desktopCannotInterruptAWorkflow()
{
    const SongFolder songs;
    const QString song = songs.midi(s("a.mid"), "A");
    WindowUnderTest window;
    ModalAnswers user;
    user.add([&](QWidget *modal) {
        letTheDesktopOpen({song});
        waitForItsTurn(window);
        return modal->close();
    });
    window.action("actionAbout")->trigger();
    QVERIFY(waitForItsTurn(window));
    QCOMPARE(window.model()->goodRowCount(), 0);
}

// ---------------------------------------------------------------- file dialog

void TestSongDrop::dialogOpensInTheLastFolder()
{
    const SongFolder songs;
    const SongFolder others;
    WindowUnderTest window;
    QStringList folders;
    QStringList picks{songs.midi(s("a.mid"), "A"), QString(), QString(), QString()};
    ModalAnswers user;
    user.add([&](QWidget *modal) {
        auto *const dialog = qobject_cast<QFileDialog *>(modal);
        if (dialog == nullptr)
            return false;
        folders << dialog->directory().absolutePath();
        const QString pick = picks.takeFirst();
        if (pick.isEmpty()) {
            dialog->reject();
        } else {
            child<QLineEdit>(dialog, "fileNameEdit")->setText(pick);
            QMetaObject::invokeMethod(dialog, "accept");
        }
        return true;
    });
    window.selectButton()->click();
    window.selectButton()->click();
    QVERIFY(Dragged({others.midi(s("b.mid"), "B")}).isDroppedOn(window));
    QTRY_COMPARE(window.shownNames(), QStringList{s("b.mid")});
    window.selectButton()->click();
    QCOMPARE(folders, (QStringList{m_work->path(), songs.path(), others.path()}));
}

// ---------------------------------------------------------------- search

void TestSongDrop::extensionsAreKnownInEitherCase_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("known");
    for (const char *name : {"a.mid", "A.MID", "b.Kar", "c.mp3", "d.mf3", "e.MF4", "f.mf5",
                             "two.dots.mid", "/folder.d/ü.mid"})
        QTest::newRow(name) << s(name) << true;
    for (const char *name : {"a.midi", "mid", "a.mf2", "a.mid.txt", "a.", "", "folder.mid/a"})
        QTest::newRow(name) << s(name) << false;
}

void TestSongDrop::extensionsAreKnownInEitherCase()
{
    QFETCH(QString, name);
    QFETCH(bool, known);
    QCOMPARE(songnames::isSongName(name), known);
}

int main(int argc, char *argv[])
{
    return runAppTest<TestSongDrop>(argc, argv);
}

#include "test_songdrop.moc"
