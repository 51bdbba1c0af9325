// The main window: songs that are edited, removed and transferred.
#include "formats/metasong.h"
#include "storage/memorylock.h"
#include "support/apptest.h"
#include "support/interfacelanguage.h"
#include "support/logcapture.h"
#include "support/mainwindowdriver.h"
#include "support/mountedcard.h"
#include "support/songfolder.h"
#include "support/userdriver.h"
#include "support/windowundertest.h"
#include "windows/dataeditdialog.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QMenu>
#include <QSpinBox>
#include <QTest>

using namespace mainwindowdriver;

namespace
{

/** Where in the table's viewport a row is. */
QPoint rowPoint(const WindowUnderTest &window, int row)
{
    return window.table()->visualRect(window.model()->index(row, 2)).center();
}

/** Double-clicks a row as the mouse does. */
void doubleClick(const WindowUnderTest &window, int row)
{
    QWidget *const viewport = window.table()->viewport();
    QTest::mouseClick(viewport, Qt::LeftButton, {}, rowPoint(window, row));
    QTest::mouseDClick(viewport, Qt::LeftButton, {}, rowPoint(window, row));
}

/** Opens the row menu at the point and chooses the entry with this text. */
void chooseInMenu(const WindowUnderTest &window, const QPoint &point, const QString &entry)
{
    QTimer chooser;
    QObject::connect(&chooser, &QTimer::timeout, &chooser, [&] {
        auto *const menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (menu == nullptr)
            return;
        chooser.stop();
        for (QAction *action : menu->actions()) {
            if (action->text() == entry)
                menu->setActiveAction(action);
        }
        // Queued, so that timers run while what was chosen asks its questions.
        QMetaObject::invokeMethod(
            menu, [menu] { QTest::keyClick(menu, Qt::Key_Return); }, Qt::QueuedConnection);
    });
    chooser.start(5);
    emit window.table()->customContextMenuRequested(point);
}

} // namespace

class TestMainWindowSongs : public AppFixture
{
    Q_OBJECT

private slots:
    void init() { AppFixture::init(); }
    void cleanup()
    {
        AppFixture::cleanup();
        backToItalian();
    }

    void doubleClickEditsTheSong();
    void doubleClickOnAnUnreadableFileDoesNothing();
    void fileNamesBecomeTheTitlesOfAllSongs();
    void manualChangeIsWrittenAndShown();
    void editedRowIsScrolledToTheCentre();
    void removedRowLeavesTheFile();
    void deletedFileLeavesEveryList();
    void menuOnEmptySpaceDeletesNothing();

    void memberRulesOfTheMemory();
    void filesAreCountedInAllFolders();
    void progressWithoutAWindowIsIgnored();
    void transferGoesThroughTheWindow();
    void memoryThatIsWrittenToIsNotCopiedTo();
    void refusedOrCancelledTransferLeavesTheButtons();

    void debugSaveWritesATestFile();
    void debugMarkerIsAdded();
    void debugActionsReportErrors();
    void debugDialogTellsItsResult();
    void debugHideTogglesThePanel();
};

// ---------------------------------------------------------------- editing
void TestMainWindowSongs::doubleClickEditsTheSong()
{
    const SongFolder songs;
    WindowUnderTest window;
    window.setSelectedFiles({songs.midi(QStringLiteral("a.mid"), "Old title")});
    window.importUserLibrary();
    ModalAnswers user;
    user.add([](QWidget *modal) {
        auto *const dialog = qobject_cast<DataEditDialog *>(modal);
        if (dialog == nullptr)
            return false;
        dialog->findChild<QLineEdit *>(QStringLiteral("titleLineEdit"))
            ->setText(QStringLiteral("New title"));
        QTest::mouseClick(dialog->findChild<QPushButton *>(QStringLiteral("savePushButton")),
                          Qt::LeftButton);
        return true;
    });
    doubleClick(window, 0);
    QCOMPARE(window.model()->index(0, 2).data().toString(), QStringLiteral("New title"));
    QCOMPARE(window.model()->status(0), int(Database::StatusEdited));
    MetaSong song;
    QVERIFY(song.importFile(songs.filePath(QStringLiteral("a.mid"))));
    SongInfo info;
    song.getSongInfo(info);
    QCOMPARE(info.title, QStringLiteral("New title"));
}

