// Songs that lie on a memory more than once.
#include "devindex/index.h"
#include "devindex/memoryduplicates.h"
#include "support/faults.h"
#include "support/indexedmemory.h"
#include "support/recordedprogress.h"

#include <QTest>

using namespace indexedmemory;

namespace
{

QList<MemorySong> songsOf(const DeviceMemory &memory)
{
    ProgressRecord record;
    RecordedProgress progress(record, {}, {}, 0);
    MemorySongs songs(memory.root());
    if (songs.read(progress) != MemorySongs::Outcome::Done)
        qFatal("not read");
    return songs.songs();
}

/** The paths of each group. */
QList<QStringList> paths(const QList<MemorySong> &songs,
                         const QList<memoryduplicates::Group> &groups)
{
    QList<QStringList> all;
    for (const memoryduplicates::Group &group : groups) {
        QStringList found;
        for (const qsizetype place : group)
            found.append(songs.at(place).info.path);
        all.append(found);
    }
    return all;
}

QList<QStringList> sameBytes(const DeviceMemory &memory)
{
    ProgressRecord record;
    RecordedProgress progress(record, {}, {}, 0);
    const QList<MemorySong> songs = songsOf(memory);
    return paths(songs, memoryduplicates::sameBytes(songs, progress).value());
}

} // namespace

class TestMemoryDuplicates : public QuietIndexFixture
{
    Q_OBJECT

private slots:
    void init() { QuietIndexFixture::init(); }
    void cleanup() { QuietIndexFixture::cleanup(); }

    void equalBytesAreFoundUnderAnyName();
    void oneByteAtTheEndMakesTheDifference();
    void equalTitleAndArtistIgnoreCase();
    void songsWithoutTextsHaveNoTitleInCommon();
    void oneFileReachedTwiceIsNoDuplicate();
    void fileThatCannotBeReadIsTheSameAsNoOther();
    void stopGivesNoGroups();
};

void TestMemoryDuplicates::equalBytesAreFoundUnderAnyName()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("a.mid"), midi("Alpha", "X"));
    memory.add(QStringLiteral("b.mid"), midi("Betaa", "X"));
    memory.add(QStringLiteral("x/c.kar"), midi("Alpha", "X"));
    memory.add(QStringLiteral("x/d.mid"), midi("Alpha", "X"));
    memory.add(QStringLiteral("e.mid"), midi("Longer title", "X"));
    QCOMPARE(sameBytes(memory),
             QList<QStringList>({{QStringLiteral("/a.mid"), QStringLiteral("/x/c.kar"),
                                  QStringLiteral("/x/d.mid")}}));
}

void TestMemoryDuplicates::oneByteAtTheEndMakesTheDifference()
{
    const DeviceMemory memory;
    const QByteArray large = mp3("T", "A", "G") + QByteArray(300000, '\x55');
    memory.add(QStringLiteral("a.mp3"), large);
    memory.add(QStringLiteral("b.mp3"), large.chopped(1) + '\x56');
    QVERIFY(sameBytes(memory).isEmpty());
    memory.add(QStringLiteral("b.mp3"), large);
    QCOMPARE(sameBytes(memory).size(), 1);
}

void TestMemoryDuplicates::equalTitleAndArtistIgnoreCase()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("a.mid"), midi("Volare", "Modugno"));
    memory.add(QStringLiteral("b.mp3"), mp3("VOLARE", "modugno", "Other"));
    memory.add(QStringLiteral("c.mid"), midi("Volare", "Gipsy Kings"));
    memory.add(QStringLiteral("d.mid"), midi("Volare"));
    for (const bool indexed : {false, true}) {
        if (indexed)
            QVERIFY(Index().createIndex(memory.root()));
        const QList<MemorySong> songs = songsOf(memory);
        QCOMPARE(paths(songs, memoryduplicates::sameTitle(songs)),
                 QList<QStringList>({{QStringLiteral("/a.mid"), QStringLiteral("/b.mp3")}}));
    }
}

void TestMemoryDuplicates::songsWithoutTextsHaveNoTitleInCommon()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("x/a.mp3"), QByteArray(100, 'x'));
    memory.add(QStringLiteral("y/a.mp3"), QByteArray(101, 'y'));
    const QList<MemorySong> songs = songsOf(memory);
    QCOMPARE(songs.size(), 2);
    QVERIFY(memoryduplicates::sameTitle(songs).isEmpty());
}

void TestMemoryDuplicates::oneFileReachedTwiceIsNoDuplicate()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("x/a.mid"), midi("Alpha", "X"));
    QVERIFY(QFile::link(memory.path(QStringLiteral("x")), memory.path(QStringLiteral("y"))));
    QCOMPARE(songsOf(memory).size(), 2);
    QVERIFY(sameBytes(memory).isEmpty());
}

void TestMemoryDuplicates::fileThatCannotBeReadIsTheSameAsNoOther()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("a.mid"), midi("Alpha", "X"));
    memory.add(QStringLiteral("b.mid"), midi("Alpha", "X"));
    QList<MemorySong> songs = songsOf(memory);
    memory.remove(QStringLiteral("a.mid"));
    memory.add(QStringLiteral("b.mid"), "shorter by now");
    ProgressRecord record;
    RecordedProgress progress(record, {}, {}, 0);
    memoryduplicates::Group unread;
    QVERIFY(memoryduplicates::sameBytes(songs, progress, &unread)->isEmpty());
    QCOMPARE(unread, memoryduplicates::Group({0, 1}));
}

void TestMemoryDuplicates::stopGivesNoGroups()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("a.mid"), midi("Alpha", "X"));
    memory.add(QStringLiteral("b.mid"), midi("Alpha", "X"));
    ProgressRecord record;
    record.canceled = true;
    RecordedProgress progress(record, {}, {}, 0);
    QVERIFY(!memoryduplicates::sameBytes(songsOf(memory), progress).has_value());
}

QTEST_GUILESS_MAIN(TestMemoryDuplicates)
#include "test_memoryduplicates.moc"
