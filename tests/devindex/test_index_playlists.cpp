// Playlists keep pointing at their songs when the index gives new ids.
#include "devindex/index.h"
#include "support/devicememory.h"
#include "support/faults.h"
#include "support/logcapture.h"
#include "support/songbytes.h"

#include <QTest>

#include <optional>

using namespace songbytes;

namespace
{

const QByteArray plainSong = midiFile({track(metaEvent(3, "Song") + notes())});

/** The player's bytes behind the id; they differ from record to record. */
QByteArray own(int record)
{
    return QByteArray(28, static_cast<char>('a' + record));
}

QByteArray listRecord(const QByteArray &number)
{
    return number + QByteArray(30, '\x77');
}

QByteArray playlist(const QList<quint32> &ids)
{
    QByteArray bytes;
    for (int i = 0; i < ids.size(); ++i)
        bytes += bigEndian(ids.at(i), 4) + own(i);
    return bytes;
}

QByteArray pathRecord(const QByteArray &path)
{
    return path.leftJustified(64, '\0');
}

/** A memory of five songs with its index: ids 0 to 4 for a.mid, b.mid, c.mid, d.mid and é.mid. */
class PlaylistMemory : public DeviceMemory
{
public:
    PlaylistMemory()
    {
        for (const char *name : {"a.mid", "b.mid", "c.mid", "d.mid", "é.mid"})
            add(QString::fromUtf8(name), plainSong);
        if (!Index().createIndex(root()))
            qFatal("no index");
    }

    void addList(const QByteArrayList &numbers) const
    {
        QByteArray bytes;
        for (const QByteArray &number : numbers)
            bytes += listRecord(number);
        add(QStringLiteral("playlist/playlist.dat"), bytes);
    }

    void addPlaylist(const char *number, const QList<quint32> &ids) const
    {
        add(fileName(number, "dat"), playlist(ids));
    }

    QByteArray songs(const char *number) const { return read(fileName(number, "dat")); }
    QByteArray paths(const char *number) const { return read(fileName(number, "pts")); }
    bool hasPaths(const char *number) const
    {
        return QFileInfo::exists(path(fileName(number, "pts")));
    }

    static QString fileName(const char *number, const char *suffix)
    {
        return QStringLiteral("playlist/play%1.%2")
            .arg(QString::fromUtf8(number), QString::fromUtf8(suffix));
    }
};

const QByteArray one("\x01\x00", 2);
const QByteArray two("\x02\x00", 2);
const QByteArray three("\x03\x00", 2);
const QByteArray four("\x04\x00", 2);

} // namespace

class TestIndexPlaylists : public QObject
{
    Q_OBJECT

private slots:
    // The log of many builds would bury what a failing test says.
    void init() { m_log.emplace(); }
    void cleanup() { m_log.reset(); }

    void withoutListNothingHappens();
    void pathsAreSavedOnce();
    void withAllPathFilesNothingIsWritten();
    void oneMissingPathFileRenewsAll();
    void numbersGiveTheFileNames();
    void unknownIdBecomesAnEmptyPath();
    void playlistWithoutFileIsLeftOut();
    void onlyMissingPlaylistsNeedNoPathFiles();
    void damagedIndexSavesNothing();
    void emptyIndexSavesNothing();
    void incompleteRecordsAreLeftOut();
    void repeatedNumbersAreTakenOnce();

    void updatePointsPlaylistsAtNewIds();
    void secondUpdateKeepsEverything();
    void rebuildPointsPlaylistsAtNewIds();
    void songThatIsGoneShiftsTheOthers();
    void pathsAreFoundIgnoringCase();
    void restoreNeedsBothFiles();
    void restoreEndsWithTheShorterFile();
    void pathFileThatCannotBeMadeKeepsTheIds();
    void linksInPlaceOfPlaylistsAreNotWrittenThrough();
    void folderInPlaceOfTheListIsNoList();
    void playlistsThatCannotBeSavedKeepTheIndex();
    void playlistsThatCannotBeRestoredAreTold();

private:
    std::optional<LogCapture> m_log;
};

