// Files in the history's place that strangers made, and places in which none can be.
#include "support/faults.h"
#include "support/historyfixture.h"

#include <QDir>
#include <QFile>
#include <QSqlQuery>
#include <QTest>

#include <sys/stat.h>

using namespace historyfixture;

namespace
{

bool runSql(const QString &path, const QStringList &statements)
{
    SqlConnection connection(QStringLiteral("test_hostile"));
    if (!connection.open(path))
        return false;
    QSqlQuery query(connection.database());
    for (const QString &statement : statements) {
        if (!query.exec(statement))
            return false;
    }
    return true;
}

QString pathIn(const KeptLibrary &kept)
{
    return kept.library.path(QStringLiteral("data/history.sqlite"));
}

bool makeFolder(const KeptLibrary &kept)
{
    return QDir().mkpath(kept.library.path(QStringLiteral("data")));
}

} // namespace

class TestHistoryStoreHostile : public QObject
{
    Q_OBJECT

private slots:
    void strangersDatabaseIsNotTouched_data();
    void strangersDatabaseIsNotTouched();
    void linkIsNotFollowed_data();
    void linkIsNotFollowed();
    void pipeIsNotWaitedFor();
    void folderThatCannotBeWrittenAsks();
    void triggerOfAStrangerNeverRuns();
    void namesAreNoStatements();
    void nothingButSongsIsOverwritten();
    void pathsOfAStrangerLeadToNoOtherFile();
    void twoJobsAtOnceKeepTheirSongsApart();
};

void TestHistoryStoreHostile::strangersDatabaseIsNotTouched_data()
{
    QTest::addColumn<QStringList>("statements");
    QTest::addColumn<HistoryStore::State>("state");
    const QString table = QStringLiteral("CREATE TABLE mails (text)");
    QTest::newRow("no version") << QStringList{table} << HistoryStore::State::Damaged;
    QTest::newRow("our version") << QStringList{table, QStringLiteral("PRAGMA user_version = 1")}
                                 << HistoryStore::State::Damaged;
    QTest::newRow("our version, no table")
        << QStringList{QStringLiteral("PRAGMA user_version = 1")} << HistoryStore::State::Damaged;
    QTest::newRow("negative version")
        << QStringList{QStringLiteral("PRAGMA user_version = -1")} << HistoryStore::State::Damaged;
    QTest::newRow("later version") << QStringList{table, QStringLiteral("PRAGMA user_version = 2")}
                                   << HistoryStore::State::Newer;
}

void TestHistoryStoreHostile::strangersDatabaseIsNotTouched()
{
    QFETCH(QStringList, statements);
    QFETCH(HistoryStore::State, state);
    KeptLibrary kept;
    QVERIFY(makeFolder(kept) && runSql(pathIn(kept), statements));
    const QByteArray before = samplesongs::readFile(pathIn(kept));
    QVERIFY(!before.isEmpty());
    QCOMPARE(HistoryStore(pathIn(kept)).open(), state);
    QCOMPARE(samplesongs::readFile(pathIn(kept)), before);
    QCOMPARE(QDir(kept.library.path(QStringLiteral("data"))).entryList(QDir::Files).size(), 1);
}

void TestHistoryStoreHostile::linkIsNotFollowed_data()
{
    QTest::addColumn<bool>("hasTarget");
    QTest::newRow("to an empty file") << true;
    QTest::newRow("to nothing") << false;
}

void TestHistoryStoreHostile::linkIsNotFollowed()
{
    QFETCH(bool, hasTarget);
    KeptLibrary kept;
    const QString target = kept.library.path(QStringLiteral("target"));
    QVERIFY(makeFolder(kept));
    if (hasTarget)
        QVERIFY(samplesongs::writeFile(target, {}));
    QVERIFY(QFile::link(target, pathIn(kept)));
    QVERIFY(!kept.synchronise());
    QCOMPARE(kept.store.state(), HistoryStore::State::Damaged);
    QCOMPARE(QFileInfo::exists(target), hasTarget);
    QCOMPARE(samplesongs::readFile(target), QByteArray());
    QCOMPARE(kept.bytes(), kept.original);
}

void TestHistoryStoreHostile::pipeIsNotWaitedFor()
{
    KeptLibrary kept;
    QVERIFY(makeFolder(kept));
    QCOMPARE(mkfifo(QFile::encodeName(pathIn(kept)).constData(), 0600), 0);
    QVERIFY(!kept.synchronise());
    QCOMPARE(kept.store.state(), HistoryStore::State::Unwritable);
}

void TestHistoryStoreHostile::folderThatCannotBeWrittenAsks()
{
    if (!faults::canBecomeAnotherUser())
        QSKIP("only root can become another user");
    KeptLibrary kept;
    QVERIFY(makeFolder(kept));
    QCOMPARE(chmod(QFile::encodeName(kept.library.path({})).constData(), 0755), 0);
    const faults::AnotherUser user; // who may read, and owns neither the folder nor the songs
    QVERIFY(!kept.synchronise());
    QCOMPARE(kept.store.state(), HistoryStore::State::Unwritable);
    QCOMPARE(kept.reasons.size(), 1);
}

