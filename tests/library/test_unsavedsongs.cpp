// Songs that could not be saved are shown and reported.
#include "library/answer.h"
#include "library/runreport.h"
#include "library/songeditor.h"
#include "library/synchronisation.h"
#include "support/librarytable.h"
#include "support/recordedprogress.h"
#include "support/smallmedium.h"
#include "support/unsavedsongs.h"

#include <QTest>

using namespace unsavedsongs;

namespace
{

/** "name: reason" of each finding. */
QStringList told(const RunReport &report)
{
    QStringList lines;
    for (const SongFinding &finding : report.findings())
        lines << finding.path.section(QLatin1Char('/'), -1) + s(": ") + finding.reason;
    return lines;
}

} // namespace

#define SKIP_WITHOUT_MEDIUM(library)                                                               \
    if (!(library).medium.isMounted())                                                             \
    QSKIP("Only root can mount a small medium")

class TestUnsavedSongs : public QObject
{
    Q_OBJECT

private slots:
    void everySavedSongLeavesAnEmptyReport();
    void synchronisingAFullMediumTellsEverySong();
    void synchronisingAWriteProtectedMediumTellsEverySong();
    void songThatVanishedIsToldToo();
    void songsThatAreNotToBeChangedAreNotTold();
    void secondRunTellsOnlyItsOwnSongs();
    void laterSaveTakesTheMarkAway();
    void editThatFailedIsTold();
    void editOfAllTellsEverySongThatFailed();
    void laterEditTakesTheMarkAway();

    void markStaysWithItsSongInASortedTable();
    void markGoesWithItsRow();
    void newImportHasNoMarks();
    void markOfARowThatDoesNotExistIsIgnored();
    void everyReasonHasWordsOfItsOwn();
};

void TestUnsavedSongs::everySavedSongLeavesAnEmptyReport()
{
    LibraryOnMedium library;
    Synchronisation run = library.synchronisation();
    QVERIFY(run.run(false));
    QVERIFY(run.report().isEmpty());
    QCOMPARE(run.report().summary(), QString());
    QCOMPARE(library.marks(), QList<SaveFailure>({saved, saved, saved}));
}

void TestUnsavedSongs::synchronisingAFullMediumTellsEverySong()
{
    LibraryOnMedium library;
    SKIP_WITHOUT_MEDIUM(library);
    library.medium.fill();
    Synchronisation run = library.synchronisation();
    QVERIFY(run.run(false));
    QCOMPARE(told(run.report()),
             QStringList({s("A.mid: ") + full, s("B.mid: ") + full, s("C.mid: ") + full}));
    QCOMPARE(run.report().summary(), s("3 song non sono state salvate."));
    QCOMPARE(library.marks(), QList<SaveFailure>(3, SaveFailure::DiskFull));
    QCOMPARE(library.table.statuses(), QList<int>(3, Database::StatusSynced)); // the colour stays
    QCOMPARE(samplesongs::readFile(library.path("A.mid")), midi("A.mid"));
}

void TestUnsavedSongs::synchronisingAWriteProtectedMediumTellsEverySong()
{
    LibraryOnMedium library;
    SKIP_WITHOUT_MEDIUM(library);
    QVERIFY(library.medium.setReadOnly(true));
    Synchronisation run = library.synchronisation();
    QVERIFY(run.run(false));
    QCOMPARE(run.report().count(SongFinding::Kind::NotSaved), 3);
    QCOMPARE(run.report().findings().at(0).reason, RunReport::reasonText(SaveFailure::ReadOnly));
    QCOMPARE(library.marks(), QList<SaveFailure>(3, SaveFailure::ReadOnly));
}

void TestUnsavedSongs::songThatVanishedIsToldToo()
{
    LibraryOnMedium library;
    QVERIFY(QFile::remove(library.path("B.mid")));
    Synchronisation run = library.synchronisation();
    QVERIFY(run.run(false));
    QCOMPARE(told(run.report()),
             QStringList(s("B.mid: ") + RunReport::reasonText(SaveFailure::FileGone)));
    QCOMPARE(library.marks(), QList<SaveFailure>({saved, SaveFailure::FileGone, saved}));
}

void TestUnsavedSongs::songsThatAreNotToBeChangedAreNotTold()
{
    LibraryOnMedium library;
    SKIP_WITHOUT_MEDIUM(library);
    library.medium.fill();
    Synchronisation run(
        library.table.database, library.model(), [] { return true; },
        [](const QString &) { return Answer::NoToAll; }, recordedBy(library.progress));
    QVERIFY(run.run(true));
    QVERIFY(run.report().isEmpty());
    QCOMPARE(library.marks(), QList<SaveFailure>(3, saved));
}

void TestUnsavedSongs::secondRunTellsOnlyItsOwnSongs()
{
    LibraryOnMedium library;
    QVERIFY(QFile::remove(library.path("A.mid")));
    Synchronisation run = library.synchronisation();
    QVERIFY(run.run(false));
    QCOMPARE(run.report().findings().size(), 1);
    QVERIFY(samplesongs::writeFile(library.path("A.mid"), midi("A")));
    QVERIFY(run.run(false));
    QVERIFY(run.report().isEmpty());
}

