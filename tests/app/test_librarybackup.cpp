// The backup: its workflow and its windows.
#include "support/apptest.h"
#include "support/backupdriver.h"
#include "support/germantexts.h"
#include "support/logcapture.h"
#include "support/songfolder.h"
#include "support/userdriver.h"
#include "support/windowundertest.h"
#include "windows/backupdialog.h"

#include <QApplication>
#include <QLabel>
#include <QProgressDialog>
#include <QTest>

using namespace backupdriver;

namespace
{

const QString failedMessage = QStringLiteral("Backup: Backup FALLITO !!!");
const QString doneMessage = QStringLiteral("Backup: Backup eseguito correttamente");

/**
 * In the dialog of a backup: picks the folder with "Sfoglia..." and starts. The click that opens
 * the chooser is queued, since no other answer is given while one is at work.
 */
void chooseAndStart(UserDriver &user, const QString &folder)
{
    user.pick({folder});
    user.add([browsed = false](QWidget *window) mutable {
        auto *const dialog = qobject_cast<BackupDialog *>(window);
        if (dialog == nullptr)
            return false;
        if (!browsed)
            QMetaObject::invokeMethod(button(*dialog, "browsePushButton"), "click",
                                      Qt::QueuedConnection);
        else if (!dialog->directory().isEmpty())
            QTest::mouseClick(button(*dialog, "doBackupPushButton"), Qt::LeftButton);
        browsed = true;
        return true;
    });
}

QStringList entriesOf(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name);
}

QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class TestLibraryBackup : public AppFixture
{
    Q_OBJECT

private slots:
    void init() { AppFixture::init(); }
    void cleanup() { AppFixture::cleanup(); }

    void wholeBackupThroughTheWindow();
    void missingFileFailsTheBackupButNotTheUpdate();
    void stoppedBackupFailsButNotTheUpdate();
    void goneDestinationStopsTheUpdate();
    void cancelledDialogStopsTheUpdate();
    void withoutBackupTheUpdateGoesOn();
    void debugButtonOffersABackup();

    void folderTreeIsCopiedWhole();
};

void TestLibraryBackup::wholeBackupThroughTheWindow()
{
    const SongFolder songs;
    const QStringList files{songs.midi(QStringLiteral("a.mid"), "A"),
                            songs.mp3(QStringLiteral("b.mp3"), "B"),
                            songs.bad(QStringLiteral("c.mid"))};
    WindowUnderTest window;
    window.setSelectedFiles(files);
    UserDriver user;
    user.pressInMessageBoxes(QMessageBox::Ok);
    chooseAndStart(user, m_work->path());
    QVERIFY(window.suggestBackup());
    QCOMPARE(user.messages(), QStringList{doneMessage});

    const QStringList entries = entriesOf(m_work->path());
    QCOMPARE(entries.size(), 1);
    const QString folder = m_work->filePath(entries.first());
    // What was selected is saved, whether or not it is a song.
    QCOMPARE(entriesOf(folder), (QStringList{QStringLiteral("a.mid"), QStringLiteral("b.mp3"),
                                             QStringLiteral("c.mid")}));
    QCOMPARE(bytesOf(folder + QStringLiteral("/b.mp3")), bytesOf(files.at(1)));
    QVERIFY(QApplication::activeModalWidget() == nullptr);
}

void TestLibraryBackup::missingFileFailsTheBackupButNotTheUpdate()
{
    const SongFolder songs;
    WindowUnderTest window;
    window.setSelectedFiles({songs.midi(QStringLiteral("a.mid"), "A"),
                             songs.filePath(QStringLiteral("missing.mid")),
                             songs.midi(QStringLiteral("z.mid"), "Z")});
    UserDriver user;
    user.pressInMessageBoxes(QMessageBox::Ok);
    chooseAndStart(user, m_work->path());
    QVERIFY(window.suggestBackup());
    QCOMPARE(user.messages(), QStringList{failedMessage});
    const QString folder = m_work->filePath(entriesOf(m_work->path()).value(0));
    QCOMPARE(entriesOf(folder), (QStringList{QStringLiteral("a.mid"), QStringLiteral("z.mid")}));
}

