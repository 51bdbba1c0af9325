// The user's history: its place, its limit, what the last job is, and jobs that were cut off.
#include "library/settings.h"
#include "library/userhistory.h"
#include "support/historyfixture.h"
#include "support/ownfolders.h"

#include <QTest>

using namespace historyfixture;

namespace
{

HistoryJob job(qint64 number, HistoryJob::Kind kind, qint64 takenBackBy = 0)
{
    HistoryJob made;
    made.number = number;
    made.kind = kind;
    made.takenBackBy = takenBackBy;
    return made;
}

} // namespace

class TestUserHistory : public QObject
{
    Q_OBJECT

private slots:
    void init() { OwnSettings::clear(); }

    void allProgramsShareOnePlace();
    void lookingAtNoHistoryMakesNone();
    void limitIsASetting_data();
    void limitIsASetting();
    void droppedJobsAreTold();
    void lastJobIsNoTakingBackAndNotTakenBack();
    void takingBackATakingBackPutsAJobInForceAgain();
    void songOfAJobThatWasCutOffShowsItsTexts();
    void songThatACutOffJobDidNotReachIsNotItsOwn();
    void songWrittenTwiceAcrossACutHasBothStates();
    void jobBeingTakenBackIsNotDropped();
    void fileThatTheListHoldsTwiceIsTakenBackWhole();
    void songThatCannotBeKeptKeepsItsRow();
    void singleRowAndSingleSongAreKeptToo();
    void removedHistoryIsMadeAnewForTheNextJob();
};

void TestUserHistory::allProgramsShareOnePlace()
{
    const QString before = QCoreApplication::applicationName();
    QCoreApplication::setApplicationName(QStringLiteral("kavena"));
    const QString path = HistoryStore::defaultPath();
    QCoreApplication::setApplicationName(QStringLiteral("kavena-pc"));
    QCOMPARE(HistoryStore::defaultPath(), path);
    QCoreApplication::setApplicationName(before);
    QCOMPARE(path, OwnSettings::dataFolder() + QStringLiteral("/kavena_pc/kravo/history.sqlite"));
}

void TestUserHistory::lookingAtNoHistoryMakesNone()
{
    UserHistory history([](const QString &) { return false; }, {});
    QCOMPARE(history.open(), HistoryStore::State::Closed);
    QVERIFY(history.store().jobs().isEmpty());
    QVERIFY(!QFile::exists(HistoryStore::defaultPath()));
}

void TestUserHistory::limitIsASetting_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<int>("limit");
    QTest::newRow("none") << QVariant() << 1024;
    QTest::newRow("own") << QVariant(200) << 200;
    QTest::newRow("too small") << QVariant(-5) << 10;
    QTest::newRow("too large") << QVariant(2000000000) << 100000;
    QTest::newRow("no number") << QVariant(QStringLiteral("much")) << 1024;
}

void TestUserHistory::limitIsASetting()
{
    QFETCH(QVariant, stored);
    QFETCH(int, limit);
    if (stored.isValid())
        OwnSettings::set(settings::historyLimit, stored);
    QCOMPARE(UserHistory::limit(), limit);
    UserHistory::setLimit(77);
    QCOMPARE(UserHistory::limit(), 77);
}

void TestUserHistory::droppedJobsAreTold()
{
    KeptLibrary kept;
    const QString path = kept.library.path(QStringLiteral("a.mid"));
    HistoryStore store(kept.library.path(QStringLiteral("small.sqlite")), 1);
    QList<int> told;
    for (const char *title : {"one", "two", "three"}) {
        HistoryRecorder recorder(store, HistoryJob::Kind::Edit,
                                 [](const QString &) { return false; });
        recorder.setTellDropped([&told](int jobs) { told.append(jobs); });
        QVERIFY(recorder.keep({path}));
        QVERIFY(samplesongs::writeFile(path, syncfixture::midi(syncfixture::titled(title))));
        recorder.written(path, {}, {});
    }
    QCOMPARE(told, QList<int>({1, 1}));
}

