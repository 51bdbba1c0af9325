// Synchronisation with the reference catalogue: questions answered, progress recorded, no window.
#include "library/answer.h"
#include "library/synchronisation.h"
#include "support/faults.h"
#include "support/librarytable.h"
#include "support/logcapture.h"
#include "support/recordedprogress.h"
#include "support/songbytes.h"

#include <QTest>
#include <QTimer>

namespace
{

const QByteArray signature = songbytes::metaEvent(0x02, "(c) K-Ravo 2011");

QByteArray midi(const QByteArray &events = QByteArray())
{
    return songbytes::midiFile({songbytes::track(events + songbytes::notes())});
}

QByteArray signedMidi(const QByteArray &events = QByteArray())
{
    return midi(signature + events);
}

QByteArray titled(const QByteArray &title)
{
    return songbytes::metaEvent(0x03, title);
}

/** An MFX file with this long name in its header; no MFX file counts as signed. */
QByteArray mfxWithLongName(const QByteArray &longName, const QString &title)
{
    samplesongs::Tags tags;
    tags.title = title;
    QByteArray bytes = samplesongs::mfxBytes("_MF3", midi(), tags);
    constexpr int longNamePosition = 42;
    return bytes.replace(longNamePosition, longName.size(), longName);
}

catalogue::Row row(const char *filename, const char *title)
{
    catalogue::Row row;
    row.filename = QString::fromUtf8(filename);
    row.title = QString::fromUtf8(title);
    row.artist = QStringLiteral("DOE JOHN");
    row.altartist = QStringLiteral("JOHN DOE");
    row.genre = QStringLiteral("SWING");
    row.author = QStringLiteral("SMITH");
    row.length = 200;
    row.bpm = 96;
    row.key = QStringLiteral("A -");
    row.markers = QStringLiteral("1;Intro;19;Verse1;");
    return row;
}

/** Four unsigned files that the catalogue knows. */
bool addFourUnsigned(LibraryTable &library)
{
    for (const char *name : {"a.mid", "b.mid", "c.mid", "d.mid"}) {
        if (!library.add(QString::fromLatin1(name), midi()))
            return false;
    }
    return true;
}

QList<catalogue::Row> fourRows()
{
    return {row("A", "ONE"), row("B", "TWO"), row("C", "THREE"), row("D", "FOUR")};
}

/** A run with every question answered from here. */
struct Run {
    explicit Run(LibraryTable &library)
        : synchronisation(
              library.database, library.model(),
              [this] {
                  ++backupOffers;
                  return backupAnswer;
              },
              [this](const QString &fileName) {
                  asked.append(fileName);
                  if (whileAsking)
                      whileAsking(fileName);
                  return answers.isEmpty() ? Answer::No : answers.takeFirst();
              },
              recordedBy(progress))
    {
    }

    bool backupAnswer = true;
    int backupOffers = 0;
    QList<Answer> answers; ///< to the questions, in turn; then no
    QStringList asked;
    std::function<void(const QString &fileName)> whileAsking; ///< called when it is set
    ProgressRecord progress;
    Synchronisation synchronisation;
};

/** The lines that synchronisation writes itself, without those of the files and the record. */
QStringList ownLines()
{
    QStringList own;
    for (const QString &line : LogCapture::lines()) {
        if (line.startsWith(QStringLiteral("[UPDATE]")) || line.startsWith(QLatin1Char('=')) ||
            line.startsWith(QStringLiteral("Record ")) || line.trimmed().isEmpty() ||
            line.startsWith(QStringLiteral("Found in DB")) ||
            line.startsWith(QStringLiteral("          UPDATE")))
            own.append(line);
    }
    return own;
}

const QString bannerLine = QString(44, QLatin1Char('=')) + QLatin1Char(' ');
const QString endOfRowLine = QString(74, QLatin1Char('=')) + QLatin1Char(' ');

constexpr int isNew = Database::StatusNew;
constexpr int isSynced = Database::StatusSynced;
constexpr int isNotSynced = Database::StatusNotSynced;

} // namespace

