// The index files that the writers make, byte by byte.
#include "devindex/entrysort.h"
#include "devindex/index.h"
#include "devindex/pathorder.h"
#include "support/devicememory.h"
#include "support/faults.h"
#include "support/songbytes.h"

#include <QRandomGenerator>
#include <QTest>

using namespace songbytes;

namespace
{

QByteArray zeros(qsizetype count)
{
    return QByteArray(count, '\0');
}

/** A text field as it stands in a file: cut or filled with zeros. */
QByteArray field(const QByteArray &text, int size)
{
    return text.left(size).leftJustified(size, '\0');
}

QByteArray songRecord(quint32 id, const QByteArray &title, int bpm, int type)
{
    return bigEndian(id, 4) + field(title, 26) + static_cast<char>(bpm) + static_cast<char>(type);
}

QByteArray groupHeader(int previous, int count, const QByteArray &text)
{
    return bigEndian(static_cast<quint32>(previous), 2) +
           bigEndian(static_cast<quint32>(count), 2) + field(text, 26) + QByteArray("\x00\xFF", 2);
}

/** A table of first letters with these slots filled. */
QByteArray alphaTable(const QMap<char, quint32> &slots_)
{
    QByteArray table(256, '\xFF');
    for (auto slot = slots_.cbegin(); slot != slots_.cend(); ++slot)
        table.replace(4 * (slot.key() - 0x20), 4, bigEndian(slot.value(), 4));
    return table;
}

SongInfoIndex song(quint32 id, const char *title, const char *artist, const char *genre,
                   int fileType = 0)
{
    SongInfoIndex entry;
    entry.id = id;
    entry.posidx = static_cast<quint16>(id);
    entry.title = QString::fromUtf8(title);
    entry.artist = QString::fromUtf8(artist);
    entry.genre = QString::fromUtf8(genre);
    entry.fileType = static_cast<quint8>(fileType);
    entry.path = QStringLiteral("/%1.mid").arg(id);
    return entry;
}

QList<quint32> idsOf(const Index &index)
{
    QList<quint32> ids;
    for (const SongInfoIndex &entry : index.entries)
        ids.append(entry.id);
    return ids;
}

} // namespace

class TestIndexFiles : public QObject
{
    Q_OBJECT

private slots:
    void pathFileListsRecordsByNumber();
    void orderFileListsRecordNumbersByPath();
    void orderFileHoldsMoreThanOneBlock_data();
    void orderFileHoldsMoreThanOneBlock();
    void titleFileIsSortedIgnoringCase();
    void artistFileHasGroups();
    void genreFileHasGroups();
    void groupsIgnoreCase();
    void groupsTakeTheirCountsFromAllTheirSongs();
    void equalKeysKeepTheirOrder();
    void filesOfAnEmptyIndex();
    void alphaBufferIsClearedByEveryFile();
    void countFileIsLittleEndian();
    void mp3SubsetDropsEverythingElse();
    void comparators();
    void sortingFollowsTheComparators();
    void anExistingFileIsReplaced();
    void writersFailWhenAFolderIsInThePlace();
    void writersFailWithoutAMemory();
    void writersFailOnAFullDevice();
    void countsAppearWholeOrNotAtAll();
};

void TestIndexFiles::pathFileListsRecordsByNumber()
{
    const DeviceMemory memory;
    Index index;
    index.rootPath = memory.root();
    SongInfoIndex late = song(0x01020304, "T", "A", "G");
    late.posidx = 1;
    late.path = QStringLiteral("/città/é.mid");
    late.date = 20130527;
    late.time = 93005;
    SongInfoIndex early = song(9, "T", "A", "G");
    early.posidx = 0;
    early.path = QStringLiteral("/12345678/12345678/12345678/12345678/1/xx.mid");
    early.date = 19800101;
    index.entries = {late, early};
    QCOMPARE(index.writePathIndex(), 0);
    QCOMPARE(memory.read(QStringLiteral("index.idx")),
             QByteArray("\0\0\0\x09", 4) +
                 field("/12345678/12345678/12345678/12345678/1/xx.mid", 46) + "19800101000000" +
                 QByteArray("\x01\x02\x03\x04") + field("/citt\x85/\x82.mid", 46) +
                 "20130527093005");
    QCOMPARE(idsOf(index), (QList<quint32>{9, 0x01020304}));
}

