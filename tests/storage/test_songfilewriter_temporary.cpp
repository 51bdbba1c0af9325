// Songs that are written beside the old file and take its place.
#include "storage/leftovers.h"
#include "storage/songfilewriter.h"
#include "support/faults.h"
#include "support/logcapture.h"
#include "support/writtensong.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTest>

#include <sys/stat.h>

using Outcome = SongFileWriter::Outcome;
using namespace writtensong;

namespace
{

/** Rewrites a file with this head, and with its own bytes from the position on. */
Outcome rewriteHead(const QString &path, const QByteArray &head, qint64 sourcePos)
{
    QFile source(path);
    if (!source.open(QFile::ReadOnly))
        qFatal("cannot open a test's file");
    return SongFileWriter(path).replaceThroughTemporary(head, source, sourcePos);
}

/** Looks at its folder while it is read. */
class WatchingFile : public QFile
{
public:
    using QFile::QFile;
    QStringList seen() const { return m_seen; }

protected:
    qint64 readData(char *data, qint64 size) override
    {
        m_seen = QFileInfo(*this).dir().entryList(QDir::Files | QDir::Hidden);
        return QFile::readData(data, size);
    }

private:
    QStringList m_seen;
};

/** Lets another program work in its folder while it is read. */
class DisturbedFile : public QFile
{
public:
    using QFile::QFile;

protected:
    qint64 readData(char *data, qint64 size) override
    {
        Leftovers().tidyBeside(fileName());
        return QFile::readData(data, size);
    }
};

} // namespace

class TestSongFileWriterTemporary : public SongWriterFixture
{
    Q_OBJECT

private slots:
    void init() { SongWriterFixture::init(); }

    void replacesTheHead_data();
    void replacesTheHead();
    void createsAFileFromAnotherOnesAudio();
    void sourceOfManyChunksIsCopiedWhole();
    void temporaryNameLooksAtTheFileNameOnly_data();
    void temporaryNameLooksAtTheFileNameOnly();
    void takenTemporaryNamesAreLeftAlone();
    void temporaryFileIsHeldWhileItIsWritten();
    void songNamedLikeATemporaryFile();
    void startBehindTheSourceIsASeekFailure();
    void sourceThatCannotBeReadIsACopyFailure();
    void keepsTheOldFileWhenCopyingFailsAnywhere();
    void keepsTheOldFileWhenItCannotBeReplaced();
    void keepsThePermissionsThroughTheTemporaryFile();
    void temporaryFollowsSymbolicLinks();
    void replacingAFolderIsRefused();
    void folderThatIsNotWritableIsRefused();
};

void TestSongFileWriterTemporary::replacesTheHead_data()
{
    QTest::addColumn<int>("headSize");
    QTest::addColumn<int>("sourcePos");
    QTest::newRow("longer head") << 70 << 30;
    QTest::newRow("shorter head") << 10 << 30;
    QTest::newRow("head before everything") << 10 << 0;
    QTest::newRow("no head") << 0 << 30;
    QTest::newRow("nothing but the head") << 10 << 200;
}

void TestSongFileWriterTemporary::replacesTheHead()
{
    QFETCH(int, headSize);
    QFETCH(int, sourcePos);
    const QByteArray old = bytes(200, 'a');
    makeFile(path("song.mp3"), old);
    const QByteArray head = bytes(headSize, '0');
    QCOMPARE(rewriteHead(path("song.mp3"), head, sourcePos), Outcome::Done);
    QCOMPARE(contentOf(path("song.mp3")), head + old.mid(sourcePos));
    QCOMPARE(files(), QStringList(QStringLiteral("song.mp3")));
}

void TestSongFileWriterTemporary::createsAFileFromAnotherOnesAudio()
{
    makeFile(path("song.mp3"), bytes(200, 'a'));
    makeFile(path("other.mp3"), "something else");
    for (const char *target : {"new.mp3", "other.mp3"}) {
        QFile source(path("song.mp3"));
        QVERIFY(source.open(QFile::ReadOnly));
        SongFileWriter writer(path(target));
        QCOMPARE(writer.replaceThroughTemporary("head", source, 50), Outcome::Done);
        QCOMPARE(contentOf(path(target)), "head" + bytes(200, 'a').mid(50));
    }
    QCOMPARE(contentOf(path("song.mp3")), bytes(200, 'a'));
    QCOMPARE(files().size(), 3);
}

void TestSongFileWriterTemporary::sourceOfManyChunksIsCopiedWhole()
{
    for (const int size : {99999, 100000, 100001, 1234567}) {
        const QByteArray old = bytes(size, 'a');
        makeFile(path("song.mp3"), old);
        QCOMPARE(rewriteHead(path("song.mp3"), "head", 0), Outcome::Done);
        QCOMPARE(contentOf(path("song.mp3")), "head" + old);
    }
}

