// Every window of the program with contents in it, for the tests that look at all of them.
#pragma once

#include "app/mainwindow.h"
#include "app/statussummary.h"
#include "app/syncresult.h"
#include "support/filledmemory.h"
#include "support/fillwindow.h"
#include "support/severalwindows.h"
#include "support/tagsofothers.h"
#include "windows/aboutdialog.h"
#include "windows/backupdialog.h"
#include "windows/cataloguedialog.h"
#include "windows/catalogueentrydialog.h"
#include "windows/changepreviewdialog.h"
#include "windows/dataeditdialog.h"
#include "windows/filelistdialog.h"
#include "windows/helpdialog.h"
#include "windows/historydialog.h"
#include "windows/indexdialog.h"
#include "windows/librariesdialog.h"
#include "windows/nocopyrightdialog.h"
#include "windows/preparetagsdialog.h"
#include "windows/proceeddialog.h"
#include "windows/progresswindow.h"
#include "windows/renamesongdialog.h"
#include "windows/runreportbox.h"
#include "windows/shortcutsdialog.h"
#include "windows/songslistdialog.h"
#include "windows/takingback.h"
#include "windows/transferplandialog.h"
#include "windows/unreadablefilesdialog.h"
#include "windows/usersongsreltablemodel.h"

#include <QCheckBox>
#include <QDir>
#include <QLineEdit>
#include <QMenuBar>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeView>
#include <QTreeWidget>

#include <functional>
#include <memory>

