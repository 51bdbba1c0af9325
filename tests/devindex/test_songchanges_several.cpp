// Several songs of a memory are rewritten at the cost of one update; the index is built on request.
#include "support/listedmemory.h"
#include "support/logcapture.h"

#include <QTemporaryDir>
#include <QTest>

using namespace listedmemory;

class TestSongChangesSeveral : public QuietIndexFixture
{
    Q_OBJECT

private slots:
    void init() { QuietIndexFixture::init(); }
    void cleanup() { QuietIndexFixture::cleanup(); }

    void severalSongsAreRewrittenWithOneUpdate();
    void rewriteThatIsStoppedLeavesATrueIndex();
    void renameLeavesTheEntryOfATwinAlone();
    void renamedSongWhoseNameTheIndexCannotHoldKeepsItsId_data();
    void renamedSongWhoseNameTheIndexCannotHoldKeepsItsId();
    void renameLeavesTheEntryOfAnUnclearTwinAlone();
    void rewrittenSongWhoseNameTheIndexCannotHoldIsReadAgain();

    void updateTakesNewSongs();
    void rebuildReplacesADamagedIndex();
    void buildThatFailsSaysWhy_data();
    void buildThatFailsSaysWhy();
};

void TestSongChangesSeveral::severalSongsAreRewrittenWithOneUpdate()
{
    const ListedMemory memory;
    Job job{{}, memory.root()};
    LogCapture::lines().clear();
    const auto report = job.changes().rewriteAll(
        {text("/Azzurro.mid"), text("/pop/Volare.kar"), text("/no/such.mid")},
        [&](const QString &path) {
            if (path == text("/pop/Volare.kar"))
                return text("disk full");
            memory.add(path.mid(1), midi("New title", "Celentano"));
            return QString();
        });
    QCOMPARE(report.done, QStringList(text("/Azzurro.mid")));
    QCOMPARE(report.failed.size(), 2); // the one that is not there was not even tried
    QCOMPARE(report.failed.at(1).reason, text("disk full"));
    QVERIFY(report.isIndexTrue);
    QCOMPARE(job.progress.opened, 2); // the songs, and the index once
    QCOMPARE(LogCapture::lines().filter(text("create path index")).size(), 1);
    QVERIFY(memory.read(text("title.idx")).contains("NEW TITLE"));
    QCOMPARE(memory.faults(), QString());
}

void TestSongChangesSeveral::rewriteThatIsStoppedLeavesATrueIndex()
{
    const ListedMemory memory;
    Job job{{}, memory.root()};
    job.progress.onUpdate = [&](int) { job.progress.canceled = true; };
    const auto report = job.changes().rewriteAll(
        {text("/Azzurro.mid"), text("/pop/Volare.kar")}, [&](const QString &path) {
            memory.add(path.mid(1), midi("New title", "Celentano"));
            return QString();
        });
    QCOMPARE(report.done, QStringList(text("/Azzurro.mid")));
    QVERIFY(report.stopped && report.isIndexTrue);
    QCOMPARE(memory.faults(), QString());
}

/** Where letter case counts, the index has one of two such files; the other is renamed. */
void TestSongChangesSeveral::renameLeavesTheEntryOfATwinAlone()
{
    const ListedMemory memory;
    const quint32 id = memory.idOf("/Azzurro.mid");
    memory.add(text("AZZURRO.mid"), midi("Twin"));
    Job job{{}, memory.root()};
    const auto report = job.changes().rename(text("/AZZURRO.mid"), text("Other.mid"));
    QCOMPARE(report.done, QStringList(text("/Other.mid")));
    QCOMPARE(memory.idOf("/Azzurro.mid"), id); // and with it the song of the playlist
    QVERIFY(memory.idOf("/Other.mid") != id);
}

void TestSongChangesSeveral::renamedSongWhoseNameTheIndexCannotHoldKeepsItsId_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QByteArray>("listed");
    QTest::addColumn<QByteArray>("renamed");
    QTest::newRow("song") << text("/pop/日本.mid") << QByteArray("/pop/??.mid")
                          << QByteArray("/pop/Sakura.mid");
    QTest::newRow("folder") << text("/Ω/Nihon.mid") << QByteArray("/?/Nihon.mid")
                            << QByteArray("/?/Sakura.mid");
}

