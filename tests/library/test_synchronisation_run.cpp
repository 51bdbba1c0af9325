// Synchronisation: answers about unsigned files, progress, order, and failures.
#include "library/answer.h"
#include "support/faults.h"
#include "support/librarytable.h"
#include "support/logcapture.h"
#include "support/songbytes.h"
#include "support/syncfixture.h"

#include <QTest>
#include <QTimer>

using namespace syncfixture;

namespace
{

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

} // namespace

class TestSynchronisationRun : public QObject
{
    Q_OBJECT

private slots:
    void unsignedFileIsChangedAsAnswered_data();
    void unsignedFileIsChangedAsAnswered();
    void yesToAllChangesTheRestWithoutAsking();
    void noToAllSkipsTheRestWithoutAsking();
    void nextRunAsksAgain();
    void withoutAskingUnsignedFilesAreChanged();
    void signedFilesAreNeverAskedAbout();
    void cancellingStopsBetweenTwoRows();
    void outcomeTellsWhyASongWasNotFound();
    void outcomeOfAStoppedRunIsThatOfItsRows();
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

void TestSynchronisationRun::unsignedFileIsChangedAsAnswered_data()
{
    QTest::addColumn<Answer>("answer");
    QTest::addColumn<int>("status");
    QTest::newRow("yes") << Answer::Yes << isSynced;
    QTest::newRow("yes to all") << Answer::YesToAll << isSynced;
    QTest::newRow("no") << Answer::No << isNotSynced;
    QTest::newRow("no to all") << Answer::NoToAll << isNotSynced;
}

void TestSynchronisationRun::unsignedFileIsChangedAsAnswered()
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

void TestSynchronisationRun::yesToAllChangesTheRestWithoutAsking()
{
    LibraryTable library(fourRows());
    QVERIFY(addFourUnsigned(library));
    Run run(library);
    run.answers = {Answer::No, Answer::YesToAll};
    QVERIFY(run.synchronisation.run(true));
    QCOMPARE(run.asked.size(), 2);
    QCOMPARE(library.statuses(), QList<int>({isNotSynced, isSynced, isSynced, isSynced}));
}

void TestSynchronisationRun::noToAllSkipsTheRestWithoutAsking()
{
    LibraryTable library(fourRows());
    QVERIFY(addFourUnsigned(library));
    Run run(library);
    run.answers = {Answer::Yes, Answer::NoToAll};
    QVERIFY(run.synchronisation.run(true));
    QCOMPARE(run.asked.size(), 2);
    QCOMPARE(library.statuses(), QList<int>({isSynced, isNotSynced, isNotSynced, isNotSynced}));
}

void TestSynchronisationRun::nextRunAsksAgain()
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

void TestSynchronisationRun::withoutAskingUnsignedFilesAreChanged()
{
    LibraryTable library(fourRows());
    QVERIFY(addFourUnsigned(library));
    Run run(library);
    QVERIFY(run.synchronisation.run(false));
    QCOMPARE(run.asked, QStringList());
    QCOMPARE(library.statuses().count(isSynced), 4);
}

void TestSynchronisationRun::signedFilesAreNeverAskedAbout()
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

void TestSynchronisationRun::cancellingStopsBetweenTwoRows()
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

void TestSynchronisationRun::outcomeTellsWhyASongWasNotFound()
{
    LibraryTable library(fourRows());
    QVERIFY(addFourUnsigned(library));
    QVERIFY(library.add(QStringLiteral("unknown.mid"), signedMidi()));
    Run run(library);
    run.answers = {Answer::Yes, Answer::No, Answer::Yes, Answer::No};
    QVERIFY(run.synchronisation.run(true));
    QCOMPARE(run.synchronisation.outcome().found, 2);
    QCOMPARE(run.synchronisation.outcome().left, 2);
    QCOMPARE(run.synchronisation.outcome().unknown, QStringList{library.model().fileName(4)});
}

void TestSynchronisationRun::outcomeOfAStoppedRunIsThatOfItsRows()
{
    LibraryTable library(fourRows());
    QVERIFY(addFourUnsigned(library));
    Run run(library);
    run.progress.onUpdate = [&run](int done) { run.progress.canceled = done == 3; };
    QVERIFY(!run.synchronisation.run(false));
    QCOMPARE(run.synchronisation.outcome().found, 3);
    QCOMPARE(run.synchronisation.outcome().left, 0);
    QCOMPARE(run.synchronisation.outcome().unknown, QStringList());
}

void TestSynchronisationRun::progressCountsEveryRow()
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

void TestSynchronisationRun::pendingEventsRunBetweenFiles()
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

void TestSynchronisationRun::sortedTableIsWalkedAsItStands()
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
void TestSynchronisationRun::rowIsFoundAgainWhenTheTableIsSortedDuringTheSave()
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

void TestSynchronisationRun::singleRowLeavesItsStatusToTheCaller()
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

void TestSynchronisationRun::vanishedFileTurnsRedAndTheRunGoesOn()
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

void TestSynchronisationRun::folderInPlaceOfTheFileTurnsRed()
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

void TestSynchronisationRun::failedSaveKeepsTheFileAndShowsIt()
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

void TestSynchronisationRun::protectedFilesAreLeftAsTheyAre()
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

void TestSynchronisationRun::fileThatCannotBeReadAgainKeepsItsTexts()
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

void TestSynchronisationRun::faultyCatalogueFindsNothing_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("not a database") << QByteArray(5000, 'x');
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("cut off behind its magic") << QByteArray("SQLite format 3\0\x10\x00", 18);
}

void TestSynchronisationRun::faultyCatalogueFindsNothing()
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

void TestSynchronisationRun::oddCatalogueValuesAreSurvived()
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

QTEST_GUILESS_MAIN(TestSynchronisationRun)

#include "test_synchronisation_run.moc"
