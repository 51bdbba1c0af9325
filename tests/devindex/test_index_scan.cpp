// The scan of a memory: which files are songs, and their entries.
#include "devindex/index.h"
#include "support/devicememory.h"
#include "support/scannedmemory.h"
#include "support/songbytes.h"

#include <QSignalSpy>
#include <QTest>

using namespace songbytes;
using namespace scannedmemory;

namespace
{

QStringList texts(const QSignalSpy &spy)
{
    QStringList all;
    for (const QList<QVariant> &arguments : spy)
        all.append(arguments.first().toString());
    return all;
}

} // namespace

class TestIndexScan : public QObject
{
    Q_OBJECT

private slots:
    void startsWithTheDocumentedState();
    void songSuffixesInAnyCase_data();
    void songSuffixesInAnyCase();
    void foldersAreWalkedAndFilesCounted();
    void playerFoldersAreNotEntered();
    void hiddenEntriesAreSkipped();
    void aFolderNamedLikeASongIsAFolder();
    void signalsTellEveryFileAndEverySong();

    void entryHoldsPathsIdsAndTimes();
    void sameFileTwiceLeavesOneEntry();
    void sameFileTwiceAmongEqualKeys();
    void namesThatDifferInCaseAreTheSameSong();
    void entriesStayInPathOrder();
    void pathOf45CharactersIsAccepted46Refused();
    void pathOutsideTheMemoryIsRefused();
    void song65536IsRefused();
    void theMarkOfRemovedEntriesIsNoId();
    void pathFormsAreUnchanged();
};

void TestIndexScan::startsWithTheDocumentedState()
{
    const Index index;
    QVERIFY(index.rootPath.isEmpty());
    QVERIFY(index.entries.isEmpty());
    QVERIFY(index.playlistNumbers.isEmpty());
    QCOMPARE(index.maxLoadedId, 0xFFFFFFFFu);
    QCOMPARE(int(index.restorePlaylists), 0);
    QCOMPARE(int(index.indexChanged), 0);
    QCOMPARE(int(index.askBeforeRename), 1);
    QCOMPARE(int(index.renameAccepted), 1);
    QCOMPARE(index.filesFound, 0u);
    QCOMPARE(index.counts.values, (std::array<quint32, 6>{}));
    const SongInfoIndex entry;
    QVERIFY(entry.title.isEmpty() && entry.artist.isEmpty() && entry.genre.isEmpty());
    QVERIFY(entry.fullPath.isEmpty() && entry.path.isEmpty());
    QCOMPARE(entry.id + entry.date + entry.time + entry.posidx, 0u);
    QCOMPARE(int(entry.fileType) + entry.bpm + entry.reserved + entry.hasMarkers, 0);
}

void TestIndexScan::songSuffixesInAnyCase_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<bool>("song");
    for (const char *suffix : {"mid", "MID", "Kar", "mf3", "MF4", "mF5", "mp3", "MP3"})
        QTest::newRow(suffix) << QString::fromUtf8(suffix) << true;
    for (const char *suffix : {"midi", "mf2", "mf6", "mp4", "cdg", "idx", "", " mid"})
        QTest::addRow("no song: '%s'", suffix) << QString::fromUtf8(suffix) << false;
}

void TestIndexScan::songSuffixesInAnyCase()
{
    QFETCH(QString, suffix);
    QTEST(Index().checkFileExt(suffix), "song");
}

void TestIndexScan::foldersAreWalkedAndFilesCounted()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("b.mid"), plainSong);
    memory.add(QStringLiteral("pop/a.MP3"), plainSong);
    memory.add(QStringLiteral("pop/old/c.kar"), plainSong);
    memory.add(QStringLiteral("pop/read.txt"), plainSong);
    memory.add(QStringLiteral("playlist/playlist.dat"), {});
    AskedIndex index(memory);
    index.scan_files(memory.root());
    QCOMPARE(pathsOf(index), (QStringList{QStringLiteral("/b.mid"), QStringLiteral("/pop/a.MP3"),
                                          QStringLiteral("/pop/old/c.kar")}));
    QCOMPARE(index.filesFound, 3u);
    QCOMPARE(int(index.indexChanged), 1);
    index.scan_files(memory.root());
    QCOMPARE(index.entries.size(), 3);
    QCOMPARE(index.filesFound, 6u); // songs that are known count as found
}

void TestIndexScan::playerFoldersAreNotEntered()
{
    const DeviceMemory memory;
    for (const char *folder : {"BRIDGE", "Sfx", "sfx", "pop/bridge"})
        memory.add(QString::fromUtf8(folder) + QStringLiteral("/x.mid"), plainSong);
    memory.add(QStringLiteral("bridge.mid"), plainSong);
    memory.add(QStringLiteral("sfx2/y.mid"), plainSong);
    AskedIndex index(memory);
    index.scan_files(memory.root());
    QCOMPARE(pathsOf(index),
             (QStringList{QStringLiteral("/bridge.mid"), QStringLiteral("/sfx2/y.mid")}));
}

