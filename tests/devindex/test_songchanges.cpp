// Songs of a memory are removed, renamed and rewritten; its index stays true.
#include "storage/memorylock.h"
#include "support/faults.h"
#include "support/listedmemory.h"
#include "support/smallmemory.h"

#include <QTest>

using namespace listedmemory;

class TestSongChanges : public QuietIndexFixture
{
    Q_OBJECT

private slots:
    void init() { QuietIndexFixture::init(); }
    void cleanup() { QuietIndexFixture::cleanup(); }

    void removedSongsLeaveTheIndexAndKeepTheIdsOfTheOthers();
    void picturesAndJournalGoWithTheSong();
    void noIndexIsThereWhileSongsAreRemoved();
    void removalThatIsStoppedLeavesATrueIndex();
    void lastSongTakesTheIndexWithIt();
    void memoryWithoutIndexGetsOne();
    void damagedIndexKeepsItsSongs();
    void nothingOutsideTheSongFoldersIsRemoved_data();
    void nothingOutsideTheSongFoldersIsRemoved();
    void linksAreNotRemoved();
    void refusedSongsDoNotKeepTheOthers();
    void memoryInUseIsLeftAlone();
    void protectedMemoryLosesNothing();
    void songThatMayNotBeRemovedKeepsItsPictures();

    void renamedSongStaysInItsPlaylists();
    void picturesAreRenamedWithTheSong();
    void nameThatIsTakenChangesNothing();
    void songWithoutTitleShowsItsNewName();
    void renameNeedsAnIndex();

    void rewrittenSongIsReadAgain();
    void songThatWasNotSavedIsNamed();
};

void TestSongChanges::removedSongsLeaveTheIndexAndKeepTheIdsOfTheOthers()
{
    const ListedMemory memory;
    const QStringList before = memory.indexed();
    Job job{{}, memory.root()};
    const auto report = job.changes().remove({text("/pop/Notag.MP3"), text("/Azzurro.mid")});
    QVERIFY(report.isComplete());
    QCOMPARE(report.done, QStringList({text("/pop/Notag.MP3"), text("/Azzurro.mid")}));
    QVERIFY(!memory.has("pop/Notag.MP3") && !memory.has("Azzurro.mid"));
    QStringList expected = before;
    expected.removeIf([](const QString &record) {
        return record.endsWith(text("/Notag.MP3")) || record.endsWith(text("/Azzurro.mid"));
    });
    QCOMPARE(memory.indexed(), expected);
    QCOMPARE(expected.size(), before.size() - 2);
    // The playlist still names the song that is gone.
    QVERIFY2(memory.faults().endsWith(text("play0001.dat song 1: id 0 is not on the memory\n")),
             qPrintable(memory.faults()));
    memory.isLeftBroken();
}

void TestSongChanges::picturesAndJournalGoWithTheSong()
{
    const ListedMemory memory;
    memory.isLeftBroken(); // a playlist names the song
    memory.add(text("pop/.Ciao.mp3.kavena-journal"), "left by a save that was cut off");
    memory.add(text("pop/Ciao2.cdg"), "of another song");
    Job job{{}, memory.root()};
    QVERIFY(job.changes().remove({text("/pop/Ciao.mp3")}).isComplete());
    QVERIFY(!memory.has("pop/Ciao.mp3") && !memory.has("pop/Ciao.cdg"));
    QVERIFY(!memory.has("pop/.Ciao.mp3.kavena-journal"));
    QVERIFY(memory.has("pop/Ciao2.cdg"));
}

void TestSongChanges::noIndexIsThereWhileSongsAreRemoved()
{
    const ListedMemory memory;
    Job job{{}, memory.root()};
    int looks = 0;
    job.progress.onUpdate = [&](int) {
        ++looks;
        QVERIFY(!memory.has("fsinfos.idx"));
        QVERIFY(memory.has(".kavena-lock"));
    };
    QVERIFY(job.changes().remove({text("/x/tiny.mid"), text("/pop/Notag.MP3")}).isComplete());
    QCOMPARE(looks, 2);
    QVERIFY(memory.has("fsinfos.idx"));
    QVERIFY(!memory.has(".kavena-lock"));
    QCOMPARE(memory.faults(), QString());
}

