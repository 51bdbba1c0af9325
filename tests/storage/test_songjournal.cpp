// What a journal may do to a song: undo a save that was cut off, and nothing else.
#include "storage/songfilewriter.h"
#include "storage/songjournal.h"
#include "support/journalbytes.h"
#include "support/journalfixture.h"
#include "support/logcapture.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <sys/stat.h>

using namespace journalbytes;

namespace
{

bool logTells(const QString &text)
{
    return LogCapture::lines().join(QLatin1Char('\n')).contains(text);
}

mode_t modeOf(const QString &path)
{
    struct stat status {
    };
    return stat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_mode & 0777U : 0;
}

} // namespace

class TestSongJournal : public JournalFixture
{
    Q_OBJECT

private slots:
    void init() { JournalFixture::init(); }

    void songMadeOfOldAndNewGetsItsOldBytesBack_data();
    void songMadeOfOldAndNewGetsItsOldBytesBack();
    void everyPlaceAtWhichASaveStopsIsUndone_data();
    void everyPlaceAtWhichASaveStopsIsUndone();
    void wholeSongOnlyLosesItsJournal();
    void anyOtherSongStays_data();
    void anyOtherSongStays();
    void junkIsOnlyCutOffBehindAWholeSong();
    void tracksAreNoJunk();
    void songRestoredWithItsOldDateStays();
    void mp3IsNeverReplaced();
    void writeProtectedSongIsOnlyReplacedWhenItWasCutOff();
    void journalWithoutTheNewBytesGoesAndTheSongStays();

    void saveThatStillRunsIsLeftAlone();
    void journalIsFoundThroughALink();
    void savingResolvesALeftoverFirst();
    void songWithoutAJournalStays();
};

void TestSongJournal::songMadeOfOldAndNewGetsItsOldBytesBack_data()
{
    QTest::addColumn<QByteArray>("old");
    QTest::addColumn<QByteArray>("written");
    QTest::addColumn<QByteArray>("leftover");
    const QByteArray a = song(3000, 'a');
    const QByteArray longer = song(4000, '0');
    const QByteArray as = song(3000, '0');
    const QByteArray shorter = song(2000, '0');
    QTest::newRow("longer, first byte of the end") << a << longer << a + longer.mid(3000, 1);
    QTest::newRow("longer, the whole end") << a << longer << a + longer.mid(3000);
    QTest::newRow("longer, end and half of the start")
        << a << longer << longer.left(1500) + a.mid(1500) + longer.mid(3000);
    QTest::newRow("longer, place without bytes") << a << longer << a + QByteArray(1000, '\0');
    QTest::newRow("longer, place with bytes of another file") << a << longer << a + song(700, 'A');
    QTest::newRow("as long, half") << a << as << as.left(1024) + a.mid(1024);
    QTest::newRow("as long, sectors in any order")
        << a << as << a.left(512) + as.mid(512, 512) + a.mid(1024, 512) + as.mid(1536);
    QTest::newRow("as long, put back in part")
        << a << as << a.left(700) + as.mid(700, 900) + a.mid(1600);
    QTest::newRow("as long, put back in part of a sector")
        << a << as << a.left(600) + as.mid(600, 40) + a.mid(640);
    QTest::newRow("shorter, one sector") << a << shorter << shorter.left(512) + a.mid(512);
    QTest::newRow("shorter, not cut off yet") << a << shorter << shorter + a.mid(2000);
    QTest::newRow("shorter, cut off in part") << a << shorter << shorter + a.mid(2000, 500);
}

void TestSongJournal::songMadeOfOldAndNewGetsItsOldBytesBack()
{
    QFETCH(QByteArray, old);
    QFETCH(QByteArray, written);
    QFETCH(QByteArray, leftover);
    makeFile(songPath(), leftover);
    makeFile(journal(), journalOf(old, written));
    const LogCapture log;
    QVERIFY(SongFileWriter::recover(songPath()));
    QVERIFY(contentOf(songPath()) == old);
    QCOMPARE(files(), QStringList(QStringLiteral("song.mid")));
    QVERIFY(logTells(QStringLiteral("The last save was cut off")));
    QVERIFY(logTells(songPath()));
}