void TestSongFileWriterTemporary::temporaryNameLooksAtTheFileNameOnly_data()
{
    QTest::addColumn<QString>("song");
    QTest::addColumn<QString>("temporary");
    QTest::newRow("extension") << "song.mp3"
                               << "song.tmp";
    QTest::newRow("two dots") << "my.song.mp3"
                              << "my.song.tmp";
    QTest::newRow("no dot") << "song"
                            << "song.tmp";
    QTest::newRow("dot in the folder") << "v1.0/song"
                                       << "v1.0/song.tmp";
    QTest::newRow("dots in both") << "v1.0/song.mp3"
                                  << "v1.0/song.tmp";
    QTest::newRow("dot first") << ".mp3"
                               << ".tmp";
}

void TestSongFileWriterTemporary::temporaryNameLooksAtTheFileNameOnly()
{
    QFETCH(QString, song);
    QFETCH(QString, temporary);
    QVERIFY(QDir(m_dir->path()).mkdir(QStringLiteral("v1.0")));
    makeFile(m_dir->filePath(song), "old");
    WatchingFile source(m_dir->filePath(song));
    QVERIFY(source.open(QFile::ReadOnly | QFile::Unbuffered));
    QCOMPARE(SongFileWriter(m_dir->filePath(song)).replaceThroughTemporary("head ", source, 0),
             Outcome::Done);
    QVERIFY(source.seen().contains(QFileInfo(temporary).fileName()));
    QCOMPARE(contentOf(m_dir->filePath(song)), QByteArray("head old"));
    QVERIFY(!QFileInfo::exists(m_dir->filePath(temporary)));
}

void TestSongFileWriterTemporary::takenTemporaryNamesAreLeftAlone()
{
    makeFile(path("song.mp3"), "old");
    makeFile(path("song.tmp"), "a file of the user's");
    QVERIFY(QFile::link(path("precious"), path("other.tmp")));
    makeFile(path("other.mp3"), "old");
    for (const char *name : {"song.mp3", "other.mp3"}) {
        WatchingFile source(path(name));
        QVERIFY(source.open(QFile::ReadOnly | QFile::Unbuffered));
        QCOMPARE(SongFileWriter(path(name)).replaceThroughTemporary("head ", source, 0),
                 Outcome::Done);
        // Such a one can be told from a file of the user's, if the program is killed now.
        const QStringList hidden = source.seen().filter(QRegularExpression(
            QStringLiteral("^\\.%1\\.[0-9a-f]{8}\\.kavena-tmp$").arg(QLatin1String(name))));
        QCOMPARE(hidden.size(), 1);
        QCOMPARE(contentOf(path(name)), QByteArray("head old"));
    }
    QCOMPARE(contentOf(path("song.tmp")), QByteArray("a file of the user's"));
    QVERIFY(QFileInfo(path("other.tmp")).isSymLink());
    QVERIFY(!QFileInfo::exists(path("precious")));
    QCOMPARE(files().size(), 4);
}

void TestSongFileWriterTemporary::temporaryFileIsHeldWhileItIsWritten()
{
    const QByteArray old = bytes(250000, 'a');
    const QByteArray head = QByteArray("ID3\3\0\0\0\0\0\4head", 14);
    makeFile(path("song.mp3"), old);
    DisturbedFile source(path("song.mp3"));
    QVERIFY(source.open(QFile::ReadOnly | QFile::Unbuffered));
    QCOMPARE(SongFileWriter(path("song.mp3")).replaceThroughTemporary(head, source, 0),
             Outcome::Done);
    QCOMPARE(contentOf(path("song.mp3")), head + old);
    QCOMPARE(files(), QStringList(QStringLiteral("song.mp3")));
}

void TestSongFileWriterTemporary::songNamedLikeATemporaryFile()
{
    makeFile(path("song.mp3"), "old");
    QFile source(path("song.mp3"));
    QVERIFY(source.open(QFile::ReadOnly));
    {
        const faults::FileSizeLimit limit(6);
        SongFileWriter writer(path("copy.tmp"));
        QCOMPARE(writer.replaceThroughTemporary("head ", source, 0), Outcome::CannotCopy);
    }
    QVERIFY(source.seek(0));
    SongFileWriter writer(path("copy.tmp"));
    QCOMPARE(writer.replaceThroughTemporary("head ", source, 0), Outcome::Done);
    QCOMPARE(contentOf(path("copy.tmp")), QByteArray("head old"));
    QCOMPARE(files().size(), 2);
}

void TestSongFileWriterTemporary::startBehindTheSourceIsASeekFailure()
{
    makeFile(path("song.mp3"), "old");
    QCOMPARE(rewriteHead(path("song.mp3"), "head ", 4), Outcome::CannotSeek);
    QCOMPARE(contentOf(path("song.mp3")), QByteArray("old"));
    QCOMPARE(files(), QStringList(QStringLiteral("song.mp3")));
}

void TestSongFileWriterTemporary::sourceThatCannotBeReadIsACopyFailure()
{
    makeFile(path("song.mp3"), bytes(200, 'a'));
    QFile source(path("song.mp3"));
    QVERIFY(source.open(QFile::WriteOnly | QFile::Append));
    SongFileWriter writer(path("song.mp3"));
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(QStringLiteral("read .*: WriteOnly device")));
    QCOMPARE(writer.replaceThroughTemporary("head ", source, 0), Outcome::CannotCopy);
    QCOMPARE(contentOf(path("song.mp3")), bytes(200, 'a'));
    QCOMPARE(files(), QStringList(QStringLiteral("song.mp3")));
}

