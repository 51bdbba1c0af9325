// The index of a memory follows its songs.
#include "devindex/index.h"
#include "support/devicememory.h"
#include "support/indexedmemory.h"
#include "support/logcapture.h"
#include "support/songbytes.h"

#include <QTest>

using namespace songbytes;
using namespace indexedmemory;

class TestIndexUpdate : public QuietIndexFixture
{
    Q_OBJECT

private slots:
    void init() { QuietIndexFixture::init(); }
    void cleanup() { QuietIndexFixture::cleanup(); }

    void updateWithoutCompleteIndexCreatesIt_data();
    void updateWithoutCompleteIndexCreatesIt();
    void unchangedMemoryIsNotWritten();
    void namesOutsideThePlayersCodePageAreKept();
    void touchedFileIsReadAgain();
    void untouchedFileIsNotReadAgain();
    void removedFileFreesItsRecordNumber();
    void newFilesGetTheNextIds();
    void folderInPlaceOfASongRemovesIt();
    void caseOfANameMayChange();
};

void TestIndexUpdate::updateWithoutCompleteIndexCreatesIt_data()
{
    QTest::addColumn<QString>("missing");
    for (const QString &name : DeviceMemory::indexFiles())
        QTest::newRow(qPrintable(name)) << name;
}

void TestIndexUpdate::updateWithoutCompleteIndexCreatesIt()
{
    QFETCH(QString, missing);
    const DeviceMemory memory;
    const int songs = fill(memory);
    memory.add(QStringLiteral("first.mid"), midi("First"));
    QVERIFY(Index().createIndex(memory.root()));
    memory.remove(QStringLiteral("first.mid"));
    memory.remove(missing);
    QVERIFY(Index().updateIndex(memory.root()));
    QCOMPARE(memory.faults(), QString());
    QCOMPARE(pathRecords(memory).size(), songs);
    QVERIFY(pathRecords(memory).constFirst().startsWith(QStringLiteral("0 ")));
}

void TestIndexUpdate::unchangedMemoryIsNotWritten()
{
    const DeviceMemory memory;
    fill(memory);
    QVERIFY(Index().createIndex(memory.root()));
    memory.ageIndex();
    const auto before = memory.snapshot();
    for (int round = 0; round < 2; ++round) {
        Index index;
        QVERIFY(index.updateIndex(memory.root()));
        QCOMPARE(int(index.indexChanged), 0);
        QCOMPARE(memory.snapshot(), before);
    }
}

void TestIndexUpdate::namesOutsideThePlayersCodePageAreKept()
{
    const DeviceMemory memory;
    for (const char *name : {"Жук.mid", "Яма.mid", "日本.mp3", "e\xCC\x81.mid", "a.mid"})
        memory.add(QString::fromUtf8(name), midi("T"),
                   DeviceMemory::defaultTime().addDays(memory.snapshot().size()));
    QVERIFY(Index().createIndex(memory.root()));
    QCOMPARE(memory.faults(), QString());
    const QStringList records = pathRecords(memory);
    memory.ageIndex();
    const auto before = memory.snapshot();
    QVERIFY(Index().updateIndex(memory.root()));
    QCOMPARE(memory.snapshot(), before);

    memory.add(QStringLiteral("b.mid"), midi("B"));
    QVERIFY(Index().updateIndex(memory.root()));
    QCOMPARE(memory.faults(), QString());
    QCOMPARE(pathRecords(memory), records + QStringList{QStringLiteral("5 /b.mid")});
}

void TestIndexUpdate::touchedFileIsReadAgain()
{
    const DeviceMemory memory;
    fill(memory);
    QVERIFY(Index().createIndex(memory.root()));
    const QStringList records = pathRecords(memory);
    memory.ageIndex();
    memory.add(QStringLiteral("Azzurro.mid"), midi("Neu"),
               QDateTime(QDate(2020, 2, 3), QTime(1, 2, 3)));
    Index index;
    QVERIFY(index.updateIndex(memory.root()));
    QCOMPARE(int(index.indexChanged), 1);
    QCOMPARE(memory.faults(), QString());
    QCOMPARE(pathRecords(memory), records);
    QVERIFY(memory.read(QStringLiteral("title.idx")).contains("NEU"));
    QVERIFY(!memory.read(QStringLiteral("title.idx")).contains("AZZURRO"));
    QVERIFY(memory.read(QStringLiteral("index.idx")).contains("20200203010203"));
    for (const QString &name : DeviceMemory::indexFiles())
        QVERIFY2(QFileInfo(memory.path(name)).lastModified().date().year() > 2001,
                 qPrintable(name));
}

