// The backup: its questions and answers handed in, and its copies of whole folders.
#include "library/librarybackup.h"
#include "support/journalbytes.h"
#include "support/logcapture.h"
#include "support/ownfolders.h"
#include "support/songfolder.h"

#include <QTest>

#include <memory>

namespace
{

/** A progress without a window. */
class QuietProgress : public Progress
{
public:
    void setMaximum(int) override {}
    void setValue(int) override {}
    void updateProgress(int) override {}
    bool wasCanceled() const override { return false; }
};

/** The workflow with everything around it replaced by notes of what it did. */
class BackupWithoutWindows
{
public:
    bool suggest()
    {
        return LibraryBackup([this] { return choice; },
                             [this](const QString &destination, int &copied) {
                                 copiedTo = destination;
                                 progressOpenWhileCopying = progressOpen;
                                 copied = copySucceeds ? filesCount : 0;
                                 return copySucceeds;
                             },
                             [this](bool succeeded) {
                                 progressOpenWhileReporting = progressOpen;
                                 reports << succeeded;
                             },
                             [this](const QString &title, const QString &label, int maximum) {
                                 progressTexts = {title, label, QString::number(maximum)};
                                 return std::make_unique<NotedProgress>(progressOpen);
                             })
            .suggest(filesCount);
    }

    LibraryBackup::Choice choice;
    int filesCount = 7;
    bool copySucceeds = true;
    QString copiedTo;
    QStringList progressTexts;
    QList<bool> reports;
    bool progressOpenWhileCopying = false;
    bool progressOpenWhileReporting = false;

private:
    class NotedProgress : public QuietProgress
    {
    public:
        explicit NotedProgress(bool &open)
            : m_open(open)
        {
            m_open = true;
        }
        ~NotedProgress() override { m_open = false; }
        Q_DISABLE_COPY_MOVE(NotedProgress)

    private:
        bool &m_open;
    };

    bool progressOpen = false;
};

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

class TestBackupWorkflow : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_work = std::make_unique<OwnWorkingFolder>(); }
    void cleanup() { m_work.reset(); }

    void folderIsNamedAfterTheTime();
    void eachChoiceDecidesWhetherToGoOn_data();
    void eachChoiceDecidesWhetherToGoOn();
    void backupWithoutAFolderFails();
    void backupGoesIntoANewFolder();
    void failedCopyIsReportedAndTheUpdateGoesOn();
    void secondBackupInTheSameSecondFails();
    void folderThatCannotBeMadeStopsTheUpdate();
    void workflowIsLogged();
    void folderIsNotCopiedIntoItself();
    void linkedFoldersEnd();
    void existingFilesAreKeptAndFailTheCopy();
    void songWhoseSaveWasCutOffIsPutBackFirst();

private:
    std::unique_ptr<OwnWorkingFolder> m_work;
};

void TestBackupWorkflow::folderIsNamedAfterTheTime()
{
    QCOMPARE(LibraryBackup::folderName(QDateTime(QDate(2012, 10, 1), QTime(9, 39, 3))),
             QStringLiteral("backup_kravo_2012_10_01_09-39-03"));
}

void TestBackupWorkflow::eachChoiceDecidesWhetherToGoOn_data()
{
    QTest::addColumn<LibraryBackup::Wish>("wish");
    QTest::addColumn<bool>("goOn");
    QTest::newRow("cancelled") << LibraryBackup::Wish::Cancel << false;
    QTest::newRow("without backup") << LibraryBackup::Wish::NoBackup << true;
}

void TestBackupWorkflow::eachChoiceDecidesWhetherToGoOn()
{
    QFETCH(LibraryBackup::Wish, wish);
    QFETCH(bool, goOn);
    BackupWithoutWindows backup;
    backup.choice = {wish, m_work->path()};
    QCOMPARE(backup.suggest(), goOn);
    QVERIFY(backup.reports.isEmpty());
    QVERIFY(backup.copiedTo.isEmpty());
    QVERIFY(entriesOf(m_work->path()).isEmpty());
}

void TestBackupWorkflow::backupWithoutAFolderFails()
{
    BackupWithoutWindows backup;
    backup.choice = {LibraryBackup::Wish::Backup, QString()};
    QVERIFY(!backup.suggest());
    QCOMPARE(backup.reports, QList<bool>{false});
    QVERIFY(backup.copiedTo.isEmpty());
}

void TestBackupWorkflow::backupGoesIntoANewFolder()
{
    BackupWithoutWindows backup;
    backup.choice = {LibraryBackup::Wish::Backup, m_work->path()};
    const QDateTime before = QDateTime::currentDateTime();
    QVERIFY(backup.suggest());
    const QStringList entries = entriesOf(m_work->path());
    QCOMPARE(entries.size(), 1);
    QVERIFY(entries.first() >= LibraryBackup::folderName(before));
    QVERIFY(entries.first() <= LibraryBackup::folderName(QDateTime::currentDateTime()));
    QCOMPARE(backup.copiedTo, m_work->filePath(entries.first()));
    QCOMPARE(backup.progressTexts, (QStringList{QStringLiteral("Backup"),
                                                QStringLiteral("Eseguo backup dellla libreria..."),
                                                QStringLiteral("7")}));
    QVERIFY(backup.progressOpenWhileCopying);
    QVERIFY(!backup.progressOpenWhileReporting);
    QCOMPARE(backup.reports, QList<bool>{true});
}