void TestUnsavedSongs::laterSaveTakesTheMarkAway()
{
    LibraryOnMedium library;
    SKIP_WITHOUT_MEDIUM(library);
    library.medium.fill();
    Synchronisation run = library.synchronisation();
    QVERIFY(run.run(false));
    QVERIFY(library.medium.makeRoom());
    QVERIFY(run.updateFileWithDb(1));
    QCOMPARE(library.marks(),
             QList<SaveFailure>({SaveFailure::DiskFull, saved, SaveFailure::DiskFull}));
}

void TestUnsavedSongs::editThatFailedIsTold()
{
    LibraryOnMedium library;
    SKIP_WITHOUT_MEDIUM(library);
    library.medium.fill();
    SongEditor editor = library.editor(false);
    QVERIFY(editor.edit(1));
    QCOMPARE(told(editor.report()), QStringList(s("B.mid: ") + full));
    QCOMPARE(library.marks(), QList<SaveFailure>({saved, SaveFailure::DiskFull, saved}));
    QCOMPARE(library.model().status(1), int{Database::StatusEdited});
}

void TestUnsavedSongs::editOfAllTellsEverySongThatFailed()
{
    LibraryOnMedium library;
    SKIP_WITHOUT_MEDIUM(library);
    QVERIFY(QFile::remove(library.path("C.mid")));
    library.medium.fill();
    SongEditor editor = library.editor(true);
    QVERIFY(editor.edit(1));
    QCOMPARE(told(editor.report()),
             QStringList({s("B.mid: ") + full, s("A.mid: ") + full,
                          s("C.mid: ") + RunReport::reasonText(SaveFailure::FileGone)}));
    QCOMPARE(library.table.statuses(),
             QList<int>({Database::StatusEdited, Database::StatusEdited, Database::StatusNew}));
}

void TestUnsavedSongs::laterEditTakesTheMarkAway()
{
    LibraryOnMedium library;
    SKIP_WITHOUT_MEDIUM(library);
    library.medium.fill();
    SongEditor failing = library.editor(true);
    QVERIFY(failing.edit(0));
    QVERIFY(library.medium.makeRoom());
    SongEditor editor = library.editor(true);
    QVERIFY(editor.edit(0));
    QVERIFY(editor.report().isEmpty());
    QCOMPARE(library.marks(), QList<SaveFailure>(3, saved));
}

void TestUnsavedSongs::markStaysWithItsSongInASortedTable()
{
    LibraryOnMedium library;
    library.model().setSaveFailure(0, SaveFailure::DiskFull);
    library.model().sort(library.model().fieldIndex(s("shortname")), Qt::DescendingOrder);
    QCOMPARE(library.model().shortName(2), s("A.mid"));
    QCOMPARE(library.marks(), QList<SaveFailure>({saved, saved, SaveFailure::DiskFull}));
    library.model().setSaveFailure(2, saved);
    QCOMPARE(library.marks(), QList<SaveFailure>(3, saved));
}

void TestUnsavedSongs::markGoesWithItsRow()
{
    LibraryOnMedium library;
    library.model().setSaveFailure(1, SaveFailure::DiskFull);
    QVERIFY(library.model().removeRow(1));
    QCOMPARE(library.marks(), QList<SaveFailure>(2, saved));
    library.model().setSaveFailure(1, SaveFailure::ReadOnly);
    QVERIFY(library.model().removeRow(0));
    QCOMPARE(library.marks(), QList<SaveFailure>(1, SaveFailure::ReadOnly));
}

void TestUnsavedSongs::newImportHasNoMarks()
{
    LibraryOnMedium library;
    library.model().setSaveFailure(0, SaveFailure::DiskFull);
    QVERIFY(library.table.database.clearUserLibraryDb());
    QVERIFY(library.model().select());
    SongInfo info; // gets the first row's number again
    QVERIFY(library.model().addSong(info));
    QCOMPARE(library.marks(), QList<SaveFailure>(1, saved));
}

void TestUnsavedSongs::markOfARowThatDoesNotExistIsIgnored()
{
    LibraryOnMedium library;
    for (const int row : {-1, 3, 1000}) {
        library.model().setSaveFailure(row, SaveFailure::DiskFull);
        QCOMPARE(library.model().saveFailure(row), saved);
    }
    QCOMPARE(library.marks(), QList<SaveFailure>(3, saved));
}

void TestUnsavedSongs::everyReasonHasWordsOfItsOwn()
{
    QStringList words;
    for (int failure = 0; failure <= static_cast<int>(SaveFailure::Other); ++failure)
        words << RunReport::reasonText(static_cast<SaveFailure>(failure));
    QVERIFY(words.takeFirst().isEmpty());
    QVERIFY(!words.contains(QString()));
    QCOMPARE(words.removeDuplicates(), 0);
}

QTEST_MAIN(TestUnsavedSongs)

#include "test_unsavedsongs.moc"