class TestSynchronisation : public QObject
{
    Q_OBJECT

private slots:
    void emptyLibraryIsRefusedBeforeTheBackupOffer();
    void refusedBackupChangesNothing();
    void everyStepIsLogged();
    void fileKeyLosesAnExtensionOfThreeWordCharacters_data();
    void fileKeyLosesAnExtensionOfThreeWordCharacters();
    void whatKilledProgramsLeftIsRemovedByEachRun();
    void isFoundByFileNameFirst();
    void isFoundByLongNameBeforeTitle();
    void emptyLongNameIsNotLookedUp();
    void isFoundByTitleLast();
    void titleOfTwoSongsIsNotTaken();
    void catalogueDataAreWrittenIntoTheFile();
    void mp3AndMfxAreWrittenToo();
    void rowShowsWhatTheFileHoldsAfterwards();
    void emptyCatalogueKeyKeepsTheFilesOwnKey();
    void missingCatalogueNumbersAreNotWritten();
    void unsignedFileIsChangedAsAnswered_data();
    void unsignedFileIsChangedAsAnswered();
    void yesToAllChangesTheRestWithoutAsking();
    void noToAllSkipsTheRestWithoutAsking();
    void nextRunAsksAgain();
    void withoutAskingUnsignedFilesAreChanged();
    void signedFilesAreNeverAskedAbout();
    void cancellingStopsBetweenTwoRows();
    void progressCountsEveryRow();
    void pendingEventsRunBetweenFiles();
    void sortedTableIsWalkedAsItStands();
    void rowIsFoundAgainWhenTheTableIsSortedDuringTheSave();
    void singleRowLeavesItsStatusToTheCaller();
    void vanishedFileTurnsRedAndTheRunGoesOn();
    void folderInPlaceOfTheFileTurnsRed();
    void failedSaveKeepsTheFileAndShowsIt();
    void protectedFilesAreLeftAsTheyAre();
    void fileThatCannotBeReadAgainKeepsItsTexts();
    void faultyCatalogueFindsNothing_data();
    void faultyCatalogueFindsNothing();
    void oddCatalogueValuesAreSurvived();
};

void TestSynchronisation::emptyLibraryIsRefusedBeforeTheBackupOffer()
{
    LibraryTable library({row("SONG", "SONG")});
    QVERIFY(library.isGood());
    Run run(library);
    const LogCapture log;
    QVERIFY(!run.synchronisation.run(false));
    QCOMPARE(LogCapture::lines(),
             QStringList({bannerLine, QStringLiteral("          UPDATE USER LIBRARY "), bannerLine,
                          QStringLiteral("[UPDATE] WARNING: Empty table. Aborting update !!! ")}));
    QCOMPARE(run.backupOffers, 0);
    QCOMPARE(run.progress.opened, 0);
}

void TestSynchronisation::refusedBackupChangesNothing()
{
    LibraryTable library({row("SONG", "SONG")});
    QVERIFY(library.add(QStringLiteral("song.mid"), signedMidi()));
    const QByteArray before = library.bytes(QStringLiteral("song.mid"));
    Run run(library);
    run.backupAnswer = false;
    QVERIFY(!run.synchronisation.run(false));
    QCOMPARE(run.backupOffers, 1);
    QCOMPARE(run.progress.opened, 0);
    QCOMPARE(library.bytes(QStringLiteral("song.mid")), before);
    QCOMPARE(library.statuses(), QList<int>({isNew}));
}

void TestSynchronisation::everyStepIsLogged()
{
    LibraryTable library({row("SONG", "LA SONG")});
    QVERIFY(library.add(QStringLiteral("song.mid"), signedMidi()));
    QVERIFY(library.add(QStringLiteral("other.mid"), signedMidi(titled("The other"))));
    Run run(library);
    const LogCapture log;
    QVERIFY(run.synchronisation.run(false));
    const QStringList expected = {
        bannerLine,
        QStringLiteral("          UPDATE USER LIBRARY "),
        bannerLine,
        QStringLiteral("[UPDATE] rowIdx:  0 "),
        QStringLiteral("[UPDATE] updating file:  \"%1\" ")
            .arg(library.path(QStringLiteral("song.mid"))),
        QStringLiteral("Found in DB by:  \"FILENAME: SONG\" "),
        endOfRowLine,
        QStringLiteral(" "),
        QStringLiteral("[UPDATE] rowIdx:  1 "),
        QStringLiteral("[UPDATE] updating file:  \"%1\" ")
            .arg(library.path(QStringLiteral("other.mid"))),
        QStringLiteral("Record  \"OTHER/THE OTHER\" NOT found in DB "),
        endOfRowLine,
        QStringLiteral(" "),
    };
    QCOMPARE(ownLines(), expected);
    QVERIFY(LogCapture::contains(QStringLiteral("  Title     : \"LA SONG\" ")));
}

