// Songs that could not be saved: the report of the run, and the mark of their rows.
#include "library/answer.h"
#include "library/runreport.h"
#include "library/songeditor.h"
#include "library/synchronisation.h"
#include "support/librarytable.h"
#include "support/recordedprogress.h"
#include "support/smallmedium.h"
#include "support/songbytes.h"
#include "windows/statusrowdelegate.h"

#include <QHelpEvent>
#include <QImage>
#include <QTableView>
#include <QTest>
#include <QTextDocument>
#include <QToolTip>

namespace
{

QString s(const char *text)
{
    return QString::fromUtf8(text);
}

/** The catalogue's row for the file, with data that the file does not hold. */
catalogue::Row known(const QString &filename)
{
    catalogue::Row row;
    row.filename = filename;
    row.title = s("CATALOGUE ") + filename;
    row.artist = s("DOE JOHN");
    row.altartist = s("JOHN DOE");
    row.genre = s("SWING");
    row.author = s("SMITH");
    row.length = 200;
    row.bpm = 96;
    row.key = s("A -");
    return row;
}

QByteArray midi(const QByteArray &title)
{
    using namespace songbytes;
    return midiFile({track(metaEvent(0x03, title) + notes())});
}

/** A library whose songs A.mid, B.mid and C.mid, known to the catalogue, lie on a small medium. */
class LibraryOnMedium
{
public:
    LibraryOnMedium()
        : medium(256)
        , table({known(s("A")), known(s("B")), known(s("C"))})
    {
        for (const char *name : {"A.mid", "B.mid", "C.mid"}) {
            SongInfo info;
            info.fileName = medium.path(s(name));
            info.shortName = s(name);
            info.title = s(name);
            info.format = s("MIDI");
            if (!samplesongs::writeFile(info.fileName, midi(name)) || !model().addSong(info))
                qFatal("Cannot write %s", name);
        }
    }

    UserSongsRelTableModel &model() { return table.model(); }
    QString path(const char *name) const { return medium.path(s(name)); }

    QList<SaveFailure> marks()
    {
        QList<SaveFailure> all;
        for (int row = 0; row < model().goodRowCount(); ++row)
            all << model().saveFailure(row);
        return all;
    }

    Synchronisation synchronisation()
    {
        return {table.database, model(), [] { return true; },
                [](const QString &) { return Answer::Yes; }, recordedBy(progress)};
    }

    /** An editor whose user makes the title a long one, and the genre that of all songs. */
    SongEditor editor(bool genreToAll)
    {
        const auto change = [genreToAll](const SongInfo &info) {
            SongEdit edit;
            edit.info = info;
            edit.info.title = QString(100, QLatin1Char('x'));
            edit.info.genre = s("Polka");
            edit.genreToAll = genreToAll;
            return std::optional<SongEdit>(edit);
        };
        return {model(), change, [] { return false; }, recordedBy(progress)};
    }

    SmallMedium medium;
    LibraryTable table;
    ProgressRecord progress;
};

/** "name: reason" of each finding. */
QStringList told(const RunReport &report)
{
    QStringList lines;
    for (const SongFinding &finding : report.findings())
        lines << finding.path.section(QLatin1Char('/'), -1) + s(": ") + finding.reason;
    return lines;
}

const QString full = RunReport::reasonText(SaveFailure::DiskFull);
constexpr SaveFailure saved = SaveFailure::None;

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

    void markIsShownInTheWholeRowWithoutTouchingItsColour();
    void markStaysWithItsSongInASortedTable();
    void markGoesWithItsRow();
    void newImportHasNoMarks();
    void markOfARowThatDoesNotExistIsIgnored();
    void everyReasonHasWordsOfItsOwn();
    void warningSignIsPaintedBesideTheFormat();
    void toolTipOfANarrowCellTellsTextAndReason();
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

void TestUnsavedSongs::markIsShownInTheWholeRowWithoutTouchingItsColour()
{
    LibraryOnMedium library;
    UserSongsRelTableModel &model = library.model();
    model.setStatus(0, Database::StatusSynced);
    const QModelIndex status = model.rowIndex(0).siblingAtColumn(model.colIdxStatus());
    const QVariant colour = status.data(Qt::BackgroundRole);
    model.setSaveFailure(0, SaveFailure::DiskFull);
    for (int column = 0; column < model.columnCount(); ++column) {
        const QModelIndex marked = model.rowIndex(0).siblingAtColumn(column);
        QCOMPARE(marked.data(UserSongsRelTableModel::notSavedRole).toString(), full);
        QCOMPARE(marked.data(Qt::AccessibleDescriptionRole).toString(), s("Non salvata: ") + full);
        QCOMPARE(marked.data(Qt::ToolTipRole).toString(), s("Non salvata: ") + full);
        const QModelIndex other = model.rowIndex(1).siblingAtColumn(column);
        QVERIFY(!other.data(UserSongsRelTableModel::notSavedRole).isValid());
        QVERIFY(!other.data(Qt::ToolTipRole).isValid());
    }
    QCOMPARE(status.data(Qt::BackgroundRole), colour);
    QCOMPARE(model.status(0), int{Database::StatusSynced});
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

void TestUnsavedSongs::warningSignIsPaintedBesideTheFormat()
{
    LibraryOnMedium library;
    QTableView view;
    view.setModel(&library.model());
    const int type = library.model().colIdxType();
    view.setItemDelegate(new StatusRowDelegate(library.model().colIdxStatus(), type, &view));
    view.resize(1000, 300);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    const auto picture = [&](int row, int column) {
        QCoreApplication::processEvents();
        const QRect cell = view.visualRect(library.model().index(row, column));
        return view.viewport()->grab(cell).toImage();
    };
    view.resizeColumnToContents(type);
    const int narrow = view.columnWidth(type);
    const QImage plain = picture(0, type);
    const QImage title = picture(0, type + 1);

    library.model().setSaveFailure(0, SaveFailure::DiskFull);
    view.resizeColumnToContents(type);
    QVERIFY(view.columnWidth(type) > narrow); // there is room for the sign and the text
    QVERIFY(picture(0, type) != plain);
    QCOMPARE(picture(0, type + 1), title);

    library.model().setSaveFailure(0, saved);
    view.setColumnWidth(type, narrow);
    QCOMPARE(picture(0, type), plain);
}

void TestUnsavedSongs::toolTipOfANarrowCellTellsTextAndReason()
{
    LibraryOnMedium library;
    QTableView view;
    view.setModel(&library.model());
    view.setItemDelegate(
        new StatusRowDelegate(library.model().colIdxStatus(), library.model().colIdxType(), &view));
    view.resize(1000, 300);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    const int title = library.model().fieldIndex(s("title"));
    const auto tipOf = [&](int row) {
        QToolTip::hideText();
        const QPoint place = view.visualRect(library.model().index(row, title)).center();
        QHelpEvent hover(QEvent::ToolTip, place, view.viewport()->mapToGlobal(place));
        QCoreApplication::sendEvent(view.viewport(), &hover);
        QTextDocument tip;
        tip.setHtml(QToolTip::text());
        return tip.toPlainText();
    };
    library.model().setSaveFailure(0, SaveFailure::DiskFull);
    view.setColumnWidth(title, 300);
    QCOMPARE(tipOf(0), s("Non salvata: ") + full);
    view.setColumnWidth(title, 12);
    QCOMPARE(tipOf(0), s("A.mid\nNon salvata: ") + full);
    QCOMPARE(tipOf(1), s("B.mid"));
}

QTEST_MAIN(TestUnsavedSongs)
#include "test_unsavedsongs.moc"
