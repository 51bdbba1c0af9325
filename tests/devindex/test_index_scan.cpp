// Walking a memory: which files are songs, how their names are shortened, how they enter the index.
#include "devindex/index.h"
#include "library/answer.h"
#include "support/devicememory.h"
#include "support/logcapture.h"
#include "support/modalanswers.h"
#include "support/songbytes.h"
#include "windows/confirmation.h"
#include "windows/nocopyrightdialog.h"

#include <QLabel>
#include <QSignalSpy>
#include <QTest>

using namespace songbytes;

namespace
{

const QByteArray Song = midiFile({track(notes())});

QStringList pathsOf(const Index &index)
{
    QStringList paths;
    for (const SongInfoIndex &entry : index.entries)
        paths.append(entry.path);
    return paths;
}

QStringList texts(const QSignalSpy &spy)
{
    QStringList all;
    for (const QList<QVariant> &arguments : spy)
        all.append(arguments.first().toString());
    return all;
}

/** An index of this memory that answers every question about a name with the given answers. */
class AskedIndex : public Index
{
public:
    explicit AskedIndex(const DeviceMemory &memory, const QList<Answer> &answers = {})
        : m_answers(answers)
    {
        rootPath = memory.root();
        setRenameQuestion([this](const QString &path, const QString &message) {
            questions.append(path + QLatin1Char('|') + message);
            return m_answers.isEmpty() ? Answer::Yes : m_answers.takeFirst();
        });
    }

    QStringList questions;

private:
    QList<Answer> m_answers;
};

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

    void baseNameOf8CharactersIsKept9Renamed();
    void generatedNamesHoldNoBlanksDotsApostrophesHyphens_data();
    void generatedNamesHoldNoBlanksDotsApostrophesHyphens();
    void numbersOfTwoAndThreeDigitsShortenTheName();
    void past999NothingCanBeRenamed();
    void takenNamesArePassedOver();
    void rootIsNeverRenamed();
    void karaokePicturesAreRenamedWithTheirSong_data();
    void karaokePicturesAreRenamedWithTheirSong();
    void picturesOfAnotherSongAreNotReplaced();
    void picturesStayWithASongThatIsNotRenamed();
    void aFolderNamedLikeAnMp3HasNoPictures();
    void foldersAreRenamedWithTheirSongs();
    void aFolderThatCannotBeRenamedIsLeftOut();
    void halfASurrogatePairIsNoName();
    void yesRenamesAndAsksAgain();
    void yesToAllRenamesWithoutAsking();
    void noKeepsTheLongNameAndIndexesIt();
    void noToAllKeepsEveryLongName();
    void answersAreKeptForTheWholeObject();
    void questionShowsTheCandidatesWholePath();
    void questionIsShownInTheConfirmationDialog();

    void linkToAFolderBeingScannedIsNotEntered();
    void linkToAnotherFolderIsEntered();
    void linksAmongManyFoldersEnd();
    void brokenLinksAndPipesAreNoSongs();
    void linksToPipesAndDevicesAreNoSongs();
    void manySongsInReversedFolderOrder();
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
    memory.add(QStringLiteral("b.mid"), Song);
    memory.add(QStringLiteral("pop/a.MP3"), Song);
    memory.add(QStringLiteral("pop/old/c.kar"), Song);
    memory.add(QStringLiteral("pop/read.txt"), Song);
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
        memory.add(QString::fromUtf8(folder) + QStringLiteral("/x.mid"), Song);
    memory.add(QStringLiteral("bridge.mid"), Song);
    memory.add(QStringLiteral("sfx2/y.mid"), Song);
    AskedIndex index(memory);
    index.scan_files(memory.root());
    QCOMPARE(pathsOf(index),
             (QStringList{QStringLiteral("/bridge.mid"), QStringLiteral("/sfx2/y.mid")}));
}

void TestIndexScan::hiddenEntriesAreSkipped()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral(".hidden.mid"), Song);
    memory.add(QStringLiteral(".Trashes/x.mid"), Song);
    memory.add(QStringLiteral(".a.mid.kavena-journal"), Song);
    memory.add(QStringLiteral("a.tmp"), Song);
    memory.add(QStringLiteral("a.mid"), Song);
    AskedIndex index(memory);
    index.scan_files(memory.root());
    QCOMPARE(pathsOf(index), QStringList{QStringLiteral("/a.mid")});
    QCOMPARE(index.questions, QStringList());
}

