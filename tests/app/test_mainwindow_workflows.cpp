// The main window: what starts when and when not, and synchronisation.
#include "formats/metasong.h"
#include "support/apptest.h"
#include "support/interfacelanguage.h"
#include "support/logcapture.h"
#include "support/mainwindowdriver.h"
#include "support/songfolder.h"
#include "support/userdriver.h"
#include "support/windowundertest.h"
#include "windows/backupdialog.h"
#include "windows/nocopyrightdialog.h"
#include "windows/proceeddialog.h"

#include <QApplication>
#include <QMenu>
#include <QProgressDialog>
#include <QTest>

using namespace mainwindowdriver;

namespace
{

/** While it lives there is no place for the private copy of the catalogue. */
class NoTemporaryFiles
{
public:
    NoTemporaryFiles() { qputenv("TMPDIR", "/dev/null"); }
    ~NoTemporaryFiles() { m_before.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", m_before); }
    Q_DISABLE_COPY_MOVE(NoTemporaryFiles)

private:
    const QByteArray m_before = qgetenv("TMPDIR");
};

} // namespace

class TestMainWindowWorkflows : public AppFixture
{
    Q_OBJECT

private slots:
    void init() { AppFixture::init(); }
    void cleanup()
    {
        AppFixture::cleanup();
        backToItalian();
    }

    void failedDatabaseLeavesAnInertTable();
    void failedDatabaseStopsEveryHandler();

    void helpMenuOpensItsWindows();
    void toolsMenuOpensItsWindows();
    void quitCloses();
    void windowStaysWhileADialogIsOpen();
    void windowStaysWhileAWorkflowRuns();