void TestSynchronisation::fileKeyLosesAnExtensionOfThreeWordCharacters_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("key");
    QTest::newRow("three letters") << "song.mid"
                                   << "SONG";
    QTest::newRow("letter and digit") << "Song.mf3"
                                      << "SONG";
    QTest::newRow("underscore") << "song.m_3"
                                << "SONG";
    QTest::newRow("four letters") << "song.midi"
                                  << "SONG.MIDI";
    QTest::newRow("two letters") << "song.mi"
                                 << "SONG.MI";
    QTest::newRow("no extension") << "song"
                                  << "SONG";
    QTest::newRow("hyphen") << "song.m-3"
                            << "SONG.M-3";
    QTest::newRow("only the last one") << "song.kar.mid"
                                       << "SONG.KAR";
    QTest::newRow("one dot only") << "song..mid"
                                  << "SONG.";
    QTest::newRow("nothing else") << ".mid"
                                  << "";
    QTest::newRow("letters of any script") << "song.жéñ"
                                           << "SONG";
    QTest::newRow("combining mark") << QStringLiteral("song.me\u0301") << "SONG";
    QTest::newRow("upper case is longer") << "song.aß"
                                          << "SONG";
    QTest::newRow("upper case is too long") << "song.maß"
                                            << "SONG.MASS";
    QTest::newRow("line end behind") << "song.mid\n"
                                     << "SONG.MID\n";
}

void TestSynchronisation::fileKeyLosesAnExtensionOfThreeWordCharacters()
{
    QFETCH(QString, name);
    QFETCH(QString, key);
    LibraryTable library(QList<catalogue::Row>{});
    QVERIFY(library.isGood());
    QVERIFY(library.add(name, signedMidi(titled("Title"))));
    Run run(library);
    const LogCapture log;
    QVERIFY(!run.synchronisation.updateFileWithDb(0));
    QVERIFY(LogCapture::contains(QStringLiteral("Record  \"%1/TITLE\" NOT found in DB ").arg(key)));
}

void TestSynchronisation::whatKilledProgramsLeftIsRemovedByEachRun()
{
    LibraryTable library({row("SONG", "TITLE")});
    QVERIFY(library.add(QStringLiteral("song.mid"), signedMidi(titled("Title"))));
    Run run(library);
    const LogCapture log;
    const QString left = library.path(QStringLiteral(".song.mp3.0123abcd.kavena-tmp"));
    for (int i = 0; i < 2; ++i) {
        QVERIFY(samplesongs::writeFile(left, "half"));
        QVERIFY(run.synchronisation.run(false));
        QVERIFY(!QFileInfo::exists(left));
    }
}

void TestSynchronisation::isFoundByFileNameFirst()
{
    LibraryTable library(
        {row("TITLED", "MY TITLE"), row("LONG", "BY LONG NAME"), row("SONG", "BY FILE NAME")});
    QVERIFY(library.add(QStringLiteral("song.mf3"),
                        mfxWithLongName("LONG.MF3", QStringLiteral("My title"))));
    Run run(library);
    const LogCapture log;
    QVERIFY(run.synchronisation.run(false));
    QVERIFY(LogCapture::contains(QStringLiteral("Found in DB by:  \"FILENAME: SONG\" ")));
}

void TestSynchronisation::isFoundByLongNameBeforeTitle()
{
    LibraryTable library({row("TITLED", "MY TITLE"), row("LONG", "BY LONG NAME")});
    QVERIFY(library.add(QStringLiteral("song.mf3"),
                        mfxWithLongName("Long.mf3", QStringLiteral("My title"))));
    Run run(library);
    const LogCapture log;
    QVERIFY(run.synchronisation.run(false));
    QVERIFY(LogCapture::contains(QStringLiteral("Found in DB by:  \"MFXLONGNAME: LONG\" ")));
    QVERIFY(LogCapture::contains(QStringLiteral("  Title     : \"BY LONG NAME\" ")));
}

void TestSynchronisation::emptyLongNameIsNotLookedUp()
{
    LibraryTable library({row("", "WITHOUT A NAME")});
    QVERIFY(library.add(QStringLiteral("song.mid"), signedMidi(titled("My title"))));
    QVERIFY(library.add(QStringLiteral("none.mf3"), mfxWithLongName("", QStringLiteral("Two"))));
    QVERIFY(library.add(QStringLiteral("dot.mf3"), mfxWithLongName(".MF3", QStringLiteral("3"))));
    Run run(library);
    QVERIFY(run.synchronisation.run(false));
    QCOMPARE(library.statuses(), QList<int>({isNotSynced, isNotSynced, isNotSynced}));
}

void TestSynchronisation::isFoundByTitleLast()
{
    LibraryTable library({row("TITLED", "MY TITLE")});
    QVERIFY(library.add(QStringLiteral("song.mid"), signedMidi(titled("My title"))));
    Run run(library);
    const LogCapture log;
    QVERIFY(run.synchronisation.run(false));
    QVERIFY(LogCapture::contains(QStringLiteral("Found in DB by:  \"TITLE: MY TITLE\" ")));
    QCOMPARE(library.statuses(), QList<int>({isSynced}));
}