void TestIndexScan::hiddenEntriesAreSkipped()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral(".hidden.mid"), plainSong);
    memory.add(QStringLiteral(".Trashes/x.mid"), plainSong);
    memory.add(QStringLiteral(".a.mid.kavena-journal"), plainSong);
    memory.add(QStringLiteral("a.tmp"), plainSong);
    memory.add(QStringLiteral("a.mid"), plainSong);
    AskedIndex index(memory);
    index.scan_files(memory.root());
    QCOMPARE(pathsOf(index), QStringList{QStringLiteral("/a.mid")});
    QCOMPARE(index.questions, QStringList());
}

void TestIndexScan::aFolderNamedLikeASongIsAFolder()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("a.mid/b.mid"), plainSong);
    AskedIndex index(memory);
    index.scan_files(memory.root());
    QCOMPARE(pathsOf(index), QStringList{QStringLiteral("/a.mid/b.mid")});
}

void TestIndexScan::signalsTellEveryFileAndEverySong()
{
    const DeviceMemory memory;
    const QString first = memory.add(QStringLiteral("B.mid"), plainSong);
    const QString second = memory.add(QStringLiteral("a/x.mid"), plainSong);
    const QString text = memory.add(QStringLiteral("c.txt"), plainSong);
    AskedIndex index(memory);
    const QSignalSpy paths(&index, &Index::currentPathChanged);
    const QSignalSpy counts(&index, &Index::fileFoundChanged);
    index.scan_files(memory.root());
    QCOMPARE(texts(paths), (QStringList{second, first, text})); // by name, ignoring case
    QCOMPARE(texts(counts), (QStringList{QStringLiteral("1"), QStringLiteral("2")}));
}

void TestIndexScan::entryHoldsPathsIdsAndTimes()
{
    const DeviceMemory memory;
    const QString full = memory.add(QStringLiteral("pop/a.mid"), plainSong,
                                    QDateTime(QDate(1999, 1, 2), QTime(3, 4, 5)));
    AskedIndex index(memory);
    index.nextId = 77;
    index.nextPosidx = 9;
    QVERIFY(index.addFileToIndex(QFileInfo(full)));
    const SongInfoIndex entry = index.entries.constFirst();
    QCOMPARE(entry.fullPath, full);
    QCOMPARE(entry.path, QStringLiteral("/pop/a.mid"));
    QCOMPARE(entry.id, 77u);
    QCOMPARE(int(entry.posidx), 9);
    QCOMPARE(entry.date, 19990102u);
    QCOMPARE(entry.time, 30405u);
    QVERIFY(entry.title.isEmpty()); // read later
    QCOMPARE(index.nextId, 78u);
    QCOMPARE(int(index.nextPosidx), 10);
}

void TestIndexScan::sameFileTwiceLeavesOneEntry()
{
    const DeviceMemory memory;
    const QFileInfo a(memory.add(QStringLiteral("a.mid"), plainSong));
    const QFileInfo b(memory.add(QStringLiteral("b.mid"), plainSong));
    AskedIndex index(memory);
    for (const QFileInfo &file : {b, a, a, b, a})
        QVERIFY(index.addFileToIndex(file));
    QCOMPARE(pathsOf(index), (QStringList{QStringLiteral("/a.mid"), QStringLiteral("/b.mid")}));
    QCOMPARE(index.nextId, 2u);
    QCOMPARE(int(index.nextPosidx), 2);
}

void TestIndexScan::sameFileTwiceAmongEqualKeys()
{
    // None of the three letters has a code in IBM 850: all paths share one key.
    const DeviceMemory memory;
    QList<QFileInfo> files;
    for (const char *name : {"Ж.mid", "Я.mid", "Щ.mid"})
        files.append(QFileInfo(memory.add(QString::fromUtf8(name), plainSong)));
    AskedIndex index(memory);
    for (int round = 0; round < 2; ++round) {
        for (const QFileInfo &file : std::as_const(files))
            QVERIFY(index.addFileToIndex(file));
    }
    QCOMPARE(index.entries.size(), 3);
    QCOMPARE(index.nextId, 3u);
    index.scan_files(memory.root());
    QCOMPARE(index.entries.size(), 3);
}

void TestIndexScan::namesThatDifferInCaseAreTheSameSong()
{
    const DeviceMemory memory;
    const QFileInfo lower(memory.add(QStringLiteral("été.mid"), plainSong));
    const QFileInfo upper(memory.add(QStringLiteral("ÉTÉ.MID"), plainSong));
    AskedIndex index(memory);
    QVERIFY(index.addFileToIndex(lower));
    QVERIFY(index.addFileToIndex(upper));
    QCOMPARE(pathsOf(index), QStringList{QStringLiteral("/été.mid")});
}