void TestSongChanges::removalThatIsStoppedLeavesATrueIndex()
{
    const ListedMemory memory;
    Job job{{}, memory.root()};
    job.progress.onUpdate = [&](int) { job.progress.canceled = true; };
    const auto report = job.changes().remove({text("/x/tiny.mid"), text("/pop/Notag.MP3")});
    QVERIFY(report.stopped && report.isIndexTrue && !report.isComplete());
    QCOMPARE(report.done, QStringList(text("/x/tiny.mid")));
    QVERIFY(memory.has("pop/Notag.MP3"));
    QCOMPARE(memory.faults(), QString());
}

void TestSongChanges::lastSongTakesTheIndexWithIt()
{
    const DeviceMemory memory;
    memory.add(text("a.mid"), midi("A"));
    QVERIFY(Index().createIndex(memory.root()));
    Job job{{}, memory.root()};
    const auto report = job.changes().remove({text("/a.mid")});
    QVERIFY(report.isComplete());
    QCOMPARE(memory.presentIndexFiles(), QStringList());
}

void TestSongChanges::memoryWithoutIndexGetsOne()
{
    const DeviceMemory memory;
    fill(memory);
    Job job{{}, memory.root()};
    QVERIFY(job.changes().remove({text("/x/tiny.mid")}).isComplete());
    QCOMPARE(memory.faults(), QString());
    QCOMPARE(pathRecords(memory).size(), 7);
}

void TestSongChanges::damagedIndexKeepsItsSongs()
{
    const ListedMemory memory;
    memory.isLeftBroken();
    memory.add(text("title.idx"), "damaged");
    const auto before = memory.snapshot();
    Job job{{}, memory.root()};
    const auto report = job.changes().remove({text("/x/tiny.mid")});
    QVERIFY(!report.refusal.isEmpty() && !report.isIndexTrue);
    QVERIFY(report.done.isEmpty());
    auto after = memory.snapshot();
    QCOMPARE(after.keys(), before.keys());
    QCOMPARE(after, before);
}

void TestSongChanges::nothingOutsideTheSongFoldersIsRemoved_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("outside") << text("/../outside.mid");
    QTest::newRow("outside from a folder") << text("/pop/../../outside.mid");
    QTest::newRow("without a slash") << text("Azzurro.mid");
    QTest::newRow("doubled slash") << text("//Azzurro.mid");
    QTest::newRow("dot") << text("/./Azzurro.mid");
    QTest::newRow("player's folder") << text("/SFX/a.mid");
    QTest::newRow("playlists") << text("/playlist/a.mid");
    QTest::newRow("hidden") << text("/.hidden.mid");
    QTest::newRow("folder") << text("/folder.mid");
    QTest::newRow("no song") << text("/x/notes.txt");
    QTest::newRow("index") << text("/index.idx");
    QTest::newRow("nothing") << QString();
    QTest::newRow("root") << text("/");
    QTest::newRow("not there") << text("/gone.mid");
}

void TestSongChanges::nothingOutsideTheSongFoldersIsRemoved()
{
    QFETCH(QString, path);
    const ListedMemory memory;
    memory.isLeftBroken();
    for (const char *name : {"SFX/a.mid", "playlist/a.mid", ".hidden.mid", "folder.mid/a.mid"})
        memory.add(text(name), "keep");
    const auto before = memory.snapshot();
    Job job{{}, memory.root()};
    const auto report = job.changes().remove({path});
    QCOMPARE(report.failed.size(), 1);
    QVERIFY(!report.failed.constFirst().reason.isEmpty());
    QVERIFY(report.done.isEmpty() && report.isIndexTrue);
    QCOMPARE(memory.snapshot(), before);
}