void TestSongJournal::everyPlaceAtWhichASaveStopsIsUndone_data()
{
    QTest::addColumn<int>("oldSize");
    QTest::addColumn<int>("newSize");
    QTest::newRow("longer") << 1100 << 1700;
    QTest::newRow("as long") << 1300 << 1300;
    QTest::newRow("shorter") << 1700 << 1100;
}

void TestSongJournal::everyPlaceAtWhichASaveStopsIsUndone()
{
    QFETCH(int, oldSize);
    QFETCH(int, newSize);
    const QByteArray old = song(oldSize, 'a');
    const QByteArray written = song(newSize, '0');
    const QByteArray bytes = journalOf(old, written);
    const int head = qMin(oldSize, newSize);
    const LogCapture log;
    // The end first, then the start; the file shrinks last.
    for (int done = 0; done < newSize; done += 13) {
        const int end = qMin(done, newSize - head);
        const int start = done - end;
        makeFile(songPath(), written.left(start) + old.mid(start) + written.mid(head, end));
        makeFile(journal(), bytes);
        QVERIFY(SongFileWriter::recover(songPath()));
        QVERIFY2(contentOf(songPath()) == old, qPrintable(QString::number(done)));
        QVERIFY(!QFileInfo::exists(journal()));
    }
}

void TestSongJournal::wholeSongOnlyLosesItsJournal()
{
    const QByteArray old = song(3000, 'a');
    for (const int size : {2000, 3000, 4000}) {
        const QByteArray written = song(size, '0');
        for (const QByteArray &content : {old, written}) {
            makeFile(songPath(), content);
            makeFile(journal(), journalOf(old, written));
            const LogCapture log;
            QVERIFY(SongFileWriter::recover(songPath()));
            QVERIFY(contentOf(songPath()) == content);
            QCOMPARE(files(), QStringList(QStringLiteral("song.mid")));
            QCOMPARE(LogCapture::lines(), QStringList());
        }
    }
}

void TestSongJournal::anyOtherSongStays_data()
{
    QTest::addColumn<QByteArray>("leftover");
    const QByteArray old = song(3000, 'a');
    const QByteArray written = song(4000, '0');
    QTest::newRow("another song, between the sizes") << song(3500, 'A');
    QTest::newRow("another song, as long as the old one") << song(3000, 'A');
    QTest::newRow("another song, as long as the new one") << song(4000, 'A');
    QTest::newRow("another song, shorter") << song(100, 'A');
    QTest::newRow("another song, longer") << song(9000, 'A');
    QTest::newRow("one foreign byte") << old.left(2000) + 'X' + old.mid(2001);
    QTest::newRow("old and more than the new one") << old + QByteArray(1001, 'X');
    QTest::newRow("new and more") << written + 'X';
    QTest::newRow("old, cut off") << old.left(2999);
    QByteArray woven = old;
    for (int i = 100; i < woven.size(); i += 2)
        woven[i] = written.at(i);
    QTest::newRow("every second byte") << woven;
    QTest::newRow("empty") << QByteArray();
}

void TestSongJournal::anyOtherSongStays()
{
    QFETCH(QByteArray, leftover);
    makeFile(songPath(), leftover);
    makeFile(journal(), journalOf(song(3000, 'a'), song(4000, '0')));
    const LogCapture log;
    QVERIFY(SongFileWriter::recover(songPath()));
    QVERIFY(contentOf(songPath()) == leftover);
    QCOMPARE(files(), QStringList(QStringLiteral("song.mid")));
    QVERIFY(logTells(QStringLiteral("The song was changed since, it stays")));
}

