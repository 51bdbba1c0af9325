// Roots of memories, the single steps, and the signals of a build.
#include "devindex/index.h"
#include "support/devicememory.h"
#include "support/indexedmemory.h"
#include "support/logcapture.h"
#include "support/songbytes.h"

#include <QSignalSpy>
#include <QTest>

using namespace songbytes;
using namespace indexedmemory;

namespace
{

QList<int> numbers(const QSignalSpy &spy)
{
    QList<int> all;
    for (const QList<QVariant> &arguments : spy)
        all.append(arguments.first().toInt());
    return all;
}

} // namespace

class TestIndexCalls : public QuietIndexFixture
{
    Q_OBJECT

private slots:
    void init() { QuietIndexFixture::init(); }
    void cleanup() { QuietIndexFixture::cleanup(); }

    void rootMayEndInASlashOrBackslash_data();
    void rootMayEndInASlashOrBackslash();
    void emptyRootIsRefused_data();
    void emptyRootIsRefused();
    void refusedSongsAreReportedAndTheRestIndexed();
    void sameObjectMayServeAgain();
    void equalMemoriesGetEqualBytes();

    void checkNeedsAllFifteenFiles();
    void deleteRemovesIndexAndTemporaryFilesOnly();
    void removedItemsCloseUpRecordNumbers();
    void loadedEntriesHoldWhatWasWritten();

    void signalsOfABuildInTheirOrder();
    void signalsOfAnUpdateWithoutChange();
    void countFileIsMissingWhileTheOthersAreWritten();
};

void TestIndexCalls::rootMayEndInASlashOrBackslash_data()
{
    QTest::addColumn<QString>("tail");
    QTest::newRow("slash") << QStringLiteral("/");
    QTest::newRow("backslash") << QStringLiteral("\\");
    QTest::newRow("two slashes") << QStringLiteral("//");
}

void TestIndexCalls::rootMayEndInASlashOrBackslash()
{
    QFETCH(QString, tail);
    const DeviceMemory memory;
    fill(memory);
    Index created;
    QVERIFY(created.createIndex(memory.root() + tail));
    QCOMPARE(created.rootPath, memory.root());
    QCOMPARE(memory.faults(), QString());
    memory.ageIndex();
    const auto before = memory.snapshot();
    Index updated;
    QVERIFY(updated.updateIndex(memory.root() + tail));
    QCOMPARE(updated.rootPath, memory.root());
    QCOMPARE(memory.snapshot(), before);
}

void TestIndexCalls::emptyRootIsRefused_data()
{
    QTest::addColumn<QString>("root");
    QTest::newRow("empty") << QString();
    QTest::newRow("slash") << QStringLiteral("/");
    QTest::newRow("backslash") << QStringLiteral("\\");
    QTest::newRow("missing") << QStringLiteral("/nowhere/at/all");
}

void TestIndexCalls::emptyRootIsRefused()
{
    QFETCH(QString, root);
    const DeviceMemory memory; // as working directory: an empty name must not stand for it
    memory.add(QStringLiteral("a.mid"), midi("A"));
    const auto before = memory.snapshot();
    const QString previous = QDir::currentPath();
    QVERIFY(QDir::setCurrent(memory.root()));
    QVERIFY(!Index().createIndex(root));
    QVERIFY(!Index().updateIndex(root));
    QCOMPARE(Index().saveSongsList(root, QStringLiteral("list.csv"), Index::SortByTitle), -1);
    QVERIFY(QDir::setCurrent(previous));
    QCOMPARE(memory.snapshot(), before);
}

void TestIndexCalls::refusedSongsAreReportedAndTheRestIndexed()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("a.mid"), midi("A"));
    memory.add(QStringLiteral("12345678/12345678/12345678/12345678/12345678/b.mid"), midi("B"));
    Index index;
    const QSignalSpy errors(&index, &Index::errorFromIndex);
    QVERIFY(index.createIndex(memory.root()));
    QCOMPARE(errors.size(), 1);
    QCOMPARE(memory.faults(), QString());
    QCOMPARE(pathRecords(memory), QStringList{QStringLiteral("0 /a.mid")});
}

