// An index operation takes away what killed programs left on the memory, and nothing else.
#include "devindex/index.h"
#include "devindex/memorycheck.h"
#include "devindex/memorysongs.h"
#include "storage/leftovers.h"
#include "storage/safefile.h"
#include "support/indexedmemory.h"
#include "support/recordedprogress.h"

#include <QTest>

using namespace indexedmemory;

class TestIndexLeftovers : public QuietIndexFixture
{
    Q_OBJECT

private slots:
    void init() { QuietIndexFixture::init(); }
    void cleanup() { QuietIndexFixture::cleanup(); }

    void leftoversGoWithAnUpdateAndARebuild();
    void whatIsNotProvablyOursStays();
    void nothingIsRemovedBehindALink();
    void lookingAtAMemoryRemovesNothing();
};

void TestIndexLeftovers::leftoversGoWithAnUpdateAndARebuild()
{
    const DeviceMemory memory;
    fill(memory);
    for (const auto operation : {&Index::createIndex, &Index::updateIndex}) {
        for (const char *const folder : {"", "pop/", "x/"}) {
            memory.add(QLatin1String(folder) + QStringLiteral(".a.mid.0123abcd.kavena-part"), "x");
            memory.add(QLatin1String(folder) + QStringLiteral(".a.mp3.0123abcd.kavena-tmp"), "x");
            memory.add(QLatin1String(folder) + QStringLiteral("a.mp3"), "\xFF\xFB music");
            memory.add(QLatin1String(folder) + QStringLiteral("a.tmp"),
                       QByteArray("ID3\3\0\0\0\0\0\4head", 14) + "\xFF\xFB mu");
        }
        Index index;
        QVERIFY((index.*operation)(memory.root()));
        for (const QString &path : memory.snapshot().keys())
            QVERIFY2(!path.contains(QStringLiteral(".kavena-")) &&
                         !path.endsWith(QStringLiteral(".tmp")),
                     qPrintable(path));
    }
}

void TestIndexLeftovers::whatIsNotProvablyOursStays()
{
    const DeviceMemory memory;
    fill(memory);
    QVERIFY(Index().createIndex(memory.root()));
    memory.add(QStringLiteral("pop/.a.mid.kavena-journal"), "x");
    memory.add(QStringLiteral("pop/.a.mid.kavena-part.bak"), "x");
    memory.add(QStringLiteral("pop/a.mid.kavena-part"), "x");
    memory.add(QStringLiteral("precious"), "x");
    memory.add(QStringLiteral("pop/a.tmp"), "x");
    memory.makeFolder(QStringLiteral(".b.kavena-part"));
    QVERIFY(QFile::link(memory.path(QStringLiteral("precious")),
                        memory.path(QStringLiteral(".c.kavena-part"))));
    QFile held;
    QVERIFY(
        createHiddenBeside(held, memory.path(QStringLiteral("pop/d.mid")), Leftovers::partSuffix));
    const auto before = memory.snapshot();
    QVERIFY(Index().updateIndex(memory.root()));
    QCOMPARE(memory.snapshot(), before);
}

void TestIndexLeftovers::nothingIsRemovedBehindALink()
{
    const DeviceMemory memory;
    const DeviceMemory elsewhere;
    fill(memory);
    const QString other = elsewhere.add(QStringLiteral(".a.mid.0123abcd.kavena-part"), "x");
    QVERIFY(QFile::link(elsewhere.root(), memory.path(QStringLiteral("away"))));
    QVERIFY(Index().createIndex(memory.root()));
    QVERIFY(QFile::exists(other));
}

void TestIndexLeftovers::lookingAtAMemoryRemovesNothing()
{
    const DeviceMemory memory;
    fill(memory);
    QVERIFY(Index().createIndex(memory.root()));
    memory.add(QStringLiteral("pop/.a.mid.0123abcd.kavena-part"), "x");
    const auto before = memory.snapshot();
    QVERIFY(MemoryCheck(memory.root()).run().isEmpty());
    ProgressRecord record;
    RecordedProgress progress(record, {}, {}, 0);
    MemorySongs songs(memory.root());
    QCOMPARE(songs.read(progress), MemorySongs::Outcome::Done);
    QCOMPARE(memory.snapshot(), before);
}

QTEST_GUILESS_MAIN(TestIndexLeftovers)
#include "test_index_leftovers.moc"
