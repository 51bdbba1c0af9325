// Copies of song files that stop or fail, and the room they need.
#include "devindex/filecopier.h"
#include "library/answer.h"
#include "support/copyfixture.h"
#include "support/copyingprogress.h"
#include "support/faults.h"
#include "support/journalbytes.h"
#include "support/logcapture.h"

#include <QDir>
#include <QFile>
#include <QTest>
#include <QTimer>

#include <sys/stat.h>
#include <unistd.h>

using namespace copyfixture;

namespace
{

constexpr int cluster = 32 * 1024;

} // namespace

class TestFileCopierFailures : public CopyFixture
{
    Q_OBJECT

private slots:
    void init() { CopyFixture::init(); }
    void cleanup() { CopyFixture::cleanup(); }

    void cancelStopsBeforeTheNextFileAndKeepsTheCopies();
    void cancelFromAWindowIsHeardWhileABigFileIsCopied();
    void failedFileIsCountedAndTheOthersGoOn();
    void unreadableSourceKeepsTheTarget_data();
    void unreadableSourceKeepsTheTarget();
    void folderInTheTargetsPlaceStays();
    void pipeInTheTargetsPlaceIsNotWaitedFor();
    void missingDestinationFailsEveryFile();
    void incompleteCopyIsRemoved();
    void targetStaysUntilItsSuccessorIsWhole();
    void whatCutOffCopiesLeftIsRemoved();
    void journalOfAReplacedSongGoes();
    void copiesAtTheSameTimeNeverShareAnUnfinishedFile();
    void linkToNothingIsNoFreeName();
    void longNamesAreCopied();
    void emptyAndBigFilesArriveByteForByte_data();
    void emptyAndBigFilesArriveByteForByte();

    void roomIsCountedInClusters_data();
    void roomIsCountedInClusters();
    void roomCountsCompanionsAndWhatIsReplaced();
};

void TestFileCopierFailures::cancelStopsBeforeTheNextFileAndKeepsTheCopies()
{
    const QStringList files = {write(QStringLiteral("lib/a.mid"), "a"),
                               write(QStringLiteral("lib/b.mid"), "b"),
                               write(QStringLiteral("lib/c.mid"), "c")};
    m_progress->onUpdate = [this](int done) { m_progress->canceled = done == 2; };
    QVERIFY(!copy(files));
    QCOMPARE(m_copied, 0);
    QCOMPARE(m_progress->updates, QList<int>({1, 2}));
    QCOMPARE(read(QStringLiteral("dest/a.mid")), QByteArray("a"));
    QCOMPARE(read(QStringLiteral("dest/b.mid")), QByteArray("b"));
    QVERIFY(!QFileInfo::exists(m_dest + QStringLiteral("/c.mid")));
}

void TestFileCopierFailures::cancelFromAWindowIsHeardWhileABigFileIsCopied()
{
    const QByteArray big(96 * 1024 * 1024, 'x');
    const QStringList files = {write(QStringLiteral("lib/big.mp3"), big),
                               write(QStringLiteral("lib/next.mid"), "n")};
    // The timer stands for a click: it fires only if events are handled during the first file.
    bool heardDuringCopy = false;
    QTimer click;
    connect(&click, &QTimer::timeout, this, [&] {
        heardDuringCopy = heardDuringCopy || m_progress->updates.isEmpty();
        m_progress->canceled = true;
    });
    QTimer::singleShot(0, this, [&] { click.start(1); });
    QVERIFY(!copy(files));
    QVERIFY(heardDuringCopy);
    QCOMPARE(m_copied, 0);
    QCOMPARE(QFileInfo(m_dest + QStringLiteral("/big.mp3")).size(), big.size());
    QVERIFY(!QFileInfo::exists(m_dest + QStringLiteral("/next.mid")));
}

