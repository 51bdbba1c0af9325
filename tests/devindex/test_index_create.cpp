// The index that is created on a memory.
#include "devindex/index.h"
#include "support/devicememory.h"
#include "support/indexedmemory.h"
#include "support/logcapture.h"
#include "support/songbytes.h"

#include <QTest>

using namespace songbytes;
using namespace indexedmemory;

class TestIndexCreate : public QuietIndexFixture
{
    Q_OBJECT

private slots:
    void init() { QuietIndexFixture::init(); }
    void cleanup() { QuietIndexFixture::cleanup(); }

    void createdIndexIsWhatThePlayerReads();
    void createdFilesByHand();
    void createMakesThePlayersFolders();
    void memoryWithoutMp3StillGetsAllFiles();
    void memoryWithoutSongsGetsNoIndex();
    void updateWithoutSongsLeavesTheIndex();
};

void TestIndexCreate::createdIndexIsWhatThePlayerReads()
{
    const DeviceMemory memory;
    const int songs = fill(memory);
    Index index;
    const LogCapture log;
    QVERIFY(index.createIndex(memory.root()));
    QCOMPARE(memory.faults(), QString());
    QCOMPARE(memory.read(QStringLiteral("title.idx")).size(), songs * 32);
    QCOMPARE(
        LogCapture::lines(),
        (QStringList{QStringLiteral("create playlist file path "), QStringLiteral("delete index "),
                     QStringLiteral("create path index "), QStringLiteral("create title index ")}));
}

void TestIndexCreate::createdFilesByHand()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("b.mid"), midi("Zingara", "Morandi", "Pop"));
    memory.add(QStringLiteral("A.mp3"), mp3("Citt\xE0", "Mina", "Pop"));
    Index index;
    QVERIFY(index.createIndex(memory.root()));

    const auto text = [](const QByteArray &bytes) { return bytes.leftJustified(26, '\0'); };
    const QByteArray zeroId(4, '\0');
    const QByteArray oneId("\0\0\0\x01", 4);
    const QByteArray citta = zeroId + text("CITT\xC0") + QByteArray("\x00\x01", 2);
    const QByteArray zingara = oneId + text("ZINGARA") + QByteArray("\x78\x00", 2);
    const auto header = [&text](const char *counts, const QByteArray &name) {
        return QByteArray(counts, 4) + text(name) + QByteArray("\x00\xFF", 2);
    };
    const auto alpha = [](const QMap<char, quint32> &slots_) {
        QByteArray table(256, '\xFF');
        for (auto slot = slots_.cbegin(); slot != slots_.cend(); ++slot)
            table.replace(4 * (slot.key() - 0x20), 4, bigEndian(slot.value(), 4));
        return table;
    };
    const QList<QPair<const char *, QByteArray>> expected{
        {"index.idx", zeroId + QByteArray("/A.mp3").leftJustified(46, '\0') + "20130527093005" +
                          oneId + QByteArray("/b.mid").leftJustified(46, '\0') + "20130527093005"},
        {"ordfile.idx", QByteArray("\x00\x00\x01\x00", 4)},
        {"title.idx", citta + zingara},
        {"atitle.idx", alpha({{'C', 0}, {'Z', 32}})},
        {"artist.idx",
         header("\0\0\0\x01", "MINA") + citta + header("\0\x01\0\x01", "MORANDI") + zingara},
        {"aartist.idx", alpha({{'M', 0}})},
        {"genre.idx", header("\0\0\0\x02", "POP") + citta + zingara},
        {"agenre.idx", alpha({{'P', 0}})},
        {"title3.idx", citta},
        {"atitle3.idx", alpha({{'C', 0}})},
        {"artist3.idx", header("\0\0\0\x01", "MINA") + citta},
        {"aartist3.idx", alpha({{'M', 0}})},
        {"genre3.idx", header("\0\0\0\x01", "POP") + citta},
        {"agenre3.idx", alpha({{'P', 0}})},
        {"fsinfos.idx", QByteArray("\x02\x00\x02\x00\x01\x00\x01\x00\x01\x00\x01\x00", 12)}};
    QCOMPARE(expected.size(), 15);
    for (const auto &[name, bytes] : expected)
        QVERIFY2(memory.read(QString::fromUtf8(name)) == bytes, name);
}

void TestIndexCreate::createMakesThePlayersFolders()
{
    const DeviceMemory memory;
    fill(memory);
    Index index;
    QVERIFY(index.createIndex(memory.root()));
    QStringList folders = QDir(memory.root()).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    folders.sort();
    QCOMPARE(folders,
             (QStringList{QStringLiteral("bridge"), QStringLiteral("città"), QStringLiteral("pop"),
                          QStringLiteral("sfx"), QStringLiteral("x")}));
    memory.add(QStringLiteral("sfx/kept.wav"), "1");
    index.createKavenaDir();
    QCOMPARE(memory.read(QStringLiteral("sfx/kept.wav")), QByteArray("1"));
}

void TestIndexCreate::memoryWithoutMp3StillGetsAllFiles()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("a.mid"), midi("A"));
    Index index;
    QVERIFY(index.createIndex(memory.root()));
    QCOMPARE(memory.faults(), QString());
    for (const char *name : {"title3.idx", "artist3.idx", "genre3.idx"})
        QCOMPARE(memory.read(QString::fromUtf8(name)), QByteArray());
    for (const char *name : {"atitle3.idx", "aartist3.idx", "agenre3.idx"})
        QCOMPARE(memory.read(QString::fromUtf8(name)), QByteArray(256, '\xFF'));
}

void TestIndexCreate::memoryWithoutSongsGetsNoIndex()
{
    const DeviceMemory memory;
    fill(memory);
    QVERIFY(Index().createIndex(memory.root()));
    for (const char *folder : {"pop", "città", "x"})
        QDir(memory.path(QString::fromUtf8(folder))).removeRecursively();
    memory.remove(QStringLiteral("Azzurro.mid"));
    QVERIFY(!Index().createIndex(memory.root()));
    QCOMPARE(memory.presentIndexFiles(), QStringList());
}

void TestIndexCreate::updateWithoutSongsLeavesTheIndex()
{
    const DeviceMemory memory;
    memory.isLeftBroken();
    memory.add(QStringLiteral("a.mid"), midi("A"));
    QVERIFY(Index().createIndex(memory.root()));
    memory.remove(QStringLiteral("a.mid"));
    const auto before = memory.snapshot();
    QVERIFY(Index().updateIndex(memory.root()));
    QCOMPARE(memory.snapshot(), before);
}

QTEST_GUILESS_MAIN(TestIndexCreate)

#include "test_index_create.moc"
