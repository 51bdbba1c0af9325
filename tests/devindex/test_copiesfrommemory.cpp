// Songs are copied from a memory to the computer.
#include "devindex/copiesfrommemory.h"
#include "support/devicememory.h"
#include "support/logcapture.h"
#include "support/recordedprogress.h"

#include <QTest>

#include <optional>

namespace
{

QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray("(no file)");
}

} // namespace

class TestCopiesFromMemory : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_log.emplace(); }
    void cleanup() { m_log.reset(); }

    void songsArriveWithTheirPicturesAndStayOnTheMemory();
    void ofSongsWithOneNameOnlyTheFirstIsCopied();
    void fileOfTheComputerIsReplacedOnlyAfterAYes();
    void songThatIsGoneIsNamed();
    void folderOfTheMemoryItselfIsRefused();

private:
    std::optional<LogCapture> m_log;
};

void TestCopiesFromMemory::songsArriveWithTheirPicturesAndStayOnTheMemory()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("pop/a.mp3"), "song");
    memory.add(QStringLiteral("pop/a.cdg"), "pictures");
    const auto before = memory.snapshot();
    const QTemporaryDir computer;
    ProgressRecord record;
    RecordedProgress progress(record, {}, {}, 0);
    CopiesFromMemory copies(memory.root(), [](const QString &) { return Answer::No; });
    QCOMPARE(copies.whyNotInto(computer.path()), QString());
    const FileCopier::Report report =
        copies.copy({QStringLiteral("/pop/a.mp3")}, computer.path(), progress);
    QCOMPARE(report.copied, 1);
    QVERIFY(report.failed.isEmpty());
    QCOMPARE(bytesOf(computer.filePath(QStringLiteral("a.mp3"))), QByteArray("song"));
    QCOMPARE(bytesOf(computer.filePath(QStringLiteral("a.cdg"))), QByteArray("pictures"));
    QCOMPARE(memory.snapshot(), before);
}

void TestCopiesFromMemory::ofSongsWithOneNameOnlyTheFirstIsCopied()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("x/a.mid"), "first");
    memory.add(QStringLiteral("y/A.MID"), "second");
    const QTemporaryDir computer;
    ProgressRecord record;
    RecordedProgress progress(record, {}, {}, 0);
    CopiesFromMemory copies(memory.root(), [](const QString &) { return Answer::YesToAll; });
    const FileCopier::Report report = copies.copy(
        {QStringLiteral("/x/a.mid"), QStringLiteral("/y/A.MID")}, computer.path(), progress);
    QCOMPARE(report.copied, 1);
    QCOMPARE(report.failed.size(), 1);
    QCOMPARE(report.failed.constFirst().source, QStringLiteral("/y/A.MID"));
    QCOMPARE(bytesOf(computer.filePath(QStringLiteral("a.mid"))), QByteArray("first"));
    QVERIFY(!QFileInfo::exists(computer.filePath(QStringLiteral("A.MID"))));
}

void TestCopiesFromMemory::fileOfTheComputerIsReplacedOnlyAfterAYes()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("a.mid"), "of the memory");
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        const QTemporaryDir computer;
        QFile there(computer.filePath(QStringLiteral("a.mid")));
        QVERIFY(there.open(QFile::WriteOnly) && there.write("of the computer") > 0);
        there.close();
        ProgressRecord record;
        RecordedProgress progress(record, {}, {}, 0);
        CopiesFromMemory copies(memory.root(), [answer](const QString &) { return answer; });
        const FileCopier::Report report =
            copies.copy({QStringLiteral("/a.mid")}, computer.path(), progress);
        QCOMPARE(report.skipped.size(), answer == Answer::No ? 1 : 0);
        QCOMPARE(bytesOf(there.fileName()),
                 QByteArray(answer == Answer::No ? "of the computer" : "of the memory"));
    }
}

void TestCopiesFromMemory::songThatIsGoneIsNamed()
{
    const DeviceMemory memory;
    const QTemporaryDir computer;
    ProgressRecord record;
    RecordedProgress progress(record, {}, {}, 0);
    CopiesFromMemory copies(memory.root(), [](const QString &) { return Answer::No; });
    const FileCopier::Report report =
        copies.copy({QStringLiteral("/gone.mid")}, computer.path(), progress);
    QCOMPARE(report.copied, 0);
    QCOMPARE(report.failed.size(), 1);
    QVERIFY(!report.failed.constFirst().reason.isEmpty());
}

void TestCopiesFromMemory::folderOfTheMemoryItselfIsRefused()
{
    const DeviceMemory memory;
    memory.makeFolder(QStringLiteral("songs"));
    const CopiesFromMemory copies(memory.root(), [](const QString &) { return Answer::No; });
    QVERIFY(!copies.whyNotInto(memory.root()).isEmpty());
    QVERIFY(!copies.whyNotInto(memory.path(QStringLiteral("songs"))).isEmpty());
    QVERIFY(!copies.whyNotInto(memory.path(QStringLiteral("gone"))).isEmpty());
    QCOMPARE(copies.whyNotInto(QDir::tempPath()), QString());
}

QTEST_GUILESS_MAIN(TestCopiesFromMemory)
#include "test_copiesfrommemory.moc"
