// Songs that playlists have lost are found again by the paths that the last build noted.
#include "devindex/index.h"
#include "devindex/playlistrepair.h"
#include "storage/memorylock.h"
#include "support/indexedmemory.h"

#include <QTest>

using namespace indexedmemory;

namespace
{

QString text(const char *bytes)
{
    return QString::fromUtf8(bytes);
}

QByteArray song(quint32 id)
{
    return bigEndian(id, 4) + "bytes of the player's own   ";
}

QByteArray pathRecord(const QByteArray &path)
{
    return path.leftJustified(64, '\0');
}

constexpr quint32 lostId = 0x00FFFF00;
const QString list = text("playlist/play0001.dat");
const QString paths = text("playlist/play0001.pts");

/** Two songs with an index, and a playlist that names them; the ids are 0 and 1. */
class PlaylistMemory : public DeviceMemory
{
public:
    PlaylistMemory()
    {
        isLeftBroken(); // playlists keep songs that are gone
        add(text("a.mid"), midi("A"));
        add(text("b.mid"), midi("B"));
        if (!Index().createIndex(root()))
            qFatal("no index");
        add(text("playlist/playlist.dat"), QByteArray("\x01\x00", 2) + QByteArray(30, 'l'));
    }
};

} // namespace

class TestPlaylistRepair : public QuietIndexFixture
{
    Q_OBJECT

private slots:
    void init() { QuietIndexFixture::init(); }
    void cleanup() { QuietIndexFixture::cleanup(); }

    void lostSongGetsItsId();
    void songThatIsGoneStaysLost();
    void knownSongsStay();
    void playlistThatWasChangedSinceIsLeftAlone_data();
    void playlistThatWasChangedSinceIsLeftAlone();
    void memoryWithoutIndexIsRefused();
    void memoryInUseIsRefused();
    void listThatIsNoFileIsPassedOver();
};

void TestPlaylistRepair::lostSongGetsItsId()
{
    const PlaylistMemory memory;
    memory.add(list, song(lostId) + song(0) + song(lostId + 1));
    memory.add(paths, pathRecord("/b.mid") + pathRecord("/a.mid") + pathRecord("/A.MID"));
    const auto report = PlaylistRepair(memory.root()).run();
    QCOMPARE(report.refusal, QString());
    QCOMPARE(report.foundAgain, 2);
    QCOMPARE(report.failed, 0);
    QCOMPARE(memory.read(list), song(1) + song(0) + song(0));
}

void TestPlaylistRepair::songThatIsGoneStaysLost()
{
    const PlaylistMemory memory;
    memory.remove(text("a.mid")); // the index has not been told
    const QByteArray before = song(lostId) + song(lostId) + song(lostId) + song(1);
    memory.add(list, before);
    memory.add(paths, pathRecord("/a.mid") + pathRecord("") + pathRecord("/no.mid") +
                          pathRecord("/b.mid"));
    QCOMPARE(PlaylistRepair(memory.root()).run().foundAgain, 0);
    QCOMPARE(memory.read(list), before);
}

void TestPlaylistRepair::knownSongsStay()
{
    const PlaylistMemory memory;
    const QByteArray before = song(0) + song(1);
    memory.add(list, before);
    memory.add(paths, pathRecord("/b.mid") + pathRecord("/b.mid")); // the user has reordered them
    QCOMPARE(PlaylistRepair(memory.root()).run().foundAgain, 0);
    QCOMPARE(memory.read(list), before);
}

void TestPlaylistRepair::playlistThatWasChangedSinceIsLeftAlone_data()
{
    QTest::addColumn<QByteArray>("known");
    QTest::newRow("fewer songs then") << pathRecord("/b.mid");
    QTest::newRow("more songs then")
        << pathRecord("/b.mid") + pathRecord("/b.mid") + pathRecord("/b.mid");
    QTest::newRow("cut off") << (pathRecord("/b.mid") + pathRecord("/b.mid")).chopped(1);
    QTest::newRow("empty") << QByteArray();
}

void TestPlaylistRepair::playlistThatWasChangedSinceIsLeftAlone()
{
    QFETCH(QByteArray, known);
    const PlaylistMemory memory;
    const QByteArray before = song(lostId) + song(0);
    memory.add(list, before);
    memory.add(paths, known);
    const auto report = PlaylistRepair(memory.root()).run();
    QCOMPARE(report.foundAgain, 0);
    QCOMPARE(report.failed, 0);
    QCOMPARE(memory.read(list), before);
}

void TestPlaylistRepair::memoryWithoutIndexIsRefused()
{
    const PlaylistMemory memory;
    memory.add(list, song(lostId));
    memory.add(paths, pathRecord("/b.mid"));
    memory.remove(text("index.idx"));
    QVERIFY(!PlaylistRepair(memory.root()).run().refusal.isEmpty());
    QCOMPARE(memory.read(list), song(lostId));
}

void TestPlaylistRepair::memoryInUseIsRefused()
{
    const PlaylistMemory memory;
    memory.add(list, song(lostId));
    memory.add(paths, pathRecord("/b.mid"));
    MemoryLock other(memory.root());
    QVERIFY(other.take());
    QCOMPARE(PlaylistRepair(memory.root()).run().refusal.isEmpty(), false);
    QCOMPARE(memory.read(list), song(lostId));
}

void TestPlaylistRepair::listThatIsNoFileIsPassedOver()
{
    const PlaylistMemory memory;
    memory.makeFolder(list);
    memory.add(paths, pathRecord("/b.mid"));
    const auto report = PlaylistRepair(memory.root()).run();
    QCOMPARE(report.refusal, QString());
    QCOMPARE(report.foundAgain, 0);
}

QTEST_GUILESS_MAIN(TestPlaylistRepair)
#include "test_playlistrepair.moc"
