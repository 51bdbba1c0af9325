// Songs that a job gave other names are found and get their old ones back.
#include "support/historyfixture.h"
#include "support/songfolder.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTest>

using namespace historyfixture;

namespace
{

/** A library in which one job has renamed "b.mp3" to "new.mp3". */
class RenamedLibrary : public KeptLibrary
{
public:
    RenamedLibrary()
        : old(library.path(QStringLiteral("b.mp3")))
        , renamed(library.path(QStringLiteral("new.mp3")))
    {
    }

    bool rename()
    {
        HistoryRecorder recorder(store, HistoryJob::Kind::Rename,
                                 [](const QString &) { return false; });
        const bool isDone =
            recorder.keepRenamed(old, renamed) && HistoryUndo::renameSong(old, renamed).isEmpty();
        recorder.written(old, {}, {});
        return isDone;
    }

    QByteArray original() const { return KeptLibrary::original.value(QStringLiteral("b.mp3")); }

    QString old;
    QString renamed;
};

} // namespace

class TestHistoryRename : public QObject
{
    Q_OBJECT

private slots:
    void songGetsItsOldNameAndItsPicturesToo();
    void takingBackARenameCanBeTakenBack();
    void oldNameThatIsTakenIsLeftAlone();
    void picturesThatCannotFollowKeepTheSong();
    void songInAnotherFolderStaysThere();
    void renameThatWasCutOffIsKnown();
    void renameThatWasNotDoneIsNone();
    void otherSongAtTheNewNameIsNotTakenForIt();
    void copyThatTheJobWroteItselfIsNotTakenForAMovedSong();
    void strangersOldNameMovesNoSong_data();
    void strangersOldNameMovesNoSong();
    void editThatWasCutOffCanBeTakenBackThoughTheSongWasRenamed();
    void thousandsOfSongsInARenamedFolderAreFoundInTime();
    void songThatWasWrittenTwiceAndMovedGetsItsFirstBytes();
};

void TestHistoryRename::songGetsItsOldNameAndItsPicturesToo()
{
    RenamedLibrary kept;
    const QString pictures = kept.library.path(QStringLiteral("b.cdg"));
    QVERIFY(samplesongs::writeFile(pictures, "pictures"));
    QVERIFY(kept.rename());
    QVERIFY(QFile::exists(kept.library.path(QStringLiteral("new.cdg"))));
    const HistoryJob job = kept.store.jobs().constFirst();
    QCOMPARE(job.kind, HistoryJob::Kind::Rename);
    QCOMPARE(kept.store.songs(job.number).constFirst().newPath, kept.renamed);

    const HistoryUndo::Report report = kept.takeBack(job);
    QVERIFY(report.failed.isEmpty());
    QCOMPARE(report.done, QStringList(kept.old));
    QCOMPARE(samplesongs::readFile(kept.old), kept.original());
    QCOMPARE(samplesongs::readFile(pictures), QByteArray("pictures"));
    QVERIFY(!QFile::exists(kept.renamed));
}

void TestHistoryRename::takingBackARenameCanBeTakenBack()
{
    RenamedLibrary kept;
    QVERIFY(kept.rename());
    kept.takeBack(kept.store.jobs().constFirst());
    const HistoryUndo::Report report = kept.takeBack(kept.store.jobs().constFirst());
    QVERIFY(report.failed.isEmpty());
    QCOMPARE(samplesongs::readFile(kept.renamed), kept.original());
    QVERIFY(!QFile::exists(kept.old));
}

void TestHistoryRename::oldNameThatIsTakenIsLeftAlone()
{
    RenamedLibrary kept;
    QVERIFY(kept.rename());
    QVERIFY(samplesongs::writeFile(kept.old, "another file"));
    QCOMPARE(kept.takeBack(kept.store.jobs().constFirst(), true).failed.size(), 1);
    QCOMPARE(samplesongs::readFile(kept.old), QByteArray("another file"));
    QCOMPARE(samplesongs::readFile(kept.renamed), kept.original());
    QCOMPARE(kept.store.jobs().size(), 1);
}

void TestHistoryRename::picturesThatCannotFollowKeepTheSong()
{
    RenamedLibrary kept;
    QVERIFY(kept.rename());
    QVERIFY(samplesongs::writeFile(kept.library.path(QStringLiteral("new.cdg")), "pictures"));
    QVERIFY(samplesongs::writeFile(kept.library.path(QStringLiteral("b.cdg")), "others"));
    QCOMPARE(kept.takeBack(kept.store.jobs().constFirst()).failed.size(), 1);
    QCOMPARE(samplesongs::readFile(kept.renamed), kept.original());
    QVERIFY(!QFile::exists(kept.old));
    QCOMPARE(kept.store.jobs().size(), 1);
}