void TestIndexScan::aFolderNamedLikeASongIsAFolder()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("a.mid/b.mid"), Song);
    AskedIndex index(memory);
    index.scan_files(memory.root());
    QCOMPARE(pathsOf(index), QStringList{QStringLiteral("/a.mid/b.mid")});
}

void TestIndexScan::signalsTellEveryFileAndEverySong()
{
    const DeviceMemory memory;
    const QString first = memory.add(QStringLiteral("B.mid"), Song);
    const QString second = memory.add(QStringLiteral("a/x.mid"), Song);
    const QString text = memory.add(QStringLiteral("c.txt"), Song);
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
    const QString full =
        memory.add(QStringLiteral("pop/a.mid"), Song, QDateTime(QDate(1999, 1, 2), QTime(3, 4, 5)));
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
    const QFileInfo a(memory.add(QStringLiteral("a.mid"), Song));
    const QFileInfo b(memory.add(QStringLiteral("b.mid"), Song));
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
        files.append(QFileInfo(memory.add(QString::fromUtf8(name), Song)));
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
    const QFileInfo lower(memory.add(QStringLiteral("été.mid"), Song));
    const QFileInfo upper(memory.add(QStringLiteral("ÉTÉ.MID"), Song));
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
        memory.add(QString::fromUtf8(name), Song);
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
    memory.add(fits, Song);
    const QString refused = memory.add(tooLong, Song);
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
    const QString file = other.add(QStringLiteral("a.mid"), Song);
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
    const QFileInfo first(memory.add(QStringLiteral("zy.mid"), Song));
    const QFileInfo second(memory.add(QStringLiteral("zz.mid"), Song));
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
    const QFileInfo file(memory.add(QStringLiteral("a.mid"), Song));
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

void TestIndexScan::baseNameOf8CharactersIsKept9Renamed()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("12345678.mid"), Song);
    memory.add(QStringLiteral("abcdefghi.mid"), Song);
    AskedIndex index(memory);
    index.scan_files(memory.root());
    QCOMPARE(pathsOf(index),
             (QStringList{QStringLiteral("/12345678.mid"), QStringLiteral("/abcdef-1.mid")}));
    QCOMPARE(index.questions.size(), 1);
    QVERIFY(QFileInfo::exists(memory.path(QStringLiteral("abcdef-1.mid"))));
    QVERIFY(!QFileInfo::exists(memory.path(QStringLiteral("abcdefghi.mid"))));
}

void TestIndexScan::generatedNamesHoldNoBlanksDotsApostrophesHyphens_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("shortName");
    const auto row = [](const char *name, const char *shortName) {
        QTest::newRow(name) << QString::fromUtf8(name) << QString::fromUtf8(shortName);
    };
    row("My Long Song Name.mid", "MyLong-1.mid");
    row("O' sole mio.mid", "Osolem-1.mid");
    row("a-b-c-d-e-f.MP3", "abcdef-1.MP3");
    row("a.b.c.d.e.f.g.kar", "abcdef-1.kar");
    row("- . ' - . '.mid", "-1.mid");
    row("ab - .......mid", "ab-1.mid");
    row("Città vuota.mid", "Cittàv-1.mid");
}

void TestIndexScan::generatedNamesHoldNoBlanksDotsApostrophesHyphens()
{
    QFETCH(QString, name);
    QFETCH(QString, shortName);
    const DeviceMemory memory;
    const QString full = memory.add(name, Song);
    AskedIndex index(memory);
    QCOMPARE(index.renameLongFileName(full), memory.path(shortName));
    QCOMPARE(memory.read(shortName), Song);
    QVERIFY(!QFileInfo::exists(full));
}