    void synchronisationLeavesItsButtonDisabled();
    void refusedBackupEnablesTheButtonAgain();
    void unsignedFilesAreAskedAboutOnlyWhenWanted();
    void noToAllHoldsForOneSynchronisation();
    void cancelledSynchronisationKeepsTheRestAsItWas();
    void singleRowIsSynchronised();
};

// ---------------------------------------------------------------- failed database
void TestMainWindowWorkflows::failedDatabaseLeavesAnInertTable()
{
    const NoTemporaryFiles failing;
    const LogCapture log;
    const WindowUnderTest window;
    QVERIFY(LogCapture::contains(QStringLiteral("Error initializing DB !!! ")));
    QVERIFY(window.table()->model() == nullptr);
    QVERIFY(window.isVisible());
    ModalAnswers user;
    int windows = 0;
    user.add([&](QWidget *modal) {
        ++windows;
        return modal->close();
    });
    QTest::mouseDClick(window.table()->viewport(), Qt::LeftButton, {}, QPoint(20, 20));
    QCoreApplication::processEvents(); // a window of its own would come now
    QCOMPARE(windows, 0);
    window.action("actionAbout")->trigger();
    QCOMPARE(windows, 1);
    changeLanguage(window, "actionGerman");
    QCOMPARE(window.windowTitle(), QStringLiteral("RB27 Utility"));
    changeLanguage(window, "actionEnglish");
}

void TestMainWindowWorkflows::failedDatabaseStopsEveryHandler()
{
    const NoTemporaryFiles failing;
    WindowUnderTest window;
    ModalAnswers user;
    int windows = 0;
    user.add([&](QWidget *modal) {
        ++windows;
        return modal->close();
    });
    const QList<std::function<void()>> handlers{
        [&] { window.selectButton()->click(); },
        [&] { window.importUserLibrary(); },
        [&] { QVERIFY(!window.updateUserLibrary()); },
        [&] { QVERIFY(!window.updateFileWithDb(0)); },
        [&] { window.manualModifySong(MetaSong(), SongInfo(), QStringLiteral("/nowhere"), 0); },
        [&] {
            int count = 0;
            window.scanDir(m_work->path(), count, count, count);
        },
    };
    for (const auto &handler : handlers) {
        const LogCapture log;
        handler();
        QCOMPARE(LogCapture::lines(),
                 QStringList{QStringLiteral(
                     "[MainWindow] WARNING: no library table, ignoring the request !!! ")});
    }
    QCOMPARE(windows, 0);

    // What the user could press is disabled, also behind work that needs no library.
    int files = 0;
    window.scanDir(m_work->path(), files, files, files);
    window.suggestBackup();
    for (const char *const button :
         {"updateDataToolButton", "transferFilesToolButton", "dbgSavePushButton",
          "dbgAddMarkerPushButton", "dbgImportPushButton"})
        QVERIFY2(!window.child<QAbstractButton>(button)->isEnabled(), button);
    for (const char *const entry : {"actionSynchronise", "actionTransfer"})
        QVERIFY2(!window.action(entry)->isEnabled(), entry);
    QVERIFY(window.selectButton()->isEnabled());
    // Neither a row nor its menu nor a dropped song leads to the missing table.
    QTest::mouseDClick(window.table()->viewport(), Qt::LeftButton, {}, QPoint(5, 5));
    QContextMenuEvent menu(QContextMenuEvent::Mouse, QPoint(5, 5), QPoint(5, 5));
    QCoreApplication::sendEvent(window.table()->viewport(), &menu);
    QVERIFY(!window.acceptDrops());
}

// ---------------------------------------------------------------- windows
void TestMainWindowWorkflows::helpMenuOpensItsWindows()
{
    const WindowUnderTest window;
    QStringList opened;
    ModalAnswers user;
    user.add([&](QWidget *modal) {
        opened << QString::fromLatin1(modal->metaObject()->className());
        return modal->close();
    });
    window.action("actionAbout")->trigger();
    window.action("actionContents")->trigger();
    window.action("actionAbout_QT")->trigger();
    QCOMPARE(opened, (QStringList{QStringLiteral("AboutDialog"), QStringLiteral("HelpDialog"),
                                  QStringLiteral("QMessageBox")}));
}

void TestMainWindowWorkflows::toolsMenuOpensItsWindows()
{
    const WindowUnderTest window;
    QStringList opened;
    ModalAnswers user;
    user.add([&](QWidget *modal) {
        opened << QString::fromLatin1(modal->metaObject()->className());
        return modal->close();
    });
    window.action("optimizeMemory")->trigger();
    window.action("actionSongsList")->trigger();
    QCOMPARE(opened,
             (QStringList{QStringLiteral("IndexDialog"), QStringLiteral("SongsListDialog")}));
}

void TestMainWindowWorkflows::quitCloses()
{
    const WindowUnderTest window;
    window.action("actionQuit")->trigger();
    QVERIFY(!window.isVisible());
}

void TestMainWindowWorkflows::windowStaysWhileADialogIsOpen()
{
    WindowUnderTest window;
    bool stayed = false;
    ModalAnswers user;
    user.add([&](QWidget *modal) {
        window.action("actionQuit")->trigger();
        stayed = window.isVisible() && !window.close();
        return modal->close();
    });
    window.action("actionAbout")->trigger();
    QVERIFY(stayed);
    QVERIFY(window.close());
}

void TestMainWindowWorkflows::windowStaysWhileAWorkflowRuns()
{
    const SongFolder songs;
    QStringList files;
    for (int i = 0; i < 100; ++i)
        files << songs.midi(QStringLiteral("%1.mid").arg(i), "A");
    WindowUnderTest window;
    window.setSelectedFiles(files);
    int refused = 0;
    ModalAnswers user;
    user.add([&](QWidget *modal) {
        if (qobject_cast<QProgressDialog *>(modal) == nullptr)
            return false;
        refused += window.close() ? 0 : 1;
        return true;
    });
    window.importUserLibrary();
    QVERIFY(refused > 0);
    QVERIFY(window.isVisible());
    QCOMPARE(window.model()->goodRowCount(), 100);
}

// ---------------------------------------------------------------- synchronisation
void TestMainWindowWorkflows::synchronisationLeavesItsButtonDisabled()
{
    QVERIFY(writeCatalogue());
    const SongFolder songs;
    WindowUnderTest window;
    UserDriver user;
    user.click<BackupDialog>(QStringLiteral("exitPushButton"));
    user.pick({songs.signedMidi(QStringLiteral("known.mid"), "Known"),
               songs.signedMidi(QStringLiteral("other.mid"), "Other")});
    QTest::mouseClick(window.selectButton(), Qt::LeftButton);
    QTest::mouseClick(window.updateButton(), Qt::LeftButton);
    QCOMPARE(window.model()->status(0), int(Database::StatusSynced));
    QCOMPARE(window.model()->status(1), int(Database::StatusNotSynced));
    QCOMPARE(window.model()->index(0, 2).data().toString(), QStringLiteral("KNOWN TITLE"));
    QCOMPARE(window.model()->index(0, 6).data().toString(), QStringLiteral("02:05"));
    QVERIFY(!window.updateButton()->isEnabled());
    QVERIFY(window.transferButton()->isEnabled());
}

void TestMainWindowWorkflows::refusedBackupEnablesTheButtonAgain()
{
    const SongFolder songs;
    WindowUnderTest window;
    UserDriver user;
    user.click<BackupDialog>(QStringLiteral("abortPushButton"));
    user.pick({songs.midi(QStringLiteral("a.mid"), "A")});
    QTest::mouseClick(window.selectButton(), Qt::LeftButton);
    QTest::mouseClick(window.updateButton(), Qt::LeftButton);
    QCOMPARE(window.model()->status(0), int(Database::StatusNew));
    QVERIFY(window.updateButton()->isEnabled());
    QVERIFY(window.transferButton()->isEnabled());
}

void TestMainWindowWorkflows::unsignedFilesAreAskedAboutOnlyWhenWanted()
{
    QVERIFY(writeCatalogue());
    const SongFolder songs;
    WindowUnderTest window;
    int questions = 0;
    UserDriver user;
    user.click<BackupDialog>(QStringLiteral("exitPushButton"));
    user.add([&](QWidget *modal) {
        auto *const question = qobject_cast<NoCopyrightDialog *>(modal);
        if (question == nullptr)
            return false;
        ++questions;
        QTest::mouseClick(question->findChild<QPushButton *>(QStringLiteral("noPushButton")),
                          Qt::LeftButton);
        return true;
    });
    user.add([](QWidget *modal) {
        return qobject_cast<ProceedDialog *>(modal) != nullptr && modal->close();
    });
    const QStringList files{songs.midi(QStringLiteral("known.mid"), "Known")};

    window.action("actionCopyrightYes")->trigger();
    user.pick(files);
    QTest::mouseClick(window.selectButton(), Qt::LeftButton);
    QTest::mouseClick(window.updateButton(), Qt::LeftButton);
    QCOMPARE(questions, 1);
    QCOMPARE(window.model()->status(0), int(Database::StatusNotSynced));

    window.action("actionCopyrightNo")->trigger();
    user.pick(files);
    QTest::mouseClick(window.selectButton(), Qt::LeftButton);
    QTest::mouseClick(window.updateButton(), Qt::LeftButton);
    QCOMPARE(questions, 1);
    QCOMPARE(window.model()->status(0), int(Database::StatusSynced));
}

void TestMainWindowWorkflows::noToAllHoldsForOneSynchronisation()
{
    QVERIFY(writeCatalogue());
    OwnSettings::set(settings::copyrightAsk, true);
    const SongFolder songs;
    WindowUnderTest window;
    window.setSelectedFiles({songs.midi(QStringLiteral("known.mid"), "A"),
                             songs.midi(QStringLiteral("b.mid"), "Known title"),
                             songs.signedMidi(QStringLiteral("c.mid"), "Known title")});
    int questions = 0;
    QString answer = QStringLiteral("noAllPushButton");
    ModalAnswers user;
    user.click<BackupDialog>(QStringLiteral("exitPushButton"));
    user.add([](QWidget *modal) {
        return qobject_cast<ProceedDialog *>(modal) != nullptr && modal->close();
    });
    user.add([&](QWidget *modal) {
        auto *const question = qobject_cast<NoCopyrightDialog *>(modal);
        if (question == nullptr)
            return false;
        ++questions;
        QTest::mouseClick(question->findChild<QPushButton *>(answer), Qt::LeftButton);
        return true;
    });
    window.importUserLibrary();
    QTest::mouseClick(window.updateButton(), Qt::LeftButton);
    QCOMPARE(questions, 1);
    QCOMPARE(window.model()->status(0), int(Database::StatusNotSynced));
    QCOMPARE(window.model()->status(1), int(Database::StatusNotSynced));
    QCOMPARE(window.model()->status(2), int(Database::StatusSynced));
    QCOMPARE(OwnSettings::value(settings::copyrightAsk), QVariant(true));

    answer = QStringLiteral("yesAllPushButton");
    window.importUserLibrary();
    QTest::mouseClick(window.updateButton(), Qt::LeftButton);
    QCOMPARE(questions, 2);
    for (int row = 0; row < 3; ++row)
        QCOMPARE(window.model()->status(row), int(Database::StatusSynced));
}

void TestMainWindowWorkflows::cancelledSynchronisationKeepsTheRestAsItWas()
{
    QVERIFY(writeCatalogue());
    OwnSettings::set(settings::copyrightAsk, false);
    const SongFolder songs;
    QStringList files;
    for (int i = 0; i < 400; ++i)
        files << songs.midi(QStringLiteral("%1.mid").arg(i), "Known title");
    WindowUnderTest window;
    window.setSelectedFiles(files);
    window.importUserLibrary();
    ModalAnswers user;
    user.click<BackupDialog>(QStringLiteral("exitPushButton"));
    user.click<QProgressDialog>(QString()); // its only button
    QTest::mouseClick(window.updateButton(), Qt::LeftButton);

    int done = 0;
    while (done < files.size() && window.model()->status(done) == Database::StatusSynced)
        ++done;
    QVERIFY(done < files.size());
    for (int row = done; row < files.size(); ++row)
        QCOMPARE(window.model()->status(row), int(Database::StatusNew));
    QVERIFY(window.updateButton()->isEnabled());
    QVERIFY(window.transferButton()->isEnabled());
    QVERIFY(QApplication::activeModalWidget() == nullptr);
}

void TestMainWindowWorkflows::singleRowIsSynchronised()
{
    QVERIFY(writeCatalogue());
    const SongFolder songs;
    WindowUnderTest window;
    window.setSelectedFiles({songs.signedMidi(QStringLiteral("known.mid"), "Known"),
                             songs.signedMidi(QStringLiteral("other.mid"), "Other")});
    window.importUserLibrary();
    QVERIFY(window.updateFileWithDb(0));
    QVERIFY(!window.updateFileWithDb(1));
    QCOMPARE(window.model()->index(0, 2).data().toString(), QStringLiteral("KNOWN TITLE"));
    QCOMPARE(window.model()->status(0), int(Database::StatusNew));
}

int main(int argc, char *argv[])
{
    return runAppTest<TestMainWindowWorkflows>(argc, argv);
}

#include "test_mainwindow_workflows.moc"
