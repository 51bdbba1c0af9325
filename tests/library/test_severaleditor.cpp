// Several songs are written as they were shown.
#include "library/severaleditor.h"
#include "storage/songjournal.h"
#include "support/historyfixture.h"

#include <QFile>
#include <QSet>
#include <QTest>

using Field = songfields::Field;

namespace
{

const QStringList names{QStringLiteral("a.mid"), QStringLiteral("b.mp3"), QStringLiteral("c.mf5"),
                        QStringLiteral("d.mid")};

SongInfo infoOf(const QString &path)
{
    MetaSong song;
    SongInfo info;
    if (song.importFile(path))
        song.getSongInfo(info);
    info.fileName = path;
    return info;
}

SeveralPreview previewOf(const QStringList &paths, const QList<EditStep> &steps)
{
    QList<SongInfo> songs;
    for (const QString &path : paths)
        songs.append(infoOf(path));
    SeveralPreview preview(songs);
    preview.setSteps(steps);
    return preview;
}

QList<SeveralSong> songsOf(const SeveralPreview &preview)
{
    return {preview.songs().cbegin(), preview.songs().cend()};
}

QStringList pathsIn(const LibraryTable &library)
{
    QStringList paths;
    for (const QString &name : names)
        paths.append(library.path(name));
    return paths;
}

EditStep value(Field field, const char *text)
{
    return EditStep(EditStep::Value{field, QString::fromUtf8(text)});
}

} // namespace

class TestSeveralEditor : public QObject
{
    Q_OBJECT

private slots:
    void filesHoldWhatWasShown();
    void unchangedSongsAreNotTouched();
    void songThatWasChangedSinceIsLeftAlone();
    void whatAnotherProgramWroteIsNoPartOfTheJob();
    void songThatWouldHoldSomethingElseIsLeftAlone();
    void songThatIsGoneIsNamed();
    void songThatCannotBeWrittenIsNamedAndTheOthersAreWritten();
    void stopsBetweenSongs();
    void pathThatComesTwiceIsWrittenOnce();
    void jobCanBeTakenBackToTheByte();
    void withoutAHistoryNothingIsWrittenUnlessTheUserWantsIt();
    void realSongsHoldWhatWasShown();
    void threeThousandSongs();
};

void TestSeveralEditor::filesHoldWhatWasShown()
{
    historyfixture::KeptLibrary kept;
    QVERIFY(kept.isGood);
    const SeveralPreview preview =
        previewOf(pathsIn(kept.library),
                  {value(Field::Title, "Dvořák – a title that is longer than an MFX header holds"),
                   value(Field::Artist, ""), value(Field::Tempo, "96"), value(Field::Key, "Bb-"),
                   value(Field::Length, "3:15")});
    QCOMPARE(preview.changed(), 4);
    CountingProgress progress;
    const SeveralEditor::Report report = SeveralEditor().run(songsOf(preview), progress);
    QCOMPARE(report.written, 4);
    QVERIFY(report.problems.isEmpty());
    for (const SeveralSong &song : preview.songs()) {
        const SongInfo now = infoOf(song.before.fileName);
        QVERIFY2(SongStandIn::isSame(now, song.after), qPrintable(song.before.fileName));
        QVERIFY(now.title.startsWith(QLatin1String("Dvo?\xE1k ? a title")));
    }
}

void TestSeveralEditor::unchangedSongsAreNotTouched()
{
    historyfixture::KeptLibrary kept;
    const SeveralPreview preview =
        previewOf(pathsIn(kept.library), {value(Field::Title, "second")});
    QCOMPARE(preview.changed(), 3);
    QStringList tried;
    SeveralEditor editor([&tried](const SongInfo &now, SaveFailure failure) {
        tried.append(now.fileName);
        QCOMPARE(failure, SaveFailure::None);
    });
    CountingProgress progress;
    QCOMPARE(editor.run(songsOf(preview), progress).written, 3);
    QVERIFY(!tried.contains(kept.library.path(QStringLiteral("b.mp3"))));
    QCOMPARE(kept.library.bytes(QStringLiteral("b.mp3")),
             kept.original.value(QStringLiteral("b.mp3")));
}

