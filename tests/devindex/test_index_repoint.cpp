// Playlists mean the same songs after every rebuild of the index, also of one that was cut off.
#include "devindex/index.h"
#include "support/devicememory.h"
#include "support/faults.h"
#include "support/logcapture.h"
#include "support/songbytes.h"

#include <QTest>
#include <QtEndian>

#include <csignal>
#include <optional>
#include <sys/wait.h>
#include <unistd.h>

using namespace songbytes;

namespace
{

QByteArray song(const QByteArray &title)
{
    return midiFile({track(metaEvent(3, title) + notes())});
}

QByteArray playlist(const QList<quint32> &ids)
{
    QByteArray bytes;
    for (const quint32 id : ids)
        bytes += bigEndian(id, 4) + QByteArray(28, 'p');
    return bytes;
}

const QString playlistSongs = QStringLiteral("playlist/play0001.dat");
const QString playlistPaths = QStringLiteral("playlist/play0001.pts");

/** Songs b.mid to e.mid with the ids 0 to 3, and a playlist of three of them. */
class PlaylistMemory : public DeviceMemory
{
public:
    PlaylistMemory()
    {
        for (const char *name : {"b.mid", "c.mid", "d.mid", "e.mid"})
            add(QString::fromUtf8(name), song(name));
        add(QStringLiteral("playlist/playlist.dat"), QByteArray("\x01", 1) + QByteArray(31, '\0'));
        if (!Index().createIndex(root()))
            qFatal("no index");
        add(playlistSongs, playlist({3, 0, 2}));
    }

    /** An update makes the path file; then the user changes the playlist on the player. */
    void editPlaylistAfterItsPathsWereSaved() const
    {
        if (!Index().updateIndex(root()))
            qFatal("no update");
        add(playlistSongs, playlist({idOf("c.mid"), idOf("e.mid"), idOf("c.mid"), idOf("b.mid")}));
    }

    quint32 idOf(const QByteArray &name) const
    {
        const QByteArray records = read(QStringLiteral("index.idx"));
        const qsizetype at = records.indexOf('/' + name + '\0');
        return at < 4 ? 0xFFFFFFFF : qFromBigEndian<quint32>(records.constData() + at - 4);
    }
};

/**
 * Builds the index in another process, which dies when it writes behind the limit of a file's size
 * or after so many signals. True when it came to its end.
 */
bool buildInAProcessThatDies(const QString &root, bool rebuild, rlim_t sizeLimit, int signalLimit)
{
    const pid_t child = fork();
    if (child == 0) {
        std::signal(SIGXFSZ, SIG_DFL); // it kills: nothing is tidied up
        const rlimit limited{sizeLimit, sizeLimit};
        setrlimit(RLIMIT_FSIZE, &limited);
        Index index;
        const auto step = [&signalLimit] {
            if (signalLimit-- == 0)
                _exit(2);
        };
        QObject::connect(&index, &Index::progressValueChanged, step);
        _exit((rebuild ? index.createIndex(root) : index.updateIndex(root)) ? 0 : 1);
    }
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child)
        qFatal("no other process");
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

} // namespace

class TestIndexRepoint : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_log.emplace(); }
    void cleanup() { m_log.reset(); }

    void rebuildWithAllPathFilesKeepsTheSongs();
    void rebuildTakesTheOldIndexNotStalePathFiles();
    void rebuildWithoutAnOldIndexTakesThePathFiles();
    void rebuildAfterOneDamagedFileTakesThePathsThatAreLeft();
    void changedUpdateNotesThePlaylistsOfNow();
    void unchangedUpdateWritesNoPathFile();
    void cutOffAnywhereKeepsTheSongs_data();
    void cutOffAnywhereKeepsTheSongs();
    void playlistThatCannotBeWrittenLeavesNoIndex();
    void writeProtectedPlaylistIsPointedAtItsSongs();
    void pathsOutsideLatin1AreFound();
    void renamedSongsStayInThePlaylists_data();
    void renamedSongsStayInThePlaylists();

private:
    std::optional<LogCapture> m_log;
};

void TestIndexRepoint::rebuildWithAllPathFilesKeepsTheSongs()
{
    const PlaylistMemory memory;
    QVERIFY(Index().updateIndex(memory.root()));
    QVERIFY(QFileInfo::exists(memory.path(playlistPaths)));
    memory.notePlaylists();
    memory.add(QStringLiteral("a.mid"), song("first"));
    QVERIFY(Index().createIndex(memory.root()));
    QCOMPARE(memory.playlistFaults(), QString());
    QCOMPARE(memory.read(playlistSongs), playlist({4, 1, 3}));
}