void TestIndexCalls::sameObjectMayServeAgain()
{
    const DeviceMemory memory;
    fill(memory);
    Index index;
    QVERIFY(index.createIndex(memory.root()));
    memory.ageIndex();
    const auto before = memory.snapshot();
    QVERIFY(index.updateIndex(memory.root()));
    QCOMPARE(int(index.indexChanged), 0);
    QCOMPARE(memory.snapshot(), before);
    QVERIFY(index.createIndex(memory.root()));
    QCOMPARE(memory.faults(), QString());
}

void TestIndexCalls::equalMemoriesGetEqualBytes()
{
    const DeviceMemory first;
    const DeviceMemory second;
    fill(first);
    fill(second);
    QVERIFY(Index().createIndex(first.root()));
    QVERIFY(Index().createIndex(second.root()));
    for (const QString &name : DeviceMemory::indexFiles())
        QCOMPARE(first.read(name), second.read(name));
}

void TestIndexCalls::checkNeedsAllFifteenFiles()
{
    const DeviceMemory memory;
    memory.isLeftBroken();
    Index index;
    index.rootPath = memory.root();
    QVERIFY(!index.checkIndexFile());
    for (const QString &name : DeviceMemory::indexFiles())
        memory.add(name, {});
    QVERIFY(index.checkIndexFile());
    for (const QString &name : DeviceMemory::indexFiles()) {
        memory.remove(name);
        QVERIFY2(!index.checkIndexFile(), qPrintable(name));
        memory.makeFolder(name);
        QVERIFY2(!index.checkIndexFile(), qPrintable(name));
        QDir().rmdir(memory.path(name));
        memory.add(name, {});
    }
    QVERIFY(index.checkIndexFile());
}

void TestIndexCalls::deleteRemovesIndexAndTemporaryFilesOnly()
{
    const DeviceMemory memory;
    for (const QString &name : DeviceMemory::indexFiles())
        memory.add(name, {});
    for (const char *name : {"temp1.idx", "temp2.idx", "sfx.idx", "temp3.idx", "a.mid"})
        memory.add(QString::fromUtf8(name), {});
    Index index;
    index.rootPath = memory.root();
    const LogCapture log;
    index.deleteIndex();
    QCOMPARE(LogCapture::lines(), QStringList{QStringLiteral("delete index ")});
    QCOMPARE(QDir(memory.root()).entryList(QDir::Files, QDir::Name),
             (QStringList{QStringLiteral("a.mid"), QStringLiteral("sfx.idx"),
                          QStringLiteral("temp3.idx")}));
    index.deleteIndex(); // nothing is there any more
}

void TestIndexCalls::removedItemsCloseUpRecordNumbers()
{
    Index index;
    const QList<QPair<quint32, int>> songs{
        {7, 3}, {0xFFFFFFFF, 0}, {5, 1}, {0xFFFFFFFF, 2}, {9, 4}};
    for (const auto &[id, posidx] : songs) {
        SongInfoIndex entry;
        entry.id = id;
        entry.posidx = static_cast<quint16>(posidx);
        index.entries.append(entry);
    }
    index.removeDeletedItems();
    QList<QPair<quint32, int>> left;
    for (const SongInfoIndex &entry : std::as_const(index.entries))
        left.append({entry.id, entry.posidx});
    QCOMPARE(left, (QList<QPair<quint32, int>>{{5, 0}, {7, 1}, {9, 2}}));
}