void TestSeveralEditor::songThatWasChangedSinceIsLeftAlone()
{
    historyfixture::KeptLibrary kept;
    const SeveralPreview preview = previewOf(pathsIn(kept.library), {value(Field::Genre, "POP")});
    const QString changed = kept.library.path(QStringLiteral("d.mid"));
    const QByteArray other = syncfixture::midi(syncfixture::titled("something else"));
    QVERIFY(samplesongs::writeFile(changed, other));
    SongInfo left;
    SeveralEditor editor([&left](const SongInfo &now, SaveFailure failure) {
        if (failure != SaveFailure::None)
            left = now;
    });
    CountingProgress progress;
    const SeveralEditor::Report report = editor.run(songsOf(preview), progress);
    QCOMPARE(report.written, 3);
    QCOMPARE(report.problems.findings().size(), 1);
    QCOMPARE(report.problems.findings().at(0).path, changed);
    QCOMPARE(left.title, QStringLiteral("something else"));
    QCOMPARE(samplesongs::readFile(changed), other);
}

void TestSeveralEditor::whatAnotherProgramWroteIsNoPartOfTheJob()
{
    historyfixture::KeptLibrary kept;
    const SeveralPreview preview = previewOf(pathsIn(kept.library), {value(Field::Genre, "POP")});
    const QString changed = kept.library.path(QStringLiteral("d.mid"));
    const QByteArray other = syncfixture::midi(syncfixture::titled("something else"));
    // The songs are kept together before the first one is written; d.mid is the last one.
    SeveralEditor editor([&](const SongInfo &now, SaveFailure) {
        if (now.fileName.endsWith(QLatin1String("a.mid")))
            QVERIFY(samplesongs::writeFile(changed, other));
    });
    editor.setHistory(kept.opener());
    CountingProgress progress;
    const SeveralEditor::Report report = editor.run(songsOf(preview), progress);
    QCOMPARE(report.written, 3);
    QCOMPARE(report.problems.findings().size(), 1);
    QCOMPARE(report.problems.findings().at(0).path, changed);
    const QList<HistoryJob> jobs = kept.store.jobs();
    QCOMPARE(jobs.size(), 1);
    QCOMPARE(jobs.at(0).songs, 3);
    const HistoryUndo::Report undone = kept.takeBack(jobs.at(0));
    QCOMPARE(undone.done.size(), 3);
    QVERIFY(undone.failed.isEmpty());
    QCOMPARE(samplesongs::readFile(changed), other);
}

void TestSeveralEditor::songThatWouldHoldSomethingElseIsLeftAlone()
{
    // The key stands a second time in the middle of the track, where no edit reaches it.
    using namespace songbytes;
    LibraryTable library(QList<catalogue::Row>{});
    const QByteArray bytes = midiFile({track(metaEvent(0x59, QByteArray("\x01\x00", 2)) + notes() +
                                             QByteArray("\x60\xFF\x59\x02\x02\x00", 6) + notes())});
    QVERIFY(library.add(QStringLiteral("a.mid"), bytes));
    const QString path = library.path(QStringLiteral("a.mid"));
    const SeveralPreview preview = previewOf({path}, {value(Field::Key, "")});
    QCOMPARE(preview.songs().at(0).before.key, QStringLiteral("G"));
    CountingProgress progress;
    const SeveralEditor::Report report = SeveralEditor().run(songsOf(preview), progress);
    QCOMPARE(report.written, 0);
    QCOMPARE(report.problems.findings().size(), 1);
    QCOMPARE(library.bytes(QStringLiteral("a.mid")), bytes);
}

