// Damaged and hostile indexes on a memory.
#include "devindex/index.h"
#include "support/devicememory.h"
#include "support/faults.h"
#include "support/foreignmemory.h"
#include "support/logcapture.h"
#include "support/songbytes.h"

#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>

using namespace songbytes;
using namespace foreignmemory;

namespace
{

QByteArray pathRecord(quint32 id, const QByteArray &path,
                      const QByteArray &stamp = QByteArrayLiteral("20130527093005"))
{
    return bigEndian(id, 4) + path.leftJustified(46, '\0', true) + stamp;
}

QByteArray songRecord(quint32 id, const QByteArray &title)
{
    return bigEndian(id, 4) + title.leftJustified(26, '\0', true) + QByteArray("\x78\x00", 2);
}

QByteArray groupHeader(const QByteArray &counts, const QByteArray &text)
{
    return counts + text.leftJustified(26, '\0', true) + QByteArray("\x00\xFF", 2);
}

/** A memory with all fifteen files and a few songs; the parts are put in by the test. */
class ForeignMemory : public DeviceMemory
{
public:
    ForeignMemory()
    {
        isLeftBroken();
        for (const QString &name : indexFiles())
            add(name, {});
        for (const char *name : {"a.mid", "b.mid", "c.mid"})
            add(QString::fromUtf8(name), plainSong);
    }

    /** A plain index of these ids for a.mid, b.mid, ... */
    void addIndex(const QList<quint32> &ids) const
    {
        QByteArray paths;
        QByteArray titles;
        for (int i = 0; i < ids.size(); ++i) {
            const QByteArray path = QByteArray("/") + static_cast<char>('a' + i) + ".mid";
            paths += pathRecord(ids.at(i), path);
            titles += songRecord(ids.at(i), "OLD");
        }
        const QByteArray counts("\x00\x00\x00\x03", 4);
        add(QStringLiteral("index.idx"), paths);
        add(QStringLiteral("title.idx"), titles);
        add(QStringLiteral("artist.idx"), groupHeader(counts, "ARTIST") + titles);
        add(QStringLiteral("genre.idx"), groupHeader(counts, "GENRE") + titles);
    }
};

int loadOf(const DeviceMemory &memory)
{
    Index index;
    index.rootPath = memory.root();
    const int result = index.loadAllIndexFile();
    if (result < 0 && !(index.entries.isEmpty() && index.nextPosidx == 0))
        qFatal("a failed load must leave nothing");
    return result;
}

} // namespace

class TestIndexHostile : public HostileIndexFixture
{
    Q_OBJECT

private slots:
    void init() { HostileIndexFixture::init(); }
    void cleanup() { HostileIndexFixture::cleanup(); }

    void plainForeignIndexIsLoaded();
    void idsThatDoNotAscendFailTheLoad_data();
    void idsThatDoNotAscendFailTheLoad();
    void highestIdsLeaveNoRoom();
    void shortRecordsFailTheLoad_data();
    void shortRecordsFailTheLoad();
    void unknownIdsFailTheLoad_data();
    void unknownIdsFailTheLoad();
    void missingFilesFailTheLoad();
    void tooManyRecordsFailTheLoad_data();
    void tooManyRecordsFailTheLoad();
    void hugeFilesAreNotTakenIntoMemory();
    void pipesAndDevicesFailTheLoad();
    void groupCountsAreNotBelieved();
    void songsBeforeAnyHeaderHaveNoArtist();
    void damagedIndexIsLeftAlone();
    void digitsThatAreNoneReadTheSongAgain();
    void pathsOutsideTheMemoryAreDropped_data();
    void pathsOutsideTheMemoryAreDropped();
    void randomIndexesAreHarmless();
};

