// Jobs that changed songs on a memory are taken back, and the memory's index stays true.
#include "devindex/jobundo.h"
#include "formats/metasong.h"
#include "storage/memorylock.h"
#include "support/countingprogress.h"
#include "support/listedmemory.h"
#include "support/ownfolders.h"

#include <QTest>

using namespace listedmemory;

namespace
{

/** A history in a folder of its own. */
class Kept
{
public:
    Kept() { store.open(); }

    HistoryRecorder recorder(HistoryJob::Kind kind, qint64 takesBack = 0)
    {
        return HistoryRecorder(
            store, kind, [](const QString &) { return false; }, takesBack);
    }

    /** Gives the songs another title, as one job; the index is brought up to date if wished. */
    bool retitle(const ListedMemory &memory, const QStringList &paths, bool updates = true)
    {
        HistoryRecorder history = recorder(HistoryJob::Kind::Edit);
        Job job{{}, memory.root()};
        const auto save = [&](const QString &path) {
            const QString full = memory.root() + path;
            MetaSong song;
            SongInfo info;
            if (!history.keep({full}) || !song.importFile(full))
                return text("not kept");
            song.getSongInfo(info);
            info.title = text("Another title of the song");
            song.setSongInfo(info, true);
            const bool isSaved = song.saveToFile(full);
            history.written(full, {}, info);
            return isSaved ? QString() : text("not saved");
        };
        if (updates)
            return job.changes().rewriteAll(paths, save).isComplete();
        return std::all_of(paths.cbegin(), paths.cend(),
                           [&](const QString &path) { return save(path).isEmpty(); });
    }

    bool rename(const ListedMemory &memory, const QString &path, const QString &newPath)
    {
        HistoryRecorder history = recorder(HistoryJob::Kind::Rename);
        Job job{{}, memory.root()};
        if (!history.keepRenamed(memory.root() + path, memory.root() + newPath) ||
            !job.changes().rename(path, newPath.section(QLatin1Char('/'), -1)).isComplete())
            return false;
        history.written(memory.root() + path, {}, {});
        return true;
    }

    HistoryUndo::Report takeBack(const HistoryJob &job, bool alsoChanged = false)
    {
        JobUndo undo(store, [](const QString &, const QString &, int) {
            return std::make_unique<CountingProgress>();
        });
        HistoryRecorder history = recorder(HistoryJob::Kind::TakeBack, job.number);
        return undo.takeBack(job, store.songs(job.number), alsoChanged, history, progress);
    }

    HistoryUndo::Report takeLastBack() { return takeBack(store.jobs().constFirst()); }

    QTemporaryDir folder;
    HistoryStore store{folder.filePath(text("history.sqlite"))};
    CountingProgress progress;
};

QStringList reasonsOf(const HistoryUndo::Report &report)
{
    QStringList reasons;
    for (const HistoryUndo::Failure &failure : report.failed)
        reasons.append(failure.reason);
    return reasons;
}

} // namespace

class TestJobUndo : public QuietIndexFixture
{
    Q_OBJECT

private slots:
    void init() { QuietIndexFixture::init(); }
    void cleanup() { QuietIndexFixture::cleanup(); }

    void songsAreAsBeforeAndTheIndexListsThem();
    void renamedSongHasItsOldNameInTheIndexAndInThePlaylists();
    void renameThatWasTakenBackCanBeTakenBack();
    void memoryInUseIsLeftAlone();
    void songThatWasChangedSinceCostsNoUpdate();
    void jobOfWhichAChangedSongWasLeftAloneIsStillTheLast();
    void memoryWithoutIndexGetsNone();
    void cancelledTakingBackLeavesATrueIndexAndIsProposedAgain();
    void jobIsUndoneOnlyWhenAllOfItWasTakenBack();
};