void TestSeveralEditor::songThatIsGoneIsNamed()
{
    historyfixture::KeptLibrary kept;
    const SeveralPreview preview = previewOf(pathsIn(kept.library), {value(Field::Genre, "POP")});
    QVERIFY(QFile::remove(kept.library.path(QStringLiteral("b.mp3"))));
    CountingProgress progress;
    const SeveralEditor::Report report = SeveralEditor().run(songsOf(preview), progress);
    QCOMPARE(report.written, 3);
    QCOMPARE(report.problems.count(SongFinding::Kind::NotSaved), 1);
    QVERIFY(!QFile::exists(kept.library.path(QStringLiteral("b.mp3"))));
}

void TestSeveralEditor::songThatCannotBeWrittenIsNamedAndTheOthersAreWritten()
{
    historyfixture::KeptLibrary kept;
    const SeveralPreview preview = previewOf(pathsIn(kept.library), {value(Field::Genre, "POP")});
    // Another program holds the song, as it does while it saves it.
    SongJournal journal(kept.library.path(QStringLiteral("a.mid")));
    QVERIFY(journal.write({kept.original.value(QStringLiteral("a.mid")), "other"}));
    SaveFailure failure = SaveFailure::None;
    SeveralEditor editor([&](const SongInfo &now, SaveFailure why) {
        if (now.fileName.endsWith(QLatin1String("a.mid")))
            failure = why;
    });
    CountingProgress progress;
    const SeveralEditor::Report report = editor.run(songsOf(preview), progress);
    QCOMPARE(report.written, 3);
    QCOMPARE(failure, SaveFailure::InUse);
    QCOMPARE(report.problems.findings().size(), 1);
    QCOMPARE(kept.library.bytes(QStringLiteral("a.mid")),
             kept.original.value(QStringLiteral("a.mid")));
}

void TestSeveralEditor::stopsBetweenSongs()
{
    historyfixture::KeptLibrary kept;
    const SeveralPreview preview = previewOf(pathsIn(kept.library), {value(Field::Genre, "POP")});
    CountingProgress progress;
    progress.cancelAt = 2;
    SeveralEditor editor;
    editor.setHistory(kept.opener());
    const SeveralEditor::Report report = editor.run(songsOf(preview), progress);
    QVERIFY(report.stopped);
    QCOMPARE(report.written, 2);
    QCOMPARE(infoOf(preview.songs().at(1).before.fileName).genre, QStringLiteral("POP"));
    QCOMPARE(kept.library.bytes(QStringLiteral("c.mf5")),
             kept.original.value(QStringLiteral("c.mf5")));
    const QList<HistoryJob> jobs = kept.store.jobs();
    QCOMPARE(jobs.size(), 1);
    QCOMPARE(jobs.at(0).songs, 2);
}

void TestSeveralEditor::pathThatComesTwiceIsWrittenOnce()
{
    historyfixture::KeptLibrary kept;
    const QString path = kept.library.path(QStringLiteral("a.mid"));
    const SeveralPreview preview = previewOf({path, path}, {value(Field::Genre, "POP")});
    CountingProgress progress;
    const SeveralEditor::Report report = SeveralEditor().run(songsOf(preview), progress);
    QCOMPARE(report.written, 1);
    QVERIFY(report.problems.isEmpty());
}

void TestSeveralEditor::jobCanBeTakenBackToTheByte()
{
    historyfixture::KeptLibrary kept;
    const SeveralPreview preview = previewOf(
        pathsIn(kept.library), {value(Field::Title, "new"), value(Field::Author, "somebody")});
    SeveralEditor editor;
    editor.setHistory(kept.opener());
    CountingProgress progress;
    QCOMPARE(editor.run(songsOf(preview), progress).written, 4);
    QVERIFY(kept.bytes() != kept.original);
    const QList<HistoryJob> jobs = kept.store.jobs();
    QCOMPARE(jobs.size(), 1);
    QCOMPARE(jobs.at(0).kind, HistoryJob::Kind::EditSeveral);
    const HistoryUndo::Report report = kept.takeBack(jobs.at(0));
    QCOMPARE(report.done.size(), 4);
    QVERIFY(report.failed.isEmpty());
    QCOMPARE(kept.bytes(), kept.original);
}

