// Songs that are rewritten in place.
#include "storage/songfilewriter.h"
#include "support/faults.h"
#include "support/logcapture.h"
#include "support/writtensong.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <sys/stat.h>

using namespace writtensong;

namespace
{

bool logTells(const QString &text)
{
    return LogCapture::lines().join(QLatin1Char('\n')).contains(text);
}

bool rewriteInPlace(const QString &path, const QByteArray &content)
{
    SongFileWriter writer(path);
    return writer.open() && writer.replaceBytes(content);
}

} // namespace

class TestSongFileWriter : public SongWriterFixture
{
    Q_OBJECT

private slots:
    void init() { SongWriterFixture::init(); }

    void rewritesInPlace_data();
    void rewritesInPlace();
    void openingAloneChangesNothing();
    void createsAMissingFile();
    void removesAFileThatGotNoBytes();
    void failsWithoutAFolder();
    void refusesAnythingButRegularFiles();
    void keepsTheFileWhenWritesFailAnywhere_data();
    void keepsTheFileWhenWritesFailAnywhere();
    void removesANewFileWhenWritesFailAnywhere();
    void ownerMayWriteAfterwards();
    void filesOfOthersAreNotWritten();
    void inPlaceFollowsSymbolicLinks();
    void keepsTheInodeInPlace();

    void songIsNotSavedWhereItsJournalCannotBeMade();
    void journalOfALongNameFitsIntoTheFolder();
};

void TestSongFileWriter::rewritesInPlace_data()
{
    QTest::addColumn<int>("oldSize");
    QTest::addColumn<int>("newSize");
    QTest::newRow("longer") << 100 << 250;
    QTest::newRow("one byte longer") << 100 << 101;
    QTest::newRow("as long") << 100 << 100;
    QTest::newRow("one byte shorter") << 100 << 99;
    QTest::newRow("shorter") << 250 << 100;
    QTest::newRow("from nothing") << 0 << 100;
    QTest::newRow("to nothing") << 100 << 0;
    QTest::newRow("large") << 300000 << 700000;
}

void TestSongFileWriter::rewritesInPlace()
{
    QFETCH(int, oldSize);
    QFETCH(int, newSize);
    makeFile(path("song.mid"), bytes(oldSize, 'a'));
    const QByteArray content = bytes(newSize, '0');
    QVERIFY(rewriteInPlace(path("song.mid"), content));
    QCOMPARE(contentOf(path("song.mid")), content);
    QCOMPARE(files(), QStringList(QStringLiteral("song.mid")));
}

void TestSongFileWriter::openingAloneChangesNothing()
{
    makeFile(path("song.mid"), bytes(100, 'a'));
    {
        SongFileWriter writer(path("song.mid"));
        QVERIFY(writer.open());
        QCOMPARE(contentOf(path("song.mid")), bytes(100, 'a'));
    }
    QCOMPARE(contentOf(path("song.mid")), bytes(100, 'a'));
    QVERIFY(!SongFileWriter(path("song.mid")).replaceBytes("not opened"));
    QCOMPARE(contentOf(path("song.mid")), bytes(100, 'a'));
}

void TestSongFileWriter::createsAMissingFile()
{
    QVERIFY(rewriteInPlace(path("new.mid"), "content"));
    QCOMPARE(contentOf(path("new.mid")), QByteArray("content"));
}

void TestSongFileWriter::removesAFileThatGotNoBytes()
{
    {
        SongFileWriter writer(path("new.mid"));
        QVERIFY(writer.open());
    }
    QCOMPARE(files(), QStringList());
}

void TestSongFileWriter::failsWithoutAFolder()
{
    QVERIFY(!rewriteInPlace(path("missing/new.mid"), "content"));
    QVERIFY(!rewriteInPlace(QString(), "content"));
    QCOMPARE(files(), QStringList());
}

void TestSongFileWriter::refusesAnythingButRegularFiles()
{
    QVERIFY(QDir(m_dir->path()).mkdir(QStringLiteral("folder.mid")));
    QVERIFY(!rewriteInPlace(path("folder.mid"), "content"));
    QVERIFY(!rewriteInPlace(QStringLiteral("/dev/null"), "content"));
    QVERIFY(!rewriteInPlace(QStringLiteral("/dev/full"), "content"));
    QCOMPARE(mkfifo(QFile::encodeName(path("pipe.mid")).constData(), 0600), 0);
    QVERIFY(!rewriteInPlace(path("pipe.mid"), "content"));
    QVERIFY(QFile::link(path("nowhere"), path("link.mid")));
    QVERIFY(!rewriteInPlace(path("link.mid"), "content"));
    QVERIFY(!QFileInfo::exists(path("nowhere")));
}

void TestSongFileWriter::keepsTheFileWhenWritesFailAnywhere_data()
{
    QTest::addColumn<int>("oldSize");
    QTest::addColumn<int>("newSize");
    QTest::newRow("longer") << 100 << 250;
    QTest::newRow("as long") << 100 << 100;
    QTest::newRow("shorter") << 150 << 100;
    QTest::newRow("from nothing") << 0 << 160;
}