void TestIndexHostile::plainForeignIndexIsLoaded()
{
    const ForeignMemory memory;
    memory.addIndex({3, 7, 0x80000000});
    Index index;
    index.rootPath = memory.root();
    QCOMPARE(index.loadAllIndexFile(), 0);
    QCOMPARE(index.entries.size(), 3);
    QCOMPARE(index.maxLoadedId, 0x80000000u);
    QCOMPARE(index.entries.constLast().artist, QStringLiteral("ARTIST"));
    QCOMPARE(int(index.entries.constLast().bpm), 0x78);
    memory.add(QStringLiteral("d.mid"), plainSong);
    QVERIFY(Index().updateIndex(memory.root()));
    QCOMPARE(memory.faults(), QString());
    QCOMPARE(memory.read(QStringLiteral("index.idx")).mid(3 * 64, 10),
             QByteArray("\x80\0\0\x01/d.mid", 10));
}

void TestIndexHostile::idsThatDoNotAscendFailTheLoad_data()
{
    QTest::addColumn<QList<quint32>>("ids");
    QTest::newRow("descending") << QList<quint32>{3, 2, 1};
    QTest::newRow("last one lower") << QList<quint32>{1, 3, 2};
    QTest::newRow("same id twice") << QList<quint32>{1, 1, 2};
    QTest::newRow("mark of removed songs") << QList<quint32>{1, 2, 0xFFFFFFFF};
    QTest::newRow("only the mark") << QList<quint32>{0xFFFFFFFF};
}

void TestIndexHostile::idsThatDoNotAscendFailTheLoad()
{
    QFETCH(QList<quint32>, ids);
    const ForeignMemory memory;
    memory.addIndex(ids);
    QVERIFY(loadOf(memory) < 0);
    const auto before = memory.snapshot();
    QVERIFY(!Index().updateIndex(memory.root()));
    QCOMPARE(memory.snapshot(), before);
}

void TestIndexHostile::highestIdsLeaveNoRoom()
{
    const ForeignMemory memory;
    memory.addIndex({0, 1, 0xFFFFFFFE});
    memory.add(QStringLiteral("d.mid"), plainSong);
    memory.add(QStringLiteral("e.mid"), plainSong);
    Index index;
    const QSignalSpy errors(&index, &Index::errorFromIndex);
    QVERIFY(index.updateIndex(memory.root()));
    QCOMPARE(errors.size(), 2);
    QCOMPARE(memory.read(QStringLiteral("index.idx")).size(), 3 * 64);
    QVERIFY(Index().createIndex(memory.root())); // a rebuild numbers from 0 again
    QCOMPARE(memory.faults(), QString());
}

void TestIndexHostile::shortRecordsFailTheLoad_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"index.idx", "title.idx", "artist.idx", "genre.idx"})
        QTest::newRow(name) << QString::fromUtf8(name);
}

void TestIndexHostile::shortRecordsFailTheLoad()
{
    QFETCH(QString, name);
    const ForeignMemory memory;
    memory.addIndex({0, 1, 2});
    const QByteArray whole = memory.read(name);
    QCOMPARE(loadOf(memory), 0);
    for (const qsizetype size : {qsizetype(1), qsizetype(31), whole.size() - 1}) {
        memory.add(name, whole.left(size));
        QVERIFY(loadOf(memory) < 0);
    }
}

void TestIndexHostile::unknownIdsFailTheLoad_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"title.idx", "artist.idx", "genre.idx"})
        QTest::newRow(name) << QString::fromUtf8(name);
}

void TestIndexHostile::unknownIdsFailTheLoad()
{
    QFETCH(QString, name);
    const ForeignMemory memory;
    memory.addIndex({1, 3, 5});
    const QByteArray whole = memory.read(name);
    for (const quint32 id : {0u, 2u, 4u, 6u, 0xFFFFFFFFu}) {
        memory.add(name, whole + songRecord(id, "X"));
        QVERIFY(loadOf(memory) < 0);
    }
}

void TestIndexHostile::missingFilesFailTheLoad()
{
    for (const char *name : {"index.idx", "title.idx", "artist.idx", "genre.idx"}) {
        const ForeignMemory memory;
        memory.addIndex({0, 1, 2});
        memory.remove(QString::fromUtf8(name));
        QVERIFY(loadOf(memory) < 0);
        memory.makeFolder(QString::fromUtf8(name));
        QVERIFY(loadOf(memory) < 0);
    }
}