void TestJobUndo::songsAreAsBeforeAndTheIndexListsThem()
{
    const ListedMemory memory;
    const QByteArray azzurro = memory.read(text("Azzurro.mid"));
    const QByteArray ciao = memory.read(text("pop/Ciao.mp3"));
    Kept kept;
    QVERIFY(kept.retitle(memory, {text("/Azzurro.mid"), text("/pop/Ciao.mp3")}));
    QCOMPARE(memory.read(text("title.idx")).count("ANOTHER TITLE"), 2);

    const HistoryUndo::Report report = kept.takeLastBack();
    QCOMPARE(reasonsOf(report), QStringList());
    QCOMPARE(report.done.size(), 2);
    QCOMPARE(kept.progress.values.constLast(), 2);
    QCOMPARE(memory.read(text("Azzurro.mid")), azzurro);
    QCOMPARE(memory.read(text("pop/Ciao.mp3")), ciao);
    QCOMPARE(memory.read(text("title.idx")).count("ANOTHER TITLE"), 0);
    QCOMPARE(memory.faults(), QString());
    QCOMPARE(kept.store.jobs().constFirst().songs, 2);
}

void TestJobUndo::renamedSongHasItsOldNameInTheIndexAndInThePlaylists()
{
    const ListedMemory memory;
    const quint32 id = memory.idOf("/pop/Ciao.mp3");
    Kept kept;
    QVERIFY(kept.rename(memory, text("/pop/Ciao.mp3"), text("/pop/Salve.mp3")));
    QVERIFY(memory.has("pop/Salve.mp3") && memory.has("pop/Salve.cdg"));

    const HistoryUndo::Report report = kept.takeLastBack();
    QCOMPARE(reasonsOf(report), QStringList());
    QCOMPARE(report.done, QStringList(memory.path(text("pop/Ciao.mp3"))));
    QVERIFY(memory.has("pop/Ciao.mp3") && memory.has("pop/Ciao.cdg"));
    QVERIFY(!memory.has("pop/Salve.mp3") && !memory.has("pop/Salve.cdg"));
    QCOMPARE(memory.idOf("/pop/Ciao.mp3"), id);
    QCOMPARE(memory.faults(), QString());
}

void TestJobUndo::renameThatWasTakenBackCanBeTakenBack()
{
    const ListedMemory memory;
    Kept kept;
    QVERIFY(kept.rename(memory, text("/Azzurro.mid"), text("/Blu.mid")));
    QCOMPARE(reasonsOf(kept.takeLastBack()), QStringList());
    QVERIFY(memory.has("Azzurro.mid"));
    QCOMPARE(reasonsOf(kept.takeLastBack()), QStringList());
    QVERIFY(memory.has("Blu.mid") && !memory.has("Azzurro.mid"));
    QVERIFY(memory.idOf("/Blu.mid") != 0xFFFFFFFF);
    QVERIFY(!kept.store.jobs().constLast().isUndone); // the rename is in force again
}

void TestJobUndo::memoryInUseIsLeftAlone()
{
    const ListedMemory memory;
    Kept kept;
    QVERIFY(kept.retitle(memory, {text("/Azzurro.mid")}));
    const QByteArray edited = memory.read(text("Azzurro.mid"));
    MemoryLock other(memory.root());
    QVERIFY(other.take());
    const HistoryUndo::Report report = kept.takeLastBack();
    QCOMPARE(report.failed.size(), 1);
    QCOMPARE(report.failed.constFirst().path, memory.path(text("Azzurro.mid")));
    QVERIFY(report.done.isEmpty());
    QCOMPARE(memory.read(text("Azzurro.mid")), edited);
    QCOMPARE(kept.store.jobs().size(), 1);
}

void TestJobUndo::songThatWasChangedSinceCostsNoUpdate()
{
    const ListedMemory memory;
    Kept kept;
    QVERIFY(kept.retitle(memory, {text("/Azzurro.mid")}));
    const QByteArray mine = midi("Mine");
    memory.add(text("Azzurro.mid"), mine);
    memory.isLeftBroken();
    const QByteArray titles = memory.read(text("title.idx"));
    QCOMPARE(reasonsOf(kept.takeLastBack()), QStringList(text("è stata cambiata dopo")));
    QCOMPARE(memory.read(text("Azzurro.mid")), mine);
    QCOMPARE(memory.read(text("title.idx")), titles);
    QVERIFY(!kept.store.jobs().constFirst().isUndone);
    QCOMPARE(reasonsOf(kept.takeBack(kept.store.jobs().constFirst(), true)), QStringList());
    QVERIFY(kept.store.jobs().constLast().isUndone);
    QVERIFY(memory.read(text("title.idx")).contains("AZZURRO"));
}