void TestSynchronisation::titleOfTwoSongsIsNotTaken()
{
    LibraryTable library({row("ONE", "MY TITLE"), row("TWO", "MY TITLE")});
    QVERIFY(library.add(QStringLiteral("song.mid"), signedMidi(titled("My title"))));
    const QByteArray before = library.bytes(QStringLiteral("song.mid"));
    Run run(library);
    QVERIFY(run.synchronisation.run(false));
    QCOMPARE(library.statuses(), QList<int>({isNotSynced}));
    QCOMPARE(library.bytes(QStringLiteral("song.mid")), before);
}

void TestSynchronisation::catalogueDataAreWrittenIntoTheFile()
{
    LibraryTable library({row("SONG", "LA SONG")});
    QVERIFY(library.add(QStringLiteral("song.mid"), signedMidi()));
    Run run(library);
    QVERIFY(run.synchronisation.run(false));

    const SongInfo song = library.song(QStringLiteral("song.mid"));
    QCOMPARE(song.title, QStringLiteral("LA SONG"));
    QCOMPARE(song.artist, QStringLiteral("JOHN DOE"));
    QCOMPARE(song.genre, QStringLiteral("SWING"));
    QCOMPARE(song.author, QStringLiteral("SMITH"));
    QCOMPARE(song.length, 200);
    QCOMPARE(song.userBpm, 96);
    QCOMPARE(song.key, QStringLiteral("A-"));
    QCOMPARE(song.markers.size(), 2);
    QCOMPARE(song.markers.at(1).bar, quint16{19});
    QCOMPARE(song.markers.at(1).text, QStringLiteral("Verse1"));
    QVERIFY(library.bytes(QStringLiteral("song.mid")).contains(songbytes::notes()));
}

void TestSynchronisation::mp3AndMfxAreWrittenToo()
{
    LibraryTable library({row("SONG", "LA SONG"), row("PACKED", "PACKED SONG")});
    const QByteArray audio = QByteArray("\xFF\xFB\x90\x64", 4) + QByteArray(300, 'a');
    QVERIFY(library.add(QStringLiteral("song.mp3"), songbytes::id3Tag(QByteArray()) + audio));
    QVERIFY(library.add(QStringLiteral("packed.mf3"), mfxWithLongName("OTHER", QString())));
    Run run(library);
    QVERIFY(run.synchronisation.run(false));
    QCOMPARE(library.statuses(), QList<int>({isSynced, isSynced}));
    QCOMPARE(library.song(QStringLiteral("song.mp3")).title, QStringLiteral("LA SONG"));
    QCOMPARE(library.song(QStringLiteral("song.mp3")).artist, QStringLiteral("JOHN DOE"));
    QVERIFY(library.bytes(QStringLiteral("song.mp3")).endsWith(audio));
    QCOMPARE(library.song(QStringLiteral("packed.mf3")).title, QStringLiteral("PACKED SONG"));
    QCOMPARE(library.song(QStringLiteral("packed.mf3")).markers.size(), 2);
    QCOMPARE(library.song(QStringLiteral("packed.mf3")).mfxLongName, QStringLiteral("OTHER"));
}

void TestSynchronisation::rowShowsWhatTheFileHoldsAfterwards()
{
    // The file's own genre stays, so the row must show it and not the catalogue's.
    LibraryTable library({row("SONG", "LA SONG")});
    const QByteArray genre = songbytes::kravoEvent(1, "Polka");
    QVERIFY(library.add(QStringLiteral("song.mid"), signedMidi(genre)));
    Run run(library);
    QVERIFY(run.synchronisation.run(false));
    QCOMPARE(library.cell(0, "title"), QStringLiteral("LA SONG"));
    QCOMPARE(library.cell(0, "artist"), QStringLiteral("JOHN DOE"));
    QCOMPARE(library.cell(0, "genre"), QStringLiteral("Polka"));
    QCOMPARE(library.cell(0, "author"), QStringLiteral("SMITH"));
    QCOMPARE(library.cell(0, "length"), QStringLiteral("03:20"));
    QCOMPARE(library.cell(0, "userbpm"), QStringLiteral("96"));
    QCOMPARE(library.cell(0, "key"), QStringLiteral("A-"));
    QCOMPARE(library.cell(0, "filename"), library.path(QStringLiteral("song.mid")));
    QCOMPARE(library.cell(0, "shortname"), QStringLiteral("song.mid"));
}

