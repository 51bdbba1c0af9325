// A backup of songs that have the same name: each has a place of its own, and nothing is asked.
#include "library/backupplan.h"
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
#include <QElapsedTimer>
#include <QTest>

namespace
{

/** The plan as "folder: path path", batch by batch. */
QStringList planned(const QStringList &files)
{
    QStringList lines;
    const BackupPlan plan(files);
    for (const BackupPlan::Batch &batch : plan.batches())
        lines << batch.folder + s(": ") + batch.files.join(QLatin1Char(' '));
    return lines;
}

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

class TestBackupPlan : public AppFixture
{
    Q_OBJECT

private slots:
    void init() { AppFixture::init(); }
    void cleanup() { AppFixture::cleanup(); }

    void songsOfDifferentNamesStayTogether();
    void secondSongOfANameGoesIntoItsFoldersOwn();
    void letterCaseAndAccentsDoNotTellNamesApart();
    void foldersOfOneNameAreNumbered();
    void thousandsOfEqualNamesArePlannedAtOnce();
    void folderNeverHasTheNameOfASong();
    void picturesCompeteLikeSongs();
    void songListedTwiceIsCopiedOnce();
    void folderNamesAreAcceptableEverywhere();

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

void TestBackupPlan::songsOfDifferentNamesStayTogether()
{
    QCOMPARE(planned({}), QStringList(s(": ")));
    QCOMPARE(planned({s("/a/1.mid"), s("/b/2.mid"), s("/a/3.mid")}),
             QStringList(s(": /a/1.mid /b/2.mid /a/3.mid")));
}

void TestBackupPlan::secondSongOfANameGoesIntoItsFoldersOwn()
{
    QCOMPARE(planned({s("/m/Rock/1.mid"), s("/m/Pop/1.mid"), s("/m/Rock/2.mid"), s("/m/Pop/2.mid"),
                      s("/m/Pop/3.mid")}),
             QStringList({s(": /m/Rock/1.mid /m/Rock/2.mid /m/Pop/3.mid"),
                          s("Pop: /m/Pop/1.mid /m/Pop/2.mid")}));
}

void TestBackupPlan::letterCaseAndAccentsDoNotTellNamesApart()
{
    QCOMPARE(planned({s("/a/Song.mid"), s("/a/SONG.MID"), s("/a/song.mid")}),
             QStringList({s(": /a/Song.mid"), s("a: /a/SONG.MID"), s("a (2): /a/song.mid")}));
    const QString composed = s("/a/Caff\u00e8.mid");
    const QString decomposed = s("/b/Caffe\u0300.mid");
    QCOMPARE(planned({composed, decomposed}),
             QStringList({s(": ") + composed, s("b: ") + decomposed}));
}

void TestBackupPlan::foldersOfOneNameAreNumbered()
{
    QCOMPARE(planned({s("/1/x.mid"), s("/a/Rock/x.mid"), s("/b/rock/x.mid"), s("/b/rock/1.mid"),
                      s("/a/Rock/1.mid"), s("/c/Rock/x.mid")}),
             QStringList({s(": /1/x.mid /b/rock/1.mid"), s("Rock: /a/Rock/x.mid /a/Rock/1.mid"),
                          s("rock (2): /b/rock/x.mid"), s("Rock (3): /c/Rock/x.mid")}));
}

void TestBackupPlan::thousandsOfEqualNamesArePlannedAtOnce()
{
    constexpr int songs = 8000;
    QStringList files;
    for (int i = 0; i < songs; ++i)
        files << s("/%1/Rock/x.mid").arg(i);
    QElapsedTimer timer;
    timer.start();
    const BackupPlan plan(files);
    QVERIFY2(timer.elapsed() < 10000, qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(plan.batches().size(), songs);
    QCOMPARE(plan.batches().constLast().folder, s("Rock (%1)").arg(songs - 1));
}

void TestBackupPlan::folderNeverHasTheNameOfASong()
{
    QCOMPARE(planned({s("/a/x.mid"), s("/b/y.mid/x.mid"), s("/c/Y.mid")}),
             QStringList({s(": /a/x.mid /c/Y.mid"), s("y.mid (2): /b/y.mid/x.mid")}));
}

void TestBackupPlan::picturesCompeteLikeSongs()
{
    const SongFolder folder;
    QVERIFY(QDir(folder.path()).mkdir(s("a")));
    const QString lower = folder.mp3(s("a/song.mp3"), "A");
    folder.write(s("a/song.cdg"), "pictures");
    // A folder's name that is that of the pictures.
    QVERIFY(QDir(folder.path()).mkdir(s("song.cdg")));
    const QString other = folder.mp3(s("song.cdg/song.mp3"), "B");
    QCOMPARE(planned({lower, other}), QStringList({s(": ") + lower, s("song.cdg (2): ") + other}));
}

void TestBackupPlan::songListedTwiceIsCopiedOnce()
{
    QCOMPARE(planned({s("/a/x.mid"), s("/a/x.mid")}), QStringList(s(": /a/x.mid")));
}

void TestBackupPlan::folderNamesAreAcceptableEverywhere()
{
    QCOMPARE(planned({s("/a/x.mid"), s("/AC:DC?. /x.mid"), s("/x.mid")}),
             QStringList({s(": /a/x.mid"), s("AC_DC_: /AC:DC?. /x.mid"), s("songs: /x.mid")}));
}

/** Makes the backup and returns the path of its folder. */
QString TestBackupPlan::backUpThroughTheWindow(const QStringList &files)
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

void TestBackupPlan::backupThroughTheWindowAsksNothingAndKeepsBothSongs()
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

void TestBackupPlan::picturesGoAlong()
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

void TestBackupPlan::progressCountsThroughAllFolders()
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

void TestBackupPlan::stoppedCopyCountsNothing()
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

void TestBackupPlan::folderThatCannotBeMadeFailsTheBackup()
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

void TestBackupPlan::folderThatIsNotMadeForCertainFailsTheBackup()
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

void TestBackupPlan::failedBackupTellsWhySongsAreMissing()
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
    return runAppTest<TestBackupPlan>(argc, argv);
}

#include "test_backupplan.moc"