void TestIndexPlaylists::withoutListNothingHappens()
{
    const PlaylistMemory memory;
    memory.addPlaylist("0001", {1, 2});
    memory.ageIndex();
    const auto before = memory.snapshot();
    Index index;
    const LogCapture log;
    QVERIFY(index.updateIndex(memory.root()));
    QCOMPARE(int(index.restorePlaylists), 0);
    QCOMPARE(memory.snapshot(), before);
    QVERIFY(LogCapture::contains(QStringLiteral("create playlist file path ")));
    QVERIFY(!LogCapture::contains(QStringLiteral("restore playlist file path ")));
}

void TestIndexPlaylists::pathsAreSavedOnce()
{
    const PlaylistMemory memory;
    memory.addList({one});
    memory.addPlaylist("0001", {4, 0, 4});
    Index index;
    index.rootPath = memory.root();
    QVERIFY(index.createPlaylistFilePath());
    QCOMPARE(memory.paths("0001"),
             pathRecord("/\xE9.mid") + pathRecord("/a.mid") + pathRecord("/\xE9.mid"));
    QCOMPARE(index.playlistNumbers, QList<quint16>{1});
    QVERIFY(!index.createPlaylistFilePath());
}

void TestIndexPlaylists::withAllPathFilesNothingIsWritten()
{
    const PlaylistMemory memory;
    memory.addList({one});
    memory.addPlaylist("0001", {3});
    memory.add(QStringLiteral("playlist/play0001.pts"), "anything");
    memory.ageIndex();
    const auto before = memory.snapshot();
    Index index;
    QVERIFY(index.updateIndex(memory.root()));
    QCOMPARE(int(index.restorePlaylists), 0);
    QCOMPARE(memory.snapshot(), before);
}

void TestIndexPlaylists::oneMissingPathFileRenewsAll()
{
    const PlaylistMemory memory;
    memory.addList({two, one});
    memory.addPlaylist("0001", {1});
    memory.addPlaylist("0002", {2});
    memory.add(QStringLiteral("playlist/play0001.pts"), pathRecord("/old.mid"));
    Index index;
    index.rootPath = memory.root();
    QVERIFY(index.createPlaylistFilePath());
    QCOMPARE(index.playlistNumbers, (QList<quint16>{2, 1})); // as the player lists them
    QCOMPARE(memory.paths("0001"), pathRecord("/b.mid"));
    QCOMPARE(memory.paths("0002"), pathRecord("/c.mid"));
}

void TestIndexPlaylists::numbersGiveTheFileNames()
{
    const PlaylistMemory memory;
    memory.addList({QByteArray("\x0C\x00", 2), QByteArray("\x10\x27", 2), QByteArray("\x80\x02", 2),
                    QByteArray("\xFF\x00", 2)});
    for (const char *number : {"0012", "10000", "0384", "65535"})
        memory.addPlaylist(number, {0});
    Index index;
    index.rootPath = memory.root();
    QVERIFY(index.createPlaylistFilePath());
    for (const char *number : {"0012", "10000", "0384", "65535"})
        QCOMPARE(memory.paths(number), pathRecord("/a.mid"));
}

void TestIndexPlaylists::unknownIdBecomesAnEmptyPath()
{
    const PlaylistMemory memory;
    memory.isLeftBroken();
    memory.addList({one});
    memory.addPlaylist("0001", {99, 1, 0xFFFFFFFF});
    Index index;
    index.rootPath = memory.root();
    QVERIFY(index.createPlaylistFilePath());
    QCOMPARE(memory.paths("0001"), pathRecord({}) + pathRecord("/b.mid") + pathRecord({}));
}

void TestIndexPlaylists::playlistWithoutFileIsLeftOut()
{
    const PlaylistMemory memory;
    memory.isJudgedWith({QStringLiteral("--allow-lost-songs")});
    memory.addList({one, two});
    memory.addPlaylist("0002", {2});
    Index index;
    index.rootPath = memory.root();
    QVERIFY(index.createPlaylistFilePath());
    QVERIFY(!memory.hasPaths("0001"));
    QCOMPARE(memory.paths("0002"), pathRecord("/c.mid"));
}