void TestIndexRepoint::rebuildTakesTheOldIndexNotStalePathFiles()
{
    const PlaylistMemory memory;
    memory.editPlaylistAfterItsPathsWereSaved();
    memory.notePlaylists();
    memory.add(QStringLiteral("a.mid"), song("first"));
    QVERIFY(Index().createIndex(memory.root()));
    QCOMPARE(memory.playlistFaults(), QString());
    QCOMPARE(memory.read(playlistSongs), playlist({2, 4, 2, 1}));
}

void TestIndexRepoint::rebuildWithoutAnOldIndexTakesThePathFiles()
{
    const PlaylistMemory memory;
    QVERIFY(Index().updateIndex(memory.root()));
    memory.notePlaylists();
    for (const QString &name : DeviceMemory::indexFiles())
        memory.remove(name);
    memory.add(QStringLiteral("a.mid"), song("first"));
    QVERIFY(Index().updateIndex(memory.root()));
    QCOMPARE(memory.playlistFaults(), QString());
}

void TestIndexRepoint::rebuildAfterOneDamagedFileTakesThePathsThatAreLeft()
{
    for (const char *damaged : {"title.idx", "genre.idx", "fsinfos.idx"}) {
        const PlaylistMemory memory;
        memory.editPlaylistAfterItsPathsWereSaved();
        memory.notePlaylists();
        memory.add(QString::fromUtf8(damaged), "short");
        memory.add(QStringLiteral("a.mid"), song("first"));
        QVERIFY(Index().createIndex(memory.root()));
        QCOMPARE(memory.playlistFaults(), QString());
    }
}

void TestIndexRepoint::changedUpdateNotesThePlaylistsOfNow()
{
    // If the next build finds no index, the path file alone says which songs the playlist means.
    const PlaylistMemory memory;
    memory.editPlaylistAfterItsPathsWereSaved();
    memory.notePlaylists();
    const QByteArray ids = memory.read(playlistSongs);
    memory.add(QStringLiteral("a.mid"), song("first"));
    QVERIFY(Index().updateIndex(memory.root()));
    QCOMPARE(memory.read(playlistSongs), ids);
    for (const QString &name : DeviceMemory::indexFiles())
        memory.remove(name);
    QVERIFY(Index().createIndex(memory.root()));
    QCOMPARE(memory.playlistFaults(), QString());
}

void TestIndexRepoint::unchangedUpdateWritesNoPathFile()
{
    const PlaylistMemory memory;
    memory.editPlaylistAfterItsPathsWereSaved();
    const auto before = memory.snapshot();
    QVERIFY(Index().updateIndex(memory.root()));
    QCOMPARE(memory.snapshot(), before);
}

void TestIndexRepoint::cutOffAnywhereKeepsTheSongs_data()
{
    QTest::addColumn<bool>("edited");
    QTest::addColumn<bool>("rebuild");
    QTest::newRow("update that makes the path file") << false << false;
    QTest::newRow("update with an old path file") << true << false;
    QTest::newRow("rebuild that makes the path file") << false << true;
    QTest::newRow("rebuild with an old path file") << true << true;
}

/** The build ends where its files can grow no further, and at each step that it tells. */
void TestIndexRepoint::cutOffAnywhereKeepsTheSongs()
{
    QFETCH(bool, edited);
    QFETCH(bool, rebuild);
    constexpr int none = 1000000;
    const auto cutOff = [&](rlim_t sizeLimit, int signalLimit) {
        const PlaylistMemory memory;
        if (edited)
            memory.editPlaylistAfterItsPathsWereSaved();
        memory.notePlaylists();
        memory.add(QStringLiteral("a.mid"), song("first"));
        const bool whole = buildInAProcessThatDies(memory.root(), rebuild, sizeLimit, signalLimit);
        if (!Index().updateIndex(memory.root()))
            QTest::qFail("no index after the build that was cut off", __FILE__, __LINE__);
        const QString faults = memory.playlistFaults();
        if (!faults.isEmpty())
            QTest::qFail(
                qPrintable(
                    QStringLiteral("%1, %2: %3").arg(sizeLimit).arg(signalLimit).arg(faults)),
                __FILE__, __LINE__);
        return whole;
    };
    // The playlist's files grow to 256 bytes, those of the index to 320.
    for (const rlim_t size : {0, 40, 80, 120, 160, 250, 300, 310})
        QVERIFY(!cutOff(size, none) && !QTest::currentTestFailed());
    int signalLimit = 0;
    for (; !cutOff(none, signalLimit); ++signalLimit)
        QVERIFY(signalLimit < 100 && !QTest::currentTestFailed());
    QVERIFY(signalLimit > 10);
}