void TestSongFileWriter::keepsTheFileWhenWritesFailAnywhere()
{
    QFETCH(int, oldSize);
    QFETCH(int, newSize);
    const QByteArray old = bytes(oldSize, 'a');
    makeFile(path("song.mid"), old);
    // The journal takes its header, the old bytes and the new ones, which have nothing in common
    // here; where it fails nothing was touched yet.
    constexpr int journalHeaderSize = 60;
    const int needed = journalHeaderSize + oldSize + newSize;
    for (int writable = 0; writable < needed; ++writable) {
        bool written = true;
        {
            const LogCapture log;
            const faults::FileSizeLimit limit(static_cast<quint64>(writable));
            written = rewriteInPlace(path("song.mid"), bytes(newSize, '0'));
        }
        QVERIFY(!written);
        QCOMPARE(contentOf(path("song.mid")), old);
        QCOMPARE(files(), QStringList(QStringLiteral("song.mid")));
    }
    const faults::FileSizeLimit limit(static_cast<quint64>(needed));
    QVERIFY(rewriteInPlace(path("song.mid"), bytes(newSize, '0')));
    QCOMPARE(contentOf(path("song.mid")), bytes(newSize, '0'));
}

void TestSongFileWriter::removesANewFileWhenWritesFailAnywhere()
{
    for (int writable = 0; writable < 40; ++writable) {
        bool written = true;
        {
            const faults::FileSizeLimit limit(static_cast<quint64>(writable));
            written = rewriteInPlace(path("new.mid"), bytes(40, '0'));
        }
        QVERIFY(!written);
        QCOMPARE(files(), QStringList());
    }
}

void TestSongFileWriter::ownerMayWriteAfterwards()
{
    makeFile(path("song.mid"), "old");
    setMode(path("song.mid"), 0444);
    if (!faults::canBecomeAnotherUser()) {
        QVERIFY(rewriteInPlace(path("song.mid"), "new content"));
    } else {
        setMode(m_dir->path(), 0777);
        QCOMPARE(chown(QFile::encodeName(path("song.mid")).constData(), faults::AnotherUser::nobody,
                       static_cast<gid_t>(-1)),
                 0);
        const faults::AnotherUser user;
        QVERIFY(rewriteInPlace(path("song.mid"), "new content"));
    }
    QCOMPARE(contentOf(path("song.mid")), QByteArray("new content"));
    QCOMPARE(modeOf(path("song.mid")), mode_t{0644});
}

void TestSongFileWriter::filesOfOthersAreNotWritten()
{
    if (!faults::canBecomeAnotherUser())
        QSKIP("needs root, to own a file that the test's user may not write");
    makeFile(path("song.mid"), "old");
    setMode(path("song.mid"), 0644);
    setMode(m_dir->path(), 0755);
    {
        const faults::AnotherUser user;
        QVERIFY(!rewriteInPlace(path("song.mid"), "new content"));
        QVERIFY(!rewriteInPlace(path("new.mid"), "new content"));
    }
    QCOMPARE(contentOf(path("song.mid")), QByteArray("old"));
    QCOMPARE(files(), QStringList(QStringLiteral("song.mid")));
}

void TestSongFileWriter::inPlaceFollowsSymbolicLinks()
{
    makeFile(path("real.mid"), "old");
    QVERIFY(QFile::link(path("real.mid"), path("link.mid")));
    QVERIFY(rewriteInPlace(path("link.mid"), "new content"));
    QVERIFY(QFileInfo(path("link.mid")).isSymLink());
    QVERIFY(!QFileInfo(path("real.mid")).isSymLink());
    QCOMPARE(contentOf(path("real.mid")), QByteArray("new content"));
}

void TestSongFileWriter::keepsTheInodeInPlace()
{
    makeFile(path("song.mid"), "old");
    QCOMPARE(link(QFile::encodeName(path("song.mid")).constData(),
                  QFile::encodeName(path("second name.mid")).constData()),
             0);
    QVERIFY(rewriteInPlace(path("song.mid"), "new content"));
    QCOMPARE(contentOf(path("second name.mid")), QByteArray("new content"));
}

void TestSongFileWriter::songIsNotSavedWhereItsJournalCannotBeMade()
{
    if (!faults::canBecomeAnotherUser())
        QSKIP("needs root, to own a folder that the test's user may not write");
    makeFile(path("song.mid"), "old");
    setMode(path("song.mid"), 0666);
    setMode(m_dir->path(), 0755);
    const LogCapture log;
    {
        const faults::AnotherUser user;
        QVERIFY(!rewriteInPlace(path("song.mid"), "new content"));
    }
    QCOMPARE(contentOf(path("song.mid")), QByteArray("old"));
    QVERIFY(logTells(QStringLiteral(".song.mid.kavena-journal")));
}

void TestSongFileWriter::journalOfALongNameFitsIntoTheFolder()
{
    for (const int length : {235, 236, 240, 255}) {
        const QByteArray name = QByteArray(length - 4, 'n') + ".mid";
        makeFile(path(name.constData()), "old");
        QVERIFY(rewriteInPlace(path(name.constData()), "new content"));
        QCOMPARE(contentOf(path(name.constData())), QByteArray("new content"));
    }
    QCOMPARE(files().size(), 4);
}

QTEST_APPLESS_MAIN(TestSongFileWriter)

#include "test_songfilewriter.moc"