void TestIndexPlaylists::onlyMissingPlaylistsNeedNoPathFiles()
{
    // Nothing can be saved for a playlist without a file; the ids must not change for it each time.
    const PlaylistMemory memory;
    memory.isJudgedWith({QStringLiteral("--allow-lost-songs")});
    memory.addList({one, two});
    memory.addPlaylist("0002", {2});
    memory.add(QStringLiteral("playlist/play0002.pts"), pathRecord("/c.mid"));
    memory.ageIndex();
    const auto before = memory.snapshot();
    QVERIFY(Index().updateIndex(memory.root()));
    QCOMPARE(memory.snapshot(), before);
}

void TestIndexPlaylists::damagedIndexSavesNothing()
{
    const PlaylistMemory memory;
    memory.isLeftBroken();
    memory.addList({one});
    memory.addPlaylist("0001", {2});
    memory.add(QStringLiteral("genre.idx"), "short");
    const auto before = memory.snapshot();
    Index index;
    index.rootPath = memory.root();
    QVERIFY(!index.createPlaylistFilePath());
    QVERIFY(index.playlistNumbers.isEmpty());
    QVERIFY(!index.updateIndex(memory.root()));
    QCOMPARE(memory.snapshot(), before);
}

void TestIndexPlaylists::emptyIndexSavesNothing()
{
    const DeviceMemory memory;
    memory.isLeftBroken();
    for (const QString &name : DeviceMemory::indexFiles())
        memory.add(name, {});
    memory.add(QStringLiteral("playlist/playlist.dat"), listRecord(one));
    memory.add(QStringLiteral("playlist/play0001.dat"), playlist({0}));
    Index index;
    index.rootPath = memory.root();
    QVERIFY(!index.createPlaylistFilePath());
    QVERIFY(!QFileInfo::exists(memory.path(QStringLiteral("playlist/play0001.pts"))));
}

void TestIndexPlaylists::incompleteRecordsAreLeftOut()
{
    const PlaylistMemory memory;
    memory.isLeftBroken();
    memory.add(QStringLiteral("playlist/playlist.dat"), listRecord(one) + listRecord(two).left(31));
    memory.add(QStringLiteral("playlist/play0001.dat"), playlist({1, 2}).left(63));
    memory.addPlaylist("0002", {2});
    Index index;
    index.rootPath = memory.root();
    QVERIFY(index.createPlaylistFilePath());
    QCOMPARE(memory.paths("0001"), pathRecord("/b.mid"));
    QVERIFY(!memory.hasPaths("0002"));
}

void TestIndexPlaylists::repeatedNumbersAreTakenOnce()
{
    const PlaylistMemory memory;
    memory.addList(QByteArrayList(70000, one) + QByteArrayList{two});
    memory.addPlaylist("0001", {1});
    memory.addPlaylist("0002", {2});
    Index index;
    index.rootPath = memory.root();
    QVERIFY(index.createPlaylistFilePath());
    QCOMPARE(index.playlistNumbers, (QList<quint16>{1, 2}));
}

void TestIndexPlaylists::updatePointsPlaylistsAtNewIds()
{
    const PlaylistMemory memory;
    memory.addList({one, two});
    memory.addPlaylist("0001", {4, 0});
    memory.addPlaylist("0002", {2, 2, 3});
    memory.add(QStringLiteral("0new.mid"), plainSong);
    Index index;
    const LogCapture log;
    QVERIFY(index.updateIndex(memory.root()));
    QCOMPARE(int(index.restorePlaylists), 1);
    QVERIFY(LogCapture::contains(QStringLiteral("restore playlist file path ")));
    QCOMPARE(memory.faults(), QString());
    // Every song got an id that was never used: 5 for 0new.mid, then a.mid, b.mid, ...
    QCOMPARE(memory.read(QStringLiteral("index.idx")).left(11),
             QByteArray("\0\0\0\x05/0new.m", 11));
    QCOMPARE(memory.songs("0001"), playlist({10, 6}));
    QCOMPARE(memory.songs("0002"), playlist({8, 8, 9}));
    QCOMPARE(memory.paths("0001"), pathRecord("/\xE9.mid") + pathRecord("/a.mid"));
}

