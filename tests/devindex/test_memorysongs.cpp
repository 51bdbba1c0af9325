// What lies on a memory, held against its index.
#include "devindex/index.h"
#include "devindex/memorysongs.h"
#include "support/faults.h"
#include "support/indexedmemory.h"
#include "support/recordedprogress.h"

#include <QTest>

using namespace indexedmemory;
using State = MemorySong::State;

namespace
{

QByteArray pathRecord(quint32 id, const QByteArray &path)
{
    return bigEndian(id, 4) + path.leftJustified(46, '\0') + "20130527093005";
}

MemorySongs::Outcome readAll(MemorySongs &songs)
{
    ProgressRecord record;
    RecordedProgress progress(record, {}, {}, 0);
    return songs.read(progress);
}

const MemorySong *find(const MemorySongs &songs, const QString &path)
{
    for (const MemorySong &song : songs.songs()) {
        if (song.info.path == path)
            return &song;
    }
    return nullptr;
}

} // namespace

class TestMemorySongs : public QuietIndexFixture
{
    Q_OBJECT

private slots:
    void init() { QuietIndexFixture::init(); }
    void cleanup() { QuietIndexFixture::cleanup(); }

    void everySongOfAFreshIndexIsIndexed();
    void songIsAsListedUntilItIsChanged();
    void stateTellsWhatThePlayerDoesNotShow();
    void songBesideOneOfItsNameIsNotIndexed();
    void songsOfAMemoryWithoutIndexAreReadFromTheirFiles();
    void songWithoutTextsShowsOnlyItsName();
    void companionAndSizeBelongToTheSong();
    void fileWithAnotherSpellingIsTheSameSong();
    void songBehindALinkIsMarked();
    void songsInAnUnreadableFolderAreNotCalledGone_data();
    void songsInAnUnreadableFolderAreNotCalledGone();
    void damagedIndexIsNoIndex_data();
    void damagedIndexIsNoIndex();
    void pathsOutsideTheMemoryAreNotFollowed();
    void entryThatStandsTwiceIsNoMissingSong();
    void memoryThatVanishesTellsNothing();
    void stopLeavesNoHalfList();
};

void TestMemorySongs::everySongOfAFreshIndexIsIndexed()
{
    const DeviceMemory memory;
    const int count = fill(memory);
    QVERIFY(Index().createIndex(memory.root()));
    const auto before = memory.snapshot();
    MemorySongs songs(memory.root() + QLatin1Char('/'));
    QCOMPARE(readAll(songs), MemorySongs::Outcome::Done);
    QCOMPARE(songs.songs().size(), count);
    QCOMPARE(songs.count(State::Indexed), count);
    QCOMPARE(songs.indexState(), MemorySongs::IndexState::Whole);
    QVERIFY(qAbs(songs.indexTime().secsTo(QDateTime::currentDateTime())) < 60);
    const MemorySong *const song = find(songs, QStringLiteral("/pop/Ciao.mp3"));
    QVERIFY(song != nullptr);
    QCOMPARE(song->info.title, QStringLiteral("CIAO"));
    QCOMPARE(song->info.artist, QStringLiteral("MORANDI"));
    QCOMPARE(song->info.fullPath, memory.path(QStringLiteral("pop/Ciao.mp3")));
    QCOMPARE(memory.snapshot(), before);
}

void TestMemorySongs::songIsAsListedUntilItIsChanged()
{
    const DeviceMemory memory;
    const QString file = QStringLiteral("a.mid");
    const auto listed = [&] {
        MemorySongs songs(memory.root());
        readAll(songs);
        return songs.songs().constFirst();
    };
    memory.add(file, midi("Title"));
    const MemorySong song = listed();
    QVERIFY(isAsListed(song));
    memory.add(file, midi("Longer title"));
    QVERIFY(!isAsListed(song)); // the same time, another size
    memory.add(file, midi("Title"));
    QVERIFY(isAsListed(song));
    memory.setTime(file, DeviceMemory::defaultTime().addSecs(60));
    QVERIFY(!isAsListed(song));
    memory.remove(file);
    QVERIFY(!isAsListed(song));
}