void TestIndexFiles::orderFileListsRecordNumbersByPath()
{
    const DeviceMemory memory;
    Index index;
    index.rootPath = memory.root();
    const QList<QPair<const char *, int>> paths{
        {"/é.mid", 0x0102}, {"/b.mid", 3}, {"/A.mid", 0xFFFE}, {"/a_.mid", 4}, {"/aB.mid", 5}};
    for (const auto &[path, posidx] : paths) {
        SongInfoIndex entry;
        entry.path = QString::fromUtf8(path);
        entry.posidx = static_cast<quint16>(posidx);
        index.entries.append(entry);
    }
    QCOMPARE(index.writeOrdIndex(), 0);
    QCOMPARE(memory.read(QStringLiteral("ordfile.idx")),
             QByteArray("\xFE\xFF\x05\x00\x04\x00\x03\x00\x02\x01", 10));
}

void TestIndexFiles::orderFileHoldsMoreThanOneBlock_data()
{
    QTest::addColumn<int>("songs");
    for (const int songs : {1, 511, 512, 513, 1024, 1500})
        QTest::addRow("%d songs", songs) << songs;
}

void TestIndexFiles::orderFileHoldsMoreThanOneBlock()
{
    QFETCH(int, songs);
    const DeviceMemory memory;
    Index index;
    index.rootPath = memory.root();
    QByteArray expected;
    for (int i = 0; i < songs; ++i) {
        SongInfoIndex entry;
        entry.path = QStringLiteral("/%1").arg(i, 5, 10, QLatin1Char('0'));
        entry.posidx = static_cast<quint16>(40000 + i);
        index.entries.prepend(entry);
        expected += littleEndian(static_cast<quint32>(40000 + i), 2);
    }
    QCOMPARE(index.writeOrdIndex(), 0);
    QCOMPARE(memory.read(QStringLiteral("ordfile.idx")), expected);
}

void TestIndexFiles::titleFileIsSortedIgnoringCase()
{
    const DeviceMemory memory;
    Index index;
    index.rootPath = memory.root();
    index.entries = {song(1, "b", "", ""), song(2, "ÀNIMA", "", ""),
                     song(3, "A", "", ""), song(4, "9 TO 5", "", ""),
                     song(5, "", "", ""),  song(6, "ABCDEFGHIJKLMNOPQRSTUVWXYZ123", "", ""),
                     song(7, "_", "", "")};
    index.entries[0].bpm = 255;
    index.entries[0].fileType = 4;
    index.entries[0].hasMarkers = 1;
    QCOMPARE(index.writeTitleIndex(QStringLiteral("title.idx")), 7);
    QCOMPARE(memory.read(QStringLiteral("title.idx")),
             songRecord(5, "", 0, 0) + songRecord(4, "9 TO 5", 0, 0) + songRecord(7, "_", 0, 0) +
                 songRecord(3, "A", 0, 0) + songRecord(6, "ABCDEFGHIJKLMNOPQRSTUVWXYZ", 0, 0) +
                 songRecord(1, "b", 255, 0x0C) + songRecord(2, "\xC0NIMA", 0, 0));
    QCOMPARE(index.writeAlphaBuffer(QStringLiteral("atitle.idx")), 0);
    QCOMPARE(memory.read(QStringLiteral("atitle.idx")),
             alphaTable({{'9', 32}, {'_', 64}, {'A', 96}, {'B', 160}}));
}

void TestIndexFiles::artistFileHasGroups()
{
    const DeviceMemory memory;
    Index index;
    index.rootPath = memory.root();
    index.entries = {
        song(10, "ZINGARA", "MORANDI", "X"),       song(11, "BANDIERA GIALLA", "PETTENATI", "X"),
        song(12, "AZZURRO", "CELENTANO", "X"),     song(13, "IN GINOCCHIO", "MORANDI", "X"),
        song(14, "SVALUTATION", "CELENTANO", "X"), song(15, "PREGHERÒ", "CELENTANO", "X")};
    QCOMPARE(index.writeArtistIndex(QStringLiteral("artist.idx")), 3);
    QCOMPARE(memory.read(QStringLiteral("artist.idx")),
             groupHeader(0, 3, "CELENTANO") + songRecord(12, "AZZURRO", 0, 0) +
                 songRecord(15, "PREGHER\xD2", 0, 0) + songRecord(14, "SVALUTATION", 0, 0) +
                 groupHeader(3, 2, "MORANDI") + songRecord(13, "IN GINOCCHIO", 0, 0) +
                 songRecord(10, "ZINGARA", 0, 0) + groupHeader(2, 1, "PETTENATI") +
                 songRecord(11, "BANDIERA GIALLA", 0, 0));
    QCOMPARE(index.writeAlphaBuffer(QStringLiteral("aartist.idx")), 0);
    QCOMPARE(memory.read(QStringLiteral("aartist.idx")),
             alphaTable({{'C', 0}, {'M', 128}, {'P', 224}}));
}