void TestMainWindowSongs::doubleClickOnAnUnreadableFileDoesNothing()
{
    const SongFolder songs;
    WindowUnderTest window;
    window.setSelectedFiles({songs.midi(QStringLiteral("a.mid"), "Old title")});
    window.importUserLibrary();
    QVERIFY(QFile::remove(songs.filePath(QStringLiteral("a.mid"))));
    int windows = 0;
    ModalAnswers user;
    user.add([&](QWidget *modal) {
        ++windows;
        return modal->close();
    });
    doubleClick(window, 0);
    QCoreApplication::processEvents(); // a window of its own would come now
    QCOMPARE(windows, 0);
    QCOMPARE(window.model()->index(0, 2).data().toString(), QStringLiteral("Old title"));
    QCOMPARE(window.model()->status(0), int(Database::StatusNew));
}

void TestMainWindowSongs::fileNamesBecomeTheTitlesOfAllSongs()
{
    const SongFolder songs;
    WindowUnderTest window;
    window.setSelectedFiles({songs.midi(QStringLiteral("a.mid"), "A"),
                             songs.midi(QStringLiteral("Song.Name.mid"), "B"),
                             songs.mp3(QStringLiteral("c.mp3"), "C")});
    window.importUserLibrary();
    ModalAnswers user;
    user.pressInMessageBoxes(QMessageBox::Yes);
    user.add([](QWidget *modal) {
        auto *const dialog = qobject_cast<DataEditDialog *>(modal);
        if (dialog == nullptr)
            return false;
        const auto press = [dialog](const char *name) {
            QMetaObject::invokeMethod(
                dialog->findChild<QAbstractButton *>(QString::fromLatin1(name)), "click",
                Qt::QueuedConnection);
        };
        if (dialog->isApplyToAllFname()) {
            press("savePushButton");
        } else {
            press("radioButtonTitle2");
            press("checkBoxToAllTitle");
        }
        return true;
    });
    doubleClick(window, 0);
    const QStringList titles{QStringLiteral("a"), QStringLiteral("Song.Name"), QStringLiteral("c")};
    for (int row = 0; row < titles.size(); ++row) {
        QCOMPARE(window.model()->index(row, 2).data().toString(), titles.at(row));
        QCOMPARE(window.model()->status(row), int(Database::StatusEdited));
    }
    QVERIFY(QApplication::activeModalWidget() == nullptr);
}

void TestMainWindowSongs::manualChangeIsWrittenAndShown()
{
    const SongFolder songs;
    const QString path = songs.midi(QStringLiteral("a.mid"), "Old title");
    WindowUnderTest window;
    window.setSelectedFiles({path});
    window.importUserLibrary();
    MetaSong song;
    QVERIFY(song.importFile(path));
    SongInfo info;
    song.getSongInfo(info);
    info.genre = QStringLiteral("Waltz");
    window.manualModifySong(song, info, path, 0);
    QCOMPARE(window.model()->index(0, 4).data().toString(), QStringLiteral("Waltz"));
    QCOMPARE(window.model()->status(0), int(Database::StatusEdited));
}

void TestMainWindowSongs::editedRowIsScrolledToTheCentre()
{
    const SongFolder songs;
    QStringList files;
    for (int i = 0; i < 60; ++i)
        files << songs.midi(QStringLiteral("%1.mid").arg(i), "A");
    WindowUnderTest window;
    window.setSelectedFiles(files);
    window.importUserLibrary();
    ModalAnswers user;
    user.click<DataEditDialog>(QStringLiteral("savePushButton"));
    QMetaObject::invokeMethod(&window, "onSongsTableViewDoubleClicked",
                              Q_ARG(QModelIndex, window.model()->index(30, 2)));
    const int centre = window.table()->viewport()->height() / 2;
    // The view scrolls by whole rows.
    QVERIFY(2 * qAbs(rowPoint(window, 30).y() - centre) <= 3 * window.table()->rowHeight(30));
}

void TestMainWindowSongs::removedRowLeavesTheFile()
{
    const SongFolder songs;
    WindowUnderTest window;
    window.setSelectedFiles({songs.midi(QStringLiteral("a.mid"), "A"),
                             songs.midi(QStringLiteral("b.mid"), "B"),
                             songs.midi(QStringLiteral("c.mid"), "C")});
    window.importUserLibrary();
    chooseInMenu(window, rowPoint(window, 1), QStringLiteral("Remove from list"));
    QCOMPARE(window.shownNames(), (QStringList{QStringLiteral("a.mid"), QStringLiteral("c.mid")}));
    QCOMPARE(window.table()->model()->rowCount(), 2);
    QVERIFY(QFile::exists(songs.filePath(QStringLiteral("b.mid"))));
    int copied = 0;
    QVERIFY(window.copyFiles(m_work->path(), copied)); // the selection still holds it
    QCOMPARE(copied, 3);
}

