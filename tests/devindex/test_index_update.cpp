// Building and updating a memory's index, and what the signals tell meanwhile.
#include "devindex/index.h"
#include "support/devicememory.h"
#include "support/logcapture.h"
#include "support/songbytes.h"

#include <QSignalSpy>
#include <QTest>

#include <optional>

using namespace songbytes;

namespace
{

QByteArray midi(const QByteArray &title, const QByteArray &artist = {},
                const QByteArray &genre = {})
{
    QByteArray events = metaEvent(3, title) + metaEvent(0x51, bigEndian(500000, 3));
    if (!artist.isEmpty())
        events += kravoEvent(2, artist);
    if (!genre.isEmpty())
        events += kravoEvent(1, genre);
    return midiFile({track(events + notes())});
}

QByteArray mp3(const QByteArray &title, const QByteArray &artist, const QByteArray &genre)
{
    return id3Tag(id3Frame("TIT2", title) + id3Frame("TPE1", artist) + id3Frame("TCON", genre)) +
           QByteArray(500, '\xAA');
}

/** Songs of every kind, in folders, with accents; returns how many. */
int fill(const DeviceMemory &memory)
{
    memory.add(QStringLiteral("Azzurro.mid"), midi("Azzurro", "Celentano", "Pop"));
    memory.add(QStringLiteral("pop/Volare.kar"), midi("Volare", "Modugno", "Canzone"));
    memory.add(QStringLiteral("pop/Ciao.mp3"), mp3("Ciao", "Morandi", "Pop"));
    memory.add(QStringLiteral("pop/Notag.MP3"), QByteArray(200, '\xFB'));
    memory.add(QStringLiteral("città/Perché.mid"), midi("Perch\xE9", "\xC0lvaro", "Pop"));
    memory.add(QStringLiteral("città/ß_ÿ.mp3"), mp3("Stra\xDF"
                                                    "e",
                                                    "Mina", "\xC9tude"));
    memory.add(QStringLiteral("x/tiny.mid"), "tiny");
    QByteArray mfx = QByteArray("_MF4") + QByteArray(508, '\0');
    mfx.replace(138, 6, "Maruzz");
    mfx[201] = '\x01';
    memory.add(QStringLiteral("x/Maruz.mf4"), mfx);
    memory.add(QStringLiteral("x/notes.txt"), "no song");
    return 8;
}

/** The records of the path file: id and path. */
QStringList pathRecords(const DeviceMemory &memory)
{
    QStringList records;
    const QByteArray bytes = memory.read(QStringLiteral("index.idx"));
    for (qsizetype pos = 0; pos + 64 <= bytes.size(); pos += 64) {
        const int id = int(quint8(bytes.at(pos + 2))) * 256 + quint8(bytes.at(pos + 3));
        const QByteArray path = bytes.mid(pos + 4, 46);
        records.append(QStringLiteral("%1 %2").arg(id).arg(
            QString::fromLatin1(path.left(path.indexOf('\0')))));
    }
    return records;
}

QList<int> numbers(const QSignalSpy &spy)
{
    QList<int> all;
    for (const QList<QVariant> &arguments : spy)
        all.append(arguments.first().toInt());
    return all;
}

} // namespace

class TestIndexUpdate : public QObject
{
    Q_OBJECT

private slots:
    // The log of many builds would bury what a failing test says.
    void init() { m_log.emplace(); }
    void cleanup() { m_log.reset(); }

    void createdIndexIsWhatThePlayerReads();
    void createdFilesByHand();
    void createMakesThePlayersFolders();
    void memoryWithoutMp3StillGetsAllFiles();
    void memoryWithoutSongsGetsNoIndex();
    void updateWithoutSongsLeavesTheIndex();
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

private:
    std::optional<LogCapture> m_log;
};

void TestIndexUpdate::createdIndexIsWhatThePlayerReads()
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

void TestIndexUpdate::createdFilesByHand()
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

void TestIndexUpdate::createMakesThePlayersFolders()
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

void TestIndexUpdate::memoryWithoutMp3StillGetsAllFiles()
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

void TestIndexUpdate::memoryWithoutSongsGetsNoIndex()
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

void TestIndexUpdate::updateWithoutSongsLeavesTheIndex()
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

void TestIndexUpdate::rootMayEndInASlashOrBackslash_data()
{
    QTest::addColumn<QString>("tail");
    QTest::newRow("slash") << QStringLiteral("/");
    QTest::newRow("backslash") << QStringLiteral("\\");
    QTest::newRow("two slashes") << QStringLiteral("//");
}

void TestIndexUpdate::rootMayEndInASlashOrBackslash()
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

void TestIndexUpdate::emptyRootIsRefused_data()
{
    QTest::addColumn<QString>("root");
    QTest::newRow("empty") << QString();
    QTest::newRow("slash") << QStringLiteral("/");
    QTest::newRow("backslash") << QStringLiteral("\\");
    QTest::newRow("missing") << QStringLiteral("/nowhere/at/all");
}

void TestIndexUpdate::emptyRootIsRefused()
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

void TestIndexUpdate::refusedSongsAreReportedAndTheRestIndexed()
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

void TestIndexUpdate::sameObjectMayServeAgain()
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

void TestIndexUpdate::equalMemoriesGetEqualBytes()
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

void TestIndexUpdate::checkNeedsAllFifteenFiles()
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

void TestIndexUpdate::deleteRemovesIndexAndTemporaryFilesOnly()
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

void TestIndexUpdate::removedItemsCloseUpRecordNumbers()
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

void TestIndexUpdate::loadedEntriesHoldWhatWasWritten()
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

void TestIndexUpdate::signalsOfABuildInTheirOrder()
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

void TestIndexUpdate::signalsOfAnUpdateWithoutChange()
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

void TestIndexUpdate::countFileIsMissingWhileTheOthersAreWritten()
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

QTEST_GUILESS_MAIN(TestIndexUpdate)
#include "test_index_update.moc"
