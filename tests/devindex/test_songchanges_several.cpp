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