void TestMainWindowSongs::deletedFileLeavesEveryList()
{
    const SongFolder songs;
    WindowUnderTest window;
    window.setSelectedFiles(
        {songs.midi(QStringLiteral("a.mid"), "A"), songs.midi(QStringLiteral("b.mid"), "B")});
    window.importUserLibrary();
    {
        ModalAnswers user;
        user.pressInMessageBoxes(QMessageBox::No);
        chooseInMenu(window, rowPoint(window, 0), QStringLiteral("Delete file"));
        QCOMPARE(user.messages(),
                 QStringList{QStringLiteral("Attenzione: Sei sicuro di voler cancellare il "
                                            "file?")});
        QCOMPARE(window.model()->goodRowCount(), 2);
    }
    ModalAnswers user;
    user.pressInMessageBoxes(QMessageBox::Yes);
    chooseInMenu(window, rowPoint(window, 0), QStringLiteral("Delete file"));
    QCOMPARE(window.shownNames(), QStringList{QStringLiteral("b.mid")});
    QVERIFY(!QFile::exists(songs.filePath(QStringLiteral("a.mid"))));
    int copied = 0;
    QVERIFY(window.copyFiles(m_work->path(), copied));
    QCOMPARE(copied, 1);
}

void TestMainWindowSongs::menuOnEmptySpaceDeletesNothing()
{
    const SongFolder songs;
    WindowUnderTest window;
    window.setSelectedFiles({songs.midi(QStringLiteral("a.mid"), "A")});
    window.importUserLibrary();
    ModalAnswers user;
    user.pressInMessageBoxes(QMessageBox::Yes);
    const QPoint below(20, window.table()->viewport()->height() - 5);
    QCOMPARE(window.table()->rowAt(below.y()), -1);
    chooseInMenu(window, below, QStringLiteral("Delete file"));
    chooseInMenu(window, below, QStringLiteral("Remove from list"));
    QCOMPARE(window.model()->goodRowCount(), 1);
    QVERIFY(QFile::exists(songs.filePath(QStringLiteral("a.mid"))));
}

// ---------------------------------------------------------------- transfer
void TestMainWindowSongs::memberRulesOfTheMemory()
{
    const WindowUnderTest window;
    QVERIFY(window.isSystemDisk(QStringLiteral("/home/music")));
    QVERIFY(window.isSystemDisk(QStringLiteral("/Volumes/")));
    QVERIFY(!window.isSystemDisk(QStringLiteral("/volumes/CARD")));
    QCOMPARE(window.getRoot(QStringLiteral("/Volumes/CARD/music/pop")),
             QStringLiteral("/Volumes/CARD"));
    QVERIFY(window.isRoot(QStringLiteral("/Volumes/CARD")));
    QVERIFY(!window.isRoot(QStringLiteral("/Volumes/CARD/music")));
}

void TestMainWindowSongs::filesAreCountedInAllFolders()
{
    const SongFolder songs;
    QVERIFY(QDir(songs.path()).mkpath(QStringLiteral("sub/deeper")));
    QVERIFY(QFile::link(songs.path(), songs.filePath(QStringLiteral("sub/back"))));
    songs.bad(QStringLiteral("a.txt"));
    songs.bad(QStringLiteral("sub/b.txt"));
    songs.bad(QStringLiteral("sub/deeper/c.txt"));
    const WindowUnderTest window;
    int count = 10;
    window.filesCount(songs.path(), count);
    QCOMPARE(count, 13);
    window.filesCount(songs.filePath(QStringLiteral("missing")), count);
    QCOMPARE(count, 13);
}

void TestMainWindowSongs::progressWithoutAWindowIsIgnored()
{
    WindowUnderTest window;
    window.updateProgress(3);
    QVERIFY(QApplication::activeModalWidget() == nullptr);
}