void TestIndexScan::numbersOfTwoAndThreeDigitsShortenTheName()
{
    const DeviceMemory memory;
    for (int i = 1; i <= 101; ++i)
        memory.add(QStringLiteral("My Long Song %1.mid").arg(i, 3, 10, QLatin1Char('0')),
                   QByteArray::number(i));
    AskedIndex index(memory, {Answer::YesToAll});
    index.scan_files(memory.root());
    QCOMPARE(index.entries.size(), 101);
    QCOMPARE(memory.read(QStringLiteral("MyLong-1.mid")), QByteArray("1"));
    QCOMPARE(memory.read(QStringLiteral("MyLong-9.mid")), QByteArray("9"));
    QCOMPARE(memory.read(QStringLiteral("MyLon-10.mid")), QByteArray("10"));
    QCOMPARE(memory.read(QStringLiteral("MyLon-99.mid")), QByteArray("99"));
    QCOMPARE(memory.read(QStringLiteral("MyLo-100.mid")), QByteArray("100"));
    QCOMPARE(memory.read(QStringLiteral("MyLo-101.mid")), QByteArray("101"));
}

void TestIndexScan::past999NothingCanBeRenamed()
{
    const DeviceMemory memory;
    for (int n = 1; n <= 999; ++n) {
        const QString stem = QStringLiteral("abcdef").left(n < 10 ? 6 : n < 100 ? 5 : 4);
        memory.add(QStringLiteral("%1-%2.mid").arg(stem).arg(n), {});
    }
    const QString full = memory.add(QStringLiteral("abcdefghijk.mid"), Song);
    const QString other = memory.add(QStringLiteral("abcdefghijk.kar"), Song);
    AskedIndex index(memory);
    QCOMPARE(index.renameLongFileName(full), QString());
    QVERIFY(index.questions.isEmpty());
    QCOMPARE(memory.read(QStringLiteral("abcdefghijk.mid")), Song);
    // Another suffix is another name.
    QCOMPARE(index.renameLongFileName(other), memory.path(QStringLiteral("abcdef-1.kar")));
    index.scan_files(memory.root());
    QCOMPARE(index.filesFound, 1000u);
}

void TestIndexScan::takenNamesArePassedOver()
{
    const DeviceMemory memory;
    memory.makeFolder(QStringLiteral("abcdef-1.mid"));
    memory.add(QStringLiteral("abcdef-2.mid"), "old");
    const QString full = memory.add(QStringLiteral("abcdefghi.mid"), Song);
    AskedIndex index(memory);
    QCOMPARE(index.renameLongFileName(full), memory.path(QStringLiteral("abcdef-3.mid")));
    QCOMPARE(memory.read(QStringLiteral("abcdef-2.mid")), QByteArray("old"));
}

void TestIndexScan::rootIsNeverRenamed()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("A very long card name/a.mid"), Song);
    AskedIndex index(memory);
    index.rootPath = memory.path(QStringLiteral("A very long card name"));
    index.scan_files(index.rootPath);
    QCOMPARE(index.questions, QStringList());
    QCOMPARE(pathsOf(index), QStringList{QStringLiteral("/a.mid")});
    QCOMPARE(index.renameLongFileName(index.rootPath.toUpper()), index.rootPath.toUpper());
}

void TestIndexScan::karaokePicturesAreRenamedWithTheirSong_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<QString>("pictures");
    QTest::newRow("lower case") << "mp3"
                                << "cdg";
    QTest::newRow("upper case") << "MP3"
                                << "CDG";
}

void TestIndexScan::karaokePicturesAreRenamedWithTheirSong()
{
    QFETCH(QString, suffix);
    QFETCH(QString, pictures);
    const DeviceMemory memory;
    const QString name = QStringLiteral("pop/My Long Song.%1");
    const QString shortName = QStringLiteral("pop/MyLong-1.%1");
    memory.add(name.arg(suffix), Song);
    memory.add(name.arg(pictures), "pictures");
    memory.add(name.arg(QStringLiteral("txt")), "words");
    AskedIndex index(memory);
    index.scan_files(memory.root());
    QCOMPARE(index.questions.size(), 1);
    QCOMPARE(pathsOf(index), QStringList{QLatin1Char('/') + shortName.arg(suffix)});
    QCOMPARE(memory.read(shortName.arg(pictures)), QByteArray("pictures"));
    QVERIFY(!QFileInfo::exists(memory.path(name.arg(pictures))));
    QCOMPARE(memory.read(name.arg(QStringLiteral("txt"))), QByteArray("words"));
}

