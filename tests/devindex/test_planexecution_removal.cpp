// Songs that a plan takes from a memory, and the index meanwhile.
#include "devindex/index.h"
#include "devindex/planexecution.h"
#include "devindex/transfer.h"
#include "support/faults.h"
#include "support/logcapture.h"
#include "support/planfixture.h"
#include "support/songbytes.h"
#include "support/transferfixture.h"

#include <sys/stat.h>

using namespace planfixture;
using transferfixture::ScriptedQuestions;

class TestPlanExecutionRemoval : public PlanFixture
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { PlanFixture::cleanup(); }

    void tickedSongsGoWithTheirPictures();
    void othersStay();
    void thereIsNoIndexWhileSongsGo();
    void songsThatStayKeepTheirIds();
    void removalOfAllSongsLeavesNoIndex();
    void memoryWithoutAnIndexGetsOne();
    void songThatChangedMeanwhileStays_data();
    void songThatChangedMeanwhileStays();
    void songThatCannotBeRemovedIsNamed();
    void nothingGoesWhenACopyFailed();
    void nothingGoesAfterAStop();
    void stopLeavesTheRestOfTheSongs();
    void stopBeforeTheFirstSongLeavesAll();
    void nothingGoesWhenTheCountsStay();
    void nothingGoesThatIsNoRemoval();

private:
    TransferPlan ticked(const QStringList &files = {});
    Transfer::Outcome carryOut(const TransferPlan &made);
    bool updateIndex() const { return Index().updateIndex(m_card->root()); }
    bool isThere(const QString &name) const { return QFileInfo::exists(m_card->path(name)); }

    std::unique_ptr<ScriptedQuestions> m_user;
    std::function<void(CopyingProgress &, int)> m_onUpdate;
};

void TestPlanExecutionRemoval::init()
{
    PlanFixture::init();
    m_user = std::make_unique<ScriptedQuestions>();
    m_onUpdate = {};
    QVERIFY(QDir().mkdir(m_folder));
}

/** A plan in which every song that can be removed is ticked. */
TransferPlan TestPlanExecutionRemoval::ticked(const QStringList &files)
{
    TransferPlan made = plan(files, true);
    for (TransferPlan::Item &item : made.items) {
        if (item.state == State::Remove)
            item.remedy = Remedy::Remove;
    }
    return made;
}

Transfer::Outcome TestPlanExecutionRemoval::carryOut(const TransferPlan &made)
{
    const OpenProgress progress = [this](const QString &, const QString &, int) {
        auto opened = std::make_unique<CopyingProgress>();
        CopyingProgress *const raw = opened.get();
        opened->onUpdate = [this, raw](int done) {
            if (m_onUpdate)
                m_onUpdate(*raw, done);
        };
        return std::unique_ptr<Progress>(std::move(opened));
    };
    return Transfer(*m_user, progress).carryOut(made);
}

void TestPlanExecutionRemoval::tickedSongsGoWithTheirPictures()
{
    onCard(QStringLiteral("pop/a.mid"), "A");
    m_card->writeOnCard(QStringLiteral("pop/sub/k.mp3"), "music");
    m_card->writeOnCard(QStringLiteral("pop/sub/k.CDG"), "pictures");
    m_card->writeOnCard(QStringLiteral("pop/sub/notes.txt"), "stay");
    QVERIFY(updateIndex());
    QCOMPARE(carryOut(ticked({song(QStringLiteral("new.mid"), "NEW")})),
             Transfer::Outcome::Complete);
    QVERIFY(!isThere(QStringLiteral("pop/a.mid")));
    QVERIFY(!isThere(QStringLiteral("pop/sub/k.mp3")));
    QVERIFY(!isThere(QStringLiteral("pop/sub/k.CDG")));
    QVERIFY(isThere(QStringLiteral("pop/sub/notes.txt")));
    QCOMPARE(m_card->indexedPaths(), QStringList(QStringLiteral("/pop/new.mid")));
    QVERIFY(m_user->counts.first().contains(QStringLiteral("Song rimosse: 2")));
    QCOMPARE(m_user->skippedLines,
             QStringList({QStringLiteral("a.mid: rimossa"), QStringLiteral("k.mp3: rimossa")}));
}

