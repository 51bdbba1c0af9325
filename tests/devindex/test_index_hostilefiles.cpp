// Hostile files and disks in the way of an index.
#include "devindex/index.h"
#include "support/devicememory.h"
#include "support/faults.h"
#include "support/foreignmemory.h"
#include "support/logcapture.h"
#include "support/songbytes.h"

#include <QSignalSpy>
#include <QTest>

using namespace songbytes;
using namespace foreignmemory;

namespace
{

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

} // namespace

class TestIndexHostileFiles : public HostileIndexFixture
{
    Q_OBJECT

private slots:
    void init() { HostileIndexFixture::init(); }
    void cleanup() { HostileIndexFixture::cleanup(); }

    void linksInPlaceOfIndexFilesAreNotWrittenThrough();
    void folderInTheFilesPlaceFailsTheBuild_data();
    void folderInTheFilesPlaceFailsTheBuild();
    void shortWriteAnywhereLeavesNoIndex();
    void fullDiskLeavesNoIndex();
    void protectedMemoryKeepsItsIndex();
    void memoryThatVanishesGivesFalse();
};

void TestIndexHostileFiles::linksInPlaceOfIndexFilesAreNotWrittenThrough()
{
    const DeviceMemory memory;
    const DeviceMemory computer;
    computer.isLeftBroken(); // it has no songs
    memory.add(QStringLiteral("a.mid"), plainSong);
    QVERIFY(Index().createIndex(memory.root()));
    for (const QString &name : DeviceMemory::indexFiles()) {
        computer.add(name, memory.read(name));
        memory.remove(name);
        QVERIFY(QFile::link(computer.path(name), memory.path(name)));
    }
    const auto before = computer.snapshot();
    memory.add(QStringLiteral("b.mp3"), plainSong);
    QVERIFY(Index().updateIndex(memory.root()));
    QCOMPARE(computer.snapshot(), before);
    QCOMPARE(memory.faults(), QString());
    for (const QString &name : DeviceMemory::indexFiles())
        QVERIFY2(!QFileInfo(memory.path(name)).isSymLink(), qPrintable(name));
}

void TestIndexHostileFiles::folderInTheFilesPlaceFailsTheBuild_data()
{
    QTest::addColumn<QString>("name");
    for (const QString &name : DeviceMemory::indexFiles())
        QTest::newRow(qPrintable(name)) << name;
}

void TestIndexHostileFiles::folderInTheFilesPlaceFailsTheBuild()
{
    QFETCH(QString, name);
    const DeviceMemory memory;
    memory.add(QStringLiteral("a.mid"), plainSong);
    memory.add(QStringLiteral("b.mp3"), plainSong);
    memory.makeFolder(name);
    Index index;
    const QSignalSpy values(&index, &Index::progressValueChanged);
    QVERIFY(!index.createIndex(memory.root()));
    QCOMPARE(memory.presentIndexFiles(), QStringList());
    QVERIFY(values.last().first().toInt() < 100);
    QVERIFY(!Index().updateIndex(memory.root()));
    QCOMPARE(memory.presentIndexFiles(), QStringList());
}

void TestIndexHostileFiles::shortWriteAnywhereLeavesNoIndex()
{
    // Sizes of the files: 40 songs make 2560 bytes of paths, 80 of order, 1280 of titles, ...
    const DeviceMemory memory;
    for (int i = 0; i < 40; ++i) {
        const char *const suffix = i % 2 == 0 ? "mid" : "mp3";
        memory.add(QStringLiteral("%1.%2").arg(i).arg(QString::fromUtf8(suffix)), plainSong);
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

void TestIndexHostileFiles::fullDiskLeavesNoIndex()
{
    const DeviceMemory memory;
    const SmallDisk disk(memory.root(), QStringLiteral("size=400k"));
    if (!disk.isMounted())
        QSKIP("needs the right to mount a small disk");
    for (int i = 0; i < 40; ++i)
        memory.add(QStringLiteral("%1.mp3").arg(i), plainSong);
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

void TestIndexHostileFiles::protectedMemoryKeepsItsIndex()
{
    const DeviceMemory memory;
    const SmallDisk disk(memory.root(), QStringLiteral("size=1m"));
    if (!disk.isMounted())
        QSKIP("needs the right to mount a small disk");
    memory.add(QStringLiteral("a.mid"), plainSong);
    memory.add(QStringLiteral("b.mp3"), plainSong);
    QVERIFY(Index().createIndex(memory.root()));
    memory.add(QStringLiteral("c.mid"), plainSong);
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

void TestIndexHostileFiles::memoryThatVanishesGivesFalse()
{
    const DeviceMemory memory;
    const QString root = memory.path(QStringLiteral("card"));
    for (const char *name : {"card/a.mid", "card/b.mp3", "card/x/c.mid"})
        memory.add(QString::fromUtf8(name), plainSong);
    QVERIFY(Index().createIndex(root));
    memory.add(QStringLiteral("card/d.mid"), plainSong);
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
        memory.add(QStringLiteral("card/m%1.mid").arg(moment), plainSong);
    }
}

QTEST_GUILESS_MAIN(TestIndexHostileFiles)

#include "test_index_hostilefiles.moc"
