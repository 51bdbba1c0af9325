// The scan of a memory: links, pipes and devices.
#include "support/devicememory.h"
#include "support/logcapture.h"
#include "support/scannedmemory.h"
#include "support/songbytes.h"

#include <QTest>

using namespace songbytes;
using namespace scannedmemory;

class TestIndexLinks : public QObject
{
    Q_OBJECT

private slots:
    void linkToAFolderBeingScannedIsNotEntered();
    void linkToAnotherFolderIsEntered();
    void linksAmongManyFoldersEnd();
    void brokenLinksAndPipesAreNoSongs();
    void linksToPipesAndDevicesAreNoSongs();
    void manySongsInReversedFolderOrder();
};

void TestIndexLinks::linkToAFolderBeingScannedIsNotEntered()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("pop/a.mid"), plainSong);
    QVERIFY(QFile::link(memory.root(), memory.path(QStringLiteral("pop/loop"))));
    QVERIFY(QFile::link(QStringLiteral("."), memory.path(QStringLiteral("pop/self"))));
    AskedIndex index(memory);
    index.scan_files(memory.root());
    QCOMPARE(pathsOf(index), QStringList{QStringLiteral("/pop/a.mid")});
}

void TestIndexLinks::linkToAnotherFolderIsEntered()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("pop/a.mid"), plainSong);
    QVERIFY(QFile::link(memory.path(QStringLiteral("pop")), memory.path(QStringLiteral("best"))));
    AskedIndex index(memory);
    index.scan_files(memory.root());
    QCOMPARE(pathsOf(index),
             (QStringList{QStringLiteral("/best/a.mid"), QStringLiteral("/pop/a.mid")}));
}

void TestIndexLinks::linksAmongManyFoldersEnd()
{
    // Every folder links to every other: there are more ways through them than could be walked.
    const DeviceMemory memory;
    constexpr int folders = 14;
    for (int i = 0; i < folders; ++i) {
        memory.add(QStringLiteral("%1/s.mid").arg(i), plainSong);
        for (int other = 0; other < folders; ++other) {
            if (other != i)
                QVERIFY(QFile::link(QStringLiteral("../%1").arg(other),
                                    memory.path(QStringLiteral("%1/to%2").arg(i).arg(other))));
        }
    }
    AskedIndex index(memory);
    index.scan_files(memory.root());
    QVERIFY(index.filesFound >= folders);
    QVERIFY(index.filesFound <= 2 * folders);
    for (int i = 0; i < folders; ++i)
        QVERIFY(pathsOf(index).contains(QStringLiteral("/%1/s.mid").arg(i)));
}

void TestIndexLinks::brokenLinksAndPipesAreNoSongs()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("a.mid"), plainSong);
    QVERIFY(QFile::link(QStringLiteral("nowhere"), memory.path(QStringLiteral("b.mid"))));
    QCOMPARE(QProcess::execute(QStringLiteral("mkfifo"), {memory.path(QStringLiteral("c.mid"))}),
             0);
    AskedIndex index(memory);
    index.scan_files(memory.root());
    QCOMPARE(pathsOf(index), QStringList{QStringLiteral("/a.mid")});
    SongInfoIndex pipe;
    pipe.fullPath = memory.path(QStringLiteral("c.mid"));
    QCOMPARE(index.setSongInfo(pipe), 0);
}

void TestIndexLinks::linksToPipesAndDevicesAreNoSongs()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("a.mid"), plainSong);
    memory.add(QStringLiteral("sfx/real.dat"), plainSong);
    QCOMPARE(QProcess::execute(QStringLiteral("mkfifo"), {memory.path(QStringLiteral("pipe"))}), 0);
    QVERIFY(QFile::link(QStringLiteral("pipe"), memory.path(QStringLiteral("b.mid"))));
    QVERIFY(QFile::link(QStringLiteral("/dev/zero"), memory.path(QStringLiteral("c.mid"))));
    QVERIFY(QFile::link(QStringLiteral("sfx/real.dat"), memory.path(QStringLiteral("d.mid"))));
    AskedIndex index(memory);
    QVERIFY(index.createIndex(memory.root())); // reading the pipe would take for ever
    QCOMPARE(index.filesFound, 2u);
    QCOMPARE(memory.read(QStringLiteral("index.idx")).size(), 2 * 64);
    QCOMPARE(index.loadAllIndexFile(), 0);
    QCOMPARE(pathsOf(index), (QStringList{QStringLiteral("/a.mid"), QStringLiteral("/d.mid")}));
}

void TestIndexLinks::manySongsInReversedFolderOrder()
{
    // "a-1" is listed behind "a" and sorts before it: each of its songs is inserted in front.
    const DeviceMemory memory;
    constexpr int songs = 400;
    for (const char *folder : {"a", "a-1", "a-1-1"}) {
        for (int i = 0; i < songs; ++i)
            memory.add(QStringLiteral("%1/%2.mid").arg(QString::fromUtf8(folder)).arg(i), {});
    }
    AskedIndex index(memory);
    index.scan_files(memory.root());
    QCOMPARE(index.entries.size(), 3 * songs);
    QVERIFY(std::is_sorted(index.entries.cbegin(), index.entries.cend(), compareByPath));
    QCOMPARE(index.entries.constFirst().path, QStringLiteral("/a-1-1/0.mid"));
    QCOMPARE(index.entries.constFirst().id, quint32(2 * songs));
}

QTEST_MAIN(TestIndexLinks)

#include "test_index_links.moc"
