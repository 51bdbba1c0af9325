// The places of songs in a backup: those of one name do not meet.
#include "library/backupplan.h"
#include "support/shorttext.h"
#include "support/songfolder.h"

#include <QDir>
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

} // namespace

class TestBackupPlan : public QObject
{
    Q_OBJECT

private slots:
    void songsOfDifferentNamesStayTogether();
    void secondSongOfANameGoesIntoItsFoldersOwn();
    void letterCaseAndAccentsDoNotTellNamesApart();
    void foldersOfOneNameAreNumbered();
    void thousandsOfEqualNamesArePlannedAtOnce();
    void folderNeverHasTheNameOfASong();
    void picturesCompeteLikeSongs();
    void songListedTwiceIsCopiedOnce();
    void folderNamesAreAcceptableEverywhere();
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

QTEST_GUILESS_MAIN(TestBackupPlan)
#include "test_backupplan.moc"
