// What is told of a memory as a whole.
#include "devindex/memoryfacts.h"
#include "support/mountedcard.h"
#include "support/smallmemory.h"

#include <QTest>

class TestMemoryFacts : public QObject
{
    Q_OBJECT

private slots:
    void mountedMemoryTellsItsFileSystem();
    void folderIsNoMountedMemory();
    void systemDiskIsNoMemory();
    void folderThatIsGoneTellsNothing();
};

void TestMemoryFacts::mountedMemoryTellsItsFileSystem()
{
    const MountedCard card;
    const SmallMemory memory(card.root(), 0, "size=1m");
    if (!memory.isMounted())
        QSKIP("needs root");
    MemoryFacts facts = MemoryFacts::of(card.root() + QLatin1Char('/'));
    QCOMPARE(facts.fileSystem, QStringLiteral("tmpfs"));
    QCOMPARE(facts.totalBytes, 1024 * 1024);
    QVERIFY(facts.freeBytes > 0 && facts.freeBytes <= facts.totalBytes);
    QVERIFY(facts.isMounted && facts.isWritable && facts.isOnMemory);
    QVERIFY(memory.protect());
    facts = MemoryFacts::of(card.root());
    QCOMPARE(facts.name, QStringLiteral("CARD"));
    QVERIFY(facts.isMounted && !facts.isWritable);
}

void TestMemoryFacts::folderIsNoMountedMemory()
{
    const MountedCard card;
    MemoryFacts facts = MemoryFacts::of(card.root());
    QVERIFY(!facts.isMounted && facts.isOnMemory && facts.isWritable);
    facts = MemoryFacts::of(card.music());
    QVERIFY(!facts.isMounted && !facts.isOnMemory);
}

void TestMemoryFacts::systemDiskIsNoMemory()
{
    const MemoryFacts facts = MemoryFacts::of(QStringLiteral("/"));
    QVERIFY(!facts.isMounted && !facts.isOnMemory && !facts.name.isEmpty());
}

void TestMemoryFacts::folderThatIsGoneTellsNothing()
{
    const MountedCard card;
    for (const QString &folder : {card.path(QStringLiteral("gone")), QString()}) {
        const MemoryFacts facts = MemoryFacts::of(folder);
        QVERIFY(!facts.isMounted && !facts.isWritable && facts.totalBytes < 0);
    }
}

QTEST_GUILESS_MAIN(TestMemoryFacts)
#include "test_memoryfacts.moc"