void TestLibraryBackup::stoppedBackupFailsButNotTheUpdate()
{
    const SongFolder songs;
    QStringList files;
    for (int i = 0; i < 500; ++i)
        files << songs.midi(QStringLiteral("%1.mid").arg(i), "A");
    WindowUnderTest window;
    window.setSelectedFiles(files);
    UserDriver user;
    user.pressInMessageBoxes(QMessageBox::Ok);
    chooseAndStart(user, m_work->path());
    user.add([](QWidget *modal) {
        auto *const progress = qobject_cast<QProgressDialog *>(modal);
        if (progress == nullptr)
            return false;
        QTest::mouseClick(progress->findChild<QPushButton *>(), Qt::LeftButton);
        return true;
    });
    QVERIFY(window.suggestBackup());
    QCOMPARE(user.messages(), QStringList{failedMessage});
    const QString folder = m_work->filePath(entriesOf(m_work->path()).value(0));
    QVERIFY(entriesOf(folder).size() < 500);
}

void TestLibraryBackup::goneDestinationStopsTheUpdate()
{
    const SongFolder songs;
    WindowUnderTest window;
    window.setSelectedFiles({songs.midi(QStringLiteral("a.mid"), "A")});
    const QString destination = m_work->filePath(QStringLiteral("stick"));
    QVERIFY(QDir().mkdir(destination));
    UserDriver user;
    user.pressInMessageBoxes(QMessageBox::Ok);
    user.add([&](QWidget *modal) {
        auto *const dialog = qobject_cast<BackupDialog *>(modal);
        if (dialog != nullptr && !dialog->directory().isEmpty())
            QDir().rmdir(destination); // pulled before the backup starts
        return false;
    });
    chooseAndStart(user, destination);
    QVERIFY(!window.suggestBackup());
    QCOMPARE(user.messages(), QStringList{failedMessage});
}

void TestLibraryBackup::cancelledDialogStopsTheUpdate()
{
    WindowUnderTest window;
    UserDriver user;
    user.click<BackupDialog>(QStringLiteral("abortPushButton"));
    QVERIFY(!window.suggestBackup());
    QVERIFY(user.messages().isEmpty());
}

void TestLibraryBackup::withoutBackupTheUpdateGoesOn()
{
    WindowUnderTest window;
    UserDriver user;
    user.click<BackupDialog>(QStringLiteral("exitPushButton"));
    QVERIFY(window.suggestBackup());
    QVERIFY(entriesOf(m_work->path()).isEmpty());
}

void TestLibraryBackup::debugButtonOffersABackup()
{
    const WindowUnderTest window;
    ModalAnswers user;
    int offered = 0;
    user.add([&](QWidget *modal) {
        offered += qobject_cast<BackupDialog *>(modal) != nullptr ? 1 : 0;
        return modal->close();
    });
    window.pressDebug("dbgBackupPushButton");
    QCOMPARE(offered, 1);
}

void TestLibraryBackup::folderTreeIsCopiedWhole()
{
    const SongFolder songs;
    QVERIFY(QDir(songs.path()).mkpath(QStringLiteral("sub/deeper")));
    QVERIFY(QDir(songs.path()).mkpath(QStringLiteral("empty")));
    songs.midi(QStringLiteral("a.mid"), "A");
    songs.midi(QStringLiteral("sub/b.mid"), "B");
    songs.midi(QStringLiteral("sub/deeper/c.mid"), "C");
    WindowUnderTest window;
    int count = 10;
    const LogCapture log;
    QVERIFY(window.backupDirectory(songs.path(), m_work->path(), count));
    QCOMPARE(count, 13);
    QCOMPARE(bytesOf(m_work->filePath(QStringLiteral("sub/deeper/c.mid"))),
             bytesOf(songs.filePath(QStringLiteral("sub/deeper/c.mid"))));
    QVERIFY(QDir(m_work->filePath(QStringLiteral("empty"))).exists());
    QVERIFY(
        LogCapture::contains(QStringLiteral("Backing up directory: \"%1\" ").arg(songs.path())));
    QVERIFY(LogCapture::contains(
        QStringLiteral("Making new dir: \"%1\" ").arg(m_work->filePath(QStringLiteral("sub")))));
    QVERIFY(LogCapture::contains(
        QStringLiteral("Copying file: \"%1\" ").arg(songs.filePath(QStringLiteral("a.mid")))));
}

int main(int argc, char *argv[])
{
    return runAppTest<TestLibraryBackup>(argc, argv);
}

#include "test_librarybackup.moc"
