// A backup of songs that have the same name: each has a place of its own, and nothing is asked.
#include "library/librarybackup.h"
#include "support/apptest.h"
#include "support/shorttext.h"
#include "support/songfolder.h"
#include "support/userdriver.h"
#include "support/windowundertest.h"
#include "windows/backupdialog.h"
#include "windows/nocopyrightdialog.h"

#include <QApplication>
#include <QDirIterator>
#include <QTest>

namespace
{

QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
}

/** All files below the folder, as paths from there. */
QStringList filesBelow(const QString &folder)
{
    QStringList found;
    QDirIterator files(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext())
        found << files.next().mid(folder.size() + 1);
    found.sort();
    return found;
}

/** Counts and stops as the test wants. */
class CountedProgress : public Progress
{
public:
    void setMaximum(int) override {}
    void setValue(int) override {}
    void updateProgress(int done) override { updates << done; }
    bool wasCanceled() const override { return updates.size() >= stopAfter; }

    QList<int> updates;
    qsizetype stopAfter = 1000;
};

} // namespace

class TestBackupSameNames : public AppFixture
{
    Q_OBJECT

private slots:
    void init() { AppFixture::init(); }
    void cleanup() { AppFixture::cleanup(); }

    void backupThroughTheWindowAsksNothingAndKeepsBothSongs();
    void picturesGoAlong();
    void progressCountsThroughAllFolders();
    void stoppedCopyCountsNothing();
    void folderThatCannotBeMadeFailsTheBackup();
    void folderThatIsNotMadeForCertainFailsTheBackup();
    void failedBackupTellsWhySongsAreMissing();

private:
    QString backUpThroughTheWindow(const QStringList &files);

    QStringList m_messages;
    QString m_details; ///< of the last message
    int m_questions = 0;
};

/** Makes the backup and returns the path of its folder. */
QString TestBackupSameNames::backUpThroughTheWindow(const QStringList &files)
{
    WindowUnderTest window;
    window.setSelectedFiles(files);
    UserDriver user;
    m_details.clear();
    user.add([this](QWidget *modal) {
        if (const auto *const box = qobject_cast<QMessageBox *>(modal))
            m_details = box->detailedText();
        return false;
    });
    user.pressInMessageBoxes(QMessageBox::Ok);
    user.add([this](QWidget *modal) {
        auto *const question = qobject_cast<NoCopyrightDialog *>(modal);
        if (question == nullptr)
            return false;
        ++m_questions;
        question->done(NoCopyrightDialog::No);
        return true;
    });
    user.pick({m_work->path()});
    user.add([browsed = false](QWidget *modal) mutable {
        auto *const dialog = qobject_cast<BackupDialog *>(modal);
        if (dialog == nullptr)
            return false;
        if (!browsed)
            clickLater(child<QPushButton>(dialog, "browsePushButton"));
        else if (!dialog->directory().isEmpty())
            QTest::mouseClick(child<QPushButton>(dialog, "doBackupPushButton"), Qt::LeftButton);
        browsed = true;
        return true;
    });
    m_questions = 0;
    const bool goesOn = window.suggestBackup();
    m_messages = user.messages();
    const QStringList made = QDir(m_work->path()).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    return goesOn && made.size() == 1 ? m_work->filePath(made.first()) : QString();
}

void TestBackupSameNames::backupThroughTheWindowAsksNothingAndKeepsBothSongs()
{
    const SongFolder songs;
    QVERIFY(QDir(songs.path()).mkpath(s("Rock")) && QDir(songs.path()).mkpath(s("Pop")));
    const QString rock = songs.midi(s("Rock/Song.mid"), "Rock");
    const QString pop = songs.midi(s("Pop/song.mid"), "Pop");
    const QString folder = backUpThroughTheWindow({rock, pop});
    QCOMPARE(m_questions, 0);
    QCOMPARE(m_messages, QStringList(s("Backup: Backup eseguito correttamente")));
    QCOMPARE(filesBelow(folder), QStringList({s("Pop/song.mid"), s("Song.mid")}));
    QCOMPARE(bytesOf(folder + s("/Song.mid")), bytesOf(rock));
    QCOMPARE(bytesOf(folder + s("/Pop/song.mid")), bytesOf(pop));
}