void TestSongChanges::linksAreNotRemoved()
{
    const DeviceMemory memory;
    const DeviceMemory elsewhere;
    elsewhere.add(text("far.mid"), midi("Far"));
    memory.add(text("a.mid"), midi("A"));
    QVERIFY(QFile::link(elsewhere.root(), memory.path(text("away"))));
    QVERIFY(QFile::link(elsewhere.path(text("far.mid")), memory.path(text("one.mid"))));
    Job job{{}, memory.root()};
    const auto report = job.changes().remove({text("/away/far.mid"), text("/one.mid")});
    QCOMPARE(report.failed.size(), 2);
    QVERIFY(QFileInfo::exists(elsewhere.path(text("far.mid"))));
    QVERIFY(QFileInfo(memory.path(text("one.mid"))).isSymLink());
}

void TestSongChanges::refusedSongsDoNotKeepTheOthers()
{
    const ListedMemory memory;
    Job job{{}, memory.root()};
    const auto report =
        job.changes().remove({text("/gone.mid"), text("/x/tiny.mid"), text("/x/tiny.mid")});
    QCOMPARE(report.done, QStringList(text("/x/tiny.mid")));
    QCOMPARE(report.failed.size(), 1);
    QCOMPARE(report.failed.constFirst().path, text("/gone.mid"));
    QVERIFY(!report.isComplete());
    QCOMPARE(memory.faults(), QString());
}

void TestSongChanges::memoryInUseIsLeftAlone()
{
    const ListedMemory memory;
    MemoryLock lock(memory.root());
    QVERIFY(lock.take());
    const auto before = memory.snapshot();
    Job job{{}, memory.root()};
    QVERIFY(!job.changes().remove({text("/x/tiny.mid")}).refusal.isEmpty());
    QVERIFY(!job.changes().rename(text("/x/tiny.mid"), text("new.mid")).refusal.isEmpty());
    QCOMPARE(memory.snapshot(), before);
}

void TestSongChanges::protectedMemoryLosesNothing()
{
    const QTemporaryDir folder;
    const SmallMemory medium(folder.path(), 0, "size=1m");
    if (!medium.isMounted())
        QSKIP("needs root");
    QFile song(folder.filePath(text("a.mid")));
    QVERIFY(song.open(QFile::WriteOnly) && song.write(midi("A")) > 0);
    song.close();
    QVERIFY(Index().createIndex(folder.path()));
    QVERIFY(medium.protect());
    Job job{{}, folder.path()};
    const auto report = job.changes().remove({text("/a.mid")});
    QVERIFY(!report.refusal.isEmpty());
    QVERIFY(report.done.isEmpty());
    QVERIFY(song.exists() && QFileInfo::exists(folder.filePath(text("fsinfos.idx"))));
}

void TestSongChanges::songThatMayNotBeRemovedKeepsItsPictures()
{
    if (!faults::canBecomeAnotherUser())
        QSKIP("needs root");
    const ListedMemory memory;
    QFile::setPermissions(memory.root(), QFile::Permissions(0x7777));
    for (const QString &name :
         DeviceMemory::indexFiles() + QStringList(text("playlist/play0001.dat")))
        QFile::setPermissions(memory.path(name), QFile::Permissions(0x6666));
    QFile::setPermissions(memory.path(text("playlist")), QFile::Permissions(0x7777));
    const QString song = memory.path(text("pop/Ciao.mp3"));
    Job job{{}, memory.root()};
    SongChanges::Report report;
    {
        const faults::AnotherUser nobody; // who may not change the folder "pop"
        report = job.changes().remove({text("/pop/Ciao.mp3")});
    }
    QCOMPARE(report.failed.size(), 1);
    QVERIFY(report.isIndexTrue && report.done.isEmpty());
    QVERIFY(memory.has("pop/Ciao.mp3") && memory.has("pop/Ciao.cdg"));
    QCOMPARE(memory.faults(), QString());
}

