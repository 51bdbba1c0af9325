// Indexes that a stranger wrote, and memories that fail while they are written.
#include "devindex/index.h"
#include "support/devicememory.h"
#include "support/faults.h"
#include "support/logcapture.h"
#include "support/songbytes.h"

#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>

#include <optional>

using namespace songbytes;

namespace
{

const QByteArray Song = midiFile({track(metaEvent(3, "Song") + kravoEvent(2, "Artist") + notes())});

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
            add(QString::fromUtf8(name), Song);
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

/** A disk of this size over a folder, where the machine lets us mount one. */
class SmallDisk
{
public:
    SmallDisk(const QString &folder, const QString &options)
        : m_folder(folder)
        , m_mounted(mount({QStringLiteral("-t"), QStringLiteral("tmpfs"), QStringLiteral("-o"),
                           options, QStringLiteral("none"), folder}))
    {
    }
    ~SmallDisk()
    {
        if (m_mounted)
            QProcess::execute(QStringLiteral("umount"), {m_folder});
    }
    Q_DISABLE_COPY_MOVE(SmallDisk)

    bool isMounted() const { return m_mounted; }
    bool remount(const QString &options) const
    {
        return mount({QStringLiteral("-o"), QStringLiteral("remount,") + options, m_folder});
    }

private:
    static bool mount(const QStringList &arguments)
    {
        return QProcess::execute(QStringLiteral("mount"), arguments) == 0;
    }

    QString m_folder;
    bool m_mounted;
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

class TestIndexHostile : public QObject
{
    Q_OBJECT

private slots:
    // The log of many builds would bury what a failing test says.
    void init() { m_log.emplace(); }
    void cleanup() { m_log.reset(); }

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