void TestIndexFiles::genreFileHasGroups()
{
    const DeviceMemory memory;
    Index index;
    index.rootPath = memory.root();
    index.entries = {song(1, "B", "Z", "WALTZ"), song(2, "A", "Y", "WALTZ"),
                     song(3, "C", "X", "A GENRE WHOSE NAME IS TOO LONG")};
    QCOMPARE(index.writeGenreIndex(QStringLiteral("genre3.idx")), 2);
    QCOMPARE(memory.read(QStringLiteral("genre3.idx")),
             groupHeader(0, 1, "A GENRE WHOSE NAME IS TOO L") + songRecord(3, "C", 0, 0) +
                 groupHeader(1, 2, "WALTZ") + songRecord(2, "A", 0, 0) + songRecord(1, "B", 0, 0));
}

void TestIndexFiles::groupsIgnoreCase()
{
    const DeviceMemory memory;
    Index index;
    index.rootPath = memory.root();
    index.entries = {song(1, "B", "<UNKNOWN>", ""), song(2, "A", "<unknown>", "")};
    QCOMPARE(index.writeArtistIndex(QStringLiteral("artist.idx")), 1);
    QCOMPARE(memory.read(QStringLiteral("artist.idx")),
             groupHeader(0, 2, "<unknown>") + songRecord(2, "A", 0, 0) + songRecord(1, "B", 0, 0));
}

void TestIndexFiles::groupsTakeTheirCountsFromAllTheirSongs()
{
    const DeviceMemory memory;
    Index index;
    index.rootPath = memory.root();
    for (quint32 id = 0; id < 700; ++id)
        index.entries.append(song(id, "T", id < 300 ? "B" : "A", ""));
    QCOMPARE(index.writeArtistIndex(QStringLiteral("artist.idx")), 2);
    const QByteArray bytes = memory.read(QStringLiteral("artist.idx"));
    QCOMPARE(bytes.size(), 702 * 32);
    QCOMPARE(bytes.left(32), groupHeader(0, 400, "A"));
    QCOMPARE(bytes.mid(401 * 32, 32), groupHeader(400, 300, "B"));
}

void TestIndexFiles::equalKeysKeepTheirOrder()
{
    const DeviceMemory memory;
    Index index;
    index.rootPath = memory.root();
    QList<quint32> ids;
    for (quint32 id = 0; id < 100; ++id) {
        index.entries.append(song(id * 7 % 100, "SAME", "SAME", "SAME"));
        index.entries.last().path = QStringLiteral("/same.mid");
        ids.append(id * 7 % 100);
    }
    QCOMPARE(index.writeTitleIndex(QStringLiteral("title.idx")), 100);
    QCOMPARE(idsOf(index), ids);
    QCOMPARE(index.writeArtistIndex(QStringLiteral("artist.idx")), 1);
    QCOMPARE(index.writeGenreIndex(QStringLiteral("genre.idx")), 1);
    QCOMPARE(index.writeOrdIndex(), 0);
    QCOMPARE(idsOf(index), ids);
}

void TestIndexFiles::filesOfAnEmptyIndex()
{
    const DeviceMemory memory;
    Index index;
    index.rootPath = memory.root();
    QCOMPARE(index.writePathIndex(), 0);
    QCOMPARE(index.writeOrdIndex(), 0);
    QCOMPARE(index.writeTitleIndex(QStringLiteral("title3.idx")), 0);
    QCOMPARE(index.writeArtistIndex(QStringLiteral("artist3.idx")), 0);
    QCOMPARE(index.writeGenreIndex(QStringLiteral("genre3.idx")), 0);
    QCOMPARE(index.writeAlphaBuffer(QStringLiteral("agenre3.idx")), 0);
    for (const char *name :
         {"index.idx", "ordfile.idx", "title3.idx", "artist3.idx", "genre3.idx"}) {
        QVERIFY(QFileInfo(memory.path(QString::fromUtf8(name))).isFile());
        QCOMPARE(memory.read(QString::fromUtf8(name)), QByteArray());
    }
    QCOMPARE(memory.read(QStringLiteral("agenre3.idx")), QByteArray(256, '\xFF'));
}