void TestUserHistory::lastJobIsNoTakingBackAndNotTakenBack()
{
    using Kind = HistoryJob::Kind;
    QVERIFY(!UserHistory::last({}));
    HistoryJob undone = job(3, Kind::Edit, 4);
    undone.isUndone = true;
    QVERIFY(!UserHistory::last({job(4, Kind::TakeBack), undone}));
    const auto last =
        UserHistory::last({job(4, Kind::TakeBack), undone, job(2, Kind::Edit), job(1, Kind::Edit)});
    QVERIFY(last);
    QCOMPARE(last->number, 2);
    // Only some of its songs are as they were.
    QCOMPARE(UserHistory::last({job(4, Kind::TakeBack), job(3, Kind::Edit, 4)})->number, 3);
}

void TestUserHistory::takingBackATakingBackPutsAJobInForceAgain()
{
    using Kind = HistoryJob::Kind;
    const QList<HistoryJob> jobs{job(3, Kind::TakeBack), job(2, Kind::TakeBack, 3),
                                 job(1, Kind::Edit, 2)};
    QVERIFY(!UserHistory::isTakenBack(jobs.at(2), jobs));
    QVERIFY(UserHistory::isTakenBack(jobs.at(1), jobs));
    QCOMPARE(UserHistory::last(jobs)->number, 1);
    // What a stranger wrote into the file does not end in a circle.
    const QList<HistoryJob> circle{job(2, Kind::TakeBack, 1), job(1, Kind::Edit, 2)};
    QVERIFY(UserHistory::isTakenBack(circle.at(1), circle));
}

void TestUserHistory::songOfAJobThatWasCutOffShowsItsTexts()
{
    KeptLibrary kept;
    QCOMPARE(kept.store.open(), HistoryStore::State::Ready);
    const auto number = kept.store.addJob(HistoryJob::Kind::Edit);
    const QString midi = kept.library.path(QStringLiteral("a.mid"));
    const QString tagged = kept.library.path(QStringLiteral("b.mp3"));
    QCOMPARE(kept.store
                 .addSongs(*number, {{midi, {}, *SongSnapshot::of(midi)},
                                     {tagged, {}, *SongSnapshot::of(tagged)}})
                 .size(),
             2);
    QVERIFY(samplesongs::writeFile(midi, syncfixture::midi(syncfixture::titled("later"))));
    QVERIFY(samplesongs::writeFile(tagged, mp3("behind")));
    kept.store.settle();
    const QList<HistorySong> songs = kept.store.songs(*number);
    QCOMPARE(songs.at(0).before.title, QStringLiteral("first"));
    QCOMPARE(songs.at(0).after.title, QStringLiteral("later"));
    QCOMPARE(songs.at(1).before.title, QStringLiteral("second"));
    QCOMPARE(songs.at(1).after.title, QStringLiteral("behind"));
}

void TestUserHistory::songThatACutOffJobDidNotReachIsNotItsOwn()
{
    KeptLibrary kept;
    QCOMPARE(kept.store.open(), HistoryStore::State::Ready);
    const auto number = kept.store.addJob(HistoryJob::Kind::Synchronise);
    const QString path = kept.library.path(QStringLiteral("a.mid"));
    QCOMPARE(kept.store.addSongs(*number, {{path, {}, *SongSnapshot::of(path)}}).size(), 1);
    // Here the program was killed, and the user edits the song later.
    QVERIFY(kept.edit(0, [](SongEdit &edit) { edit.info.title = QStringLiteral("Mine"); }));
    kept.store.settle();
    QCOMPARE(kept.store.jobs().size(), 1);
    QCOMPARE(kept.store.jobs().first().kind, HistoryJob::Kind::Edit);
}

void TestUserHistory::songWrittenTwiceAcrossACutHasBothStates()
{
    KeptLibrary kept;
    QCOMPARE(kept.store.open(), HistoryStore::State::Ready);
    const auto number = kept.store.addJob(HistoryJob::Kind::Synchronise);
    const QString path = kept.library.path(QStringLiteral("a.mid"));
    QCOMPARE(kept.store.addSongs(*number, {{path, {}, *SongSnapshot::of(path)}}).size(), 1);
    QVERIFY(samplesongs::writeFile(path, syncfixture::midi(syncfixture::titled("cut"))));
    QVERIFY(kept.edit(0, [](SongEdit &edit) { edit.info.title = QStringLiteral("Mine"); }));
    kept.store.settle();
    const QList<HistoryJob> jobs = kept.store.jobs();
    QCOMPARE(jobs.size(), 2);
    QCOMPARE(kept.store.songs(*number).first().after.title, QStringLiteral("cut"));
    QVERIFY(kept.takeBack(jobs.first()).failed.isEmpty());
    QVERIFY(kept.takeBack(jobs.last(), true).failed.isEmpty());
    QCOMPARE(kept.bytes(), kept.original);
}