void TestSynchronisation::emptyCatalogueKeyKeepsTheFilesOwnKey()
{
    catalogue::Row keyless = row("SONG", "LA SONG");
    keyless.key.clear();
    catalogue::Row other = keyless;
    other.filename = QStringLiteral("OTHER");
    LibraryTable library({keyless, other});
    const QByteArray keyOfD = songbytes::metaEvent(0x59, QByteArray("\x02\x00", 2));
    QVERIFY(library.add(QStringLiteral("song.mid"), signedMidi(keyOfD)));
    QVERIFY(library.add(QStringLiteral("other.mid"), signedMidi()));
    Run run(library);
    QVERIFY(run.synchronisation.run(false));
    QCOMPARE(library.statuses(), QList<int>({isSynced, isSynced}));
    QCOMPARE(library.song(QStringLiteral("song.mid")).key, QStringLiteral("D"));
    QCOMPARE(library.song(QStringLiteral("other.mid")).key, QString());
    QVERIFY(!library.bytes(QStringLiteral("other.mid")).contains(QByteArray("\xFF\x59", 2)));
}

void TestSynchronisation::missingCatalogueNumbersAreNotWritten()
{
    catalogue::Row numberless = row("SONG", "LA SONG");
    numberless.length = QStringLiteral("long");
    numberless.bpm = QVariant();
    LibraryTable library({numberless});
    QVERIFY(library.add(QStringLiteral("song.mid"), signedMidi()));
    Run run(library);
    QVERIFY(run.synchronisation.run(false));
    QCOMPARE(library.statuses(), QList<int>({isSynced}));
    QCOMPARE(library.song(QStringLiteral("song.mid")).length, 0);
}

void TestSynchronisation::unsignedFileIsChangedAsAnswered_data()
{
    QTest::addColumn<Answer>("answer");
    QTest::addColumn<int>("status");
    QTest::newRow("yes") << Answer::Yes << isSynced;
    QTest::newRow("yes to all") << Answer::YesToAll << isSynced;
    QTest::newRow("no") << Answer::No << isNotSynced;
    QTest::newRow("no to all") << Answer::NoToAll << isNotSynced;
}

void TestSynchronisation::unsignedFileIsChangedAsAnswered()
{
    QFETCH(Answer, answer);
    LibraryTable library({row("SONG", "LA SONG")});
    QVERIFY(library.add(QStringLiteral("song.mid"), midi()));
    const QByteArray before = library.bytes(QStringLiteral("song.mid"));
    Run run(library);
    run.answers = {answer};
    QVERIFY(run.synchronisation.run(true));
    QCOMPARE(run.asked, QStringList(library.path(QStringLiteral("song.mid"))));
    QTEST(library.model().status(0), "status");
    const bool changed = library.bytes(QStringLiteral("song.mid")) != before;
    QCOMPARE(changed, library.model().status(0) == isSynced);
}

void TestSynchronisation::yesToAllChangesTheRestWithoutAsking()
{
    LibraryTable library(fourRows());
    QVERIFY(addFourUnsigned(library));
    Run run(library);
    run.answers = {Answer::No, Answer::YesToAll};
    QVERIFY(run.synchronisation.run(true));
    QCOMPARE(run.asked.size(), 2);
    QCOMPARE(library.statuses(), QList<int>({isNotSynced, isSynced, isSynced, isSynced}));
}

void TestSynchronisation::noToAllSkipsTheRestWithoutAsking()
{
    LibraryTable library(fourRows());
    QVERIFY(addFourUnsigned(library));
    Run run(library);
    run.answers = {Answer::Yes, Answer::NoToAll};
    QVERIFY(run.synchronisation.run(true));
    QCOMPARE(run.asked.size(), 2);
    QCOMPARE(library.statuses(), QList<int>({isSynced, isNotSynced, isNotSynced, isNotSynced}));
}

void TestSynchronisation::nextRunAsksAgain()
{
    LibraryTable library(fourRows());
    QVERIFY(addFourUnsigned(library));
    Run run(library);
    run.answers = {Answer::NoToAll};
    QVERIFY(run.synchronisation.run(true));
    QCOMPARE(run.asked.size(), 1);
    run.answers = {Answer::YesToAll};
    QVERIFY(run.synchronisation.run(true));
    QCOMPARE(run.asked.size(), 2);
    QCOMPARE(library.statuses(), QList<int>({isSynced, isSynced, isSynced, isSynced}));

    // "No to all" of one run does not hold for a later one that asks nothing either.
    run.answers = {Answer::NoToAll};
    QVERIFY(run.synchronisation.run(true));
    QCOMPARE(library.statuses().count(isNotSynced), 4);
    QVERIFY(run.synchronisation.run(false));
    QCOMPARE(library.statuses().count(isSynced), 4);
}

void TestSynchronisation::withoutAskingUnsignedFilesAreChanged()
{
    LibraryTable library(fourRows());
    QVERIFY(addFourUnsigned(library));
    Run run(library);
    QVERIFY(run.synchronisation.run(false));
    QCOMPARE(run.asked, QStringList());
    QCOMPARE(library.statuses().count(isSynced), 4);
}