void TestIndexCalls::loadedEntriesHoldWhatWasWritten()
{
    const DeviceMemory memory;
    const int songs = fill(memory);
    QVERIFY(Index().createIndex(memory.root()));
    Index index;
    index.rootPath = memory.root();
    QCOMPARE(index.loadAllIndexFile(), 0);
    QCOMPARE(index.entries.size(), songs);
    QCOMPARE(index.maxLoadedId, quint32(songs - 1));
    QCOMPARE(int(index.nextPosidx), songs);
    QMap<QString, SongInfoIndex> byPath;
    for (int i = 0; i < songs; ++i) {
        QCOMPARE(int(index.entries.at(i).posidx), i);
        QCOMPARE(index.entries.at(i).fullPath, memory.root() + index.entries.at(i).path);
        QVERIFY(QFileInfo::exists(index.entries.at(i).fullPath));
        byPath.insert(index.entries.at(i).path, index.entries.at(i));
    }
    const SongInfoIndex volare = byPath.value(QStringLiteral("/pop/Volare.kar"));
    QCOMPARE(volare.title, QStringLiteral("VOLARE"));
    QCOMPARE(volare.artist, QStringLiteral("MODUGNO"));
    QCOMPARE(volare.genre, QStringLiteral("CANZONE"));
    QCOMPARE(int(volare.bpm), 120);
    QCOMPARE(volare.date, 20130527u);
    QCOMPARE(volare.time, 93005u);
    const SongInfoIndex etude = byPath.value(QStringLiteral("/città/ß_ÿ.mp3"));
    QCOMPARE(etude.title, QStringLiteral("STRAßE"));
    QCOMPARE(etude.genre, QStringLiteral("ÉTUDE"));
    QCOMPARE(int(etude.fileType), 1);
    const SongInfoIndex mfx = byPath.value(QStringLiteral("/x/Maruz.mf4"));
    QCOMPARE(mfx.artist, QStringLiteral("<UNKNOWN>"));
    QCOMPARE(int(mfx.fileType), 3);
    QCOMPARE(int(mfx.hasMarkers), 1);
}

void TestIndexCalls::signalsOfABuildInTheirOrder()
{
    const DeviceMemory memory;
    const QString a = memory.add(QStringLiteral("a.mid"), midi("A"));
    const QString b = memory.add(QStringLiteral("b.mid"), midi("B"));
    Index index;
    QStringList events;
    const auto note = [&events](const char *name) {
        return [&events, name](int value) {
            events.append(QStringLiteral("%1 %2").arg(QString::fromUtf8(name)).arg(value));
        };
    };
    connect(&index, &Index::progressValueChanged, this, note("value"));
    connect(&index, &Index::progressMaxSetup, this, note("max"));
    connect(&index, &Index::fileFoundChanged, this, note("found"));
    connect(&index, &Index::currentPathChanged, this,
            [&events](const QString &path) { events.append(QStringLiteral("path ") + path); });
    QVERIFY(index.createIndex(memory.root()));
    QCOMPARE(
        events.join(QLatin1Char('\n')),
        QStringLiteral("value 0\npath %1\nfound 1\npath %2\nfound 2\nmax 2\npath %1\nvalue 1\n"
                       "path %2\nvalue 2\npath \nmax 100\nvalue 0\nvalue 10\nvalue 20\nvalue 30\n"
                       "value 40\nvalue 50\nvalue 60\nvalue 70\nvalue 80\nvalue 90\nvalue 100")
            .arg(a, b));
}

void TestIndexCalls::signalsOfAnUpdateWithoutChange()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("a.mid"), midi("A"));
    memory.add(QStringLiteral("b.mid"), midi("B"));
    QVERIFY(Index().createIndex(memory.root()));
    Index index;
    const QSignalSpy values(&index, &Index::progressValueChanged);
    const QSignalSpy maxima(&index, &Index::progressMaxSetup);
    const QSignalSpy found(&index, &Index::fileFoundChanged);
    const QSignalSpy errors(&index, &Index::errorFromIndex);
    QVERIFY(index.updateIndex(memory.root()));
    QCOMPARE(numbers(values), (QList<int>{0, 1, 2}));
    QCOMPARE(numbers(maxima), QList<int>{2});
    QCOMPARE(numbers(found), (QList<int>{1, 2}));
    QCOMPARE(errors.size(), 0);
}

void TestIndexCalls::countFileIsMissingWhileTheOthersAreWritten()
{
    const DeviceMemory memory;
    fill(memory);
    QVERIFY(Index().createIndex(memory.root()));
    memory.add(QStringLiteral("new.mid"), midi("New"));
    Index index;
    bool writing = false;
    QStringList whole;
    connect(&index, &Index::progressMaxSetup, this, [&](int maximum) { writing = maximum == 100; });
    connect(&index, &Index::progressValueChanged, this, [&](int value) {
        if (writing && value > 10 &&
            DeviceMemory::faultsAt(memory.root()) != QStringLiteral("exit 2: no complete index\n"))
            whole.append(QString::number(value));
    });
    QVERIFY(index.updateIndex(memory.root()));
    QCOMPARE(whole, QStringList{QStringLiteral("100")});
    QCOMPARE(memory.faults(), QString());
}

QTEST_GUILESS_MAIN(TestIndexCalls)

#include "test_index_calls.moc"