void TestUserHistory::jobBeingTakenBackIsNotDropped()
{
    KeptLibrary kept;
    QVERIFY(kept.synchronise());
    kept.store.setLimit(1); // from now on every old job has to go
    const HistoryUndo::Report report = kept.takeBack(kept.store.jobs().first());
    QVERIFY(report.failed.isEmpty());
    QCOMPARE(kept.bytes(), kept.original);
    QCOMPARE(kept.store.jobs().size(), 2);
}

void TestUserHistory::fileThatTheListHoldsTwiceIsTakenBackWhole()
{
    KeptLibrary kept;
    const QByteArray content = kept.library.bytes(QStringLiteral("a.mid"));
    QVERIFY(kept.library.add(QStringLiteral("a.mid"), content)); // the same file once more
    QVERIFY(kept.edit(0, [](SongEdit &edit) {
        edit.info.title = QStringLiteral("Other");
        edit.info.genre = QStringLiteral("Polka");
        edit.titleToAll = true;
        edit.genreToAll = true;
    }));
    QCOMPARE(kept.library.song(QStringLiteral("a.mid")).title, QStringLiteral("a"));
    QVERIFY(kept.takeBack(kept.store.jobs().first()).failed.isEmpty());
    QCOMPARE(kept.bytes(), kept.original);
}

/** The song got its title since it was listed: that the catalogue knows it is found out late. */
void TestUserHistory::songThatCannotBeKeptKeepsItsRow()
{
    LibraryTable library({syncfixture::row("LONGNAME", "ONE")});
    QVERIFY(library.isGood());
    QVERIFY(library.add(QStringLiteral("x.mid"), syncfixture::midi()));
    const QByteArray before = syncfixture::midi(syncfixture::titled("ONE"));
    QVERIFY(samplesongs::writeFile(library.path(QStringLiteral("x.mid")), before));
    QVERIFY(samplesongs::writeFile(library.path(QStringLiteral("data")), "no folder"));
    HistoryStore store(library.path(QStringLiteral("data/history.sqlite")));
    int questions = 0;
    syncfixture::Run run(library);
    run.synchronisation.setHistory([&](HistoryJob::Kind kind) {
        return std::make_unique<HistoryRecorder>(store, kind, [&questions](const QString &) {
            ++questions;
            return false;
        });
    });
    QVERIFY(!run.synchronisation.run(false));
    QCOMPARE(questions, 1);
    QCOMPARE(library.bytes(QStringLiteral("x.mid")), before);
    QCOMPARE(library.statuses(), QList<int>{syncfixture::isNew});
}

void TestUserHistory::singleRowAndSingleSongAreKeptToo()
{
    KeptLibrary kept;
    syncfixture::Run run(kept.library);
    run.synchronisation.setHistory(kept.opener());
    QVERIFY(run.synchronisation.updateFileWithDb(0));

    editfixture::Editing editing(kept.library);
    editing.editor.setHistory(kept.opener());
    const QString path = kept.library.path(QStringLiteral("b.mp3"));
    MetaSong song;
    QVERIFY(song.importFile(path));
    SongInfo info;
    info.title = QStringLiteral("Typed");
    editing.editor.manualModifySong(song, info, path, 1);

    QCOMPARE(kept.store.jobs().size(), 2);
    for (const HistoryJob &job : kept.store.jobs())
        QVERIFY(kept.takeBack(job).failed.isEmpty());
    QCOMPARE(kept.bytes(), kept.original);
}

void TestUserHistory::removedHistoryIsMadeAnewForTheNextJob()
{
    KeptLibrary kept;
    QVERIFY(kept.synchronise());
    for (const char *suffix : {"", "-wal", "-shm"})
        QFile::remove(kept.store.path() + QLatin1String(suffix));
    QVERIFY(kept.edit(0, [](SongEdit &edit) { edit.info.title = QStringLiteral("Mine"); }));
    HistoryStore again(kept.store.path());
    QCOMPARE(again.open(), HistoryStore::State::Ready);
    QCOMPARE(again.jobs().size(), 1);
}

int main(int argc, char *argv[])
{
    const OwnSettings ownSettings;
    const QCoreApplication application(argc, argv);
    TestUserHistory test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_userhistory.moc"