void TestBackupWorkflow::failedCopyIsReportedAndTheUpdateGoesOn()
{
    BackupWithoutWindows backup;
    backup.choice = {LibraryBackup::Wish::Backup, m_work->path()};
    backup.copySucceeds = false;
    QVERIFY(backup.suggest());
    QCOMPARE(backup.reports, QList<bool>{false});
    QVERIFY(!backup.progressOpenWhileReporting);
}

void TestBackupWorkflow::secondBackupInTheSameSecondFails()
{
    const QDateTime now = QDateTime::currentDateTime();
    for (int second = 0; second < 5; ++second)
        QVERIFY(QDir().mkdir(m_work->filePath(LibraryBackup::folderName(now.addSecs(second)))));
    BackupWithoutWindows backup;
    backup.choice = {LibraryBackup::Wish::Backup, m_work->path()};
    QVERIFY(!backup.suggest());
    QCOMPARE(backup.reports, QList<bool>{false});
    QVERIFY(backup.copiedTo.isEmpty());
}

void TestBackupWorkflow::folderThatCannotBeMadeStopsTheUpdate()
{
    BackupWithoutWindows backup;
    backup.choice = {LibraryBackup::Wish::Backup,
                     QStringLiteral("/proc")}; // takes no folders, not even root's
    const LogCapture log;
    QVERIFY(!backup.suggest());
    QCOMPARE(backup.reports, QList<bool>{false});
    QVERIFY(LogCapture::contains(QStringLiteral("Dest root dir creation failed ")));
}

void TestBackupWorkflow::workflowIsLogged()
{
    BackupWithoutWindows backup;
    backup.choice = {LibraryBackup::Wish::Backup, m_work->path()};
    const LogCapture log;
    QVERIFY(backup.suggest());
    const QString bar = QStringLiteral("============================================ ");
    QCOMPARE(
        LogCapture::lines(),
        (QStringList{bar, QStringLiteral("          BACKUP USER LIBRARY "), bar,
                     QStringLiteral("Making new root backup dir: \"%1\" ").arg(backup.copiedTo),
                     QStringLiteral(" ")}));
}

void TestBackupWorkflow::folderIsNotCopiedIntoItself()
{
    const SongFolder songs;
    QVERIFY(QDir(songs.path()).mkdir(QStringLiteral("backup")));
    songs.midi(QStringLiteral("a.mid"), "A");
    int count = 0;
    QVERIFY(LibraryBackup::backupDirectory(songs.path(), songs.filePath(QStringLiteral("backup")),
                                           count));
    QCOMPARE(count, 1);
    QCOMPARE(entriesOf(songs.filePath(QStringLiteral("backup"))),
             QStringList{QStringLiteral("a.mid")});
}

void TestBackupWorkflow::linkedFoldersEnd()
{
    const SongFolder songs;
    QVERIFY(QDir(songs.path()).mkdir(QStringLiteral("sub")));
    QVERIFY(QFile::link(songs.path(), songs.filePath(QStringLiteral("sub/back"))));
    songs.midi(QStringLiteral("sub/a.mid"), "A");
    int count = 0;
    QVERIFY(LibraryBackup::backupDirectory(songs.path(), m_work->path(), count));
    QCOMPARE(count, 1);
}

void TestBackupWorkflow::existingFilesAreKeptAndFailTheCopy()
{
    const SongFolder songs;
    songs.midi(QStringLiteral("a.mid"), "A");
    songs.midi(QStringLiteral("b.mid"), "B");
    QFile old(m_work->filePath(QStringLiteral("a.mid")));
    QVERIFY(old.open(QIODevice::WriteOnly));
    old.write("old");
    old.close();
    int count = 0;
    QVERIFY(!LibraryBackup::backupDirectory(songs.path(), m_work->path(), count));
    QCOMPARE(count, 1);
    QCOMPARE(bytesOf(old.fileName()), QByteArray("old"));
    QVERIFY(QFile::exists(m_work->filePath(QStringLiteral("b.mid"))));
}

void TestBackupWorkflow::songWhoseSaveWasCutOffIsPutBackFirst()
{
    const SongFolder songs;
    const QByteArray before = journalbytes::song(3000, 'a');
    const QByteArray after = journalbytes::song(3000, '0');
    const QString path = songs.write(QStringLiteral("a.mid"), after.left(1024) + before.mid(1024));
    songs.write(QStringLiteral(".a.mid.kavena-journal"), journalbytes::journalOf(before, after));
    int count = 0;
    QVERIFY(LibraryBackup::backupDirectory(songs.path(), m_work->path(), count));
    QCOMPARE(count, 1);
    QCOMPARE(bytesOf(m_work->filePath(QStringLiteral("a.mid"))), before);
    QCOMPARE(bytesOf(path), before);
}

QTEST_GUILESS_MAIN(TestBackupWorkflow)
#include "test_backupworkflow.moc"