void TestIndexRepoint::playlistThatCannotBeWrittenLeavesNoIndex()
{
    // With a whole index the old ids in the playlist would pass for those that it means.
    const PlaylistMemory memory;
    QVERIFY(Index().updateIndex(memory.root()));
    memory.notePlaylists();
    memory.add(QStringLiteral("a.mid"), song("first"));
    static std::optional<faults::FileSizeLimit> limit;
    limit.emplace(40); // the first song of the playlist can be written, the second cannot
    const auto handler =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &text) {
            if (text.startsWith(QStringLiteral("[PlaylistFiles::restoreIds] Impossible")))
                limit.reset(); // everything after that goes well
        });
    const bool built = Index().createIndex(memory.root());
    qInstallMessageHandler(handler);
    QVERIFY(!limit.has_value());
    QVERIFY(!built);
    QVERIFY(memory.presentIndexFiles().isEmpty());
    QVERIFY(Index().updateIndex(memory.root()));
    QCOMPARE(memory.playlistFaults(), QString());
}

void TestIndexRepoint::writeProtectedPlaylistIsPointedAtItsSongs()
{
    if (!faults::canBecomeAnotherUser())
        QSKIP("needs another user");
    const PlaylistMemory memory;
    memory.editPlaylistAfterItsPathsWereSaved();
    memory.notePlaylists();
    memory.add(QStringLiteral("a.mid"), song("first"));
    QFile::setPermissions(memory.path(playlistSongs), QFile::ReadOwner);
    QCOMPARE(::system(qPrintable(QStringLiteral("chown -R 65534 '%1'").arg(memory.root()))), 0);
    {
        const faults::AnotherUser user;
        QVERIFY(Index().createIndex(memory.root()));
    }
    QCOMPARE(memory.playlistFaults(), QString());
}

void TestIndexRepoint::pathsOutsideLatin1AreFound()
{
    // The player's code page has the dotless i; the path files are Latin-1 and show it as "?".
    const PlaylistMemory memory;
    memory.add(QStringLiteral("k\u0131z.mid"), song("Kiz"));
    memory.add(QStringLiteral("koz.mid"), song("Koz"));
    QVERIFY(Index().createIndex(memory.root()));
    const QByteArray name("k\xD5z.mid");
    memory.add(playlistSongs,
               playlist({memory.idOf("koz.mid"), memory.idOf(name), memory.idOf("b.mid")}));
    memory.notePlaylists();
    memory.add(QStringLiteral("a.mid"), song("first"));
    QVERIFY(Index().createIndex(memory.root()));
    QCOMPARE(memory.playlistFaults(), QString());
    QCOMPARE(memory.read(playlistSongs),
             playlist({memory.idOf("koz.mid"), memory.idOf(name), memory.idOf("b.mid")}));
}

void TestIndexRepoint::renamedSongsStayInThePlaylists_data()
{
    QTest::addColumn<bool>("rebuild");
    QTest::newRow("update") << false;
    QTest::newRow("rebuild") << true;
}

void TestIndexRepoint::renamedSongsStayInThePlaylists()
{
    QFETCH(bool, rebuild);
    DeviceMemory memory;
    for (const char *name : {"b.mid", "folder with a long name/c.mid", "long song name one.mid"})
        memory.add(QString::fromUtf8(name), song("same title"));
    memory.add(QStringLiteral("playlist/playlist.dat"),
               QByteArray("\x01", 1) + QByteArray(31, '\0'));
    QVERIFY(Index().createIndex(memory.root()));
    memory.add(playlistSongs, playlist({2, 0, 1}));

    Index index;
    index.setRenameQuestion([](const QString &, const QString &) { return Answer::YesToAll; });
    QVERIFY(rebuild ? index.createIndex(memory.root()) : index.updateIndex(memory.root()));
    QVERIFY(!QFileInfo::exists(memory.path(QStringLiteral("long song name one.mid"))));
    const auto pathsOfPlaylist = [&memory] {
        QStringList paths;
        Index loaded;
        loaded.rootPath = memory.root();
        if (loaded.loadAllIndexFile() < 0)
            return paths;
        const QByteArray records = memory.read(playlistSongs);
        for (qsizetype at = 0; at < records.size(); at += 32) {
            const auto id = qFromBigEndian<quint32>(records.constData() + at);
            for (const SongInfoIndex &entry : std::as_const(loaded.entries)) {
                if (entry.id == id)
                    paths.append(entry.path);
            }
        }
        return paths;
    };
    const QStringList wanted{QStringLiteral("/longso-1.mid"), QStringLiteral("/b.mid"),
                             QStringLiteral("/folder-1/c.mid")};
    QCOMPARE(pathsOfPlaylist(), wanted);
    // The next rebuild knows them by their new names, too.
    QVERIFY(Index().createIndex(memory.root()));
    QCOMPARE(pathsOfPlaylist(), wanted);
}

QTEST_GUILESS_MAIN(TestIndexRepoint)
#include "test_index_repoint.moc"