void TestPlanExecutionRemoval::othersStay()
{
    onCard(QStringLiteral("pop/a.mid"), "A");
    onCard(QStringLiteral("pop/b.mid"), "B");
    onCard(QStringLiteral("elsewhere/c.mid"), "C");
    TransferPlan made = plan({}, true);
    QCOMPARE(made.items.size(), 2);
    made.items[0].remedy = Remedy::Remove;
    QCOMPARE(carryOut(made), Transfer::Outcome::Complete);
    QCOMPARE(m_card->indexedPaths(),
             QStringList({QStringLiteral("/elsewhere/c.mid"), QStringLiteral("/pop/b.mid")}));
}

void TestPlanExecutionRemoval::thereIsNoIndexWhileSongsGo()
{
    const QString path = onCard(QStringLiteral("pop/a.mid"), "A");
    onCard(QStringLiteral("pop/b.mid"), "B");
    QVERIFY(updateIndex());
    QVERIFY(m_card->hasIndex());
    bool hadIndex = true;
    Index index;
    QVERIFY(index.updateIndexAfter(m_card->root(), [&] {
        hadIndex = m_card->hasIndex();
        return QFile::remove(path);
    }));
    QVERIFY(!hadIndex);
    QCOMPARE(m_card->indexedPaths(), QStringList(QStringLiteral("/pop/b.mid")));
    // Also when nothing has gone after all.
    QVERIFY(Index().updateIndexAfter(m_card->root(), [] { return true; }));
    QVERIFY(m_card->hasIndex());
    // A medium that does not take the change gets no index over it.
    QVERIFY(!Index().updateIndexAfter(m_card->root(), [] { return false; }));
    QVERIFY(!m_card->hasIndex());
}

void TestPlanExecutionRemoval::songsThatStayKeepTheirIds()
{
    for (const char *name : {"a", "b", "c", "d"})
        onCard(QStringLiteral("pop/%1.mid").arg(QString::fromUtf8(name)), name);
    QVERIFY(updateIndex());
    const QByteArray playlist = QByteArray(32, '\0') + songbytes::bigEndian(3, 4) +
                                QByteArray(28, 'p') + songbytes::bigEndian(1, 4) +
                                QByteArray(28, 'p');
    m_card->writeOnCard(QStringLiteral("playlist/playlist.dat"),
                        QByteArray("\x01", 1) + QByteArray(31, '\0'));
    m_card->writeOnCard(QStringLiteral("playlist/play0001.dat"), playlist);
    // The path file of a playlist is made at the first update that sees it.
    onCard(QStringLiteral("pop/e.mid"), "e");
    QVERIFY(updateIndex());
    const QList<quint32> before = m_card->indexedIds();
    const QByteArray playlistBefore = m_card->read(QStringLiteral("playlist/play0001.dat"));

    TransferPlan made = plan({}, true);
    made.items[2].remedy = Remedy::Remove; // "c", which no playlist has
    QCOMPARE(carryOut(made), Transfer::Outcome::Complete);
    QList<quint32> left = before;
    left.removeAt(2);
    QCOMPARE(m_card->indexedIds(), left);
    QCOMPARE(m_card->read(QStringLiteral("playlist/play0001.dat")), playlistBefore);
}

void TestPlanExecutionRemoval::removalOfAllSongsLeavesNoIndex()
{
    onCard(QStringLiteral("pop/a.mid"), "A");
    QVERIFY(updateIndex());
    const LogCapture log;
    QCOMPARE(carryOut(ticked()), Transfer::Outcome::Incomplete); // a memory without any song
    QVERIFY(!isThere(QStringLiteral("pop/a.mid")));
    QVERIFY(!m_card->hasIndex());
}

void TestPlanExecutionRemoval::memoryWithoutAnIndexGetsOne()
{
    onCard(QStringLiteral("pop/a.mid"), "A");
    QCOMPARE(carryOut(ticked({song(QStringLiteral("b.mid"), "B")})), Transfer::Outcome::Complete);
    QCOMPARE(m_card->indexedPaths(), QStringList(QStringLiteral("/pop/b.mid")));
}

void TestPlanExecutionRemoval::songThatChangedMeanwhileStays_data()
{
    QTest::addColumn<QString>("how");
    for (const char *how : {"size", "time", "link", "folder", "folder link"})
        QTest::newRow(how) << QString::fromUtf8(how);
}