void TestJobUndo::jobOfWhichAChangedSongWasLeftAloneIsStillTheLast()
{
    const ListedMemory memory;
    const QByteArray azzurro = memory.read(text("Azzurro.mid"));
    Kept kept;
    QVERIFY(kept.retitle(memory, {text("/Azzurro.mid"), text("/pop/Ciao.mp3")}));
    memory.add(text("Azzurro.mid"), midi("Mine"));
    memory.isLeftBroken();
    const HistoryJob job = kept.store.jobs().constFirst();
    const HistoryUndo::Report report = kept.takeBack(job);
    QCOMPARE(report.done, QStringList(memory.path(text("pop/Ciao.mp3"))));
    QCOMPARE(reasonsOf(report), QStringList(text("è stata cambiata dopo")));
    QVERIFY(!kept.store.jobs().constLast().isUndone);

    QCOMPARE(reasonsOf(kept.takeBack(job, true)), QStringList());
    QCOMPARE(memory.read(text("Azzurro.mid")), azzurro);
    QVERIFY(kept.store.jobs().constLast().isUndone);
}

void TestJobUndo::memoryWithoutIndexGetsNone()
{
    const ListedMemory memory;
    Kept kept;
    memory.remove(text("title.idx"));
    memory.isLeftBroken();
    const QByteArray before = memory.read(text("Azzurro.mid"));
    QVERIFY(kept.retitle(memory, {text("/Azzurro.mid")}, false));
    QCOMPARE(reasonsOf(kept.takeLastBack()), QStringList());
    QCOMPARE(memory.read(text("Azzurro.mid")), before);
    QVERIFY(!memory.has("title.idx"));
}

void TestJobUndo::cancelledTakingBackLeavesATrueIndexAndIsProposedAgain()
{
    const ListedMemory memory;
    Kept kept;
    const QByteArray ciao = memory.read(text("pop/Ciao.mp3"));
    QVERIFY(kept.retitle(memory, {text("/Azzurro.mid"), text("/pop/Ciao.mp3")}));
    const QByteArray edited = memory.read(text("Azzurro.mid"));
    kept.progress.cancelAt = 1;
    const HistoryUndo::Report report = kept.takeLastBack();
    QVERIFY(report.stopped);
    QCOMPARE(memory.read(text("pop/Ciao.mp3")), ciao);
    QCOMPARE(memory.read(text("Azzurro.mid")), edited);
    QVERIFY(!kept.store.jobs().constLast().isUndone);

    kept.progress.cancelAt = -1;
    const HistoryUndo::Report again = kept.takeBack(kept.store.jobs().constLast());
    QCOMPARE(again.alreadyOld, 1);
    QCOMPARE(again.done.size(), 1);
    QVERIFY(kept.store.jobs().constLast().isUndone);
}

void TestJobUndo::jobIsUndoneOnlyWhenAllOfItWasTakenBack()
{
    const ListedMemory memory;
    Kept kept;
    QVERIFY(kept.retitle(memory, {text("/Azzurro.mid"), text("/pop/Ciao.mp3")}));
    const HistoryJob job = kept.store.jobs().constFirst();
    {
        JobUndo undo(kept.store, [](const QString &, const QString &, int) {
            return std::make_unique<CountingProgress>();
        });
        HistoryRecorder history = kept.recorder(HistoryJob::Kind::TakeBack, job.number);
        const QList<HistorySong> chosen{kept.store.songs(job.number).constFirst()};
        QCOMPARE(undo.takeBack(job, chosen, false, history, kept.progress).done.size(), 1);
    }
    QVERIFY(!kept.store.jobs().constLast().isUndone);
    kept.takeBack(job);
    QVERIFY(kept.store.jobs().constLast().isUndone);
}

int main(int argc, char *argv[])
{
    const OwnSettings ownSettings;
    const QCoreApplication application(argc, argv);
    TestJobUndo test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_jobundo.moc"