void TestMainWindowSongs::transferGoesThroughTheWindow()
{
    const QString card = m_work->filePath(QStringLiteral("mnt/CARD"));
    QVERIFY(QDir().mkpath(card));
    qputenv("KAVENA_MOUNT_DIRS", QFile::encodeName(m_work->filePath(QStringLiteral("mnt"))));
    const SongFolder songs;
    WindowUnderTest window;
    UserDriver user;
    user.pick({songs.midi(QStringLiteral("a.mid"), "A"), songs.mp3(QStringLiteral("b.mp3"), "B")});
    QTest::mouseClick(window.selectButton(), Qt::LeftButton);
    user.pressInMessageBoxes(QMessageBox::Ok);
    user.pick({card});
    QTest::mouseClick(window.transferButton(), Qt::LeftButton);
    qunsetenv("KAVENA_MOUNT_DIRS");
    QCOMPARE(user.messages(),
             QStringList({QStringLiteral("Trasferimento: Tutti i file sono stati copiati "
                                         "correttamente"),
                          QStringLiteral("Trasferimento: Song copiate: 2\nSong saltate: 0\n"
                                         "Song non copiate (errori): 0")}));
    QVERIFY(QFile::exists(card + QStringLiteral("/songs/a.mid")));
    QVERIFY(QFile::exists(card + QStringLiteral("/songs/b.mp3")));
    QVERIFY(!window.updateButton()->isEnabled());
    QVERIFY(window.transferButton()->isEnabled());
    QVERIFY(window.updateKavenaIndex(QStringLiteral("/nowhere/at/all")) == false);
}

void TestMainWindowSongs::memoryThatIsWrittenToIsNotCopiedTo()
{
    const MountedCard card;
    WindowUnderTest window;
    UserDriver user;
    user.pick({card.writeMusic(QStringLiteral("a.mid"), card.midi("A"))});
    QTest::mouseClick(window.selectButton(), Qt::LeftButton);
    user.pressInMessageBoxes(QMessageBox::Ok);
    MemoryLock other(card.root());
    QVERIFY(other.take());
    int copied = -1;
    QVERIFY(!window.copyFiles(card.root(), copied));
    QCOMPARE(copied, 0);
    QVERIFY(!QFile::exists(card.path(QStringLiteral("a.mid"))));
    QCOMPARE(user.messages().size(), 1);
    other.release();
    QVERIFY(window.copyFiles(card.root(), copied));
    QCOMPARE(copied, 1);
    QVERIFY(QFile::exists(card.path(QStringLiteral("a.mid"))));
    QVERIFY(MemoryLock(card.root()).take()); // released again
    qunsetenv("KAVENA_MOUNT_DIRS");
}

void TestMainWindowSongs::refusedOrCancelledTransferLeavesTheButtons()
{
    const SongFolder songs;
    WindowUnderTest window;
    UserDriver user;
    user.pick({songs.midi(QStringLiteral("a.mid"), "A")});
    QTest::mouseClick(window.selectButton(), Qt::LeftButton);
    user.pressInMessageBoxes(QMessageBox::Ok);
    for (const bool synchronisable : {true, false}) {
        window.updateButton()->setEnabled(synchronisable);
        user.pick({m_work->path()});
        QTest::mouseClick(window.transferButton(), Qt::LeftButton);
        QCOMPARE(window.updateButton()->isEnabled(), synchronisable);
        QVERIFY(window.transferButton()->isEnabled());

        // A chooser for which no folder was laid out is cancelled.
        QTest::mouseClick(window.transferButton(), Qt::LeftButton);
        QCOMPARE(window.updateButton()->isEnabled(), synchronisable);
        QVERIFY(window.transferButton()->isEnabled());
    }
    const QString refusal = QStringLiteral("Trasferimento: Non è possibile copiare i file sul "
                                           "disco di sistema");
    QCOMPARE(user.messages(), QStringList({refusal, refusal}));
}

// ---------------------------------------------------------------- debug panel
void TestMainWindowSongs::debugSaveWritesATestFile()
{
    const SongFolder songs;
    const QString path = songs.midi(QStringLiteral("a.mid"), "A");
    WindowUnderTest window;
    window.setSelectedFiles({path});
    window.importUserLibrary();
    window.table()->selectRow(0);
    const LogCapture log;
    window.pressDebug("dbgSavePushButton");
    QVERIFY(LogCapture::contains(QStringLiteral("[MainWindow] Saving row: 0 ")));
    QVERIFY(LogCapture::contains(QStringLiteral("Saving to file: \"test_save.bin\" ")));
    QVERIFY(!LogCapture::contains(QStringLiteral("Error! ")));
    QFile original(path);
    QFile saved(m_work->filePath(QStringLiteral("test_save.bin")));
    QVERIFY(original.open(QIODevice::ReadOnly) && saved.open(QIODevice::ReadOnly));
    QCOMPARE(saved.readAll(), original.readAll());
}