/** Such a song stands in the index with "?" for the characters; it is renamed to mend that. */
void TestSongChangesSeveral::renamedSongWhoseNameTheIndexCannotHoldKeepsItsId()
{
    QFETCH(QString, path);
    QFETCH(QByteArray, listed);
    QFETCH(QByteArray, renamed);
    const ListedMemory memory;
    memory.add(path.mid(1), midi("Sakura", "Nobody"));
    QVERIFY(Index().updateIndex(memory.root()));
    const quint32 id = memory.idOf(listed);
    const QByteArray songs = bigEndian(id, 4) + QByteArray(28, 'p');
    memory.add(text("playlist/play0001.dat"), songs);
    Job job{{}, memory.root()};
    QVERIFY(job.changes().rename(path, text("Sakura.mid")).isComplete());
    QCOMPARE(memory.idOf(renamed), id);
    QCOMPARE(memory.read(text("playlist/play0001.dat")), songs);
    QCOMPARE(memory.faults(), QString());
}

/** Of two songs with one name in the index, nobody knows which the player's playlist means. */
void TestSongChangesSeveral::renameLeavesTheEntryOfAnUnclearTwinAlone()
{
    const ListedMemory memory;
    memory.add(text("pop/α.mid"), midi("Alpha", "Nobody"));
    QVERIFY(Index().updateIndex(memory.root()));
    const quint32 id = memory.idOf("/pop/?.mid");
    memory.add(text("pop/β.mid"), midi("Beta", "Nobody")); // the index was not told
    Job job{{}, memory.root()};
    QVERIFY(job.changes().rename(text("/pop/β.mid"), text("Beta.mid")).isComplete());
    QCOMPARE(memory.idOf("/pop/?.mid"), id);
    QVERIFY(memory.idOf("/pop/Beta.mid") != id);
    QCOMPARE(memory.faults(), QString());
}

/** Twice within the time that a file system tells apart. */
void TestSongChangesSeveral::rewrittenSongWhoseNameTheIndexCannotHoldIsReadAgain()
{
    const ListedMemory memory;
    memory.add(text("pop/日本.mid"), midi("Old title", "Nobody"));
    const QDateTime same(QDate(2020, 5, 6), QTime(7, 8, 10));
    const auto setTime = [&] {
        QFile song(memory.path(text("pop/日本.mid")));
        return song.open(QFile::ReadWrite) &&
               song.setFileTime(same, QFileDevice::FileModificationTime);
    };
    QVERIFY(setTime() && Index().updateIndex(memory.root()));
    Job job{{}, memory.root()};
    const auto report = job.changes().rewriteAll({text("/pop/日本.mid")}, [&](const QString &) {
        memory.add(text("pop/日本.mid"), midi("New title", "Nobody"));
        return setTime() ? QString() : text("no time");
    });
    QVERIFY(report.isComplete());
    QVERIFY(memory.read(text("title.idx")).contains("NEW TITLE"));
}

void TestSongChangesSeveral::updateTakesNewSongs()
{
    const ListedMemory memory;
    memory.add(text("Fresh.mid"), midi("Fresh"));
    const qsizetype before = memory.indexed().size();
    Job job{{}, memory.root()};
    QVERIFY(job.changes().updateIndex().isComplete());
    QCOMPARE(memory.indexed().size(), before + 1);
    QCOMPARE(memory.faults(), QString());
    QVERIFY(!memory.has(".kavena-lock"));
}

void TestSongChangesSeveral::rebuildReplacesADamagedIndex()
{
    const ListedMemory memory;
    memory.add(text("title.idx"), "half a record");
    Job job{{}, memory.root()};
    QVERIFY(!job.changes().updateIndex().refusal.isEmpty());
    QCOMPARE(memory.read(text("title.idx")), QByteArray("half a record"));
    QVERIFY(job.changes().rebuildIndex().isComplete());
    QCOMPARE(memory.faults(), QString());
}

void TestSongChangesSeveral::buildThatFailsSaysWhy_data()
{
    QTest::addColumn<QString>("root"); // %1 stands for an empty folder
    QTest::addColumn<QString>("reason");
    QTest::newRow("no songs") << "%1" << text("Nella memoria non ci sono song.");
    QTest::newRow("no memory") << "%1/gone" << QString(); // the lock's words
}

void TestSongChangesSeveral::buildThatFailsSaysWhy()
{
    QFETCH(QString, root);
    QFETCH(QString, reason);
    const QTemporaryDir folder;
    Job job{{}, QString(root).replace(text("%1"), folder.path())};
    for (const bool anew : {false, true}) {
        const auto report = anew ? job.changes().rebuildIndex() : job.changes().updateIndex();
        QVERIFY(!report.refusal.isEmpty() && !report.isIndexTrue);
        QVERIFY(reason.isEmpty() || report.refusal == reason);
    }
    QVERIFY(!QFileInfo::exists(folder.filePath(text("gone"))));
}

QTEST_GUILESS_MAIN(TestSongChangesSeveral)
#include "test_songchanges_several.moc"