// The start of a song would otherwise be enough to cut all the rest off.
void TestSongJournal::junkIsOnlyCutOffBehindAWholeSong()
{
    const QByteArray whole = song(3000, 'a');
    QByteArray mfx = "_MF4" + QByteArray::fromHex("b80b0000") + song(2992, 'a');
    const LogCapture log;
    for (const QByteArray &content : {whole, mfx}) {
        makeFile(songPath(), content);
        makeFile(journal(), journalOf(content.left(600), song(4000, '0')));
        QVERIFY(SongFileWriter::recover(songPath()));
        QVERIFY(contentOf(songPath()) == content);

        makeFile(songPath(), content + QByteArray(500, 'X'));
        makeFile(journal(), journalOf(content, song(4000, '0')));
        QVERIFY(SongFileWriter::recover(songPath()));
        QVERIFY(contentOf(songPath()) == content);
    }
}

void TestSongJournal::tracksAreNoJunk()
{
    const QByteArray first = "MThd" + bigEndian(6) + QByteArray::fromHex("000100030060") + "MTrk" +
                             bigEndian(4) + QByteArray::fromHex("00ff2f00");
    const QByteArray other = "MTrk" + bigEndian(900) + QByteArray(900, 'n');
    const QByteArray whole = first + other + other;
    makeFile(songPath(), whole);
    makeFile(journal(), journalOf(first, QByteArray(whole.size() + 10, '\0')));
    const LogCapture log;
    QVERIFY(SongFileWriter::recover(songPath()));
    QVERIFY(contentOf(songPath()) == whole);
    QVERIFY(!QFile::exists(journal()));
}

void TestSongJournal::songRestoredWithItsOldDateStays()
{
    const QByteArray restored = song(3200, 'A');
    makeFile(songPath(), restored);
    QFile file(songPath());
    QVERIFY(file.open(QFile::ReadWrite));
    QVERIFY(
        file.setFileTime(QDateTime::currentDateTime().addYears(-1), QFile::FileModificationTime));
    file.close();
    makeFile(journal(), journalOf(song(3000, 'a'), song(4000, '0')));
    const LogCapture log;
    QVERIFY(SongFileWriter::recover(songPath()));
    QVERIFY(contentOf(songPath()) == restored);
    QVERIFY(!QFileInfo::exists(journal()));
}

void TestSongJournal::mp3IsNeverReplaced()
{
    const QByteArray old = "ID3" + QByteArray(3000, 'a');
    const QByteArray written = "ID3" + QByteArray(4000, 'b');
    const QByteArray mixed = written.left(1024) + old.mid(1024);
    const LogCapture log;
    for (const QByteArray &content : {mixed, old + "Xb", QByteArray("\xff\xfb\x90 audio")}) {
        makeFile(path("song.mp3"), content);
        makeFile(path(".song.mp3.kavena-journal"), journalOf(old, written));
        QVERIFY(SongFileWriter::recover(path("song.mp3")));
        QVERIFY(contentOf(path("song.mp3")) == content);
        QCOMPARE(files(), QStringList(QStringLiteral("song.mp3")));
    }
}

void TestSongJournal::writeProtectedSongIsOnlyReplacedWhenItWasCutOff()
{
    const QByteArray old = song(3000, 'a');
    const QByteArray written = song(4000, '0');
    const QByteArray other = song(3500, 'A');
    const LogCapture log;
    makeFile(songPath(), other);
    QCOMPARE(chmod(QFile::encodeName(songPath()).constData(), 0444), 0);
    makeFile(journal(), journalOf(old, written));
    QVERIFY(SongFileWriter::recover(songPath()));
    QVERIFY(contentOf(songPath()) == other);
    QCOMPARE(modeOf(songPath()), mode_t{0444});

    // The save made it writable, but a power cut may have come before that was on the medium.
    QVERIFY(QFile::remove(songPath()));
    makeFile(songPath(), old + written.mid(3000, 10));
    QCOMPARE(chmod(QFile::encodeName(songPath()).constData(), 0444), 0);
    makeFile(journal(), journalOf(old, written));
    QVERIFY(SongFileWriter::recover(songPath()));
    QVERIFY(contentOf(songPath()) == old);
}