void TestFileCopierFailures::failedFileIsCountedAndTheOthersGoOn()
{
    const QStringList files = {write(QStringLiteral("lib/a.mid"), "a"),
                               path(QStringLiteral("lib/gone.mid")),
                               write(QStringLiteral("lib/c.mid"), "c")};
    QVERIFY(!copy(files));
    QCOMPARE(m_copied, 2);
    QCOMPARE(m_progress->updates, QList<int>({1, 2, 3}));
    QCOMPARE(read(QStringLiteral("dest/c.mid")), QByteArray("c"));
    QVERIFY(!QFileInfo::exists(m_dest + QStringLiteral("/gone.mid")));
}

void TestFileCopierFailures::unreadableSourceKeepsTheTarget_data()
{
    QTest::addColumn<QString>("kind");
    QTest::newRow("vanished") << "vanished";
    QTest::newRow("folder in its place") << "folder";
    QTest::newRow("link to nothing") << "link";
    QTest::newRow("pipe that nobody writes to") << "pipe";
}

void TestFileCopierFailures::unreadableSourceKeepsTheTarget()
{
    QFETCH(QString, kind);
    const QString source = path(QStringLiteral("lib/a.mid"));
    if (kind == QLatin1String("folder"))
        QVERIFY(QDir().mkdir(source));
    if (kind == QLatin1String("link"))
        QVERIFY(QFile::link(path(QStringLiteral("nothing")), source));
    if (kind == QLatin1String("pipe"))
        QCOMPARE(mkfifo(QFile::encodeName(source).constData(), 0644), 0);
    write(QStringLiteral("dest/a.mid"), "the only copy");
    QVERIFY(!copy({source}, {Answer::Yes}));
    QCOMPARE(m_copied, 0);
    QCOMPARE(m_progress->updates, QList<int>({1}));
    QCOMPARE(read(QStringLiteral("dest/a.mid")), QByteArray("the only copy"));
}

void TestFileCopierFailures::folderInTheTargetsPlaceStays()
{
    const QString source = write(QStringLiteral("lib/a.mid"), "a");
    QVERIFY(QDir().mkdir(m_dest + QStringLiteral("/a.mid")));
    QVERIFY(!copy({source}, {Answer::Yes}));
    QVERIFY(QFileInfo(m_dest + QStringLiteral("/a.mid")).isDir());
}

void TestFileCopierFailures::pipeInTheTargetsPlaceIsNotWaitedFor()
{
    const QString source = write(QStringLiteral("lib/a.mid"), "a");
    const QString target = m_dest + QStringLiteral("/a.mid");
    QCOMPARE(mkfifo(QFile::encodeName(target).constData(), 0644), 0);
    ::alarm(20); // ends the program if it waits for somebody to write into the pipe
    QVERIFY(copy({source}, {Answer::Yes}));
    ::alarm(0);
    QCOMPARE(read(QStringLiteral("dest/a.mid")), QByteArray("a"));
}

void TestFileCopierFailures::missingDestinationFailsEveryFile()
{
    const QStringList files = {write(QStringLiteral("lib/a.mid"), "a"),
                               write(QStringLiteral("lib/b.mid"), "b")};
    QVERIFY(QDir().rmdir(m_dest));
    QVERIFY(!copy(files));
    QCOMPARE(m_copied, 0);
    QCOMPARE(m_progress->updates, QList<int>({1, 2}));
    QVERIFY(!QFileInfo::exists(m_dest));
}

void TestFileCopierFailures::incompleteCopyIsRemoved()
{
    const QStringList files = {write(QStringLiteral("lib/big.mp3"), QByteArray(200000, 'b')),
                               write(QStringLiteral("lib/small.mid"), "small")};
    {
        const faults::FileSizeLimit limit(100000);
        QVERIFY(!copy(files));
    }
    QCOMPARE(m_copied, 1);
    QCOMPARE(QDir(m_dest).entryList(QDir::Files), QStringList(QStringLiteral("small.mid")));
}