void TestIndexFiles::alphaBufferIsClearedByEveryFile()
{
    const DeviceMemory memory;
    Index index;
    index.rootPath = memory.root();
    index.entries = {song(1, "TITLE", "ARTIST", "GENRE")};
    index.addToAlphaBuffer(QStringLiteral("X"), 5);
    QCOMPARE(index.writeTitleIndex(QStringLiteral("title.idx")), 1);
    QCOMPARE(index.writeAlphaBuffer(QStringLiteral("atitle.idx")), 0);
    QCOMPARE(memory.read(QStringLiteral("atitle.idx")), alphaTable({{'T', 0}}));
    QCOMPARE(index.writeGenreIndex(QStringLiteral("genre.idx")), 1);
    QCOMPARE(index.writeAlphaBuffer(QStringLiteral("agenre.idx")), 0);
    QCOMPARE(memory.read(QStringLiteral("agenre.idx")), alphaTable({{'G', 0}}));
    index.clearAlphaBuffer();
    QCOMPARE(index.writeAlphaBuffer(QStringLiteral("agenre.idx")), 0);
    QCOMPARE(memory.read(QStringLiteral("agenre.idx")), alphaTable({}));
}

void TestIndexFiles::countFileIsLittleEndian()
{
    const DeviceMemory memory;
    Index index;
    index.rootPath = memory.root();
    index.counts.values = {65535, 0x0102, 3, 65537, 0, 6};
    QCOMPARE(index.writeNumFile(), 0);
    QCOMPARE(memory.read(QStringLiteral("fsinfos.idx")),
             QByteArray("\xFF\xFF\x02\x01\x03\x00\x01\x00\x00\x00\x06\x00", 12));
}

void TestIndexFiles::mp3SubsetDropsEverythingElse()
{
    Index index;
    for (quint32 id = 0; id < 6; ++id)
        index.entries.append(song(id, "T", "A", "G", int(id) % 5));
    index.entries.append(song(7, "T", "A", "G", 1));
    index.createMp3TitleIndex();
    QCOMPARE(idsOf(index), (QList<quint32>{1, 7}));
}

void TestIndexFiles::comparators()
{
    SongInfoIndex low = song(1, "a", "B", "c");
    SongInfoIndex high = song(0x80000000, "B", "b", "C");
    low.posidx = 1;
    high.posidx = 0x8000;
    for (const auto compare :
         {compareByPosidx, compareById, compareTitle, compareArtist, compareGenre}) {
        QVERIFY(compare(low, high));
        QVERIFY(!compare(high, low));
        QVERIFY(!compare(low, low));
    }
    low.path = QStringLiteral("/A-1/x.mid");
    high.path = QStringLiteral("/a/x.mid");
    QVERIFY(compareByPath(low, high));
    high.path = QStringLiteral("/a-1/X.MID");
    QVERIFY(!compareByPath(low, high) && !compareByPath(high, low));
    // Sorted by its byte 0x8E in IBM 850, behind every letter without accent.
    low.path = QStringLiteral("/z.mid");
    high.path = QStringLiteral("/ä.mid");
    QVERIFY(compareByPath(low, high));
    low.artist = QStringLiteral("a");
    low.title = QStringLiteral("z");
    QVERIFY(compareArtist(low, high));
}

void TestIndexFiles::sortingFollowsTheComparators()
{
    QRandomGenerator random(850);
    // Letters with several forms, some of them outside the first 65,536 characters.
    const QStringList letters =
        QStringLiteral("a A b _ 0 é É ß ı i µ μ Ÿ \U00010400 \U00010428 \U0001F3B5 \uE000")
            .split(QLatin1Char(' '));
    const auto text = [&](int most) {
        QString letters_;
        for (int size = random.bounded(most); size > 0; --size)
            letters_ += letters.at(random.bounded(int(letters.size())));
        return letters_;
    };
    for (int round = 0; round < 30; ++round) {
        QList<SongInfoIndex> entries;
        for (int i = 0; i < 300; ++i) {
            SongInfoIndex entry;
            entry.id = static_cast<quint32>(i);
            entry.posidx = static_cast<quint16>(random.bounded(200));
            entry.title = text(round % 2 == 0 ? 3 : 9);
            entry.artist = text(2);
            entry.genre = text(3);
            entry.path = QLatin1Char('/') + text(4);
            entries.append(entry);
        }
        const auto check = [&](auto sort, auto compare) {
            QList<SongInfoIndex> expected = entries;
            std::stable_sort(expected.begin(), expected.end(), compare);
            QList<SongInfoIndex> sorted = entries;
            sort(sorted);
            for (int i = 0; i < entries.size(); ++i)
                QCOMPARE(sorted.at(i).id, expected.at(i).id);
        };
        check(sortByPosidx, compareByPosidx);
        check(sortByTitle, compareTitle);
        check(sortByArtist, compareArtist);
        check(sortByGenre, compareGenre);
        check([](QList<SongInfoIndex> &list) { PathOrder(list).apply(); }, compareByPath);
    }
}