void TestHistoryRename::songInAnotherFolderStaysThere()
{
    RenamedLibrary kept;
    QVERIFY(kept.rename());
    QVERIFY(QDir().mkdir(kept.library.path(QStringLiteral("sub"))));
    const QString moved = kept.library.path(QStringLiteral("sub/new.mp3"));
    QVERIFY(QFile::rename(kept.renamed, moved));
    const HistoryUndo::Report report =
        kept.takeBack(kept.store.jobs().constFirst(), false, {moved});
    QVERIFY(report.failed.isEmpty());
    QCOMPARE(report.done, QStringList(kept.library.path(QStringLiteral("sub/b.mp3"))));
    QCOMPARE(kept.library.bytes(QStringLiteral("sub/b.mp3")), kept.original());
}

void TestHistoryRename::renameThatWasCutOffIsKnown()
{
    RenamedLibrary kept;
    QCOMPARE(kept.store.open(), HistoryStore::State::Ready);
    const auto job = kept.store.addJob(HistoryJob::Kind::Rename);
    SongSnapshot snapshot = *SongSnapshot::of(kept.old);
    snapshot.bytes.clear();
    QCOMPARE(kept.store.addSongs(*job, {{kept.old, kept.renamed, snapshot}}).size(), 1);
    QVERIFY(QFile::rename(kept.old, kept.renamed));
    // Here the program was killed.
    kept.store.settle();
    QCOMPARE(kept.store.jobs().size(), 1);
    QVERIFY(kept.takeBack(kept.store.jobs().constFirst()).failed.isEmpty());
    QCOMPARE(samplesongs::readFile(kept.old), kept.original());
}

void TestHistoryRename::renameThatWasNotDoneIsNone()
{
    RenamedLibrary kept;
    {
        HistoryRecorder recorder(kept.store, HistoryJob::Kind::Rename,
                                 [](const QString &) { return false; });
        QVERIFY(recorder.keepRenamed(kept.old, kept.renamed));
        recorder.forget(kept.old);
    }
    kept.store.settle();
    QVERIFY(kept.store.jobs().isEmpty());
}

void TestHistoryRename::otherSongAtTheNewNameIsNotTakenForIt()
{
    RenamedLibrary kept;
    QCOMPARE(kept.store.open(), HistoryStore::State::Ready);
    const auto job = kept.store.addJob(HistoryJob::Kind::Rename);
    SongSnapshot snapshot = *SongSnapshot::of(kept.old);
    snapshot.bytes.clear();
    QCOMPARE(kept.store.addSongs(*job, {{kept.old, kept.renamed, snapshot}}).size(), 1);
    // The program was killed before it renamed; later another song comes to that name.
    QVERIFY(samplesongs::writeFile(kept.renamed, mp3("other")));
    kept.store.settle();
    QVERIFY(kept.store.jobs().isEmpty());
}

/** Both songs hold the same afterwards, and one of them is gone then. */
void TestHistoryRename::copyThatTheJobWroteItselfIsNotTakenForAMovedSong()
{
    KeptLibrary kept;
    const QString a = kept.library.path(QStringLiteral("a.mid"));
    const QString d = kept.library.path(QStringLiteral("d.mid"));
    {
        HistoryRecorder recorder(kept.store, HistoryJob::Kind::EditSeveral,
                                 [](const QString &) { return false; });
        for (const QString &path : {d, a}) {
            QVERIFY(recorder.keep({path}));
            QVERIFY(samplesongs::writeFile(path, syncfixture::midi()));
            recorder.written(path, {}, {});
        }
    }
    QVERIFY(QFile::remove(a));
    const HistoryUndo::Report report = kept.takeBack(kept.store.jobs().constFirst(), false, {d});
    QCOMPARE(report.failed.size(), 1);
    QCOMPARE(report.failed.constFirst().path, a);
    QCOMPARE(report.done, QStringList(d));
    QCOMPARE(samplesongs::readFile(d), kept.original.value(QStringLiteral("d.mid")));
}

void TestHistoryRename::strangersOldNameMovesNoSong_data()
{
    QTest::addColumn<QString>("oldName");
    QTest::newRow("other folder") << QStringLiteral("sub/b.mp3");
    QTest::newRow("no song's name") << QStringLiteral("b.desktop");
    QTest::newRow("other kind of song") << QStringLiteral("b.mid");
    QTest::newRow("folder above") << QStringLiteral("../b.mp3");
}

void TestHistoryRename::strangersOldNameMovesNoSong()
{
    QFETCH(QString, oldName);
    RenamedLibrary kept;
    QVERIFY(kept.rename());
    QVERIFY(QDir().mkdir(kept.library.path(QStringLiteral("sub"))));
    const HistoryJob job = kept.store.jobs().constFirst();
    QList<HistorySong> songs = kept.store.songs(job.number);
    songs.first().path = kept.library.path(QString()) + QLatin1Char('/') + oldName;
    HistoryUndo undo(kept.store);
    HistoryRecorder recorder(kept.store, HistoryJob::Kind::TakeBack,
                             [](const QString &) { return false; });
    CountingProgress progress;
    const HistoryUndo::Report report = undo.takeBack(songs, true, recorder, progress);
    QCOMPARE(report.failed.size(), 1);
    QVERIFY(report.done.isEmpty());
    QCOMPARE(samplesongs::readFile(kept.renamed), kept.original());
    QVERIFY(!QFile::exists(songs.constFirst().path));
}