void TestIndexPlaylists::secondUpdateKeepsEverything()
{
    const PlaylistMemory memory;
    memory.addList({one});
    memory.addPlaylist("0001", {4, 0});
    QVERIFY(Index().updateIndex(memory.root()));
    memory.ageIndex();
    const auto before = memory.snapshot();
    QVERIFY(Index().updateIndex(memory.root()));
    QCOMPARE(memory.snapshot(), before);
}

void TestIndexPlaylists::rebuildPointsPlaylistsAtNewIds()
{
    const PlaylistMemory memory;
    memory.addList({one});
    memory.addPlaylist("0001", {4, 1});
    memory.add(QStringLiteral("0new.mid"), plainSong);
    QVERIFY(Index().createIndex(memory.root()));
    QCOMPARE(memory.faults(), QString());
    QCOMPARE(memory.songs("0001"), playlist({5, 2}));
}

void TestIndexPlaylists::songThatIsGoneShiftsTheOthers()
{
    const PlaylistMemory memory;
    memory.isLeftBroken();
    memory.addList({one});
    memory.addPlaylist("0001", {0, 1, 2, 3});
    memory.remove(QStringLiteral("b.mid"));
    QVERIFY(Index().updateIndex(memory.root()));
    // New ids: a.mid 5, c.mid 6, d.mid 7. The record of b.mid takes c.mid; the last keeps its id.
    QCOMPARE(memory.songs("0001"), playlist({5, 6, 7, 3}));
    QCOMPARE(memory.faults({QStringLiteral("--allow-lost-songs")}), QString());
}

void TestIndexPlaylists::pathsAreFoundIgnoringCase()
{
    const PlaylistMemory memory;
    memory.add(QStringLiteral("playlist/play0001.dat"), playlist({9, 9}));
    memory.add(QStringLiteral("playlist/play0001.pts"),
               pathRecord("/B.MID") + pathRecord("/\xC9.Mid"));
    Index index;
    index.rootPath = memory.root();
    QCOMPARE(index.loadAllIndexFile(), 0);
    index.playlistNumbers = {1};
    index.restorePlaylistFilePath();
    QCOMPARE(memory.songs("0001"), playlist({1, 4}));
}

void TestIndexPlaylists::restoreNeedsBothFiles()
{
    const PlaylistMemory memory;
    memory.add(QStringLiteral("playlist/play0001.pts"), pathRecord("/b.mid"));
    memory.addPlaylist("0002", {9});
    const auto before = memory.snapshot();
    Index index;
    index.rootPath = memory.root();
    QCOMPARE(index.loadAllIndexFile(), 0);
    index.playlistNumbers = {1, 2, 3};
    index.restorePlaylistFilePath();
    QCOMPARE(memory.snapshot(), before);
}

void TestIndexPlaylists::restoreEndsWithTheShorterFile()
{
    const PlaylistMemory memory;
    memory.add(QStringLiteral("playlist/play0001.dat"), playlist({9, 9}).left(63));
    memory.add(QStringLiteral("playlist/play0001.pts"),
               pathRecord("/b.mid") + pathRecord("/c.mid"));
    memory.addPlaylist("0002", {9, 9, 9});
    memory.add(QStringLiteral("playlist/play0002.pts"),
               pathRecord("/b.mid") + pathRecord("/c.mid").left(63));
    Index index;
    index.rootPath = memory.root();
    QCOMPARE(index.loadAllIndexFile(), 0);
    index.playlistNumbers = {1, 2};
    index.restorePlaylistFilePath();
    QCOMPARE(memory.songs("0001"), playlist({1, 9}).left(63));
    QCOMPARE(memory.songs("0002"), playlist({1, 9, 9}));
}

