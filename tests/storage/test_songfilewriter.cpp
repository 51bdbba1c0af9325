// Rewriting a song file: the new bytes or the old ones, byte for byte, and nothing left beside it.
#include "storage/songfilewriter.h"
#include "storage/songjournal.h"
#include "support/faults.h"
#include "support/logcapture.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

using Outcome = SongFileWriter::Outcome;

namespace
{

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}

void makeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QFile::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot make a file for a test");
}

QByteArray bytes(int size, char first)
{
    QByteArray out;
    for (int i = 0; i < size; ++i)
        out.append(static_cast<char>(first + i % 50));
    return out;
}

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

void setMode(const QString &path, mode_t mode)
{
    if (chmod(QFile::encodeName(path).constData(), mode) != 0)
        qFatal("cannot set the permissions of a test's file");
}

bool rewriteInPlace(const QString &path, const QByteArray &content)
{
    SongFileWriter writer(path);
    return writer.open() && writer.replaceBytes(content);
}

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

} // namespace

class TestSongFileWriter : public QObject
{
    Q_OBJECT

private slots:
    void init();

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

    void replacesTheHead_data();
    void replacesTheHead();
    void createsAFileFromAnotherOnesAudio();
    void sourceOfManyChunksIsCopiedWhole();
    void temporaryNameLooksAtTheFileNameOnly_data();
    void temporaryNameLooksAtTheFileNameOnly();
    void takenTemporaryNamesAreLeftAlone();
    void songNamedLikeATemporaryFile();
    void startBehindTheSourceIsASeekFailure();
    void sourceThatCannotBeReadIsACopyFailure();
    void keepsTheOldFileWhenCopyingFailsAnywhere();
    void keepsTheOldFileWhenItCannotBeReplaced();
    void keepsThePermissionsThroughTheTemporaryFile();
    void temporaryFollowsSymbolicLinks();
    void replacingAFolderIsRefused();
    void folderThatIsNotWritableIsRefused();

private:
    QString path(const char *name) const { return m_dir->filePath(QString::fromUtf8(name)); }
    QStringList files(const QString &folder = QString()) const
    {
        return QDir(m_dir->filePath(folder))
            .entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System);
    }

    QScopedPointer<QTemporaryDir> m_dir;
};

void TestSongFileWriter::init()
{
    m_dir.reset(new QTemporaryDir);
    QVERIFY(m_dir->isValid());
}

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

void TestSongFileWriter::replacesTheHead_data()
{
    QTest::addColumn<int>("headSize");
    QTest::addColumn<int>("sourcePos");
    QTest::newRow("longer head") << 70 << 30;
    QTest::newRow("shorter head") << 10 << 30;
    QTest::newRow("head before everything") << 10 << 0;
    QTest::newRow("no head") << 0 << 30;
    QTest::newRow("nothing but the head") << 10 << 200;
}

void TestSongFileWriter::replacesTheHead()
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

void TestSongFileWriter::createsAFileFromAnotherOnesAudio()
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

void TestSongFileWriter::sourceOfManyChunksIsCopiedWhole()
{
    for (const int size : {99999, 100000, 100001, 1234567}) {
        const QByteArray old = bytes(size, 'a');
        makeFile(path("song.mp3"), old);
        QCOMPARE(rewriteHead(path("song.mp3"), "head", 0), Outcome::Done);
        QCOMPARE(contentOf(path("song.mp3")), "head" + old);
    }
}

void TestSongFileWriter::temporaryNameLooksAtTheFileNameOnly_data()
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

void TestSongFileWriter::temporaryNameLooksAtTheFileNameOnly()
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

void TestSongFileWriter::takenTemporaryNamesAreLeftAlone()
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

void TestSongFileWriter::songNamedLikeATemporaryFile()
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

void TestSongFileWriter::startBehindTheSourceIsASeekFailure()
{
    makeFile(path("song.mp3"), "old");
    QCOMPARE(rewriteHead(path("song.mp3"), "head ", 4), Outcome::CannotSeek);
    QCOMPARE(contentOf(path("song.mp3")), QByteArray("old"));
    QCOMPARE(files(), QStringList(QStringLiteral("song.mp3")));
}

void TestSongFileWriter::sourceThatCannotBeReadIsACopyFailure()
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

void TestSongFileWriter::keepsTheOldFileWhenCopyingFailsAnywhere()
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

void TestSongFileWriter::keepsTheOldFileWhenItCannotBeReplaced()
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

void TestSongFileWriter::keepsThePermissionsThroughTheTemporaryFile()
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

void TestSongFileWriter::temporaryFollowsSymbolicLinks()
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

void TestSongFileWriter::replacingAFolderIsRefused()
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

void TestSongFileWriter::folderThatIsNotWritableIsRefused()
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

QTEST_APPLESS_MAIN(TestSongFileWriter)
#include "test_songfilewriter.moc"
