// The file of the history: its limit, jobs that were cut off, and files that are none.
#include "support/historyfixture.h"

#include <QDir>
#include <QFile>
#include <QSqlQuery>
#include <QTest>

using namespace historyfixture;

namespace
{

bool runSql(const QString &path, const QStringList &statements)
{
    SqlConnection connection(QStringLiteral("test_history"));
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

} // namespace

class TestHistoryStore : public QObject
{
    Q_OBJECT

private slots:
    void jobsLastBeyondTheProgram();
    void twoProgramsShareAHistory();
    void unusableHistoryAsksAndStopsTheJob_data();
    void unusableHistoryAsksAndStopsTheJob();
    void withoutHistoryTheJobGoesOnWhenTheUserWishes();
    void oldestJobsGoWhenTheLimitIsReached();
    void runningJobIsNeverDropped();
    void jobThatWasCutOffTellsWhichSongsItWrote();
    void jobThatRunsInAnotherProgramIsNotDropped();
    void damagedBytesAreNotWrittenIntoASong_data();
    void damagedBytesAreNotWrittenIntoASong();
    void hostileNumbersAndTextsAreSurvived();
};

void TestHistoryStore::jobsLastBeyondTheProgram()
{
    KeptLibrary kept;
    QVERIFY(kept.synchronise());
    HistoryStore again(pathIn(kept));
    QCOMPARE(again.open(), HistoryStore::State::Ready);
    QCOMPARE(again.jobs().size(), 1);
    QCOMPARE(again.songs(again.jobs().first().number).size(), 3);
}

void TestHistoryStore::twoProgramsShareAHistory()
{
    KeptLibrary kept;
    HistoryStore other(pathIn(kept));
    QCOMPARE(other.open(), HistoryStore::State::Ready);
    QVERIFY(kept.synchronise());
    const auto job = other.addJob(HistoryJob::Kind::Edit);
    QVERIFY(job);
    QVERIFY(*job != kept.store.jobs().first().number);
    QCOMPARE(other.jobs().size(), 1); // its own job has no songs
}

void TestHistoryStore::unusableHistoryAsksAndStopsTheJob_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("statements");
    QTest::addColumn<HistoryStore::State>("state");
    QTest::newRow("no database") << QByteArray(5000, 'x') << QStringList()
                                 << HistoryStore::State::Damaged;
    QTest::newRow("later version")
        << QByteArray() << QStringList{QStringLiteral("PRAGMA user_version = 2")}
        << HistoryStore::State::Newer;
    QTest::newRow("other table") << QByteArray()
                                 << QStringList{QStringLiteral("CREATE TABLE jobs (x)")}
                                 << HistoryStore::State::Damaged;
}

void TestHistoryStore::unusableHistoryAsksAndStopsTheJob()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QStringList, statements);
    QFETCH(HistoryStore::State, state);
    KeptLibrary kept;
    QVERIFY(QDir().mkpath(kept.library.path(QStringLiteral("data"))));
    QVERIFY(statements.isEmpty() ? samplesongs::writeFile(pathIn(kept), bytes)
                                 : runSql(pathIn(kept), statements));
    const QByteArray before = samplesongs::readFile(pathIn(kept));

    QVERIFY(!kept.synchronise());
    QCOMPARE(kept.store.state(), state);
    QCOMPARE(kept.reasons.size(), 1);
    QCOMPARE(kept.bytes(), kept.original);
    if (statements.isEmpty())
        QCOMPARE(samplesongs::readFile(pathIn(kept)), before);
}

void TestHistoryStore::withoutHistoryTheJobGoesOnWhenTheUserWishes()
{
    KeptLibrary kept;
    kept.goesOnWithout = true;
    QVERIFY(samplesongs::writeFile(kept.library.path(QStringLiteral("data")), "a file"));
    QVERIFY(kept.synchronise());
    QCOMPARE(kept.store.state(), HistoryStore::State::Unwritable);
    QCOMPARE(kept.reasons.size(), 1);
    QCOMPARE(kept.library.song(QStringLiteral("d.mid")).title, QStringLiteral("unknown"));
    QCOMPARE(kept.library.song(QStringLiteral("b.mp3")).genre, QStringLiteral("SWING"));
}

void TestHistoryStore::oldestJobsGoWhenTheLimitIsReached()
{
    KeptLibrary kept;
    const QString path = kept.library.path(QStringLiteral("a.mid"));
    HistoryStore store(kept.library.path(QStringLiteral("small.sqlite")), 3000);
    int dropped = 0;
    for (int i = 0; i < 5; ++i) {
        // Noise that cannot be compressed to less than a third of the limit.
        QByteArray noise;
        quint32 state = 12345U + static_cast<quint32>(i);
        while (noise.size() < 1200)
            noise.append(static_cast<char>((state = state * 1664525U + 1013904223U) >> 24));
        QVERIFY(samplesongs::writeFile(path, syncfixture::midi() + noise));
        HistoryRecorder recorder(store, HistoryJob::Kind::Edit,
                                 [](const QString &) { return false; });
        QVERIFY(recorder.keep({path}));
        QVERIFY(samplesongs::writeFile(path, syncfixture::midi()));
        recorder.written(path, {}, {});
        dropped += recorder.dropped();
    }
    QCOMPARE(dropped, 3);
    const QList<HistoryJob> jobs = store.jobs();
    QCOMPARE(jobs.size(), 2);
    QCOMPARE(jobs.first().number, 5);
    QCOMPARE(jobs.last().number, 4);
}

