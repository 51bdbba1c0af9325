// An index operation that the user stops leaves an index that is whole, or none.
#include "devindex/index.h"
#include "devindex/memorycheck.h"
#include "support/indexedmemory.h"

#include <QTest>

using namespace indexedmemory;

namespace
{

/** Stops when the question comes for the n-th time. */
bool runStoppedAt(int step, const QString &root, bool (Index::*operation)(const QString &))
{
    Index index;
    int asked = 0;
    index.setStopQuestion([&asked, step] { return ++asked == step; });
    return (index.*operation)(root);
}

} // namespace

class TestIndexStop : public QuietIndexFixture
{
    Q_OBJECT

private slots:
    void init() { QuietIndexFixture::init(); }
    void cleanup() { QuietIndexFixture::cleanup(); }

    void stoppedUpdateChangesNothing();
    void stoppedRebuildLeavesNoIndex();
    void stoppedCheckEndsEarly();
};

void TestIndexStop::stoppedUpdateChangesNothing()
{
    const DeviceMemory memory;
    const int count = fill(memory);
    QVERIFY(Index().createIndex(memory.root()));
    memory.add(QStringLiteral("pop/New.mid"), midi("New"));
    memory.remove(QStringLiteral("Azzurro.mid"));
    memory.add(QStringLiteral("x/tiny.mid"), midi("Larger"), QDateTime::currentDateTime());
    const auto before = memory.snapshot();
    int stops = 0;
    while (!runStoppedAt(stops + 1, memory.root(), &Index::updateIndex)) {
        QCOMPARE(memory.snapshot(), before);
        QVERIFY(++stops < 1000);
    }
    QVERIFY2(stops > 2 * count, qPrintable(QString::number(stops))); // at each song, twice
    QCOMPARE(memory.faults(), QString());
    QVERIFY(MemoryCheck(memory.root()).run().isEmpty());
}

void TestIndexStop::stoppedRebuildLeavesNoIndex()
{
    const DeviceMemory memory;
    const int count = fill(memory);
    int stops = 0;
    while (!runStoppedAt(stops + 1, memory.root(), &Index::createIndex)) {
        QCOMPARE(memory.presentIndexFiles(), QStringList());
        QVERIFY(!QDir(memory.root()).exists(QStringLiteral("bridge")));
        QVERIFY(++stops < 1000);
    }
    QVERIFY2(stops > 2 * count, qPrintable(QString::number(stops)));
    QCOMPARE(memory.faults(), QString());
}

void TestIndexStop::stoppedCheckEndsEarly()
{
    const DeviceMemory memory;
    fill(memory);
    QVERIFY(Index().createIndex(memory.root()));
    int asked = 0;
    const auto stop = [&asked] {
        ++asked;
        return true;
    };
    // No song counts as missing because the search for it was stopped.
    QVERIFY(MemoryCheck(memory.root()).run(stop).isEmpty());
    QCOMPARE(asked, 1);
}

QTEST_GUILESS_MAIN(TestIndexStop)
#include "test_index_stop.moc"