void TestMemorySongs::stateTellsWhatThePlayerDoesNotShow()
{
    const DeviceMemory memory;
    const int count = fill(memory);
    QVERIFY(Index().createIndex(memory.root()));
    memory.isLeftBroken();
    memory.remove(QStringLiteral("pop/Volare.kar"));
    memory.add(QStringLiteral("pop/New.mid"), midi("New one", "Somebody"));
    memory.add(QStringLiteral("Azzurro.mid"), midi("Other title"), QDateTime::currentDateTime());
    MemorySongs songs(memory.root());
    QCOMPARE(readAll(songs), MemorySongs::Outcome::Done);
    QCOMPARE(songs.songs().size(), count + 1);
    QCOMPARE(find(songs, QStringLiteral("/pop/Volare.kar"))->state, State::Gone);
    QCOMPARE(find(songs, QStringLiteral("/pop/Volare.kar"))->info.title, QStringLiteral("VOLARE"));
    QCOMPARE(find(songs, QStringLiteral("/pop/New.mid"))->state, State::NotIndexed);
    QCOMPARE(find(songs, QStringLiteral("/pop/New.mid"))->info.artist, QStringLiteral("SOMEBODY"));
    QCOMPARE(find(songs, QStringLiteral("/Azzurro.mid"))->state, State::Changed);
    QCOMPARE(find(songs, QStringLiteral("/Azzurro.mid"))->info.title,
             QStringLiteral("OTHER TITLE"));
    QCOMPARE(songs.count(State::Indexed), count - 2);
}

void TestMemorySongs::songBesideOneOfItsNameIsNotIndexed()
{
    const DeviceMemory memory;
    fill(memory);
    memory.add(QStringLiteral("AZZURRO.mid"), midi("Another song"));
    QVERIFY(Index().createIndex(memory.root()));
    MemorySongs songs(memory.root());
    QCOMPARE(readAll(songs), MemorySongs::Outcome::Done);
    if (find(songs, QStringLiteral("/Azzurro.mid")) == nullptr)
        QSKIP("this file system knows no letter case");
    QCOMPARE(songs.count(State::NotIndexed), 1);
    const bool isFirst = find(songs, QStringLiteral("/Azzurro.mid"))->state == State::NotIndexed;
    QVERIFY(isFirst || find(songs, QStringLiteral("/AZZURRO.mid"))->state == State::NotIndexed);
}

void TestMemorySongs::songsOfAMemoryWithoutIndexAreReadFromTheirFiles()
{
    const DeviceMemory memory;
    const int count = fill(memory);
    MemorySongs songs(memory.root());
    QCOMPARE(readAll(songs), MemorySongs::Outcome::Done);
    QCOMPARE(songs.indexState(), MemorySongs::IndexState::Absent);
    QVERIFY(!songs.indexTime().isValid());
    QCOMPARE(songs.count(State::NotIndexed), count);
    QCOMPARE(find(songs, QStringLiteral("/x/Maruz.mf4"))->info.fileType,
             quint8(SongInfoIndex::Mf4));
}

void TestMemorySongs::songWithoutTextsShowsOnlyItsName()
{
    const DeviceMemory memory;
    fill(memory);
    memory.add(QStringLiteral("A long name with 30 characters.mp3"), QByteArray(200, '\xFB'));
    for (const bool indexed : {false, true}) {
        if (indexed)
            QVERIFY(Index().createIndex(memory.root()));
        MemorySongs songs(memory.root());
        QCOMPARE(readAll(songs), MemorySongs::Outcome::Done);
        QStringList onlyNames;
        for (const MemorySong &song : songs.songs()) {
            if (song.showsOnlyName)
                onlyNames.append(song.info.path);
        }
        onlyNames.sort();
        QCOMPARE(onlyNames,
                 QStringList({QStringLiteral("/A long name with 30 characters.mp3"),
                              QStringLiteral("/pop/Notag.MP3"), QStringLiteral("/x/tiny.mid")}));
    }
}