void TestSeveralEditor::withoutAHistoryNothingIsWrittenUnlessTheUserWantsIt()
{
    historyfixture::KeptLibrary kept;
    // A folder stands where the history has to be.
    QVERIFY(QDir().mkpath(kept.store.path()));
    const SeveralPreview preview = previewOf(pathsIn(kept.library), {value(Field::Genre, "POP")});
    SeveralEditor editor;
    editor.setHistory(kept.opener());
    CountingProgress progress;
    SeveralEditor::Report report = editor.run(songsOf(preview), progress);
    QVERIFY(report.stopped);
    QCOMPARE(report.written, 0);
    QCOMPARE(kept.bytes(), kept.original);
    QCOMPARE(kept.reasons.size(), 1);
    kept.goesOnWithout = true;
    report = editor.run(songsOf(preview), progress);
    QCOMPARE(report.written, 4);
}

void TestSeveralEditor::realSongsHoldWhatWasShown()
{
    const QStringList installed = samplesongs::installedMidiFiles();
    if (installed.isEmpty())
        QSKIP("no MIDI files are installed");
    const QTemporaryDir folder;
    QStringList paths;
    for (const QString &file : installed.mid(0, 30)) {
        const QString name = QStringLiteral("Various - %1").arg(QFileInfo(file).fileName());
        paths.append(folder.filePath(name));
        QVERIFY(samplesongs::writeFile(paths.constLast(), samplesongs::readFile(file)));
    }
    paths.append(folder.filePath(QStringLiteral("Mina - Città_vuota.mp3")));
    QVERIFY(samplesongs::makeMp3(paths.constLast(), {QStringLiteral("old"), {}, {}}));
    const SeveralPreview preview =
        previewOf(paths, {EditStep(EditStep::FromName{QStringLiteral("%artist - %title")}),
                          EditStep(EditStep::Strip{songfields::texts(), true}),
                          value(Field::Tempo, "123"), value(Field::Genre, "Sampler €")});
    QCOMPARE(preview.unfit(), 0);
    CountingProgress progress;
    const SeveralEditor::Report report = SeveralEditor().run(songsOf(preview), progress);
    QCOMPARE(report.written, static_cast<int>(paths.size()));
    for (const SeveralSong &song : preview.songs())
        QVERIFY2(SongStandIn::isSame(infoOf(song.before.fileName), song.after),
                 qPrintable(song.before.fileName));
    QCOMPARE(infoOf(paths.constLast()).title, QStringLiteral("Città vuota"));
    QCOMPARE(infoOf(paths.constLast()).genre, QStringLiteral("Sampler ?"));
}

void TestSeveralEditor::threeThousandSongs()
{
    constexpr int count = 3000;
    // In memory, where there is such a folder: a disk would take minutes to confirm each song.
    const QTemporaryDir folder(QFileInfo(QStringLiteral("/dev/shm")).isWritable()
                                   ? QStringLiteral("/dev/shm/kavena-several-XXXXXX")
                                   : QDir::tempPath() + QStringLiteral("/kavena-several-XXXXXX"));
    QList<SongInfo> songs;
    for (int i = 0; i < count; ++i) {
        const QString path =
            folder.filePath(QStringLiteral("Artist %1 - Title %2.mid").arg(i % 70).arg(i));
        QVERIFY(samplesongs::writeFile(path, songfilemaker::midi({})));
        SongInfo info;
        info.fileName = path;
        info.format = QStringLiteral("MIDI");
        songs.append(info);
    }
    SeveralPreview preview(songs);
    preview.setSteps({EditStep(EditStep::FromName{QStringLiteral("%artist - %title")})});
    QCOMPARE(preview.changed(), count);
    CountingProgress progress;
    const SeveralEditor::Report report = SeveralEditor().run(songsOf(preview), progress);
    QCOMPARE(report.written, count);
    QCOMPARE(progress.values.constLast(), count);
    for (int i = 0; i < count; i += 299)
        QCOMPARE(infoOf(songs.at(i).fileName).title, QStringLiteral("Title %1").arg(i));
}

QTEST_GUILESS_MAIN(TestSeveralEditor)
#include "test_severaleditor.moc"