void TestSynchronisation::signedFilesAreNeverAskedAbout()
{
    LibraryTable library(fourRows());
    QVERIFY(library.add(QStringLiteral("a.mid"), midi()));
    QVERIFY(library.add(QStringLiteral("b.mid"), signedMidi()));
    Run run(library);
    run.answers = {Answer::NoToAll};
    QVERIFY(run.synchronisation.run(true));
    QCOMPARE(run.asked, QStringList(library.path(QStringLiteral("a.mid"))));
    QCOMPARE(library.statuses(), QList<int>({isNotSynced, isSynced}));
}

void TestSynchronisation::cancellingStopsBetweenTwoRows()
{
    QList<catalogue::Row> rows;
    for (char name = 'A'; name < 'K'; name += 2)
        rows.append(row(QByteArray(1, name).constData(), "TITLE"));
    LibraryTable library(rows);
    for (char name = 'a'; name < 'k'; ++name)
        QVERIFY(library.add(QString(QLatin1Char(name)) + QStringLiteral(".mid"), signedMidi()));
    const QByteArray untouched = library.bytes(QStringLiteral("d.mid"));
    Run run(library);
    run.progress.onUpdate = [&run](int done) { run.progress.canceled = done == 3; };
    QVERIFY(!run.synchronisation.run(false));

    QCOMPARE(library.statuses(), QList<int>({isSynced, isNotSynced, isSynced, isNew, isNew, isNew,
                                             isNew, isNew, isNew, isNew}));
    QCOMPARE(run.progress.updates, QList<int>({1, 2, 3}));
    QVERIFY(!run.progress.isOpen);
    QCOMPARE(library.song(QStringLiteral("c.mid")).title, QStringLiteral("TITLE"));
    QCOMPARE(library.bytes(QStringLiteral("d.mid")), untouched);
}

void TestSynchronisation::progressCountsEveryRow()
{
    LibraryTable library(fourRows());
    QVERIFY(addFourUnsigned(library));
    QVERIFY(library.add(QStringLiteral("unknown.mid"), midi()));
    Run run(library);
    QVERIFY(run.synchronisation.run(false));
    QCOMPARE(run.progress.opened, 1);
    QCOMPARE(run.progress.title, QStringLiteral("Aggiornamento file"));
    QCOMPARE(run.progress.label, QStringLiteral("Aggiorno la libreria..."));
    QCOMPARE(run.progress.maximum, 5);
    QCOMPARE(run.progress.updates, QList<int>({1, 2, 3, 4, 5}));
    QVERIFY(!run.progress.isOpen);
}

void TestSynchronisation::pendingEventsRunBetweenFiles()
{
    LibraryTable library(fourRows());
    QVERIFY(addFourUnsigned(library));
    Run run(library);
    QList<int> eventRanBefore;
    int eventsRun = 0;
    run.progress.onUpdate = [&](int) {
        eventRanBefore.append(eventsRun);
        QMetaObject::invokeMethod(
            this, [&eventsRun] { ++eventsRun; }, Qt::QueuedConnection);
    };
    QVERIFY(run.synchronisation.run(false));
    QCOMPARE(eventRanBefore, QList<int>({0, 1, 2, 3}));
    QCOMPARE(eventsRun, 4);
}

void TestSynchronisation::sortedTableIsWalkedAsItStands()
{
    // Sorted by title, and each title changes under the run.
    LibraryTable library({row("A", "ZULU"), row("B", "ALPHA"), row("C", "MIKE")});
    QVERIFY(library.add(QStringLiteral("a.mid"), signedMidi(titled("A"))));
    QVERIFY(library.add(QStringLiteral("b.mid"), signedMidi()));
    QVERIFY(library.add(QStringLiteral("c.mid"), signedMidi(titled("M"))));
    QVERIFY(library.add(QStringLiteral("d.mid"), signedMidi(titled("D"))));
    library.model().sort(library.model().fieldIndex(QStringLiteral("title")), Qt::AscendingOrder);
    Run run(library);
    const LogCapture log;
    QVERIFY(run.synchronisation.run(false));
    QStringList visited;
    for (const QString &line : LogCapture::lines()) {
        if (line.startsWith(QStringLiteral("[UPDATE] updating file: ")))
            visited.append(line.section(QLatin1Char('/'), -1).section(QLatin1Char('"'), 0, 0));
    }
    visited.sort();
    QCOMPARE(visited, QStringList({QStringLiteral("a.mid"), QStringLiteral("b.mid"),
                                   QStringLiteral("c.mid"), QStringLiteral("d.mid")}));
    for (int i = 0; i < 4; ++i) {
        const bool unknown = library.model().shortName(i) == QStringLiteral("d.mid");
        QCOMPARE(library.model().status(i), unknown ? isNotSynced : isSynced);
        QCOMPARE(library.cell(i, "title"), library.song(library.model().shortName(i)).title);
    }
}