/** What renames keeps no bytes of the song, which could tell what the cut off job did. */
void TestHistoryRename::editThatWasCutOffCanBeTakenBackThoughTheSongWasRenamed()
{
    KeptLibrary kept;
    QCOMPARE(kept.store.open(), HistoryStore::State::Ready);
    const QString path = kept.library.path(QStringLiteral("a.mid"));
    const QString renamed = kept.library.path(QStringLiteral("new.mid"));
    const auto number = kept.store.addJob(HistoryJob::Kind::Edit);
    QCOMPARE(kept.store.addSongs(*number, {{path, {}, *SongSnapshot::of(path)}}).size(), 1);
    QVERIFY(samplesongs::writeFile(path, syncfixture::midi(syncfixture::titled("cut"))));
    // Here the program was killed.
    {
        HistoryRecorder recorder(kept.store, HistoryJob::Kind::Rename,
                                 [](const QString &) { return false; });
        QVERIFY(recorder.keepRenamed(path, renamed));
        QCOMPARE(HistoryUndo::renameSong(path, renamed), QString());
        recorder.written(path, {}, {});
    }
    kept.store.settle();
    const QList<HistoryJob> jobs = kept.store.jobs();
    QCOMPARE(jobs.size(), 2);
    for (const HistoryJob &job : jobs)
        QVERIFY(kept.takeBack(job, true).failed.isEmpty());
    QCOMPARE(kept.bytes(), kept.original);
}

/** All have one size: nothing but their bytes tells them apart. */
void TestHistoryRename::thousandsOfSongsInARenamedFolderAreFoundInTime()
{
    constexpr int count = 1500;
    const SongFolder folder;
    const auto nameOf = [](int number) { return QStringLiteral("old/%1.mid").arg(number); };
    const auto titleOf = [](const char *title, int number) {
        return title + QByteArray::number(10000 + number);
    };
    HistoryStore store(folder.filePath(QStringLiteral("history.sqlite")));
    QStringList paths;
    {
        QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("old")));
        HistoryRecorder recorder(store, HistoryJob::Kind::Edit,
                                 [](const QString &) { return false; });
        for (int number = 0; number < count; ++number)
            paths.append(folder.midi(nameOf(number), titleOf("Old", number)));
        QVERIFY(recorder.keep(paths));
        for (int number = 0; number < count; ++number) {
            folder.midi(nameOf(number), titleOf("New", number));
            recorder.written(paths.at(number), {}, {});
        }
    }
    QVERIFY(QDir(folder.path()).rename(QStringLiteral("old"), QStringLiteral("new")));
    HistoryUndo undo(store);
    undo.setKnownSongs(
        QStringList(paths).replaceInStrings(QStringLiteral("/old/"), QStringLiteral("/new/")));
    const QList<HistorySong> songs = store.songs(store.jobs().constFirst().number);
    QCOMPARE(songs.size(), count);
    QElapsedTimer timer;
    timer.start();
    for (const HistorySong &song : songs) {
        const HistoryUndo::Found found = undo.find(song);
        QCOMPARE(found.state, HistoryUndo::State::Moved);
        QCOMPARE(QFileInfo(found.path).fileName(), QFileInfo(song.path).fileName());
    }
    QVERIFY2(timer.elapsed() < 30000, qPrintable(QString::number(timer.elapsed())));
}

void TestHistoryRename::songThatWasWrittenTwiceAndMovedGetsItsFirstBytes()
{
    const SongFolder folder;
    const QString path = folder.midi(QStringLiteral("a.mid"), "One");
    const QByteArray original = samplesongs::readFile(path);
    HistoryStore store(folder.filePath(QStringLiteral("history.sqlite")));
    {
        HistoryRecorder recorder(store, HistoryJob::Kind::Edit,
                                 [](const QString &) { return false; });
        for (const char *title : {"Two", "Six"}) {
            QVERIFY(recorder.keep({path}));
            folder.midi(QStringLiteral("a.mid"), title);
            recorder.written(path, {}, {});
        }
    }
    const QString moved = folder.filePath(QStringLiteral("moved.mid"));
    QVERIFY(QFile::rename(path, moved));
    HistoryUndo undo(store);
    undo.setKnownSongs({moved});
    HistoryRecorder recorder(store, HistoryJob::Kind::TakeBack,
                             [](const QString &) { return false; });
    CountingProgress progress;
    const HistoryUndo::Report report =
        undo.takeBack(store.songs(store.jobs().constFirst().number), false, recorder, progress);
    QVERIFY(report.failed.isEmpty());
    QCOMPARE(samplesongs::readFile(moved), original);
}

QTEST_GUILESS_MAIN(TestHistoryRename)
#include "test_history_rename.moc"