void TestSongChanges::renamedSongStaysInItsPlaylists()
{
    const ListedMemory memory;
    const quint32 id = memory.idOf("/pop/Volare.kar");
    const QByteArray playlist = memory.read(text("playlist/play0001.dat"));
    Job job{{}, memory.root()};
    const auto report = job.changes().rename(text("/pop/Volare.kar"), text("Blu.kar"));
    QVERIFY(report.isComplete());
    QCOMPARE(report.done, QStringList(text("/pop/Blu.kar")));
    QVERIFY(memory.has("pop/Blu.kar") && !memory.has("pop/Volare.kar"));
    QCOMPARE(memory.idOf("/pop/Blu.kar"), id);
    QCOMPARE(memory.read(text("playlist/play0001.dat")), playlist);
    QCOMPARE(memory.faults(), QString());
    // By path as well, for the day on which the songs get new ids.
    QVERIFY(memory.read(text("playlist/play0001.pts")).startsWith("/pop/Blu.kar"));
    QVERIFY(Index().createIndex(memory.root()));
    QCOMPARE(memory.read(text("playlist/play0001.dat")).left(4),
             bigEndian(memory.idOf("/pop/Blu.kar"), 4));
}

void TestSongChanges::picturesAreRenamedWithTheSong()
{
    const ListedMemory memory;
    Job job{{}, memory.root()};
    QVERIFY(job.changes().rename(text("/pop/Ciao.mp3"), text("Ciao 2.mp3")).isComplete());
    QVERIFY(memory.has("pop/Ciao 2.mp3") && memory.has("pop/Ciao 2.cdg"));
    QVERIFY(!memory.has("pop/Ciao.mp3") && !memory.has("pop/Ciao.cdg"));
    QCOMPARE(memory.faults(), QString());
}

void TestSongChanges::nameThatIsTakenChangesNothing()
{
    const ListedMemory memory;
    memory.add(text("pop/other.kar"), midi("Other"));
    QVERIFY(Index().updateIndex(memory.root()));
    const auto before = memory.snapshot();
    Job job{{}, memory.root()};
    const auto report = job.changes().rename(text("/pop/Volare.kar"), text("OTHER.kar"));
    QCOMPARE(report.failed.size(), 1);
    QVERIFY(report.isIndexTrue);
    QCOMPARE(memory.snapshot(), before);
}

void TestSongChanges::songWithoutTitleShowsItsNewName()
{
    const ListedMemory memory;
    Job job{{}, memory.root()};
    QVERIFY(job.changes().rename(text("/pop/Notag.MP3"), text("Fresh.MP3")).isComplete());
    QVERIFY(memory.read(text("title.idx")).contains("FRESH.MP3"));
    QVERIFY(!memory.read(text("title.idx")).contains("NOTAG"));
    QCOMPARE(memory.faults(), QString());
}

void TestSongChanges::renameNeedsAnIndex()
{
    const ListedMemory memory;
    memory.isLeftBroken();
    memory.remove(text("fsinfos.idx"));
    const auto before = memory.snapshot();
    Job job{{}, memory.root()};
    QVERIFY(!job.changes().rename(text("/pop/Volare.kar"), text("Blu.kar")).refusal.isEmpty());
    QCOMPARE(memory.snapshot(), before);
}

void TestSongChanges::rewrittenSongIsReadAgain()
{
    const ListedMemory memory;
    Job job{{}, memory.root()};
    bool hadIndex = true;
    const auto report = job.changes().rewrite(text("/Azzurro.mid"), [&] {
        hadIndex = memory.has("fsinfos.idx");
        // The same time as before: a card's clock is coarse.
        memory.add(text("Azzurro.mid"), midi("New title", "Celentano"));
        return QString();
    });
    QVERIFY(report.isComplete());
    QVERIFY(!hadIndex);
    QVERIFY(memory.read(text("title.idx")).contains("NEW TITLE"));
    QCOMPARE(memory.faults(), QString());
}

void TestSongChanges::songThatWasNotSavedIsNamed()
{
    const ListedMemory memory;
    Job job{{}, memory.root()};
    const auto report =
        job.changes().rewrite(text("/Azzurro.mid"), [] { return text("disk full"); });
    QCOMPARE(report.failed.size(), 1);
    QCOMPARE(report.failed.constFirst().reason, text("disk full"));
    QVERIFY(report.done.isEmpty() && report.isIndexTrue);
    QCOMPARE(memory.faults(), QString());
}

QTEST_GUILESS_MAIN(TestSongChanges)
#include "test_songchanges.moc"