void TestIndexScan::entriesStayInPathOrder()
{
    const DeviceMemory memory;
    // The player's order is that of the encoded bytes, not that of the folders' names.
    for (const char *name :
         {"a/x.mid", "a-1/x.mid", "a_b.mid", "aB.mid", "é.mid", "z.mid", "ß.mid"})
        memory.add(QString::fromUtf8(name), plainSong);
    QStringList expected;
    for (const char *name :
         {"/a-1/x.mid", "/a/x.mid", "/aB.mid", "/a_b.mid", "/z.mid", "/é.mid", "/ß.mid"})
        expected.append(QString::fromUtf8(name));
    AskedIndex scanned(memory);
    scanned.scan_files(memory.root());
    QCOMPARE(pathsOf(scanned), expected);
    AskedIndex added(memory);
    for (const char *name :
         {"z.mid", "é.mid", "aB.mid", "a/x.mid", "ß.mid", "a_b.mid", "a-1/x.mid"})
        QVERIFY(added.addFileToIndex(QFileInfo(memory.path(QString::fromUtf8(name)))));
    QCOMPARE(pathsOf(added), expected);
}

void TestIndexScan::pathOf45CharactersIsAccepted46Refused()
{
    const DeviceMemory memory;
    const QString folder = QStringLiteral("12345678/12345678/12345678/12345678/1");
    const QString fits = QStringLiteral("%1/xx.mid").arg(folder);
    const QString tooLong = QStringLiteral("%1/xxx.mid").arg(folder);
    memory.add(fits, plainSong);
    const QString refused = memory.add(tooLong, plainSong);
    QCOMPARE(fits.size() + 1, 45);
    AskedIndex index(memory);
    const QSignalSpy errors(&index, &Index::errorFromIndex);
    index.scan_files(memory.root());
    QCOMPARE(pathsOf(index), QStringList{QLatin1Char('/') + fits});
    QCOMPARE(texts(errors),
             QStringList{QStringLiteral("File non importato, path troppo lungo: ") + refused});
    QCOMPARE(index.nextId, 1u);
    QCOMPARE(index.filesFound, 2u);
    QVERIFY(!index.addFileToIndex(QFileInfo(refused)));
}

void TestIndexScan::pathOutsideTheMemoryIsRefused()
{
    const DeviceMemory memory;
    const DeviceMemory other;
    const QString file = other.add(QStringLiteral("a.mid"), plainSong);
    AskedIndex index(memory);
    index.rootPath = memory.root() + QStringLiteral("/a/very/deep/folder/that/is/no/parent/of/it");
    const QSignalSpy errors(&index, &Index::errorFromIndex);
    QVERIFY(!index.addFileToIndex(QFileInfo(file)));
    QCOMPARE(texts(errors),
             QStringList{QStringLiteral("File non importato, errore nel path:") + file});
}

void TestIndexScan::song65536IsRefused()
{
    const DeviceMemory memory;
    const QFileInfo first(memory.add(QStringLiteral("zy.mid"), plainSong));
    const QFileInfo second(memory.add(QStringLiteral("zz.mid"), plainSong));
    AskedIndex index(memory);
    const QSignalSpy errors(&index, &Index::errorFromIndex);
    for (int i = 0; i < 65534; ++i) {
        SongInfoIndex entry;
        entry.path = QStringLiteral("/%1.mid").arg(i, 5, 10, QLatin1Char('0'));
        index.entries.append(entry);
    }
    index.nextId = 65534;
    index.nextPosidx = 65534;
    QVERIFY(index.addFileToIndex(first));
    QCOMPARE(int(index.entries.constLast().posidx), 65534);
    QVERIFY(!index.addFileToIndex(second));
    QVERIFY(index.addFileToIndex(first)); // it is there already
    QCOMPARE(index.entries.size(), 65535);
    QCOMPARE(index.nextId, 65535u);
    QCOMPARE(texts(errors),
             QStringList{QStringLiteral("File non importato, troppi file nella memoria: ") +
                         second.filePath()});
}

void TestIndexScan::theMarkOfRemovedEntriesIsNoId()
{
    const DeviceMemory memory;
    const QFileInfo file(memory.add(QStringLiteral("a.mid"), plainSong));
    AskedIndex index(memory);
    index.nextId = 0xFFFFFFFF;
    const QSignalSpy errors(&index, &Index::errorFromIndex);
    QVERIFY(!index.addFileToIndex(file));
    QCOMPARE(errors.size(), 1);
    QVERIFY(index.entries.isEmpty());
}

void TestIndexScan::pathFormsAreUnchanged()
{
    const Index index;
    const QString path = QStringLiteral("/Volumes/CARD/Long Name Of A Song.mid");
    QCOMPARE(index.getLongFileNamePath(path), path);
    QCOMPARE(index.getShortFileNamePath(path), path);
}

QTEST_MAIN(TestIndexScan)

#include "test_index_scan.moc"