void TestFileCopierFailures::targetStaysUntilItsSuccessorIsWhole()
{
    const QString source = write(QStringLiteral("lib/a.mid"), QByteArray(500, 'n'));
    write(QStringLiteral("dest/a.mid"), "old");
    for (const quint64 size : {0, 1, 499}) {
        const LogCapture log;
        {
            const faults::FileSizeLimit limit(size);
            QVERIFY(!copy({source}, {Answer::Yes}));
        }
        QCOMPARE(read(QStringLiteral("dest/a.mid")), QByteArray("old"));
        QCOMPARE(QDir(m_dest).entryList(QDir::Files | QDir::Hidden),
                 QStringList(QStringLiteral("a.mid")));
        QCOMPARE(LogCapture::lines().filter(QStringLiteral("Impossible to copy")).size(), 1);
    }
    QVERIFY(copy({source}, {Answer::Yes}));
    QCOMPARE(read(QStringLiteral("dest/a.mid")), QByteArray(500, 'n'));
}

void TestFileCopierFailures::whatCutOffCopiesLeftIsRemoved()
{
    write(QStringLiteral("dest/.a.mid.kavena-part"), "half of an ear");
    write(QStringLiteral("dest/.c.mid.0123abcd.kavena-part"), "half of an ear");
    write(QStringLiteral("precious"), "precious");
    QVERIFY(QFile::link(path(QStringLiteral("precious")),
                        m_dest + QStringLiteral("/.b.mid.kavena-part")));
    QVERIFY(
        copy({write(QStringLiteral("lib/a.mid"), "a"), write(QStringLiteral("lib/b.mid"), "b")}));
    QCOMPARE(QDir(m_dest).entryList(QDir::Files | QDir::Hidden),
             QStringList({QStringLiteral(".b.mid.kavena-part"), QStringLiteral("a.mid"),
                          QStringLiteral("b.mid")}));
    QCOMPARE(read(QStringLiteral("dest/a.mid")), QByteArray("a"));
    QCOMPARE(read(QStringLiteral("precious")), QByteArray("precious"));
}

void TestFileCopierFailures::journalOfAReplacedSongGoes()
{
    const QString journal = m_dest + QStringLiteral("/.a.mid.kavena-journal");
    const QByteArray old = journalbytes::song(100, 'a');
    write(QStringLiteral("dest/a.mid"), journalbytes::song(150, '0'));
    write(QStringLiteral("dest/.a.mid.kavena-journal"),
          journalbytes::journalOf(old, journalbytes::song(150, '0')));
    // It is needed as long as the old song is there.
    const QString source = write(QStringLiteral("lib/a.mid"), journalbytes::song(120, 'A'));
    {
        const LogCapture log;
        const faults::FileSizeLimit limit(10);
        QVERIFY(!copy({source}, {Answer::Yes}));
    }
    QVERIFY(QFileInfo::exists(journal));
    copy({source}, {Answer::No});
    QVERIFY(QFileInfo::exists(journal));
    QVERIFY(copy({source}, {Answer::Yes}));
    QVERIFY(!QFileInfo::exists(journal));
    QVERIFY(read(QStringLiteral("dest/a.mid")) == journalbytes::song(120, 'A'));
}

void TestFileCopierFailures::copiesAtTheSameTimeNeverShareAnUnfinishedFile()
{
    const QByteArray first(96 * 1024 * 1024, '1');
    const QByteArray second(1000, '2');
    QVERIFY(QDir().mkdir(path(QStringLiteral("lib/other"))));
    const QString source = write(QStringLiteral("lib/a.mid"), first);
    const QString other = write(QStringLiteral("lib/other/a.mid"), second);
    // The timer stands for another program: it fires while the first song is being copied.
    bool otherCopied = false;
    QByteArray arrived;
    const auto copyOther = [&] {
        CopyingProgress progress;
        int copied = 0;
        const auto replace = [](const QString &) { return Answer::Yes; };
        otherCopied = FileCopier(replace).copyFiles({other}, m_dest, copied, progress);
        arrived = read(QStringLiteral("dest/a.mid"));
    };
    QTimer::singleShot(0, this, [&] { QTimer::singleShot(1, this, copyOther); });
    write(QStringLiteral("dest/a.mid"), "old");
    QVERIFY(copy({source}, {Answer::Yes}));
    QVERIFY(otherCopied);
    QCOMPARE(arrived, second);
    QCOMPARE(read(QStringLiteral("dest/a.mid")), first);
    QCOMPARE(QDir(m_dest).entryList(QDir::Files | QDir::Hidden),
             QStringList(QStringLiteral("a.mid")));
}