void TestIndexScan::picturesOfAnotherSongAreNotReplaced()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("My Long Song.mp3"), Song);
    memory.add(QStringLiteral("My Long Song.cdg"), "pictures");
    memory.add(QStringLiteral("MyLong-1.cdg"), "other pictures");
    AskedIndex index(memory);
    index.scan_files(memory.root());
    QCOMPARE(pathsOf(index), QStringList{QStringLiteral("/MyLong-2.mp3")});
    QCOMPARE(memory.read(QStringLiteral("MyLong-2.cdg")), QByteArray("pictures"));
    QCOMPARE(memory.read(QStringLiteral("MyLong-1.cdg")), QByteArray("other pictures"));
}

void TestIndexScan::picturesStayWithASongThatIsNotRenamed()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("My Long Song.mp3"), Song);
    memory.add(QStringLiteral("My Long Song.cdg"), "pictures");
    memory.add(QStringLiteral("A Midi Song.mid"), Song);
    memory.add(QStringLiteral("A Midi Song.cdg"), "no pictures");
    AskedIndex index(memory, {Answer::Yes, Answer::No});
    index.scan_files(memory.root());
    QCOMPARE(QDir(memory.root()).entryList(QDir::Files, QDir::Name),
             (QStringList{QStringLiteral("A Midi Song.cdg"), QStringLiteral("AMidiS-1.mid"),
                          QStringLiteral("My Long Song.cdg"), QStringLiteral("My Long Song.mp3")}));
}

void TestIndexScan::aFolderNamedLikeAnMp3HasNoPictures()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("A Long Album.mp3/a.mid"), Song);
    memory.add(QStringLiteral("A Long Album.cdg"), "pictures");
    AskedIndex index(memory);
    index.scan_files(memory.root());
    QCOMPARE(pathsOf(index), QStringList{QStringLiteral("/ALongA-1/a.mid")});
    QCOMPARE(memory.read(QStringLiteral("A Long Album.cdg")), QByteArray("pictures"));
}

void TestIndexScan::foldersAreRenamedWithTheirSongs()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("Canzoni d'amore/Vol. 1.old/a.mid"), Song);
    AskedIndex index(memory);
    index.scan_files(memory.root());
    QCOMPARE(pathsOf(index), QStringList{QStringLiteral("/Canzon-1/Vol. 1.old/a.mid")});
    QVERIFY(!QFileInfo::exists(memory.path(QStringLiteral("Canzoni d'amore"))));
}

void TestIndexScan::aFolderThatCannotBeRenamedIsLeftOut()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("A long folder name/sub/a.mid"), Song);
    memory.add(QStringLiteral("b.mid"), Song);
    AskedIndex index(memory);
    // The name is taken between the question and the answer: renaming fails.
    index.setRenameQuestion([&memory](const QString &, const QString &) {
        memory.add(QStringLiteral("Alongf-1/x.txt"), {});
        return Answer::Yes;
    });
    const LogCapture log;
    index.scan_files(memory.root());
    QCOMPARE(pathsOf(index), QStringList{QStringLiteral("/b.mid")});
    QVERIFY(LogCapture::contains(
        QStringLiteral("[Index::renameLongFileName] Impossible to rename \"%1\" ")
            .arg(memory.path(QStringLiteral("A long folder name")))));
    QVERIFY(QFileInfo::exists(memory.path(QStringLiteral("A long folder name/sub/a.mid"))));
}

void TestIndexScan::halfASurrogatePairIsNoName()
{
    const DeviceMemory memory;
    const QString full = memory.add(QStringLiteral("abcde\U0001F3B5 song.mid"), Song);
    AskedIndex index(memory);
    QCOMPARE(index.renameLongFileName(full), memory.path(QStringLiteral("abcde-1.mid")));
}

void TestIndexScan::yesRenamesAndAsksAgain()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("first long name.mid"), Song);
    memory.add(QStringLiteral("second long name.mid"), Song);
    AskedIndex index(memory, {Answer::Yes, Answer::Yes});
    index.scan_files(memory.root());
    QCOMPARE(index.questions.size(), 2);
    QCOMPARE(pathsOf(index),
             (QStringList{QStringLiteral("/firstl-1.mid"), QStringLiteral("/second-1.mid")}));
    QCOMPARE(int(index.askBeforeRename), 1);
    QCOMPARE(int(index.renameAccepted), 1);
}