void TestPlanExecutionRemoval::songThatChangedMeanwhileStays()
{
    QFETCH(QString, how);
    const QString path = onCard(QStringLiteral("pop/sub/a.mid"), "A");
    onCard(QStringLiteral("pop/b.mid"), "B");
    const TransferPlan made = ticked({song(QStringLiteral("b.mid"), "B")});
    QFile file(path);
    QVERIFY(file.open(QFile::ReadWrite));
    const QByteArray bytes = file.readAll();
    if (how == QLatin1String("size")) {
        QVERIFY(file.write("x") == 1);
        file.close();
        QFile same(path);
        QVERIFY(same.open(QFile::ReadWrite));
        QVERIFY(same.setFileTime(QDateTime::fromMSecsSinceEpoch(made.items.last().changed),
                                 QFile::FileModificationTime));
    } else if (how == QLatin1String("time")) {
        QVERIFY(file.setFileTime(QDateTime(QDate(2020, 1, 1), QTime(1, 2, 3)),
                                 QFile::FileModificationTime));
    } else if (how == QLatin1String("link")) {
        QVERIFY(file.rename(m_card->path(QStringLiteral("moved.mid"))));
        QVERIFY(QFile::link(m_card->path(QStringLiteral("moved.mid")), path));
    } else if (how == QLatin1String("folder")) {
        QVERIFY(file.remove());
        QVERIFY(QDir().mkdir(path));
    } else {
        m_card->isLeftBroken(); // its judge follows no links
        const QString away = m_card->music() + QStringLiteral("/sub");
        QVERIFY(QDir().rename(QFileInfo(path).path(), away));
        QVERIFY(QFile::link(away, QFileInfo(path).path()));
    }
    file.close();
    QCOMPARE(carryOut(made), Transfer::Outcome::Incomplete);
    QVERIFY(QFileInfo::exists(path));
    QCOMPARE(m_user->failedNames, QStringList(QStringLiteral("a.mid: non è più il file di prima")));
    QVERIFY(m_card->hasIndex());
}

void TestPlanExecutionRemoval::songThatCannotBeRemovedIsNamed()
{
    if (!faults::canBecomeAnotherUser())
        QSKIP("only root can become a user who may not remove a file");
    onCard(QStringLiteral("pop/sub/a.mid"), "A");
    onCard(QStringLiteral("pop/b.mid"), "B");
    const TransferPlan made = ticked({song(QStringLiteral("b.mid"), "B")});
    PlanExecution execution(
        [](const QString &, const QString &, int) { return std::make_unique<CopyingProgress>(); },
        [](const std::function<bool()> &removal) {
            const faults::AnotherUser user;
            return removal();
        });
    for (QString folder = m_card->path(QStringLiteral("pop/sub")); folder.size() > 5;
         folder = QFileInfo(folder).path())
        QCOMPARE(::chmod(QFile::encodeName(folder).constData(), 0755), 0);
    const LogCapture log;
    const PlanExecution::Result result = execution.run(made);
    QVERIFY(isThere(QStringLiteral("pop/sub/a.mid")));
    QVERIFY(result.removed.isEmpty());
    QCOMPARE(result.failed.size(), 1);
    QCOMPARE(result.failed.first().reason, QStringLiteral("manca il permesso di scrivere"));
    QVERIFY(!result.isComplete());
}

void TestPlanExecutionRemoval::nothingGoesWhenACopyFailed()
{
    // It may be the old version of the song that did not arrive.
    onCard(QStringLiteral("pop/a.mid"), "A");
    QVERIFY(updateIndex());
    TransferPlan made = ticked({song(QStringLiteral("b.mid"), "B")});
    QVERIFY(QFile::remove(made.items.first().path));
    QCOMPARE(carryOut(made), Transfer::Outcome::Incomplete);
    QVERIFY(isThere(QStringLiteral("pop/a.mid")));
    QVERIFY(m_user->failedNames.contains(
        QStringLiteral("a.mid: non rimossa, non tutte le song sono state copiate")));
    QCOMPARE(m_card->indexedPaths(), QStringList(QStringLiteral("/pop/a.mid")));
}