void TestFileCopierFailures::linkToNothingIsNoFreeName()
{
    QVERIFY(QFile::link(path(QStringLiteral("nothing")), m_dest + QStringLiteral("/a.mid")));
    QVERIFY(!copy({write(QStringLiteral("lib/a.mid"), "a")}));
    QVERIFY(QFileInfo(m_dest + QStringLiteral("/a.mid")).isSymLink());
    QVERIFY(!QFileInfo::exists(path(QStringLiteral("nothing"))));
}

void TestFileCopierFailures::longNamesAreCopied()
{
    const QString name = QString(251, QLatin1Char('n')) + QStringLiteral(".mid");
    QVERIFY(copy({write(QStringLiteral("lib/") + name, "a")}));
    QCOMPARE(QDir(m_dest).entryList(QDir::Files | QDir::Hidden), QStringList(name));
}

void TestFileCopierFailures::emptyAndBigFilesArriveByteForByte_data()
{
    QTest::addColumn<int>("size");
    QTest::newRow("empty") << 0;
    QTest::newRow("one byte") << 1;
    QTest::newRow("one chunk") << 256 * 1024;
    QTest::newRow("one chunk and a byte") << 256 * 1024 + 1;
    QTest::newRow("5 MB") << 5000003;
}

void TestFileCopierFailures::emptyAndBigFilesArriveByteForByte()
{
    QFETCH(int, size);
    QByteArray bytes(size, Qt::Uninitialized);
    for (int i = 0; i < size; ++i)
        bytes[i] = static_cast<char>((i * 131 + i / 251) & 0xFF);
    QVERIFY(copy({write(QStringLiteral("lib/a.mp3"), bytes)}));
    QVERIFY(read(QStringLiteral("dest/a.mp3")) == bytes);
}

void TestFileCopierFailures::roomIsCountedInClusters_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<qint64>("needed");
    QTest::newRow("empty") << 0 << qint64(0);
    QTest::newRow("one byte") << 1 << qint64(cluster);
    QTest::newRow("one cluster") << cluster << qint64(cluster);
    QTest::newRow("one byte more") << cluster + 1 << qint64(2 * cluster);
}

void TestFileCopierFailures::roomIsCountedInClusters()
{
    QFETCH(int, size);
    QFETCH(qint64, needed);
    const QString source = write(QStringLiteral("lib/a.mid"), QByteArray(size, 'a'));
    QCOMPARE(FileCopier::roomNeeded({source}, m_dest), needed);
}

void TestFileCopierFailures::roomCountsCompanionsAndWhatIsReplaced()
{
    const QString song = write(QStringLiteral("lib/a.mp3"), QByteArray(3 * cluster, 'a'));
    write(QStringLiteral("lib/a.cdg"), "pictures");
    QCOMPARE(FileCopier::roomNeeded({song}, m_dest), qint64(4 * cluster));

    // What lies there gives its room back, but never more than the new file takes.
    write(QStringLiteral("dest/a.mp3"), QByteArray(cluster + 1, 'o'));
    QCOMPARE(FileCopier::roomNeeded({song}, m_dest), qint64(2 * cluster));
    write(QStringLiteral("dest/a.mp3"), QByteArray(9 * cluster, 'o'));
    QCOMPARE(FileCopier::roomNeeded({song}, m_dest), qint64(cluster));
    write(QStringLiteral("dest/a.cdg"), "old");
    QCOMPARE(FileCopier::roomNeeded({song}, m_dest), qint64(0));

    const QString inPlace = write(QStringLiteral("dest/b.mid"), QByteArray(cluster, 'b'));
    const QString gone = path(QStringLiteral("lib/gone.mid"));
    QCOMPARE(FileCopier::roomNeeded({inPlace, gone}, m_dest), qint64(0));
}

QTEST_MAIN(TestFileCopierFailures)

#include "test_filecopier_failures.moc"