void TestSongFileWriterTemporary::keepsTheOldFileWhenCopyingFailsAnywhere()
{
    const QByteArray old = bytes(150, 'a');
    const QByteArray head = bytes(60, '0');
    makeFile(path("song.mp3"), old);
    const int newSize = 60 + 120;
    for (int writable = 0; writable < newSize; ++writable) {
        Outcome outcome = Outcome::Done;
        {
            const faults::FileSizeLimit limit(static_cast<quint64>(writable));
            outcome = rewriteHead(path("song.mp3"), head, 30);
        }
        QCOMPARE(outcome, writable < 60 ? Outcome::CannotWrite : Outcome::CannotCopy);
        QCOMPARE(contentOf(path("song.mp3")), old);
        QCOMPARE(files(), QStringList(QStringLiteral("song.mp3")));
    }
    const faults::FileSizeLimit limit(newSize);
    QCOMPARE(rewriteHead(path("song.mp3"), head, 30), Outcome::Done);
    QCOMPARE(contentOf(path("song.mp3")), head + old.mid(30));
}

void TestSongFileWriterTemporary::keepsTheOldFileWhenItCannotBeReplaced()
{
    if (!faults::canBecomeAnotherUser())
        QSKIP("needs root, to own a file that the test's user may not replace");
    makeFile(path("song.mp3"), "old");
    setMode(path("song.mp3"), 0644);
    // In a sticky folder everybody may create files, but only replace their own.
    setMode(m_dir->path(), 01777);
    {
        const faults::AnotherUser user;
        QCOMPARE(rewriteHead(path("song.mp3"), "head ", 0), Outcome::CannotReplace);
    }
    QCOMPARE(contentOf(path("song.mp3")), QByteArray("old"));
    QCOMPARE(files(), QStringList(QStringLiteral("song.mp3")));
}

void TestSongFileWriterTemporary::keepsThePermissionsThroughTheTemporaryFile()
{
    for (const mode_t mode : {0600U, 0640U, 0664U, 0666U, 0755U}) {
        makeFile(path("song.mp3"), "old");
        setMode(path("song.mp3"), mode);
        QCOMPARE(rewriteHead(path("song.mp3"), "head ", 0), Outcome::Done);
        QCOMPARE(modeOf(path("song.mp3")), mode);
    }
    setMode(path("song.mp3"), 0444);
    QCOMPARE(rewriteHead(path("song.mp3"), "head ", 0), Outcome::Done);
    QCOMPARE(modeOf(path("song.mp3")), mode_t{0644});
}

void TestSongFileWriterTemporary::temporaryFollowsSymbolicLinks()
{
    QVERIFY(QDir(m_dir->path()).mkdir(QStringLiteral("songs")));
    makeFile(path("songs/real.mp3"), "old");
    QVERIFY(QFile::link(path("songs/real.mp3"), path("link.mp3")));
    QCOMPARE(rewriteHead(path("link.mp3"), "head ", 0), Outcome::Done);
    QVERIFY(QFileInfo(path("link.mp3")).isSymLink());
    QVERIFY(!QFileInfo(path("songs/real.mp3")).isSymLink());
    QCOMPARE(contentOf(path("songs/real.mp3")), QByteArray("head old"));
    QCOMPARE(files().size(), 2);
    QCOMPARE(files(QStringLiteral("songs")).size(), 1);
}

void TestSongFileWriterTemporary::replacingAFolderIsRefused()
{
    makeFile(path("song.mp3"), "old");
    QVERIFY(QDir(m_dir->path()).mkdir(QStringLiteral("folder.mp3")));
    QFile source(path("song.mp3"));
    QVERIFY(source.open(QFile::ReadOnly));
    SongFileWriter writer(path("folder.mp3"));
    QCOMPARE(writer.replaceThroughTemporary("head ", source, 0), Outcome::CannotOpen);
    QVERIFY(QFileInfo(path("folder.mp3")).isDir());
    QCOMPARE(files().size(), 2);
}

void TestSongFileWriterTemporary::folderThatIsNotWritableIsRefused()
{
    makeFile(path("song.mp3"), "old");
    if (!faults::canBecomeAnotherUser()) {
        setMode(m_dir->path(), 0555);
        const Outcome outcome = rewriteHead(path("song.mp3"), "head ", 0);
        setMode(m_dir->path(), 0755);
        QCOMPARE(outcome, Outcome::CannotOpen);
    } else {
        setMode(m_dir->path(), 0755);
        const faults::AnotherUser user;
        QCOMPARE(rewriteHead(path("song.mp3"), "head ", 0), Outcome::CannotOpen);
    }
    QCOMPARE(contentOf(path("song.mp3")), QByteArray("old"));
    QCOMPARE(files(), QStringList(QStringLiteral("song.mp3")));
}

QTEST_APPLESS_MAIN(TestSongFileWriterTemporary)

#include "test_songfilewriter_temporary.moc"