void TestHistoryStoreHostile::triggerOfAStrangerNeverRuns()
{
    KeptLibrary kept;
    QVERIFY(kept.synchronise());
    QVERIFY(runSql(pathIn(kept), {QStringLiteral("CREATE TRIGGER mean AFTER INSERT ON jobs BEGIN "
                                                 "DELETE FROM songs; END")}));
    QVERIFY(!kept.edit(0, [](SongEdit &edit) { edit.info.title = QStringLiteral("Mine"); }));
    QCOMPARE(kept.store.state(), HistoryStore::State::Damaged);
    QVERIFY(runSql(pathIn(kept), {QStringLiteral("DROP TRIGGER mean")}));
    QCOMPARE(kept.store.open(), HistoryStore::State::Ready);
    QCOMPARE(kept.store.jobs().size(), 1);
    QCOMPARE(kept.store.jobs().constFirst().songs, 3);
}

void TestHistoryStoreHostile::namesAreNoStatements()
{
    KeptLibrary kept;
    const QString name = QStringLiteral("'); DROP TABLE songs; --\n\"?1 \u00e8.mid");
    const QByteArray before = syncfixture::midi(syncfixture::titled("x"));
    QVERIFY(kept.library.add(name, before));
    QVERIFY(kept.edit(
        4, [](SongEdit &edit) { edit.info.title = QStringLiteral("'); DROP TABLE jobs; --"); }));
    const HistoryJob job = kept.store.jobs().constFirst();
    const HistorySong song = kept.store.songs(job.number).constFirst();
    QCOMPARE(song.path, kept.library.path(name));
    QCOMPARE(song.after.title, QStringLiteral("'); DROP TABLE jobs; --"));
    QVERIFY(kept.takeBack(job).failed.isEmpty());
    QCOMPARE(kept.library.bytes(name), before);
}

/** Also when the user wants songs back that were changed since. */
void TestHistoryStoreHostile::nothingButSongsIsOverwritten()
{
    KeptLibrary kept;
    QVERIFY(kept.synchronise());
    const QString letter = kept.library.path(QStringLiteral("letter.txt"));
    QVERIFY(samplesongs::writeFile(letter, "Dear Sir"));
    QVERIFY(runSql(pathIn(kept), {QStringLiteral("UPDATE songs SET path = '%1'").arg(letter)}));
    QCOMPARE(kept.takeBack(kept.store.jobs().constFirst(), true).failed.size(), 3);
    QCOMPARE(samplesongs::readFile(letter), QByteArray("Dear Sir"));
}

void TestHistoryStoreHostile::pathsOfAStrangerLeadToNoOtherFile()
{
    KeptLibrary kept;
    QVERIFY(kept.synchronise());
    const auto synchronised = kept.bytes();
    QVERIFY(samplesongs::writeFile(kept.library.path(QStringLiteral("letter.txt")), "Dear Sir"));
    QVERIFY(runSql(pathIn(kept), {QStringLiteral("UPDATE songs SET new_path = path, path = '%1'")
                                      .arg(kept.library.path(QStringLiteral("letter.txt")))}));
    QCOMPARE(kept.takeBack(kept.store.jobs().constFirst(), true).failed.size(), 3);
    QCOMPARE(kept.bytes(), synchronised);
    QCOMPARE(samplesongs::readFile(kept.library.path(QStringLiteral("letter.txt"))),
             QByteArray("Dear Sir"));
}

void TestHistoryStoreHostile::twoJobsAtOnceKeepTheirSongsApart()
{
    KeptLibrary kept;
    HistoryStore other(pathIn(kept));
    const auto refuse = [](const QString &) { return false; };
    const QString a = kept.library.path(QStringLiteral("a.mid"));
    const QString d = kept.library.path(QStringLiteral("d.mid"));
    {
        HistoryRecorder one(kept.store, HistoryJob::Kind::Edit, refuse);
        HistoryRecorder two(other, HistoryJob::Kind::Tags, refuse);
        QVERIFY(one.keep({a}));
        QVERIFY(two.keep({d}));
        QVERIFY(samplesongs::writeFile(a, syncfixture::midi(syncfixture::titled("one"))));
        QVERIFY(samplesongs::writeFile(d, syncfixture::midi(syncfixture::titled("two"))));
        two.written(d, {}, {});
        // A third program looks at the history meanwhile.
        HistoryStore third(pathIn(kept));
        QCOMPARE(third.open(), HistoryStore::State::Ready);
        third.settle();
        one.written(a, {}, {});
    }
    const QList<HistoryJob> jobs = other.jobs();
    QCOMPARE(jobs.size(), 2);
    QCOMPARE(other.songs(jobs.at(0).number).constFirst().path, d);
    QCOMPARE(other.songs(jobs.at(1).number).constFirst().path, a);
    for (const HistoryJob &job : jobs)
        QVERIFY(kept.takeBack(job).failed.isEmpty());
    QCOMPARE(kept.bytes(), kept.original);
}

QTEST_GUILESS_MAIN(TestHistoryStoreHostile)
#include "test_historystore_hostile.moc"