void TestIndexScan::yesToAllRenamesWithoutAsking()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("first long name.mid"), Song);
    memory.add(QStringLiteral("second long name.mid"), Song);
    AskedIndex index(memory, {Answer::YesToAll});
    index.scan_files(memory.root());
    QCOMPARE(index.questions.size(), 1);
    QCOMPARE(pathsOf(index),
             (QStringList{QStringLiteral("/firstl-1.mid"), QStringLiteral("/second-1.mid")}));
    QCOMPARE(int(index.askBeforeRename), 0);
    QCOMPARE(int(index.renameAccepted), 1);
}

void TestIndexScan::noKeepsTheLongNameAndIndexesIt()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("first long name.mid"), Song);
    memory.add(QStringLiteral("second long name.mid"), Song);
    AskedIndex index(memory, {Answer::No, Answer::Yes});
    index.scan_files(memory.root());
    QCOMPARE(index.questions.size(), 2);
    QCOMPARE(pathsOf(index), (QStringList{QStringLiteral("/first long name.mid"),
                                          QStringLiteral("/second-1.mid")}));
}

void TestIndexScan::noToAllKeepsEveryLongName()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("first long name.mid"), Song);
    memory.add(QStringLiteral("second long name.mid"), Song);
    AskedIndex index(memory, {Answer::NoToAll});
    index.scan_files(memory.root());
    QCOMPARE(index.questions.size(), 1);
    QCOMPARE(pathsOf(index), (QStringList{QStringLiteral("/first long name.mid"),
                                          QStringLiteral("/second long name.mid")}));
    QCOMPARE(int(index.askBeforeRename), 0);
    QCOMPARE(int(index.renameAccepted), 0);
}

void TestIndexScan::answersAreKeptForTheWholeObject()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("first long name.mid"), Song);
    AskedIndex index(memory, {Answer::NoToAll});
    index.scan_files(memory.root());
    memory.add(QStringLiteral("second long name.mid"), Song);
    index.scan_files(memory.root());
    QCOMPARE(index.questions.size(), 1);
    QVERIFY(QFileInfo::exists(memory.path(QStringLiteral("second long name.mid"))));
}

void TestIndexScan::questionShowsTheCandidatesWholePath()
{
    const DeviceMemory memory;
    const QString full = memory.add(QStringLiteral("My Long Song Name.mid"), Song);
    AskedIndex index(memory);
    index.renameLongFileName(full);
    QCOMPARE(index.questions,
             QStringList{full + QStringLiteral("|verrà rinominato: ") +
                         memory.path(QStringLiteral("MyLong-1.mid")) +
                         QStringLiteral("\n\nSe il file non viene rinominato, è possibile che non "
                                        "venga rilevato da Kavena.")});
}

void TestIndexScan::questionIsShownInTheConfirmationDialog()
{
    const DeviceMemory memory;
    const QString full = memory.add(QStringLiteral("My Long Song Name.mid"), Song);
    Index index;
    index.setRenameQuestion(&confirmation::ask);
    index.rootPath = memory.root();
    QStringList shown;
    ModalAnswers answers;
    answers.add([&shown](QWidget *window) {
        auto *const dialog = qobject_cast<NoCopyrightDialog *>(window);
        if (dialog == nullptr)
            return false;
        for (const char *label : {"fileNameLabel", "label_2"})
            shown.append(dialog->findChild<QLabel *>(QString::fromUtf8(label))->text());
        dialog->done(NoCopyrightDialog::NoAll);
        return true;
    });
    QCOMPARE(index.renameLongFileName(full), full);
    QCOMPARE(shown.size(), 2);
    QCOMPARE(shown.first(), full);
    QVERIFY(shown.last().startsWith(QStringLiteral("verrà rinominato: ")));
    QCOMPARE(int(index.askBeforeRename), 0);
    QCOMPARE(int(index.renameAccepted), 0);
}

void TestIndexScan::linkToAFolderBeingScannedIsNotEntered()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("pop/a.mid"), Song);
    QVERIFY(QFile::link(memory.root(), memory.path(QStringLiteral("pop/loop"))));
    QVERIFY(QFile::link(QStringLiteral("."), memory.path(QStringLiteral("pop/self"))));
    AskedIndex index(memory);
    index.scan_files(memory.root());
    QCOMPARE(pathsOf(index), QStringList{QStringLiteral("/pop/a.mid")});
}