void TestMemorySongs::companionAndSizeBelongToTheSong()
{
    const DeviceMemory memory;
    fill(memory);
    memory.add(QStringLiteral("pop/Ciao.cdg"), "pictures");
    memory.add(QStringLiteral("pop/Notag.CDG"), "pictures");
    memory.add(QStringLiteral("pop/Volare.cdg"), "of no MP3");
    MemorySongs songs(memory.root());
    QCOMPARE(readAll(songs), MemorySongs::Outcome::Done);
    QCOMPARE(find(songs, QStringLiteral("/pop/Ciao.mp3"))->companion, QStringLiteral("Ciao.cdg"));
    QCOMPARE(find(songs, QStringLiteral("/pop/Notag.MP3"))->companion, QStringLiteral("Notag.CDG"));
    QCOMPARE(find(songs, QStringLiteral("/pop/Volare.kar"))->companion, QString());
    QCOMPARE(find(songs, QStringLiteral("/pop/Notag.MP3"))->size, 200);
}

void TestMemorySongs::fileWithAnotherSpellingIsTheSameSong()
{
    const DeviceMemory memory;
    const int count = fill(memory);
    QVERIFY(Index().createIndex(memory.root()));
    memory.isLeftBroken();
    QVERIFY(QFile::rename(memory.path(QStringLiteral("Azzurro.mid")),
                          memory.path(QStringLiteral("AZZURRO.MID"))));
    MemorySongs songs(memory.root());
    QCOMPARE(readAll(songs), MemorySongs::Outcome::Done);
    QCOMPARE(songs.songs().size(), count);
    QCOMPARE(songs.count(State::Indexed), count);
    QVERIFY(find(songs, QStringLiteral("/AZZURRO.MID")) != nullptr);
}

void TestMemorySongs::songBehindALinkIsMarked()
{
    const DeviceMemory memory;
    const DeviceMemory elsewhere;
    fill(memory);
    elsewhere.add(QStringLiteral("far.mid"), midi("Far"));
    QVERIFY(QFile::link(elsewhere.root(), memory.path(QStringLiteral("away"))));
    QVERIFY(QFile::link(elsewhere.path(QStringLiteral("far.mid")),
                        memory.path(QStringLiteral("one.mid"))));
    QVERIFY(QFile::link(memory.root(), memory.path(QStringLiteral("x/loop"))));
    MemorySongs songs(memory.root());
    QCOMPARE(readAll(songs), MemorySongs::Outcome::Done);
    QVERIFY(find(songs, QStringLiteral("/away/far.mid"))->isBehindLink);
    QVERIFY(find(songs, QStringLiteral("/one.mid"))->isBehindLink);
    QVERIFY(!find(songs, QStringLiteral("/Azzurro.mid"))->isBehindLink);
    QVERIFY(find(songs, QStringLiteral("/x/loop/Azzurro.mid")) == nullptr);
}

void TestMemorySongs::songsInAnUnreadableFolderAreNotCalledGone_data()
{
    QTest::addColumn<QString>("folder");
    QTest::newRow("plain name") << QStringLiteral("pop");
    QTest::newRow("name that the index cannot hold") << QStringLiteral("Ωω");
}

void TestMemorySongs::songsInAnUnreadableFolderAreNotCalledGone()
{
    QFETCH(QString, folder);
    if (!faults::canBecomeAnotherUser())
        QSKIP("needs root");
    const DeviceMemory memory;
    fill(memory);
    QVERIFY(QFile::rename(memory.path(QStringLiteral("pop")), memory.path(folder)) ||
            folder == QLatin1String("pop"));
    QVERIFY(Index().createIndex(memory.root()));
    QFile::setPermissions(memory.root(), QFile::Permissions(0x5555));
    const QFile::Permissions old = QFileInfo(memory.path(folder)).permissions();
    QFile::setPermissions(memory.path(folder), QFile::Permissions());
    MemorySongs songs(memory.root());
    {
        const faults::AnotherUser nobody;
        QCOMPARE(readAll(songs), MemorySongs::Outcome::Done);
    }
    QFile::setPermissions(memory.path(folder), old);
    QFile::setPermissions(memory.root(), QFile::Permissions(0x7755));
    QCOMPARE(songs.unreadableFolders(), QStringList(QLatin1Char('/') + folder));
    QCOMPARE(songs.count(State::Unreadable), 3);
    QCOMPARE(songs.count(State::Gone), 0);
}