void TestHistoryStore::runningJobIsNeverDropped()
{
    KeptLibrary kept;
    HistoryStore store(kept.library.path(QStringLiteral("small.sqlite")), 1);
    const QString path = kept.library.path(QStringLiteral("a.mid"));
    {
        HistoryRecorder recorder(store, HistoryJob::Kind::Edit,
                                 [](const QString &) { return false; });
        QVERIFY(recorder.keep({path}));
        QVERIFY(samplesongs::writeFile(path, syncfixture::midi()));
        recorder.written(path, {}, {});
    }
    QCOMPARE(store.jobs().size(), 1);
}

void TestHistoryStore::jobThatWasCutOffTellsWhichSongsItWrote()
{
    KeptLibrary kept;
    QCOMPARE(kept.store.open(), HistoryStore::State::Ready);
    const auto job = kept.store.addJob(HistoryJob::Kind::Edit);
    QVERIFY(job);
    const QString written = kept.library.path(QStringLiteral("a.mid"));
    const QString untouched = kept.library.path(QStringLiteral("b.mp3"));
    QCOMPARE(kept.store
                 .addSongs(*job, {{written, {}, *SongSnapshot::of(written)},
                                  {untouched, {}, *SongSnapshot::of(untouched)}})
                 .size(),
             2);
    QVERIFY(samplesongs::writeFile(written, syncfixture::midi()));
    // Here the program was killed.
    QVERIFY(kept.store.jobs().isEmpty());
    kept.store.settle();
    QCOMPARE(kept.store.jobs().size(), 1);
    QCOMPARE(kept.store.jobs().first().songs, 1);
    // Somebody else may have written it after the program was killed.
    const QByteArray now = kept.library.bytes(QStringLiteral("a.mid"));
    const HistoryUndo::Report report = kept.takeBack(kept.store.jobs().first());
    QCOMPARE(report.failed.size(), 1);
    QCOMPARE(report.failed.first().reason, QStringLiteral("è stata cambiata dopo"));
    QCOMPARE(kept.library.bytes(QStringLiteral("a.mid")), now);
    QVERIFY(kept.takeBack(kept.store.jobs().first(), true).failed.isEmpty());
    QCOMPARE(kept.bytes(), kept.original);
}

void TestHistoryStore::jobThatRunsInAnotherProgramIsNotDropped()
{
    KeptLibrary kept;
    const QString a = kept.library.path(QStringLiteral("a.mid"));
    const QString d = kept.library.path(QStringLiteral("d.mid"));
    const auto refuse = [](const QString &) { return false; };
    HistoryStore other(pathIn(kept), 1);
    {
        HistoryRecorder running(kept.store, HistoryJob::Kind::Edit, refuse);
        QVERIFY(running.keep({a}));
        QVERIFY(samplesongs::writeFile(a, syncfixture::midi()));
        QCOMPARE(other.open(), HistoryStore::State::Ready);
        other.settle();
        HistoryRecorder second(other, HistoryJob::Kind::Edit, refuse);
        QVERIFY(second.keep({d}));
        QCOMPARE(second.dropped(), 0);
        running.written(a, {}, {});
    }
    QCOMPARE(kept.store.jobs().size(), 1);
    QVERIFY(kept.takeBack(kept.store.jobs().first()).failed.isEmpty());
    QCOMPARE(kept.bytes(), kept.original);
}

void TestHistoryStore::damagedBytesAreNotWrittenIntoASong_data()
{
    QTest::addColumn<QString>("value");
    QTest::newRow("nothing") << QStringLiteral("x''");
    QTest::newRow("other bytes") << QStringLiteral("x'000000100102030405'");
    QTest::newRow("claims gigabytes") << QStringLiteral("x'FFFFFFFF0102030405'");
    QTest::newRow("compressed text") << QStringLiteral("x'000000011061'");
}

void TestHistoryStore::damagedBytesAreNotWrittenIntoASong()
{
    QFETCH(QString, value);
    KeptLibrary kept;
    QVERIFY(kept.synchronise());
    const auto synchronised = kept.bytes();
    QVERIFY(runSql(pathIn(kept), {QStringLiteral("UPDATE kept SET bytes = ") + value}));
    const HistoryUndo::Report report = kept.takeBack(kept.store.jobs().first());
    QCOMPARE(report.failed.size(), 3);
    QCOMPARE(kept.bytes(), synchronised);
}

void TestHistoryStore::hostileNumbersAndTextsAreSurvived()
{
    KeptLibrary kept;
    QVERIFY(kept.synchronise());
    const auto synchronised = kept.bytes();
    QVERIFY(runSql(pathIn(kept),
                   {QStringLiteral("UPDATE songs SET before = '[1', after = '{\"title\":{}}', "
                                   "new_size = -9e99, path = '../../x'"),
                    QStringLiteral("INSERT INTO jobs (time, kind) VALUES (9e18, 77)"),
                    QStringLiteral("INSERT INTO songs (job, path, new_path, is_tag, old_size, "
                                   "old_digest, new_digest) VALUES (2, 'x', '', 'y', 'z', "
                                   "1, 2)")}));
    QCOMPARE(kept.store.jobs().size(), 1);
    const HistoryJob job = kept.store.jobs().first();
    QCOMPARE(kept.store.songs(job.number).first().after.title, QString());
    QCOMPARE(kept.takeBack(job).failed.size(), 3);
    QCOMPARE(kept.bytes(), synchronised);
}

QTEST_GUILESS_MAIN(TestHistoryStore)
#include "test_historystore.moc"