void TestIndexPlaylists::pathFileThatCannotBeMadeKeepsTheIds()
{
    const PlaylistMemory memory;
    memory.addList({one});
    memory.addPlaylist("0001", {2});
    QVERIFY(QFile::link(QStringLiteral("/nowhere/at/all"),
                        memory.path(QStringLiteral("playlist/play0001.pts"))));
    memory.ageIndex();
    const auto before = memory.snapshot();
    Index index;
    QVERIFY(index.updateIndex(memory.root()));
    QCOMPARE(int(index.restorePlaylists), 0);
    QCOMPARE(memory.snapshot(), before);
}

void TestIndexPlaylists::linksInPlaceOfPlaylistsAreNotWrittenThrough()
{
    const PlaylistMemory memory;
    memory.isLeftBroken();
    const DeviceMemory computer;
    memory.addList({one, two, three, four});
    const auto link = [&](const char *number, const char *suffix, const QByteArray &bytes) {
        const QString name = PlaylistMemory::fileName(number, suffix);
        QVERIFY(QFile::link(computer.add(name, bytes), memory.path(name)));
    };
    link("0001", "dat", playlist({4, 0}));
    memory.addPlaylist("0002", {1});
    link("0002", "pts", "the user's own");
    memory.addPlaylist("0003", {2});
    memory.addPlaylist("0004", {1});
    QVERIFY(QFile::link(computer.path(QStringLiteral("nothing yet")),
                        memory.path(PlaylistMemory::fileName("0004", "pts"))));
    const auto before = computer.snapshot();
    QVERIFY(Index().updateIndex(memory.root()));
    QCOMPARE(computer.snapshot(), before);
    QCOMPARE(memory.paths("0003"), pathRecord("/c.mid"));
    QCOMPARE(memory.songs("0003"), playlist({7}));
}

void TestIndexPlaylists::folderInPlaceOfTheListIsNoList()
{
    const PlaylistMemory memory;
    memory.makeFolder(QStringLiteral("playlist/playlist.dat"));
    Index index;
    index.rootPath = memory.root();
    QVERIFY(!index.createPlaylistFilePath());
    QVERIFY(index.updateIndex(memory.root()));
}

void TestIndexPlaylists::playlistsThatCannotBeSavedKeepTheIndex()
{
    const PlaylistMemory memory;
    memory.addList({one, two});
    memory.addPlaylist("0001", {1});
    memory.addPlaylist("0002", {1, 2, 3});
    memory.ageIndex();
    memory.remove(QStringLiteral("a.mid"));
    memory.isJudgedWith({QStringLiteral("--allow-missing")});
    const QByteArray index = memory.read(QStringLiteral("index.idx"));
    {
        // Room for the paths of the first playlist, not for those of the second.
        const faults::FileSizeLimit limit(100);
        QVERIFY(!Index().createIndex(memory.root()));
        QVERIFY(!Index().updateIndex(memory.root()));
    }
    QCOMPARE(memory.presentIndexFiles(), DeviceMemory::indexFiles());
    QCOMPARE(memory.read(QStringLiteral("index.idx")), index);
    QCOMPARE(memory.songs("0002"), playlist({1, 2, 3}));
    QVERIFY(!memory.hasPaths("0002"));
    QVERIFY(LogCapture::lines()
                .filter(QStringLiteral("[PlaylistFiles::savePaths] Impossible"))
                .filter(QStringLiteral("play0002.dat"))
                .size() == 2);
    QVERIFY(Index().updateIndex(memory.root()));
    QCOMPARE(memory.songs("0002"), playlist({5, 6, 7}));
}

void TestIndexPlaylists::playlistsThatCannotBeRestoredAreTold()
{
    const PlaylistMemory memory;
    memory.addList({one});
    memory.addPlaylist("0001", {2});
    Index index;
    index.rootPath = memory.root();
    QVERIFY(index.createPlaylistFilePath());
    {
        const faults::FileSizeLimit limit(0);
        index.restorePlaylistFilePath();
    }
    QCOMPARE(memory.songs("0001"), playlist({2}));
    QCOMPARE(LogCapture::lines()
                 .filter(QStringLiteral("[PlaylistFiles::restoreIds] Impossible"))
                 .filter(QStringLiteral("play0001.dat"))
                 .size(),
             1);
}

QTEST_GUILESS_MAIN(TestIndexPlaylists)
#include "test_index_playlists.moc"
