// What jobs changed in songs is kept, and can be taken back to the byte.
#include "support/historyfixture.h"

#include <QDir>
#include <QFile>
#include <QTest>

using namespace historyfixture;

class TestHistory : public QObject
{
    Q_OBJECT

private slots:
    void synchronisationIsTakenBackToTheByte();
    void onlyWrittenSongsAreListedWithTheirTexts();
    void jobThatWritesNothingIsNotListed();
    void editOfAllIsOneJob();
    void takingBackCanBeTakenBack();
    void chosenSongsAreTakenBackAlone();
    void songThatWasChangedSinceIsLeftAloneUnlessWished();
    void songThatWasMovedIsFoundAmongTheKnownOnes();
    void songThatIsGoneIsReported();
    void songThatIsOldAlreadyIsNotWritten();
    void songWrittenTwiceInAJobGetsItsFirstBytes();
    void takingBackStopsBetweenSongs();
    void audioThatGrewIsKept();
    void otherKindOfFileIsNotOverwritten();
};

void TestHistory::synchronisationIsTakenBackToTheByte()
{
    KeptLibrary kept;
    QVERIFY(kept.isGood);
    QVERIFY(kept.synchronise());
    QVERIFY(kept.bytes() != kept.original);

    const QList<HistoryJob> jobs = kept.store.jobs();
    QCOMPARE(jobs.size(), 1);
    QCOMPARE(jobs.first().kind, HistoryJob::Kind::Synchronise);
    QCOMPARE(jobs.first().songs, 3);
    QVERIFY(qAbs(jobs.first().time.secsTo(QDateTime::currentDateTime())) < 100);

    const HistoryUndo::Report report = kept.takeBack(jobs.first());
    QVERIFY(report.failed.isEmpty());
    QCOMPARE(report.done.size(), 3);
    QCOMPARE(kept.bytes(), kept.original);
    QVERIFY(kept.reasons.isEmpty());
}

void TestHistory::onlyWrittenSongsAreListedWithTheirTexts()
{
    KeptLibrary kept;
    QVERIFY(kept.synchronise());
    const QList<HistorySong> songs = kept.store.songs(kept.store.jobs().first().number);
    QCOMPARE(songs.size(), 3);
    QCOMPARE(songs.at(1).path, kept.library.path(QStringLiteral("b.mp3")));
    QCOMPARE(songs.at(1).before.title, QStringLiteral("second"));
    QCOMPARE(songs.at(1).after.title, kept.library.song(QStringLiteral("b.mp3")).title);
    QCOMPARE(songs.at(1).after.genre, QStringLiteral("SWING"));
    QCOMPARE(songs.at(1).after.author, QStringLiteral("SMITH"));
    QCOMPARE(songs.at(1).after.userBpm, 0);

    QVERIFY(kept.edit(0, [](SongEdit &edit) {
        edit.info.userBpm = 97;
        edit.info.length = 61;
        edit.info.key = QStringLiteral("A-");
    }));
    const HistorySong edited = kept.store.songs(kept.store.jobs().first().number).first();
    QCOMPARE(edited.after.userBpm, 97);
    QCOMPARE(edited.after.length, 61);
    QCOMPARE(edited.after.key, QStringLiteral("A-"));
}

void TestHistory::jobThatWritesNothingIsNotListed()
{
    KeptLibrary kept;
    // The song holds just what is written into it.
    QVERIFY(kept.edit(0, [](SongEdit &) {}));
    const auto once = kept.library.bytes(QStringLiteral("a.mid"));
    const qsizetype jobs = kept.store.jobs().size();
    QVERIFY(kept.edit(0, [](SongEdit &) {}));
    QCOMPARE(kept.library.bytes(QStringLiteral("a.mid")), once);
    QCOMPARE(kept.store.jobs().size(), jobs);
}

