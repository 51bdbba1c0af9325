// The playlists of a memory, as the user sees them.
#include "devindex/index.h"
#include "devindex/memoryplaylists.h"
#include "support/indexedmemory.h"
#include "support/recordedprogress.h"

#include <QTest>

using namespace indexedmemory;

namespace
{

QByteArray playlist(const QList<quint32> &ids)
{
    QByteArray bytes;
    for (const quint32 id : ids)
        bytes += bigEndian(id, 4) + QByteArray(28, 'p');
    return bytes;
}

QByteArray listRecord(char high, char low)
{
    return QByteArray(1, low) + high + QByteArray(30, 'l');
}

/** Three songs a.mid, b.mid and c.mid with the ids 0 to 2. */
class ThreeSongs : public DeviceMemory
{
public:
    ThreeSongs()
    {
        for (const char *name : {"a", "b", "c"})
            add(QString::fromLatin1(name) + QStringLiteral(".mid"), midi(name, "Artist"));
        if (!Index().createIndex(root()))
            qFatal("no index");
    }

    QList<MemoryPlaylist> playlists() const
    {
        ProgressRecord record;
        RecordedProgress progress(record, {}, {}, 0);
        MemorySongs songs(root());
        if (songs.read(progress) != MemorySongs::Outcome::Done)
            qFatal("not read");
        return playlistsOf(songs);
    }
};

} // namespace

class TestMemoryPlaylists : public QuietIndexFixture
{
    Q_OBJECT

private slots:
    void init() { QuietIndexFixture::init(); }
    void cleanup() { QuietIndexFixture::cleanup(); }

    void songsStandInThePlayersOrder();
    void songThatIsGoneIsLost();
    void listWithoutAPlaylistFileIsNotReadable();
    void playlistsBeyondAllMeasureAreNotRead();
    void memoryWithoutPlaylists();
    void hostileList_data();
    void hostileList();
};

void TestMemoryPlaylists::songsStandInThePlayersOrder()
{
    const ThreeSongs memory;
    memory.add(QStringLiteral("playlist/playlist.dat"), listRecord(0, 7) + listRecord(0, 3));
    memory.add(QStringLiteral("playlist/play0007.dat"), playlist({2, 0, 2}));
    memory.add(QStringLiteral("playlist/play0003.dat"), {});
    const auto before = memory.snapshot();
    const QList<MemoryPlaylist> lists = memory.playlists();
    QCOMPARE(memory.snapshot(), before);
    QCOMPARE(lists.size(), 2);
    QCOMPARE(lists.at(0).number, quint16(7));
    QCOMPARE(lists.at(0).songs.size(), 3);
    QCOMPARE(lists.at(0).songs.at(0).place, 2);
    QCOMPARE(lists.at(0).songs.at(1).place, 0);
    QCOMPARE(lists.at(0).songs.at(2).place, 2);
    QCOMPARE(lists.at(0).lostCount(), 0);
    QCOMPARE(lists.at(1).number, quint16(3));
    QVERIFY(lists.at(1).isReadable);
    QVERIFY(lists.at(1).songs.isEmpty());
}

void TestMemoryPlaylists::songThatIsGoneIsLost()
{
    const ThreeSongs memory;
    memory.isLeftBroken();
    memory.add(QStringLiteral("playlist/playlist.dat"), listRecord(0, 1));
    memory.add(QStringLiteral("playlist/play0001.dat"), playlist({1, 77, 0}));
    memory.remove(QStringLiteral("b.mid"));
    const QList<MemoryPlaylist> lists = memory.playlists();
    QCOMPARE(lists.size(), 1);
    QCOMPARE(lists.at(0).lostCount(), 2);
    QVERIFY(lists.at(0).songs.at(0).isLost());
    QVERIFY(lists.at(0).songs.at(1).isLost());
    QVERIFY(!lists.at(0).songs.at(2).isLost());
}

void TestMemoryPlaylists::listWithoutAPlaylistFileIsNotReadable()
{
    const ThreeSongs memory;
    memory.isLeftBroken();
    const DeviceMemory elsewhere;
    memory.add(QStringLiteral("playlist/playlist.dat"), listRecord(0, 1) + listRecord(0, 2));
    QVERIFY(QFile::link(elsewhere.add(QStringLiteral("x"), playlist({0})),
                        memory.path(QStringLiteral("playlist/play0002.dat"))));
    const QList<MemoryPlaylist> lists = memory.playlists();
    QCOMPARE(lists.size(), 2);
    for (const MemoryPlaylist &list : lists) {
        QVERIFY(!list.isReadable);
        QVERIFY(list.songs.isEmpty());
    }
}

/** Files with holes need no room on the medium, and could fill the computer's memory. */
void TestMemoryPlaylists::playlistsBeyondAllMeasureAreNotRead()
{
    constexpr int many = 18;
    const ThreeSongs memory;
    memory.isLeftBroken();
    QByteArray list;
    for (int number = 1; number <= many; ++number) {
        list += listRecord(0, static_cast<char>(number));
        QFile file(memory.add(
            QStringLiteral("playlist/play%1.dat").arg(number, 4, 10, QLatin1Char('0')), {}));
        QVERIFY(file.open(QFile::ReadWrite) && file.resize(qint64{32} * 70000));
    }
    memory.add(QStringLiteral("playlist/playlist.dat"), list);
    const QList<MemoryPlaylist> lists = memory.playlists();
    QCOMPARE(lists.size(), many);
    qsizetype songs = 0;
    for (const MemoryPlaylist &playlist : lists)
        songs += playlist.songs.size();
    QVERIFY(songs >= mostPlaylistSongs && songs < mostPlaylistSongs + SongInfoIndex::maxSongs);
    QVERIFY(lists.constFirst().isReadable && !lists.constLast().isReadable);
}

void TestMemoryPlaylists::memoryWithoutPlaylists()
{
    QVERIFY(ThreeSongs().playlists().isEmpty());
}

void TestMemoryPlaylists::hostileList_data()
{
    QTest::addColumn<QByteArray>("list");
    QTest::addColumn<QByteArray>("songs");
    QTest::addColumn<int>("count");
    QTest::newRow("one_number_many_times") << listRecord(0, 1).repeated(5000) << playlist({0}) << 1;
    QTest::newRow("cut_off_records") << listRecord(0, 1) + "rest" << playlist({0}) + "rest" << 1;
    QTest::newRow("more_songs_than_a_memory_holds")
        << listRecord(0, 1) << playlist({0}).repeated(70000) << 65535;
}

void TestMemoryPlaylists::hostileList()
{
    QFETCH(QByteArray, list);
    QFETCH(QByteArray, songs);
    QFETCH(int, count);
    const ThreeSongs memory;
    memory.isLeftBroken();
    memory.add(QStringLiteral("playlist/playlist.dat"), list);
    memory.add(QStringLiteral("playlist/play0001.dat"), songs);
    const QList<MemoryPlaylist> lists = memory.playlists();
    QCOMPARE(lists.size(), 1);
    QCOMPARE(lists.at(0).songs.size(), count);
    QCOMPARE(lists.at(0).lostCount(), 0);
}

QTEST_GUILESS_MAIN(TestMemoryPlaylists)
#include "test_memoryplaylists.moc"