void TestMainWindowSongs::debugMarkerIsAdded()
{
    const SongFolder songs;
    WindowUnderTest window;
    window.setSelectedFiles({songs.midi(QStringLiteral("a.mid"), "A")});
    window.importUserLibrary();
    window.table()->selectRow(0);
    window.child<QLineEdit>("dbgMarkerTextLineEdit")->setText(QStringLiteral("  Coda "));
    window.child<QSpinBox>("dbgMarkerBarSpinBox")->setValue(300);
    const LogCapture log;
    window.pressDebug("dbgAddMarkerPushButton");
    QVERIFY(LogCapture::contains(QStringLiteral("[MainWindow] Adding marker to row: 0 ")));
    QVERIFY(LogCapture::contains(QStringLiteral("Saving to file: \"test_addmarker.bin\" ")));
    QFile saved(m_work->filePath(QStringLiteral("test_addmarker.bin")));
    QVERIFY(saved.open(QIODevice::ReadOnly));
    QVERIFY(saved.readAll().contains(songbytes::markerEvent(300, "Coda")));
}

void TestMainWindowSongs::debugActionsReportErrors()
{
    const SongFolder songs;
    WindowUnderTest window;
    window.setSelectedFiles({songs.midi(QStringLiteral("a.mid"), "A")});
    window.importUserLibrary();
    {
        window.table()->setCurrentIndex(QModelIndex());
        const LogCapture log;
        window.pressDebug("dbgSavePushButton");
        QVERIFY(LogCapture::contains(QStringLiteral("[MainWindow] Saving row: -1 ")));
        QVERIFY(LogCapture::contains(QStringLiteral("Error! ")));
    }
    window.table()->selectRow(0);
    QVERIFY(QDir().mkdir(QStringLiteral("test_save.bin")));
    {
        const LogCapture log; // the file cannot be written
        window.pressDebug("dbgSavePushButton");
        QVERIFY(LogCapture::contains(QStringLiteral("Error! ")));
    }
    QVERIFY(QFile::remove(songs.filePath(QStringLiteral("a.mid"))));
    const LogCapture log; // the song is gone
    window.pressDebug("dbgAddMarkerPushButton");
    QVERIFY(LogCapture::contains(QStringLiteral("Error! ")));
    QVERIFY(!QFile::exists(QStringLiteral("test_addmarker.bin")));
}

void TestMainWindowSongs::debugDialogTellsItsResult()
{
    QVERIFY(writeCatalogue());
    const WindowUnderTest window;
    QStringList artists;
    {
        ModalAnswers user;
        user.add([&](QWidget *modal) {
            auto *const box = modal->findChild<QComboBox *>(QStringLiteral("artistComboBox"));
            for (int i = 0; i < box->count(); ++i)
                artists << box->itemText(i);
            QTest::mouseClick(modal->findChild<QPushButton *>(QStringLiteral("savePushButton")),
                              Qt::LeftButton);
            return true;
        });
        const LogCapture log;
        window.pressDebug("dbgShowDialogPushButton");
        QCOMPARE(LogCapture::lines(), QStringList{QStringLiteral("Accettato ")});
    }
    QCOMPARE(artists, QStringList{QStringLiteral("Name Surname")});
    ModalAnswers user;
    user.click<DataEditDialog>(QStringLiteral("exitPushButton"));
    const LogCapture log;
    window.pressDebug("dbgShowDialogPushButton");
    QCOMPARE(LogCapture::lines(), QStringList{QStringLiteral("Rifiutato ")});
}

void TestMainWindowSongs::debugHideTogglesThePanel()
{
    const WindowUnderTest window;
    const auto *const panel = window.child<QGroupBox>("debugGroupBox");
    window.pressDebug("dbgHidePushButton");
    QVERIFY(panel->isVisible());
    window.pressDebug("dbgHidePushButton");
    QVERIFY(!panel->isVisible());
}

int main(int argc, char *argv[])
{
    return runAppTest<TestMainWindowSongs>(argc, argv);
}

#include "test_mainwindow_songs.moc"