// A progress that was cancelled lets go of the table while the song of that moment is saved.
void TestSynchronisation::rowIsFoundAgainWhenTheTableIsSortedDuringTheSave()
{
    LibraryTable library(fourRows());
    QVERIFY(addFourUnsigned(library));
    Run run(library);
    run.answers = {Answer::Yes};
    run.whileAsking = [&](const QString &) {
        run.progress.canceled = true;
        QTimer::singleShot(0, &library.model(), [&library] {
            const int column = library.model().fieldIndex(QStringLiteral("shortname"));
            library.model().sort(column, Qt::DescendingOrder);
        });
    };
    QVERIFY(!run.synchronisation.run(true));
    QCOMPARE(library.cell(3, "shortname"), QStringLiteral("a.mid"));
    QCOMPARE(library.cell(3, "title"), QStringLiteral("ONE"));
    QCOMPARE(library.statuses(), QList<int>({isNew, isNew, isNew, isSynced}));
    QVERIFY(library.cell(0, "title") != QStringLiteral("ONE"));
}

void TestSynchronisation::singleRowLeavesItsStatusToTheCaller()
{
    LibraryTable library({row("SONG", "LA SONG")});
    QVERIFY(library.add(QStringLiteral("song.mid"), midi()));
    QVERIFY(library.add(QStringLiteral("other.mid"), midi()));
    Run run(library);
    QVERIFY(run.synchronisation.updateFileWithDb(0));
    QVERIFY(!run.synchronisation.updateFileWithDb(1));
    QVERIFY(!run.synchronisation.updateFileWithDb(2));
    QVERIFY(!run.synchronisation.updateFileWithDb(-1));
    QCOMPARE(library.statuses(), QList<int>({isNew, isNew}));
    QCOMPARE(library.cell(0, "title"), QStringLiteral("LA SONG"));
}

void TestSynchronisation::vanishedFileTurnsRedAndTheRunGoesOn()
{
    LibraryTable library(fourRows());
    QVERIFY(addFourUnsigned(library));
    QVERIFY(QFile::remove(library.path(QStringLiteral("b.mid"))));
    Run run(library);
    run.answers = {Answer::YesToAll};
    QVERIFY(run.synchronisation.run(true));
    QCOMPARE(library.statuses(), QList<int>({isSynced, isNotSynced, isSynced, isSynced}));
    QVERIFY(!QFile::exists(library.path(QStringLiteral("b.mid"))));
}

void TestSynchronisation::folderInPlaceOfTheFileTurnsRed()
{
    LibraryTable library(fourRows());
    QVERIFY(addFourUnsigned(library));
    QVERIFY(QFile::remove(library.path(QStringLiteral("a.mid"))));
    QVERIFY(QDir().mkdir(library.path(QStringLiteral("a.mid"))));
    Run run(library);
    QVERIFY(run.synchronisation.run(false));
    QCOMPARE(library.statuses(), QList<int>({isNotSynced, isSynced, isSynced, isSynced}));
    QVERIFY(QFileInfo(library.path(QStringLiteral("a.mid"))).isDir());
}

void TestSynchronisation::failedSaveKeepsTheFileAndShowsIt()
{
    LibraryTable library({row("SONG", "LA SONG")});
    QVERIFY(library.add(QStringLiteral("song.mid"), signedMidi(songbytes::kravoEvent(1, "Polka"))));
    const QByteArray before = library.bytes(QStringLiteral("song.mid"));
    Run run(library);
    {
        const LogCapture quiet; // the limit would hold for the test's own output too
        const faults::FileSizeLimit full(static_cast<quint64>(before.size()));
        QVERIFY(run.synchronisation.run(false));
    }
    QCOMPARE(library.bytes(QStringLiteral("song.mid")), before);
    QCOMPARE(library.statuses(), QList<int>({isSynced}));
    QCOMPARE(library.cell(0, "title"), QString());
    QCOMPARE(library.cell(0, "genre"), QStringLiteral("Polka"));
}