void TestIndexFiles::anExistingFileIsReplaced()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("fsinfos.idx"), QByteArray(500, 'x'));
    memory.add(QStringLiteral("title.idx"), QByteArray(500, 'x'));
    Index index;
    index.rootPath = memory.root();
    QCOMPARE(index.writeNumFile(), 0);
    QCOMPARE(index.writeTitleIndex(QStringLiteral("title.idx")), 0);
    QCOMPARE(memory.read(QStringLiteral("fsinfos.idx")), zeros(12));
    QCOMPARE(memory.read(QStringLiteral("title.idx")), QByteArray());
}

void TestIndexFiles::writersFailWhenAFolderIsInThePlace()
{
    const DeviceMemory memory;
    for (const char *name : {"index.idx", "ordfile.idx", "fsinfos.idx", "x.idx"})
        memory.makeFolder(QString::fromUtf8(name));
    Index index;
    index.rootPath = memory.root();
    index.entries = {song(1, "T", "A", "G")};
    const QString name = QStringLiteral("x.idx");
    QCOMPARE(index.writePathIndex(), -1);
    QCOMPARE(index.writeOrdIndex(), -1);
    QCOMPARE(index.writeNumFile(), -1);
    QCOMPARE(index.writeTitleIndex(name), -1);
    QCOMPARE(index.writeArtistIndex(name), -1);
    QCOMPARE(index.writeGenreIndex(name), -1);
    QCOMPARE(index.writeAlphaBuffer(name), -1);
}

void TestIndexFiles::writersFailWithoutAMemory()
{
    Index index;
    index.rootPath = QStringLiteral("/nowhere/at/all");
    QCOMPARE(index.writePathIndex(), -1);
    QCOMPARE(index.writeNumFile(), -1);
    QCOMPARE(index.writeTitleIndex(QStringLiteral("title.idx")), -1);
}

void TestIndexFiles::writersFailOnAFullDevice()
{
    if (!QFileInfo::exists(QStringLiteral("/dev/full")))
        QSKIP("needs /dev/full");
    const DeviceMemory memory;
    const auto fill = [&memory](const char *name) {
        QVERIFY(QFile::link(QStringLiteral("/dev/full"), memory.path(QString::fromUtf8(name))));
    };
    for (const char *name : {"index.idx", "ordfile.idx", "x.idx"})
        fill(name);
    for (const int songs : {1, 5000}) { // less and more than any buffer
        fill("temp1.idx");              // the counts get their name when they are written
        Index index;
        index.rootPath = memory.root();
        for (int id = 0; id < songs; ++id)
            index.entries.append(song(static_cast<quint32>(id), "T", "A", "G"));
        const QString name = QStringLiteral("x.idx");
        QCOMPARE(index.writePathIndex(), -1);
        QCOMPARE(index.writeOrdIndex(), -1);
        QCOMPARE(index.writeNumFile(), -1);
        QVERIFY(!QFileInfo::exists(memory.path(QStringLiteral("fsinfos.idx"))));
        QCOMPARE(index.writeTitleIndex(name), -1);
        QCOMPARE(index.writeArtistIndex(name), -1);
        QCOMPARE(index.writeGenreIndex(name), -1);
        QCOMPARE(index.writeAlphaBuffer(name), -1);
    }
}

void TestIndexFiles::countsAppearWholeOrNotAtAll()
{
    const DeviceMemory memory;
    Index index;
    index.rootPath = memory.root();
    for (const quint64 size : {0, 11}) {
        const faults::FileSizeLimit limit(size);
        QCOMPARE(index.writeNumFile(), -1);
        QCOMPARE(QDir(memory.root()).entryList(QDir::Files), QStringList());
    }
    QCOMPARE(index.writeNumFile(), 0);
    QCOMPARE(QDir(memory.root()).entryList(QDir::Files),
             QStringList(QStringLiteral("fsinfos.idx")));
}

QTEST_GUILESS_MAIN(TestIndexFiles)
#include "test_index_files.moc"