void TestPlanExecutionRemoval::nothingGoesAfterAStop()
{
    onCard(QStringLiteral("pop/a.mid"), "A");
    TransferPlan made =
        ticked({song(QStringLiteral("b.mid"), "B"), song(QStringLiteral("c.mid"), "C")});
    m_onUpdate = [](CopyingProgress &progress, int) { progress.canceled = true; };
    QCOMPARE(carryOut(made), Transfer::Outcome::Incomplete);
    QVERIFY(isThere(QStringLiteral("pop/a.mid")));
    QVERIFY(m_user->failedNames.contains(
        QStringLiteral("a.mid: non rimossa, la copia è stata interrotta")));
}

void TestPlanExecutionRemoval::stopLeavesTheRestOfTheSongs()
{
    for (const char *const name : {"a", "b", "c"})
        onCard(QStringLiteral("pop/%1.mid").arg(QLatin1String(name)), name);
    QVERIFY(updateIndex());
    m_onUpdate = [](CopyingProgress &progress, int done) { progress.canceled = done == 1; };
    QCOMPARE(carryOut(ticked()), Transfer::Outcome::Incomplete);
    QVERIFY(!isThere(QStringLiteral("pop/a.mid")));
    QVERIFY(isThere(QStringLiteral("pop/b.mid")));
    QVERIFY(isThere(QStringLiteral("pop/c.mid")));
    QCOMPARE(m_user->failedNames,
             QStringList({QStringLiteral("b.mid: non rimossa, la rimozione è stata interrotta"),
                          QStringLiteral("c.mid: non rimossa, la rimozione è stata interrotta")}));
    QCOMPARE(m_user->skippedLines, QStringList(QStringLiteral("a.mid: rimossa")));
    QCOMPARE(m_card->indexedPaths(),
             QStringList({QStringLiteral("/pop/b.mid"), QStringLiteral("/pop/c.mid")}));
}

void TestPlanExecutionRemoval::stopBeforeTheFirstSongLeavesAll()
{
    onCard(QStringLiteral("pop/a.mid"), "A");
    QVERIFY(updateIndex());
    TransferPlan made = ticked();
    const OpenProgress stopped = [](const QString &, const QString &, int) {
        auto progress = std::make_unique<CopyingProgress>();
        progress->canceled = true;
        return std::unique_ptr<Progress>(std::move(progress));
    };
    QCOMPARE(Transfer(*m_user, stopped).carryOut(made), Transfer::Outcome::Incomplete);
    QVERIFY(isThere(QStringLiteral("pop/a.mid")));
    QVERIFY(m_card->hasIndex());
    QCOMPARE(m_card->indexedPaths(), QStringList(QStringLiteral("/pop/a.mid")));
}

void TestPlanExecutionRemoval::nothingGoesWhenTheCountsStay()
{
    onCard(QStringLiteral("pop/a.mid"), "A");
    // A folder with something in it cannot be taken away like the file of counts.
    m_card->isLeftBroken();
    m_card->writeOnCard(QStringLiteral("fsinfos.idx/x"), "x");
    const LogCapture log;
    QCOMPARE(carryOut(ticked()), Transfer::Outcome::Incomplete);
    QVERIFY(isThere(QStringLiteral("pop/a.mid")));
    QCOMPARE(m_user->failedNames,
             QStringList(QStringLiteral(
                 "a.mid: non rimossa, il database della memoria non può essere aggiornato")));
}

void TestPlanExecutionRemoval::nothingGoesThatIsNoRemoval()
{
    // A plan is a value that anybody can change.
    const QString there = onCard(QStringLiteral("pop/a.mid"), "A");
    const QString outside = song(QStringLiteral("outside.mid"), "O");
    TransferPlan made = plan({there});
    made.items[0].remedy = Remedy::Remove;
    TransferPlan::Item item;
    item.path = outside;
    item.state = State::Remove;
    item.remedy = Remedy::Remove;
    item.size = QFileInfo(outside).size();
    item.changed = QFileInfo(outside).lastModified().toMSecsSinceEpoch();
    made.items.append(item);
    QCOMPARE(carryOut(made), Transfer::Outcome::Incomplete);
    QVERIFY(QFileInfo::exists(there));
    QVERIFY(QFileInfo::exists(outside));
}

QTEST_GUILESS_MAIN(TestPlanExecutionRemoval)
#include "test_planexecution_removal.moc"