void TestSynchronisation::protectedFilesAreLeftAsTheyAre()
{
    if (!faults::canBecomeAnotherUser())
        QSKIP("Only root can make a file that belongs to somebody else");
    LibraryTable library(fourRows());
    const QByteArray mp3 = songbytes::id3Tag(songbytes::id3Frame("TCON", "Polka")) + "audio";
    const QStringList names = {QStringLiteral("a.mid"), QStringLiteral("b.mp3"),
                               QStringLiteral("c.mid")};
    QVERIFY(library.add(names.at(0), midi(songbytes::kravoEvent(1, "Polka"))));
    QVERIFY(library.add(names.at(1), mp3));
    QVERIFY(library.add(names.at(2), midi()));
    QList<QByteArray> before;
    for (const QString &name : names)
        before.append(library.bytes(name));
    using File = QFileDevice;
    const auto readable = File::ReadOwner | File::ReadGroup | File::ReadOther;
    const auto enterable = File::ExeOwner | File::ExeGroup | File::ExeOther;
    QVERIFY(QFile::setPermissions(library.path(), readable | enterable | File::WriteOwner));
    QVERIFY(QFile::setPermissions(library.path(names.at(0)), readable));
    QVERIFY(QFile::setPermissions(library.path(names.at(1)), readable));
    QVERIFY(QFile::setPermissions(library.path(names.at(2)), File::Permissions()));

    Run run(library);
    {
        const faults::AnotherUser user;
        QVERIFY(run.synchronisation.run(false));
    }
    // Found in the catalogue: green although not written; the third could not even be read.
    QCOMPARE(library.statuses(), QList<int>({isSynced, isSynced, isNotSynced}));
    for (int i = 0; i < names.size(); ++i)
        QCOMPARE(library.bytes(names.at(i)), before.at(i));
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(library.cell(i, "title"), QString());
        QCOMPARE(library.cell(i, "genre"), QStringLiteral("Polka"));
    }
    QCOMPARE(QDir(library.path()).entryList({QStringLiteral("*.tmp")}, QDir::Files).size(), 0);
}

void TestSynchronisation::fileThatCannotBeReadAgainKeepsItsTexts()
{
    LibraryTable library({row("SONG", "LA SONG")});
    QVERIFY(library.add(QStringLiteral("song.mid"), midi(titled("Mine"))));
    Run run(library);
    run.whileAsking = [](const QString &fileName) {
        QFile::remove(fileName);
        QDir().mkdir(fileName);
    };
    run.answers = {Answer::Yes};
    QVERIFY(run.synchronisation.run(true));
    QCOMPARE(library.statuses(), QList<int>({isSynced}));
    QCOMPARE(library.cell(0, "title"), QStringLiteral("Mine"));
    QCOMPARE(library.cell(0, "artist"), QString());
    QCOMPARE(library.cell(0, "length"), QStringLiteral("00:00"));
}

void TestSynchronisation::faultyCatalogueFindsNothing_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("not a database") << QByteArray(5000, 'x');
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("cut off behind its magic") << QByteArray("SQLite format 3\0\x10\x00", 18);
}

void TestSynchronisation::faultyCatalogueFindsNothing()
{
    QFETCH(QByteArray, content);
    LibraryTable library;
    QVERIFY(samplesongs::writeFile(catalogue::overrideFile, content));
    QVERIFY(library.open());
    QVERIFY(library.add(QStringLiteral("song.mid"), signedMidi(titled("Title"))));
    const QByteArray before = library.bytes(QStringLiteral("song.mid"));
    Run run(library);
    QVERIFY(run.synchronisation.run(false));
    QCOMPARE(library.statuses(), QList<int>({isNotSynced}));
    QCOMPARE(library.bytes(QStringLiteral("song.mid")), before);
}

void TestSynchronisation::oddCatalogueValuesAreSurvived()
{
    catalogue::Row odd = row("SONG", "LA SONG");
    odd.title = QString(5000, QLatin1Char('T'));
    odd.artist = QStringLiteral("ジョン \" Ω");
    odd.altartist.clear();
    odd.genre = QString(300, QLatin1Char('g'));
    odd.author = QStringLiteral("\x01\x02\xFF");
    odd.length = qint64{1} << 40;
    odd.bpm = -77;
    odd.key = QStringLiteral("H major");
    odd.markers = QStringLiteral("x;Intro;-4;No;70000;Far;5;%1;9").arg(QString(400, QChar(0xE8)));
    LibraryTable library({odd});
    QVERIFY(library.add(QStringLiteral("song.mid"), signedMidi()));
    Run run(library);
    QVERIFY(run.synchronisation.run(false));
    QCOMPARE(library.statuses(), QList<int>({isSynced}));
    const SongInfo song = library.song(QStringLiteral("song.mid"));
    QCOMPARE(song.title, QString(125, QLatin1Char('T')));
    QCOMPARE(song.key, QString());
    QVERIFY(library.bytes(QStringLiteral("song.mid")).contains(songbytes::notes()));
}

QTEST_GUILESS_MAIN(TestSynchronisation)
#include "test_synchronisation.moc"