namespace everywindow
{

inline const QString longPath =
    QStringLiteral("/home/anna/Music/Backing tracks/Neapolitan classics/O sole mio.mid");

inline SongInfo exampleSong()
{
    SongInfo info;
    info.title = QStringLiteral("'O SOLE MIO");
    info.artist = QStringLiteral("CAPUA EDUARDO DI");
    info.genre = QStringLiteral("NEAPOLITAN");
    info.author = QStringLiteral("G. CAPURRO - E. DI CAPUA");
    info.key = QStringLiteral("G");
    info.length = 203;
    info.userBpm = 128;
    info.fileName = longPath;
    info.shortName = QStringLiteral("O sole mio.mid");
    info.format = QStringLiteral("MIDI");
    return info;
}

inline const QList<UnreadableFile> &unreadableFiles()
{
    static const QList<UnreadableFile> files{
        {longPath, UnreadableFile::Reason::Missing},
        {QStringLiteral("/music/Folder.mid"), UnreadableFile::Reason::NoFile},
        {QStringLiteral("/music/Secret.mid"), UnreadableFile::Reason::Locked},
        {QStringLiteral("/music/Busy.mid"), UnreadableFile::Reason::InUse},
        {QStringLiteral("/music/Nothing.mid"), UnreadableFile::Reason::Empty},
        {QStringLiteral("/music/Letter.mid"), UnreadableFile::Reason::UnknownFormat},
        {QStringLiteral("/music/Half.mid"), UnreadableFile::Reason::Damaged}};
    return files;
}

/** The main window with a song in each state and with files that could not be read. */
inline std::unique_ptr<QWidget> library()
{
    auto window = std::make_unique<MainWindow>();
    auto *const view = window->findChild<QTableView *>(QStringLiteral("userLibraryTableView"));
    auto *const model = qobject_cast<UserSongsRelTableModel *>(view->model());
    for (int row = 0; row <= 2 * Database::StatusNotSynced + 1; ++row) {
        model->addSong(exampleSong());
        model->setStatus(row, static_cast<Database::statusEnum>(row / 2));
        if (row % 3 == 0)
            model->setSaveFailure(row, SaveFailure::DiskFull);
    }
    window->findChild<StatusSummary *>()->setUnreadableFiles(unreadableFiles());
    window->adjustUserLibraryHeaders();
    view->selectRow(1);
    return window;
}

/** The same after a synchronisation, with a filter that no song passes. */
inline std::unique_ptr<QWidget> libraryWithoutAMatch()
{
    std::unique_ptr<QWidget> window = library();
    Synchronisation::Outcome outcome;
    outcome.found = 5;
    outcome.left = 2;
    outcome.unknown = {longPath};
    window->findChild<SyncResult *>()->show(outcome);
    window->findChild<QLineEdit *>(QStringLiteral("filterLineEdit"))
        ->setText(QStringLiteral("no such song"));
    return window;
}

inline std::unique_ptr<QWidget> unreadableFilesList()
{
    return std::make_unique<UnreadableFilesDialog>(unreadableFiles());
}

/** Every way in which a song can fail to be saved. */
inline RunReport exampleReport()
{
    RunReport report;
    for (int failure = 1; failure <= static_cast<int>(SaveFailure::Other); ++failure)
        report.add(SongFinding::Kind::NotSaved, longPath,
                   RunReport::reasonText(static_cast<SaveFailure>(failure)));
    return report;
}

inline std::unique_ptr<QWidget> runReport()
{
    return std::make_unique<RunReportBox>(exampleReport());
}

/** The list behind the button of the box. */
inline std::unique_ptr<QWidget> runDetails()
{
    return RunReportBox::details(exampleReport());
}

inline std::unique_ptr<QWidget> changePreview()
{
    using Field = ChangePreview::Field;
    ChangePreview preview;
    preview.songs = 1234;
    preview.unknown = 23;
    preview.unreadable = 4;
    ChangePreview::Song song{longPath, exampleSong().title, false, {}};
    for (int field = 0; field <= static_cast<int>(Field::MarkersShown); ++field)
        song.changes.append({static_cast<Field>(field), QString(), QStringLiteral("1 Intro")});
    preview.changed = {song};
    return std::make_unique<ChangePreviewDialog>(preview, true);
}

/** Keeps the history that the window shows. */
class HistoryHolder : public HistoryDialog
{
public:
    explicit HistoryHolder(std::unique_ptr<UserHistory> history)
        : HistoryDialog(*history, {})
        , m_history(std::move(history))
    {
    }

private:
    std::unique_ptr<UserHistory> m_history;
};

/** Three jobs; one of them was taken back. The songs are gone, the history lies in a test's folder.
 */
inline std::unique_ptr<QWidget> history()
{
    using Kind = HistoryJob::Kind;
    auto history = std::make_unique<UserHistory>([](const QString &) { return false; },
                                                 HistoryRecorder::TellDropped());
    QFile::remove(history->store().path());
    history->store().open();
    SongInfo before = exampleSong();
    before.title = QStringLiteral("o sole mio (karaoke)");
    before.genre.clear();
    qint64 number = 0;
    for (const Kind kind : {Kind::Edit, Kind::Synchronise, Kind::TakeBack}) {
        number = history->store().addJob(kind, kind == Kind::TakeBack ? number : 0).value_or(0);
        SongSnapshot snapshot;
        snapshot.digest = "old";
        SongSnapshot after = snapshot;
        after.digest = "new";
        const QList<qint64> ids = history->store().addSongs(
            number,
            {{longPath, {}, snapshot}, {QStringLiteral("/music/Vesuvio.mp3"), {}, snapshot}});
        for (const qint64 id : ids)
            history->store().end({{id, before, exampleSong(), after.size, after.digest}});
    }
    return std::make_unique<HistoryHolder>(std::move(history));
}

/** What came of taking a job back, with everything that can come of it. */
inline HistoryUndo::Report exampleTakingBack()
{
    HistoryUndo::Report report;
    report.done = {longPath};
    report.alreadyOld = 1234;
    report.failed = {{longPath, RunReport::reasonText(SaveFailure::DiskFull)}};
    report.stopped = true;
    return report;
}

inline std::unique_ptr<QWidget> takingBack()
{
    return std::make_unique<TakingBack>(exampleTakingBack());
}

inline std::unique_ptr<QWidget> takingBackDetails()
{
    return TakingBack::details(exampleTakingBack());
}

/** A song with texts in Unicode, and one of whose tag something goes. */
inline std::unique_ptr<QWidget> preparedTags()
{
    QTemporaryDir folder;
    return std::make_unique<PrepareTagsDialog>(tagsofothers::preparations(folder.path()),
                                               OpenHistory());
}

inline SongsDbRecord exampleEntry()
{
    SongInfo song = exampleSong();
    song.markers = {{1, QStringLiteral("Intro")}, {9, QStringLiteral("Verse1")}};
    return OwnCatalogue::entryOf(song);
}

/** The own catalogue with two entries, one of them chosen; it lies in a test's folder. */
inline std::unique_ptr<QWidget> ownCatalogue()
{
    OwnCatalogue catalogue;
    catalogue.openOrMake();
    SongsDbRecord second = exampleEntry();
    second.filename = QStringLiteral("VESUVIO");
    second.title = QStringLiteral("Vesuvio");
    catalogue.put({exampleEntry(), second});
    auto dialog = std::make_unique<CatalogueDialog>(QStringList{longPath});
    auto *const tree = dialog->findChild<QTreeWidget *>();
    tree->setCurrentItem(tree->topLevelItem(0));
    QFile::remove(catalogue.path()); // else the other windows would work with it
    return dialog;
}

inline std::unique_ptr<QWidget> catalogueEntry()
{
    return std::make_unique<CatalogueEntryDialog>(exampleEntry());
}

inline std::unique_ptr<QWidget> editDialog()
{
    auto dialog = std::make_unique<DataEditDialog>();
    const SongInfo info = exampleSong();
    dialog->setArtistsCombo({info.artist});
    dialog->setGenresCombo({info.genre});
    dialog->setKeysCombo({info.key});
    dialog->setOtherInfo(info);
    return dialog;
}

inline std::unique_ptr<QWidget> importSummary()
{
    auto dialog = std::make_unique<ProceedDialog>();
    dialog->setFilesCount(1234, 1000, 56);
    return dialog;
}

inline std::unique_ptr<QWidget> question()
{
    auto dialog = std::make_unique<NoCopyrightDialog>();
    dialog->setFilename(longPath);
    return dialog;
}

inline std::unique_ptr<QWidget> yesNoQuestion()
{
    auto dialog = std::make_unique<NoCopyrightDialog>();
    dialog->setFilename(longPath);
    dialog->setMessage(QCoreApplication::translate("MainWindow", "esiste già, vuoi sostituirlo?"));
    dialog->setYesNoOnly(true);
    return dialog;
}

/** A plan with a song in each state. */
inline TransferPlan examplePlan()
{
    using State = TransferPlan::State;
    using Remedy = TransferPlan::Remedy;
    constexpr qint64 megabyte = 1000000;
    TransferPlan plan;
    plan.root = QDir::homePath();
    plan.folder = plan.root + QStringLiteral("/songs");
    plan.totalBytes = 8000 * megabyte;
    plan.freeBytes = 1200 * megabyte;
    plan.songsThere = 2345;
    const auto add = [&plan](State state, Remedy remedy, const QString &name,
                             const QString &target) {
        TransferPlan::Item item;
        item.path = longPath.section(QLatin1Char('/'), 0, -2) + QLatin1Char('/') + name;
        item.state = state;
        item.remedy = remedy;
        item.target = plan.folder + QLatin1Char('/') + name;
        item.room = 4 * megabyte;
        if (remedy == Remedy::KeepBoth)
            item.keepBothTarget = plan.folder + QLatin1Char('/') + target;
        if (state == State::Remove)
            item.path = item.target;
        plan.items.append(item);
    };
    add(State::Collides, Remedy::KeepBoth, QStringLiteral("Volare.mid"),
        QStringLiteral("Volare-1.mid"));
    add(State::Renamed, Remedy::Skip, QStringLiteral("O sole mio.mid"), {});
    add(State::Differs, Remedy::Replace, QStringLiteral("Roma.mid"), {});
    add(State::TooLong, Remedy::KeepBoth, QStringLiteral("Dimmi: quando?.mid"),
        QStringLiteral("Dimmi-1.mid"));
    add(State::Unreadable, Remedy::Skip, QStringLiteral("Marina.mid"), {});
    add(State::New, Remedy::Copy, QStringLiteral("Azzurro.mid"), {});
    add(State::Same, Remedy::Skip, QStringLiteral("Sapore.mid"), {});
    add(State::Remove, Remedy::Skip, QStringLiteral("Old.mid"), {});
    plan.items[1].isThere = true;
    plan.items[1].target = plan.folder + QStringLiteral("/Osolem-1.mid");
    plan.items[4].reason = QCoreApplication::translate("TransferPlanner", "il file non c'è più");
    return plan;
}

/** The plan that the user asked for, with a song selected. */
inline std::unique_ptr<QWidget> requestedPlan()
{
    auto dialog =
        std::make_unique<TransferPlanDialog>(examplePlan(), TransferPlanDialog::Purpose::Request);
    auto *const tree = dialog->findChild<QTreeView *>();
    dialog->findChild<QCheckBox *>(QStringLiteral("othersCheckBox"))->setChecked(true);
    tree->setCurrentIndex(tree->model()->index(0, 0, tree->model()->index(0, 0)));
    return dialog;
}

/** A plan that does not fit into the memory, as it opens by itself. */
inline std::unique_ptr<QWidget> planWarning()
{
    TransferPlan plan = examplePlan();
    plan.freeBytes = 1;
    return std::make_unique<TransferPlanDialog>(plan, TransferPlanDialog::Purpose::Warning);
}

/** A progress window stays the child of the widget that is handed out. */
class ProgressHolder : public QWidget
{
public:
    ProgressHolder()
        : m_progress(QCoreApplication::translate("MainWindow", "Aggiornamento file"),
                     QCoreApplication::translate("MainWindow", "Aggiorno la libreria..."), 65000,
                     nullptr)
    {
        m_progress.updateProgress(54321);
    }
    QWidget *dialog() { return &m_progress.dialog(); }

private:
    ProgressWindow m_progress;
};

inline std::unique_ptr<QWidget> renameQuestion()
{
    return std::make_unique<RenameSongDialog>(QStringLiteral("/nowhere"),
                                              QStringLiteral("/songs/Azzurro.mid"));
}

inline std::unique_ptr<QWidget> shortcuts()
{
    const MainWindow window;
    return std::make_unique<ShortcutsDialog>(*window.menuBar());
}

template <typename Window>
std::unique_ptr<QWidget> plain()
{
    return std::make_unique<Window>();
}

struct Case {
    const char *name;
    std::function<std::unique_ptr<QWidget>()> make;
};

inline const QList<Case> &windows()
{
    static const QList<Case> all{
        {"main", plain<MainWindow>},
        {"library", library},
        {"library-no-match", libraryWithoutAMatch},
        {"unreadable", unreadableFilesList},
        {"report", runReport},
        {"report-details", runDetails},
        {"preview", changePreview},
        {"about", plain<AboutDialog>},
        {"libraries", plain<LibrariesDialog>},
        {"shortcuts", shortcuts},
        {"backup", plain<BackupDialog>},
        {"help", plain<HelpDialog>},
        {"summary", importSummary},
        {"history", history},
        {"tags", preparedTags},
        {"taking-back", takingBack},
        {"taking-back-details", takingBackDetails},
        {"catalogue", ownCatalogue},
        {"catalogue-entry", catalogueEntry},
        {"edit", editDialog},
        {"several",
         [] { return severalwindows::edit(exampleSong(), EditStepForm::Kind::FromName); }},
        {"several-value",
         [] { return severalwindows::edit(exampleSong(), EditStepForm::Kind::Value); }},
        {"several-replace",
         [] { return severalwindows::edit(exampleSong(), EditStepForm::Kind::Replace); }},
        {"several-case",
         [] { return severalwindows::edit(exampleSong(), EditStepForm::Kind::LetterCase); }},
        {"several-strip",
         [] { return severalwindows::edit(exampleSong(), EditStepForm::Kind::Strip); }},
        {"several-swap",
         [] { return severalwindows::edit(exampleSong(), EditStepForm::Kind::Swap); }},
        {"several-list",
         [] { return severalwindows::edit(exampleSong(), EditStepForm::Kind::FromList); }},
        {"fill", fillwindow::some},
        {"fill-nothing", fillwindow::nothing},
        {"several-names", [] { return severalwindows::rename(exampleSong()); }},
        {"question", question},
        {"question-yes-no", yesNoQuestion},
        {"memory", plain<IndexDialog>},
        {"songslist", plain<SongsListDialog>},
        {"progress", plain<ProgressHolder>},
        {"plan", requestedPlan},
        {"plan-warning", planWarning},
        {"memory-empty", plain<MemoryWindow>},
        {"memory-songs", [] { return filledmemory::window(0); }},
        {"memory-playlists", [] { return filledmemory::window(1); }},
        {"memory-duplicates", [] { return filledmemory::window(2); }},
        {"memory-check", [] { return filledmemory::window(3); }},
        {"memory-rename", renameQuestion},
    };
    return all;
}

/** A window on the screen, for as long as it lives. */
struct Shown {
    explicit Shown(const Case &described)
        : owner(described.make())
    {
        auto *const holder = dynamic_cast<ProgressHolder *>(owner.get());
        window = holder != nullptr ? holder->dialog() : owner.get();
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window));
    }

    std::unique_ptr<QWidget> owner;
    QWidget *window = nullptr;
};

} // namespace everywindow