void TestIndexUpdate::untouchedFileIsNotReadAgain()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("a.mid"), midi("First"));
    memory.add(QStringLiteral("b.mid"), midi("Second"));
    QVERIFY(Index().createIndex(memory.root()));
    // Same time of change: the index has no reason to look inside.
    memory.add(QStringLiteral("a.mid"), midi("Other"));
    memory.add(QStringLiteral("b.mid"), midi("Third"),
               QDateTime(QDate(2020, 2, 3), QTime(1, 2, 3)));
    QVERIFY(Index().updateIndex(memory.root()));
    const QByteArray titles = memory.read(QStringLiteral("title.idx"));
    QVERIFY(titles.contains("FIRST") && titles.contains("THIRD"));
    QVERIFY(!titles.contains("OTHER") && !titles.contains("SECOND"));
}

void TestIndexUpdate::removedFileFreesItsRecordNumber()
{
    const DeviceMemory memory;
    for (const char *name : {"a.mid", "b.mid", "c.mid", "d.mid"})
        memory.add(QString::fromUtf8(name), midi(name));
    QVERIFY(Index().createIndex(memory.root()));
    memory.remove(QStringLiteral("b.mid"));
    QVERIFY(Index().updateIndex(memory.root()));
    QCOMPARE(memory.faults(), QString());
    QCOMPARE(pathRecords(memory),
             (QStringList{QStringLiteral("0 /a.mid"), QStringLiteral("2 /c.mid"),
                          QStringLiteral("3 /d.mid")}));
}

void TestIndexUpdate::newFilesGetTheNextIds()
{
    const DeviceMemory memory;
    for (const char *name : {"b.mid", "c.mid", "d.mid"})
        memory.add(QString::fromUtf8(name), midi(name));
    QVERIFY(Index().createIndex(memory.root()));
    memory.remove(QStringLiteral("c.mid"));
    memory.add(QStringLiteral("a.mid"), midi("A"));
    memory.add(QStringLiteral("z.mp3"), mp3("Z", "Z", "Z"));
    QVERIFY(Index().updateIndex(memory.root()));
    QCOMPARE(memory.faults(), QString());
    QCOMPARE(pathRecords(memory),
             (QStringList{QStringLiteral("0 /b.mid"), QStringLiteral("2 /d.mid"),
                          QStringLiteral("3 /a.mid"), QStringLiteral("4 /z.mp3")}));
    memory.remove(QStringLiteral("b.mid"));
    memory.add(QStringLiteral("y.mid"), midi("Y"));
    QVERIFY(Index().updateIndex(memory.root()));
    QCOMPARE(pathRecords(memory),
             (QStringList{QStringLiteral("2 /d.mid"), QStringLiteral("3 /a.mid"),
                          QStringLiteral("4 /z.mp3"), QStringLiteral("5 /y.mid")}));
    QCOMPARE(memory.faults(), QString());
}

void TestIndexUpdate::folderInPlaceOfASongRemovesIt()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("a.mid"), midi("A"));
    memory.add(QStringLiteral("b.mid"), midi("B"));
    QVERIFY(Index().createIndex(memory.root()));
    memory.remove(QStringLiteral("a.mid"));
    memory.makeFolder(QStringLiteral("a.mid"));
    QVERIFY(Index().updateIndex(memory.root()));
    QCOMPARE(pathRecords(memory), QStringList{QStringLiteral("1 /b.mid")});
    QCOMPARE(memory.faults(), QString());
}

void TestIndexUpdate::caseOfANameMayChange()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("a.mid"), midi("A"));
    memory.add(QStringLiteral("b.mid"), midi("B"));
    QVERIFY(Index().createIndex(memory.root()));
    QVERIFY(QDir(memory.root()).rename(QStringLiteral("a.mid"), QStringLiteral("A.MID")));
    QVERIFY(Index().updateIndex(memory.root()));
    QCOMPARE(pathRecords(memory),
             (QStringList{QStringLiteral("0 /A.MID"), QStringLiteral("1 /b.mid")}));
    QCOMPARE(memory.faults(), QString());
}

QTEST_GUILESS_MAIN(TestIndexUpdate)

#include "test_index_update.moc"