void TestHistory::editOfAllIsOneJob()
{
    KeptLibrary kept;
    QVERIFY(kept.edit(1, [](SongEdit &edit) {
        edit.info.genre = QStringLiteral("Polka");
        edit.genreToAll = true;
    }));
    QCOMPARE(kept.library.song(QStringLiteral("d.mid")).genre, QStringLiteral("Polka"));
    const QList<HistoryJob> jobs = kept.store.jobs();
    QCOMPARE(jobs.size(), 1);
    QCOMPARE(jobs.first().kind, HistoryJob::Kind::Edit);
    QCOMPARE(jobs.first().songs, 4);
    QVERIFY(kept.takeBack(jobs.first()).failed.isEmpty());
    QCOMPARE(kept.bytes(), kept.original);
}

void TestHistory::takingBackCanBeTakenBack()
{
    KeptLibrary kept;
    QVERIFY(kept.synchronise());
    const auto synchronised = kept.bytes();
    const HistoryJob first = kept.store.jobs().first();
    kept.takeBack(first);
    QCOMPARE(kept.bytes(), kept.original);

    const QList<HistoryJob> jobs = kept.store.jobs();
    QCOMPARE(jobs.size(), 2);
    QCOMPARE(jobs.first().kind, HistoryJob::Kind::TakeBack);
    QCOMPARE(jobs.first().takesBack, first.number);
    QCOMPARE(jobs.last().takenBackBy, jobs.first().number);
    QVERIFY(kept.takeBack(jobs.first()).failed.isEmpty());
    QCOMPARE(kept.bytes(), synchronised);
}

void TestHistory::chosenSongsAreTakenBackAlone()
{
    KeptLibrary kept;
    QVERIFY(kept.synchronise());
    const auto synchronised = kept.bytes();
    const HistoryJob job = kept.store.jobs().first();
    HistoryUndo undo(kept.store);
    HistoryRecorder recorder(
        kept.store, HistoryJob::Kind::TakeBack, [](const QString &) { return false; }, job.number);
    CountingProgress progress;
    const QList<HistorySong> songs = kept.store.songs(job.number);
    QCOMPARE(undo.takeBack({songs.at(1)}, false, recorder, progress).done,
             QStringList(kept.library.path(QStringLiteral("b.mp3"))));
    QCOMPARE(kept.bytes().value(QStringLiteral("b.mp3")),
             kept.original.value(QStringLiteral("b.mp3")));
    QCOMPARE(kept.bytes().value(QStringLiteral("a.mid")),
             synchronised.value(QStringLiteral("a.mid")));
}

void TestHistory::songThatWasChangedSinceIsLeftAloneUnlessWished()
{
    KeptLibrary kept;
    QVERIFY(kept.synchronise());
    const HistoryJob job = kept.store.jobs().first();
    QVERIFY(kept.edit(0, [](SongEdit &edit) { edit.info.title = QStringLiteral("Mine"); }));
    const QByteArray mine = kept.library.bytes(QStringLiteral("a.mid"));

    const HistoryUndo::Report report = kept.takeBack(job);
    QCOMPARE(report.done.size(), 2);
    QCOMPARE(report.failed.size(), 1);
    QCOMPARE(report.failed.first().path, kept.library.path(QStringLiteral("a.mid")));
    QCOMPARE(kept.library.bytes(QStringLiteral("a.mid")), mine);

    QVERIFY(kept.takeBack(job, true).failed.isEmpty());
    QCOMPARE(kept.bytes(), kept.original);
}

void TestHistory::songThatWasMovedIsFoundAmongTheKnownOnes()
{
    KeptLibrary kept;
    QVERIFY(kept.synchronise());
    QVERIFY(QDir().mkdir(kept.library.path(QStringLiteral("sub"))));
    const QString moved = kept.library.path(QStringLiteral("sub/renamed.mp3"));
    QVERIFY(QFile::rename(kept.library.path(QStringLiteral("b.mp3")), moved));
    const HistoryUndo::Report report = kept.takeBack(
        kept.store.jobs().first(), false, {kept.library.path(QStringLiteral("a.mid")), moved});
    QVERIFY(report.failed.isEmpty());
    QVERIFY(report.done.contains(moved));
    QCOMPARE(kept.library.bytes(QStringLiteral("sub/renamed.mp3")),
             kept.original.value(QStringLiteral("b.mp3")));
}