void TestIndexScan::linkToAnotherFolderIsEntered()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("pop/a.mid"), Song);
    QVERIFY(QFile::link(memory.path(QStringLiteral("pop")), memory.path(QStringLiteral("best"))));
    AskedIndex index(memory);
    index.scan_files(memory.root());
    QCOMPARE(pathsOf(index),
             (QStringList{QStringLiteral("/best/a.mid"), QStringLiteral("/pop/a.mid")}));
}

void TestIndexScan::linksAmongManyFoldersEnd()
{
    // Every folder links to every other: there are more ways through them than could be walked.
    const DeviceMemory memory;
    constexpr int folders = 14;
    for (int i = 0; i < folders; ++i) {
        memory.add(QStringLiteral("%1/s.mid").arg(i), Song);
        for (int other = 0; other < folders; ++other) {
            if (other != i)
                QVERIFY(QFile::link(QStringLiteral("../%1").arg(other),
                                    memory.path(QStringLiteral("%1/to%2").arg(i).arg(other))));
        }
    }
    AskedIndex index(memory);
    index.scan_files(memory.root());
    QVERIFY(index.filesFound >= folders);
    QVERIFY(index.filesFound <= 2 * folders);
    for (int i = 0; i < folders; ++i)
        QVERIFY(pathsOf(index).contains(QStringLiteral("/%1/s.mid").arg(i)));
}

void TestIndexScan::brokenLinksAndPipesAreNoSongs()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("a.mid"), Song);
    QVERIFY(QFile::link(QStringLiteral("nowhere"), memory.path(QStringLiteral("b.mid"))));
    QCOMPARE(QProcess::execute(QStringLiteral("mkfifo"), {memory.path(QStringLiteral("c.mid"))}),
             0);
    AskedIndex index(memory);
    index.scan_files(memory.root());
    QCOMPARE(pathsOf(index), QStringList{QStringLiteral("/a.mid")});
    SongInfoIndex pipe;
    pipe.fullPath = memory.path(QStringLiteral("c.mid"));
    QCOMPARE(index.setSongInfo(pipe), 0);
}

void TestIndexScan::linksToPipesAndDevicesAreNoSongs()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("a.mid"), Song);
    memory.add(QStringLiteral("sfx/real.dat"), Song);
    QCOMPARE(QProcess::execute(QStringLiteral("mkfifo"), {memory.path(QStringLiteral("pipe"))}), 0);
    QVERIFY(QFile::link(QStringLiteral("pipe"), memory.path(QStringLiteral("b.mid"))));
    QVERIFY(QFile::link(QStringLiteral("/dev/zero"), memory.path(QStringLiteral("c.mid"))));
    QVERIFY(QFile::link(QStringLiteral("sfx/real.dat"), memory.path(QStringLiteral("d.mid"))));
    AskedIndex index(memory);
    QVERIFY(index.createIndex(memory.root())); // reading the pipe would take for ever
    QCOMPARE(index.filesFound, 2u);
    QCOMPARE(memory.read(QStringLiteral("index.idx")).size(), 2 * 64);
    QCOMPARE(index.loadAllIndexFile(), 0);
    QCOMPARE(pathsOf(index), (QStringList{QStringLiteral("/a.mid"), QStringLiteral("/d.mid")}));
}

void TestIndexScan::manySongsInReversedFolderOrder()
{
    // "a-1" is listed behind "a" and sorts before it: each of its songs is inserted in front.
    const DeviceMemory memory;
    constexpr int songs = 400;
    for (const char *folder : {"a", "a-1", "a-1-1"}) {
        for (int i = 0; i < songs; ++i)
            memory.add(QStringLiteral("%1/%2.mid").arg(QString::fromUtf8(folder)).arg(i), {});
    }
    AskedIndex index(memory);
    index.scan_files(memory.root());
    QCOMPARE(index.entries.size(), 3 * songs);
    QVERIFY(std::is_sorted(index.entries.cbegin(), index.entries.cend(), compareByPath));
    QCOMPARE(index.entries.constFirst().path, QStringLiteral("/a-1-1/0.mid"));
    QCOMPARE(index.entries.constFirst().id, quint32(2 * songs));
}

QTEST_MAIN(TestIndexScan)
#include "test_index_scan.moc"