void TestMemorySongs::damagedIndexIsNoIndex_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("cut_off_record") << QStringLiteral("index.idx") << QByteArray(100, '\0');
    QTest::newRow("more_songs_than_fit")
        << QStringLiteral("index.idx") << QByteArray(qsizetype{64} * 65536, '\0');
    QTest::newRow("descending_ids")
        << QStringLiteral("index.idx") << pathRecord(5, "/a.mid") + pathRecord(4, "/b.mid");
    QTest::newRow("unknown_song_in_titles")
        << QStringLiteral("title.idx") << QByteArray(32, '\x7F');
    QTest::newRow("unknown_song_in_genres")
        << QStringLiteral("genre.idx") << QByteArray(32, '\x7E');
}

void TestMemorySongs::damagedIndexIsNoIndex()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    const DeviceMemory memory;
    const int count = fill(memory);
    QVERIFY(Index().createIndex(memory.root()));
    memory.isLeftBroken();
    memory.add(name, bytes);
    MemorySongs songs(memory.root());
    QCOMPARE(readAll(songs), MemorySongs::Outcome::Done);
    QCOMPARE(songs.indexState(), MemorySongs::IndexState::Damaged);
    QCOMPARE(songs.count(State::NotIndexed), count);
    QCOMPARE(songs.songs().size(), count);
}

void TestMemorySongs::pathsOutsideTheMemoryAreNotFollowed()
{
    const DeviceMemory memory;
    const DeviceMemory elsewhere;
    elsewhere.add(QStringLiteral("far.mid"), midi("Far"));
    memory.add(QStringLiteral("a.mid"), midi("Alpha"));
    QVERIFY(Index().createIndex(memory.root()));
    memory.isLeftBroken();
    const QString out = QStringLiteral("/../") + QFileInfo(elsewhere.root()).fileName() +
                        QStringLiteral("/far.mid");
    QVERIFY(QFileInfo::exists(memory.root() + out));
    QVERIFY(out.size() < 46);
    memory.add(QStringLiteral("index.idx"),
               pathRecord(0, "/a.mid") + pathRecord(1, out.toLatin1()));
    MemorySongs songs(memory.root());
    QCOMPARE(readAll(songs), MemorySongs::Outcome::Done);
    QCOMPARE(songs.songs().size(), 2);
    QCOMPARE(find(songs, out)->state, State::Gone);
}

void TestMemorySongs::entryThatStandsTwiceIsNoMissingSong()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("a.mid"), midi("Alpha"));
    QVERIFY(Index().createIndex(memory.root()));
    memory.isLeftBroken();
    memory.add(QStringLiteral("index.idx"), pathRecord(0, "/a.mid") + pathRecord(1, "/a.mid"));
    MemorySongs songs(memory.root());
    QCOMPARE(readAll(songs), MemorySongs::Outcome::Done);
    QCOMPARE(songs.songs().size(), 1);
    QCOMPARE(songs.count(State::Indexed), 1);
}

void TestMemorySongs::memoryThatVanishesTellsNothing()
{
    MemorySongs never(QStringLiteral("/nowhere/at/all"));
    QCOMPARE(readAll(never), MemorySongs::Outcome::NoMemory);

    const DeviceMemory memory;
    fill(memory);
    const QString moved = memory.root() + QStringLiteral("-pulled");

    /** Pulls the memory as soon as the first folder was read. */
    class Pull : public Progress
    {
    public:
        Pull(QString from, QString to)
            : m_from(std::move(from))
            , m_to(std::move(to))
        {
        }
        void setMaximum(int) override {}
        void setValue(int) override { QDir().rename(m_from, m_to); }
        void updateProgress(int) override {}
        bool wasCanceled() const override { return false; }

    private:
        QString m_from;
        QString m_to;
    };
    Pull pull(memory.root(), moved);
    MemorySongs songs(memory.root());
    QCOMPARE(songs.read(pull), MemorySongs::Outcome::NoMemory);
    QVERIFY(songs.songs().isEmpty());
    QVERIFY(QDir().rename(moved, memory.root()));
}

void TestMemorySongs::stopLeavesNoHalfList()
{
    const DeviceMemory memory;
    fill(memory);
    ProgressRecord record;
    record.canceled = true;
    RecordedProgress progress(record, {}, {}, 0);
    MemorySongs songs(memory.root());
    QCOMPARE(songs.read(progress), MemorySongs::Outcome::Stopped);
    QVERIFY(songs.songs().isEmpty());
}

QTEST_GUILESS_MAIN(TestMemorySongs)
#include "test_memorysongs.moc"