void TestHistory::songThatIsGoneIsReported()
{
    KeptLibrary kept;
    QVERIFY(kept.synchronise());
    QVERIFY(QFile::remove(kept.library.path(QStringLiteral("c.mf5"))));
    const HistoryUndo::Report report = kept.takeBack(kept.store.jobs().first());
    QCOMPARE(report.done.size(), 2);
    QCOMPARE(report.failed.size(), 1);
    QVERIFY(!QFile::exists(kept.library.path(QStringLiteral("c.mf5"))));
}

void TestHistory::songThatIsOldAlreadyIsNotWritten()
{
    KeptLibrary kept;
    QVERIFY(kept.synchronise());
    const HistoryJob job = kept.store.jobs().first();
    kept.takeBack(job);
    const HistoryUndo::Report report = kept.takeBack(job);
    QCOMPARE(report.alreadyOld, 3);
    QVERIFY(report.done.isEmpty() && report.failed.isEmpty());
    QCOMPARE(kept.store.jobs().size(), 2);
}

void TestHistory::songWrittenTwiceInAJobGetsItsFirstBytes()
{
    KeptLibrary kept;
    const QString path = kept.library.path(QStringLiteral("a.mid"));
    {
        HistoryRecorder recorder(kept.store, HistoryJob::Kind::EditSeveral,
                                 [](const QString &) { return false; });
        for (const char *title : {"one", "two", "three"}) {
            QVERIFY(recorder.keep({path}));
            QVERIFY(samplesongs::writeFile(path, syncfixture::midi(syncfixture::titled(title))));
            recorder.written(path, {}, {});
        }
    }
    const HistoryJob job = kept.store.jobs().first();
    QCOMPARE(job.songs, 3);
    QVERIFY(kept.takeBack(job).failed.isEmpty());
    QCOMPARE(kept.bytes(), kept.original);
}

void TestHistory::takingBackStopsBetweenSongs()
{
    KeptLibrary kept;
    QVERIFY(kept.synchronise());
    const auto synchronised = kept.bytes();
    const HistoryJob job = kept.store.jobs().first();
    HistoryUndo undo(kept.store);
    CountingProgress progress;
    progress.cancelAt = 1;
    HistoryUndo::Report report;
    {
        HistoryRecorder recorder(
            kept.store, HistoryJob::Kind::TakeBack, [](const QString &) { return false; },
            job.number);
        report = undo.takeBack(kept.store.songs(job.number), false, recorder, progress);
    }
    QVERIFY(report.stopped);
    QCOMPARE(report.done.size(), 1);
    QCOMPARE(kept.library.bytes(QStringLiteral("a.mid")),
             synchronised.value(QStringLiteral("a.mid")));
    QCOMPARE(kept.library.bytes(QStringLiteral("c.mf5")),
             kept.original.value(QStringLiteral("c.mf5")));
    QCOMPARE(kept.store.jobs().first().songs, 1);
}

void TestHistory::audioThatGrewIsKept()
{
    KeptLibrary kept;
    QVERIFY(kept.synchronise());
    const QString path = kept.library.path(QStringLiteral("b.mp3"));
    QVERIFY(samplesongs::writeFile(path, kept.library.bytes(QStringLiteral("b.mp3")) + "more"));
    QCOMPARE(kept.takeBack(kept.store.jobs().first()).failed.size(), 1);
    QVERIFY(kept.takeBack(kept.store.jobs().last(), true).failed.isEmpty());
    QCOMPARE(kept.library.bytes(QStringLiteral("b.mp3")),
             kept.original.value(QStringLiteral("b.mp3")) + "more");
}

void TestHistory::otherKindOfFileIsNotOverwritten()
{
    KeptLibrary kept;
    QVERIFY(kept.synchronise());
    const QString path = kept.library.path(QStringLiteral("b.mp3"));
    const QByteArray other = syncfixture::midi();
    QVERIFY(samplesongs::writeFile(path, other));
    QCOMPARE(kept.takeBack(kept.store.jobs().first(), true).failed.size(), 1);
    QCOMPARE(kept.library.bytes(QStringLiteral("b.mp3")), other);
}

QTEST_GUILESS_MAIN(TestHistory)
#include "test_history.moc"