void TestBackupSameNames::picturesGoAlong()
{
    const SongFolder songs;
    QVERIFY(QDir(songs.path()).mkpath(s("a")) && QDir(songs.path()).mkpath(s("b")));
    QStringList files;
    for (const char *folder : {"a/", "b/"}) {
        files << songs.mp3(s(folder) + s("x.mp3"), folder);
        songs.write(s(folder) + s("x.cdg"), QByteArray("pictures of ") + folder);
    }
    const QString folder = backUpThroughTheWindow(files);
    QCOMPARE(m_questions, 0);
    QCOMPARE(filesBelow(folder), QStringList({s("b/x.cdg"), s("b/x.mp3"), s("x.cdg"), s("x.mp3")}));
    QCOMPARE(bytesOf(folder + s("/x.cdg")), QByteArray("pictures of a/"));
    QCOMPARE(bytesOf(folder + s("/b/x.cdg")), QByteArray("pictures of b/"));
}

void TestBackupSameNames::progressCountsThroughAllFolders()
{
    CountedProgress progress;
    int copied = -1;
    QStringList folders;
    const auto copy = [&](const QStringList &files, const QString &folder, int &arrived,
                          Progress &part) {
        folders << folder;
        arrived = static_cast<int>(files.size());
        for (int done = 1; done <= arrived; ++done)
            part.updateProgress(done);
        return true;
    };
    QVERIFY(LibraryBackup::copyFiles({s("/a/1.mid"), s("/a/2.mid"), s("/b/1.mid")}, m_work->path(),
                                     copied, progress, copy));
    QCOMPARE(progress.updates, QList<int>({1, 2, 3}));
    QCOMPARE(copied, 3);
    QCOMPARE(folders, QStringList({m_work->path(), m_work->filePath(s("b"))}));
    QVERIFY(QFileInfo(m_work->filePath(s("b"))).isDir());
}

void TestBackupSameNames::stoppedCopyCountsNothing()
{
    CountedProgress progress;
    progress.stopAfter = 1;
    int copied = -1;
    int lists = 0;
    const auto copy = [&](const QStringList &, const QString &, int &arrived, Progress &part) {
        ++lists;
        arrived = 0;
        part.updateProgress(1);
        return false;
    };
    QVERIFY(!LibraryBackup::copyFiles({s("/a/1.mid"), s("/b/1.mid")}, m_work->path(), copied,
                                      progress, copy));
    QCOMPARE(lists, 1);
    QCOMPARE(copied, 0);
}

void TestBackupSameNames::folderThatCannotBeMadeFailsTheBackup()
{
    // Its name is taken before the backup gets there.
    QVERIFY(QFile(m_work->filePath(s("b"))).open(QFile::WriteOnly));
    CountedProgress progress;
    int copied = -1;
    const auto copy = [](const QStringList &list, const QString &folder, int &arrived, Progress &) {
        const bool there = QFileInfo(folder).isDir();
        arrived = there ? static_cast<int>(list.size()) : 0;
        return there;
    };
    QVERIFY(!LibraryBackup::copyFiles({s("/a/1.mid"), s("/b/1.mid")}, m_work->path(), copied,
                                      progress, copy));
    QCOMPARE(copied, 1);
}

void TestBackupSameNames::folderThatIsNotMadeForCertainFailsTheBackup()
{
    QVERIFY(QFile(m_work->filePath(s("b"))).open(QFile::WriteOnly));
    CountedProgress progress;
    int copied = -1;
    const auto copy = [](const QStringList &list, const QString &, int &arrived, Progress &) {
        arrived = static_cast<int>(list.size());
        return true;
    };
    QVERIFY(!LibraryBackup::copyFiles({s("/a/1.mid"), s("/b/1.mid")}, m_work->path(), copied,
                                      progress, copy));
    QCOMPARE(copied, 1);
}

void TestBackupSameNames::failedBackupTellsWhySongsAreMissing()
{
    const SongFolder songs;
    const QString here = songs.midi(s("here.mid"), "Here");
    const QString folder = backUpThroughTheWindow({here, songs.path() + s("/gone.mid")});
    QCOMPARE(m_messages, QStringList(s("Backup: Backup FALLITO !!!")));
    QCOMPARE(m_details, s("gone.mid: il file non c'è più"));
    QCOMPARE(filesBelow(folder), QStringList(s("here.mid")));
}

int main(int argc, char *argv[])
{
    return runAppTest<TestBackupSameNames>(argc, argv);
}

#include "test_backup_samenames.moc"