    void linksInPlaceOfIndexFilesAreNotWrittenThrough();
    void folderInTheFilesPlaceFailsTheBuild_data();
    void folderInTheFilesPlaceFailsTheBuild();
    void shortWriteAnywhereLeavesNoIndex();
    void fullDiskLeavesNoIndex();
    void protectedMemoryKeepsItsIndex();
    void memoryThatVanishesGivesFalse();

private:
    std::optional<LogCapture> m_log;
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
    memory.add(QStringLiteral("d.mid"), Song);
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
    memory.add(QStringLiteral("d.mid"), Song);
    memory.add(QStringLiteral("e.mid"), Song);
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
    put(QStringLiteral("card/a.mid"), Song);
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

void TestIndexHostile::linksInPlaceOfIndexFilesAreNotWrittenThrough()
{
    const DeviceMemory memory;
    const DeviceMemory computer;
    computer.isLeftBroken(); // it has no songs
    memory.add(QStringLiteral("a.mid"), Song);
    QVERIFY(Index().createIndex(memory.root()));
    for (const QString &name : DeviceMemory::indexFiles()) {
        computer.add(name, memory.read(name));
        memory.remove(name);
        QVERIFY(QFile::link(computer.path(name), memory.path(name)));
    }
    const auto before = computer.snapshot();
    memory.add(QStringLiteral("b.mp3"), Song);
    QVERIFY(Index().updateIndex(memory.root()));
    QCOMPARE(computer.snapshot(), before);
    QCOMPARE(memory.faults(), QString());
    for (const QString &name : DeviceMemory::indexFiles())
        QVERIFY2(!QFileInfo(memory.path(name)).isSymLink(), qPrintable(name));
}

void TestIndexHostile::folderInTheFilesPlaceFailsTheBuild_data()
{
    QTest::addColumn<QString>("name");
    for (const QString &name : DeviceMemory::indexFiles())
        QTest::newRow(qPrintable(name)) << name;
}

void TestIndexHostile::folderInTheFilesPlaceFailsTheBuild()
{
    QFETCH(QString, name);
    const DeviceMemory memory;
    memory.add(QStringLiteral("a.mid"), Song);
    memory.add(QStringLiteral("b.mp3"), Song);
    memory.makeFolder(name);
    Index index;
    const QSignalSpy values(&index, &Index::progressValueChanged);
    QVERIFY(!index.createIndex(memory.root()));
    QCOMPARE(memory.presentIndexFiles(), QStringList());
    QVERIFY(values.last().first().toInt() < 100);
    QVERIFY(!Index().updateIndex(memory.root()));
    QCOMPARE(memory.presentIndexFiles(), QStringList());
}

void TestIndexHostile::shortWriteAnywhereLeavesNoIndex()
{
    // Sizes of the files: 40 songs make 2560 bytes of paths, 80 of order, 1280 of titles, ...
    const DeviceMemory memory;
    for (int i = 0; i < 40; ++i) {
        const char *const suffix = i % 2 == 0 ? "mid" : "mp3";
        memory.add(QStringLiteral("%1.%2").arg(i).arg(QString::fromUtf8(suffix)), Song);
    }
    int failed = 0;
    int succeeded = 0;
    for (rlim_t limit = 0; limit <= 2700; limit += limit < 300 ? 7 : 61) {
        bool built = false;
        {
            const faults::FileSizeLimit full(limit);
            built = Index().createIndex(memory.root());
        }
        ++(built ? succeeded : failed);
        QCOMPARE(built, limit >= 2560);
        QCOMPARE(memory.presentIndexFiles(), built ? DeviceMemory::indexFiles() : QStringList());
    }
    QVERIFY(failed > 50 && succeeded > 0);
    QCOMPARE(memory.faults(), QString());
}

void TestIndexHostile::fullDiskLeavesNoIndex()
{
    const DeviceMemory memory;
    const SmallDisk disk(memory.root(), QStringLiteral("size=400k"));
    if (!disk.isMounted())
        QSKIP("needs the right to mount a small disk");
    for (int i = 0; i < 40; ++i)
        memory.add(QStringLiteral("%1.mp3").arg(i), Song);
    int failed = 0;
    int succeeded = 0;
    const QByteArray page(4096, 'x'); // what the disk is divided into
    for (int freePages = 0; freePages <= 20; ++freePages) {
        Index index;
        index.rootPath = memory.root();
        index.deleteIndex();
        QFile filler(memory.path(QStringLiteral("filler")));
        QVERIFY(filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        qint64 written = 0;
        while (filler.write(page) == page.size())
            ++written;
        QVERIFY(filler.resize((written - freePages) * page.size()));
        filler.close();
        const bool built = index.createIndex(memory.root());
        ++(built ? succeeded : failed);
        QCOMPARE(memory.presentIndexFiles(), built ? DeviceMemory::indexFiles() : QStringList());
        if (built)
            QCOMPARE(memory.faults(), QString());
        memory.remove(QStringLiteral("filler"));
    }
    QVERIFY(failed > 5 && succeeded > 0);
}

void TestIndexHostile::protectedMemoryKeepsItsIndex()
{
    const DeviceMemory memory;
    const SmallDisk disk(memory.root(), QStringLiteral("size=1m"));
    if (!disk.isMounted())
        QSKIP("needs the right to mount a small disk");
    memory.add(QStringLiteral("a.mid"), Song);
    memory.add(QStringLiteral("b.mp3"), Song);
    QVERIFY(Index().createIndex(memory.root()));
    memory.add(QStringLiteral("c.mid"), Song);
    const auto before = memory.snapshot();
    QVERIFY(disk.remount(QStringLiteral("ro")));
    QVERIFY(!Index().updateIndex(memory.root()));
    QVERIFY(!Index().createIndex(memory.root()));
    QCOMPARE(memory.snapshot(), before);
    QCOMPARE(memory.faults({QStringLiteral("--allow-missing")}), QString());
    QVERIFY(disk.remount(QStringLiteral("rw")));
    QVERIFY(Index().updateIndex(memory.root()));
    QCOMPARE(memory.faults(), QString());
}

void TestIndexHostile::memoryThatVanishesGivesFalse()
{
    const DeviceMemory memory;
    const QString root = memory.path(QStringLiteral("card"));
    for (const char *name : {"card/a.mid", "card/b.mp3", "card/x/c.mid"})
        memory.add(QString::fromUtf8(name), Song);
    QVERIFY(Index().createIndex(root));
    memory.add(QStringLiteral("card/d.mid"), Song);
    // It goes while songs are being read, or while the index is being written.
    for (const int moment : {2, 10, 20, 60}) {
        Index index;
        connect(&index, &Index::progressValueChanged, this, [&](int value) {
            if (value == moment)
                QDir(memory.root()).rename(QStringLiteral("card"), QStringLiteral("gone"));
        });
        QVERIFY(!index.updateIndex(root));
        QVERIFY(!QFileInfo::exists(root));
        QVERIFY(QDir(memory.root()).rename(QStringLiteral("gone"), QStringLiteral("card")));
        QVERIFY(Index().createIndex(root));
        QCOMPARE(DeviceMemory::faultsAt(root), QString());
        memory.add(QStringLiteral("card/m%1.mid").arg(moment), Song);
    }
}

QTEST_GUILESS_MAIN(TestIndexHostile)
#include "test_index_hostile.moc"