void TestIndexHostile::tooManyRecordsFailTheLoad_data()
{
    QTest::addColumn<int>("songs");
    QTest::addColumn<bool>("loads");
    QTest::newRow("65,535 songs") << 65535 << true;
    QTest::newRow("65,536 songs") << 65536 << false;
}

void TestIndexHostile::tooManyRecordsFailTheLoad()
{
    QFETCH(int, songs);
    QFETCH(bool, loads);
    const ForeignMemory memory;
    QByteArray paths;
    for (int id = 0; id < songs; ++id)
        paths += pathRecord(static_cast<quint32>(id), "/a.mid");
    memory.add(QStringLiteral("index.idx"), paths);
    QCOMPARE(loadOf(memory) == 0, loads);
}

void TestIndexHostile::hugeFilesAreNotTakenIntoMemory()
{
    // Sparse files: a terabyte of zeros that takes no room on the disk.
    for (const char *name : {"index.idx", "title.idx", "artist.idx", "genre.idx"}) {
        const ForeignMemory memory;
        memory.addIndex({0, 1, 2});
        if (!QFile::resize(memory.path(QString::fromUtf8(name)), qint64(1) << 40))
            QSKIP("needs a file system with sparse files");
        QVERIFY(loadOf(memory) < 0);
    }
}

void TestIndexHostile::pipesAndDevicesFailTheLoad()
{
    const ForeignMemory memory;
    memory.addIndex({0, 1, 2});
    const QString name = memory.path(QStringLiteral("artist.idx"));
    QVERIFY(QFile::remove(name));
    QCOMPARE(QProcess::execute(QStringLiteral("mkfifo"), {name}), 0);
    QVERIFY(loadOf(memory) < 0); // and does not wait for a writer
    QVERIFY(QFile::remove(name));
    QVERIFY(QFile::link(QStringLiteral("/dev/zero"), name));
    QVERIFY(loadOf(memory) < 0);
}

void TestIndexHostile::groupCountsAreNotBelieved()
{
    const ForeignMemory memory;
    memory.addIndex({0, 1, 2});
    memory.add(QStringLiteral("artist.idx"),
               groupHeader("\xFF\xFF\xFF\xFF", "A") + songRecord(1, "X") +
                   groupHeader(QByteArray(4, '\0'), QByteArray(26, '\xFF')) +
                   groupHeader(QByteArray(4, '\0'), "  b  ") + songRecord(0, "X") +
                   songRecord(2, "X"));
    Index index;
    index.rootPath = memory.root();
    QCOMPARE(index.loadAllIndexFile(), 0);
    QCOMPARE(index.entries.at(0).artist, QStringLiteral("B"));
    QCOMPARE(index.entries.at(1).artist, QStringLiteral("A"));
    QCOMPARE(index.entries.at(2).artist, QStringLiteral("B"));
}

void TestIndexHostile::songsBeforeAnyHeaderHaveNoArtist()
{
    const ForeignMemory memory;
    memory.addIndex({0, 1, 2});
    memory.add(QStringLiteral("artist.idx"), songRecord(1, "X"));
    Index index;
    index.rootPath = memory.root();
    QCOMPARE(index.loadAllIndexFile(), 0);
    QCOMPARE(index.entries.at(1).artist, QString());
}

void TestIndexHostile::damagedIndexIsLeftAlone()
{
    const ForeignMemory memory;
    memory.addIndex({0, 1, 2});
    memory.add(QStringLiteral("genre.idx"), QByteArray(33, 'x'));
    const auto before = memory.snapshot();
    QVERIFY(!Index().updateIndex(memory.root()));
    QCOMPARE(memory.snapshot(), before);
    QVERIFY(Index().createIndex(memory.root()));
    QCOMPARE(memory.faults(), QString());
}

void TestIndexHostile::digitsThatAreNoneReadTheSongAgain()
{
    const ForeignMemory memory;
    memory.addIndex({0, 1, 2});
    memory.add(QStringLiteral("index.idx"), pathRecord(0, "/a.mid", "2013O527093005") +
                                                pathRecord(1, "/b.mid") + pathRecord(2, "/c.mid"));
    QVERIFY(Index().updateIndex(memory.root()));
    QCOMPARE(memory.faults(), QString());
    QCOMPARE(memory.read(QStringLiteral("title.idx")),
             songRecord(1, "OLD") + songRecord(2, "OLD") +
                 songRecord(0, "SONG").replace(30, 1, QByteArray(1, '\0')));
}