// Nothing proves that the song was cut off, so its journal is of no use.
void TestSongJournal::journalWithoutTheNewBytesGoesAndTheSongStays()
{
    const QByteArray old = song(3000, 'a');
    for (const QByteArray &content : {song(3500, 'A'), song(1000, '0') + old.mid(1000), old}) {
        makeFile(journal(), firstJournalOf(old, 4000));
        makeFile(songPath(), content);
        QVERIFY(SongFileWriter::recover(songPath()));
        QVERIFY(contentOf(songPath()) == content);
        QCOMPARE(files(), QStringList(QStringLiteral("song.mid")));
    }
}

// Another window of the program reads the song while this one waits for a slow stick.
void TestSongJournal::saveThatStillRunsIsLeftAlone()
{
    const QByteArray old = song(3000, 'a');
    const QByteArray mixed = song(3000, '0').left(2000) + old.mid(2000);
    makeFile(songPath(), old);
    SongJournal running(songPath());
    QVERIFY(running.write({old, song(3000, '0')}));
    makeFile(songPath(), mixed);

    const LogCapture log;
    QVERIFY(!SongFileWriter::recover(songPath()));
    QVERIFY(!rewriteInPlace(songPath(), song(3000, 'x')));
    QVERIFY(logTells(QStringLiteral("is being saved")));
    SongJournal::removeAllOf(songPath());
    QVERIFY(contentOf(songPath()) == mixed);
    QVERIFY(QFileInfo::exists(running.path()));

    QVERIFY(running.remove());
    QVERIFY(SongFileWriter::recover(songPath()));
    QVERIFY(contentOf(songPath()) == mixed);
    QCOMPARE(files(), QStringList({QStringLiteral("song.mid")}));
}

void TestSongJournal::journalIsFoundThroughALink()
{
    const QByteArray old = song(300, 'a');
    const QByteArray written = song(400, '0');
    QVERIFY(QDir().mkdir(path("songs")));
    makeFile(path("songs/real.mid"), old + written.mid(300));
    makeFile(path("songs/.real.mid.kavena-journal"), journalOf(old, written));
    QVERIFY(QFile::link(path("songs/real.mid"), path("link.mid")));
    const LogCapture log;
    QVERIFY(SongFileWriter::recover(path("link.mid")));
    QVERIFY(contentOf(path("songs/real.mid")) == old);
    QVERIFY(!QFileInfo::exists(path("songs/.real.mid.kavena-journal")));
}

void TestSongJournal::savingResolvesALeftoverFirst()
{
    const LogCapture log;
    const QByteArray old = song(300, 'a');
    const QByteArray written = song(400, '0');
    makeFile(songPath(), old + written.mid(300));
    makeFile(journal(), journalOf(old, written));
    {
        SongFileWriter writer(songPath());
        QVERIFY(writer.open());
        QVERIFY(contentOf(songPath()) == old);
        QVERIFY(writer.replaceBytes(song(200, '0')));
    }
    QVERIFY(contentOf(songPath()) == song(200, '0'));
    QCOMPARE(files(), QStringList(QStringLiteral("song.mid")));

    makeFile(path("song.mp3"), "ID3 and audio");
    makeFile(path(".song.mp3.kavena-journal"), journalOf(old, written));
    QFile source(path("song.mp3"));
    QVERIFY(source.open(QFile::ReadOnly));
    QCOMPARE(SongFileWriter(path("song.mp3")).replaceThroughTemporary("head ", source, 0),
             SongFileWriter::Outcome::Done);
    QCOMPARE(contentOf(path("song.mp3")), QByteArray("head ID3 and audio"));
    QCOMPARE(files().size(), 2);
}

void TestSongJournal::songWithoutAJournalStays()
{
    makeFile(songPath(), "old");
    QVERIFY(SongFileWriter::recover(songPath()));
    QVERIFY(SongFileWriter::recover(path("missing.mid")));
    QVERIFY(SongFileWriter::recover(QString()));
    // The journal of a song that is not there waits for it.
    makeFile(path(".gone.mid.kavena-journal"), journalOf(song(300, 'a'), song(400, '0')));
    QVERIFY(SongFileWriter::recover(path("gone.mid")));
    QCOMPARE(files().size(), 2);
}

QTEST_APPLESS_MAIN(TestSongJournal)
#include "test_songjournal.moc"