void TestIndexHostile::pathsOutsideTheMemoryAreDropped_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::newRow("up and away") << QByteArray("/../out.mid");
    QTest::newRow("hidden in the middle") << QByteArray("/x/../../out.mid");
    QTest::newRow("no slash at the start") << QByteArray("out.mid");
    QTest::newRow("sibling by prefix") << QByteArray("X/out.mid");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("only dots") << QByteArray("/..");
    QTest::newRow("the root itself") << QByteArray("/");
    QTest::newRow("no terminator") << "/" + QByteArray(45, 'y');
}

void TestIndexHostile::pathsOutsideTheMemoryAreDropped()
{
    QFETCH(QByteArray, path);
    const QTemporaryDir outside;
    const QString root = outside.filePath(QStringLiteral("card"));
    const QByteArray secret = midiFile({track(metaEvent(3, "Secret") + notes())});
    const auto put = [&](const QString &name, const QByteArray &bytes) {
        const QString full = outside.filePath(name);
        QDir().mkpath(QFileInfo(full).path());
        QFile file(full);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        file.close();
    };
    put(QStringLiteral("out.mid"), secret);
    put(QStringLiteral("cardout.mid"), secret);
    put(QStringLiteral("cardX/out.mid"), secret);
    put(QStringLiteral("card/x/") + QString(45 - 3, QLatin1Char('y')), secret);
    put(QStringLiteral("card/") + QString(45, QLatin1Char('y')), secret);
    put(QStringLiteral("card/a.mid"), plainSong);
    QVERIFY(Index().createIndex(root));
    // The stamp differs from the file's, so that a file which is found would be read.
    const QByteArray titles = songRecord(0, "OLD") + songRecord(1, "OLD");
    put(QStringLiteral("card/index.idx"), pathRecord(0, path) + pathRecord(1, "/a.mid"));
    put(QStringLiteral("card/title.idx"), titles);
    put(QStringLiteral("card/artist.idx"), groupHeader(QByteArray(4, '\0'), "A") + titles);
    put(QStringLiteral("card/genre.idx"), groupHeader(QByteArray(4, '\0'), "A") + titles);

    QVERIFY(Index().updateIndex(root));
    QCOMPARE(DeviceMemory::faultsAt(root), QString());
    QFile titleFile(root + QStringLiteral("/title.idx"));
    QVERIFY(titleFile.open(QIODevice::ReadOnly));
    QVERIFY(!titleFile.readAll().contains("SECRET"));
    QCOMPARE(QFileInfo(root + QStringLiteral("/index.idx")).size(), 64);
}

void TestIndexHostile::randomIndexesAreHarmless()
{
    QRandomGenerator random(42);
    const ForeignMemory memory;
    int loaded = 0;
    for (int round = 0; round < 300; ++round) {
        memory.addIndex({1, 2, 3});
        for (const char *name : {"index.idx", "title.idx", "artist.idx", "genre.idx"}) {
            QByteArray bytes = memory.read(QString::fromUtf8(name));
            for (int change = random.bounded(4); change > 0; --change)
                bytes[random.bounded(int(bytes.size()))] = static_cast<char>(random.bounded(256));
            if (random.bounded(8) == 0)
                bytes.resize(random.bounded(int(bytes.size())));
            memory.add(QString::fromUtf8(name), bytes);
        }
        const auto before = memory.snapshot();
        Index index;
        if (!index.updateIndex(memory.root())) {
            QCOMPARE(memory.snapshot(), before);
            continue;
        }
        ++loaded;
        QVERIFY(index.entries.size() <= 6);
    }
    QVERIFY(loaded > 10 && loaded < 300);
    QVERIFY(Index().createIndex(memory.root()));
    QCOMPARE(memory.faults(), QString());
}

QTEST_GUILESS_MAIN(TestIndexHostile)

#include "test_index_hostile.moc"
