#include "app/mainwindow.h"

#include "app/actiongate.h"
#include "app/helpmenu.h"
#include "app/listoutput.h"
#include "app/listplayer.h"
#include "app/memories.h"
#include "app/rowediting.h"
#include "app/songbackup.h"
#include "app/songdrop.h"
#include "app/songimport.h"
#include "app/songlist.h"
#include "app/songlists.h"
#include "app/songsync.h"
#include "app/songtools.h"
#include "app/songtransfer.h"
#include "devindex/mountedvolumes.h"
#include "library/branding.h"
#include "library/librarybackup.h"
#include "library/settings.h"
#include "storage/diagnostics.h"
#include "windows/aboutdialog.h"
#include "windows/helpdialog.h"
#include "windows/indexdialog.h"
#include "windows/longjob.h"
#include "windows/missinglibrary.h"
#include "windows/proceeddialog.h"
#include "windows/readablelinks.h"
#include "windows/screenroom.h"
#include "windows/songslistdialog.h"
#include "windows/unreadablefilesdialog.h"
#include "windows/usersongsreltablemodel.h"
#include "windows/windowplace.h"

#include "ui_mainwindow.h"

#include <QCloseEvent>
#include <QDirIterator>
#include <QMessageBox>

MainWindow::MainWindow(QWidget *parent)
    : QMainWindow(parent)
    , ui(new Ui::MainWindow)
    , m_settings(settings::organisation, settings::application)
    , m_preferences(*ui, m_settings)
    , m_debugPanel(*ui, m_settings)
    , m_progress(this)
    , m_actionGate(new ActionGate(this, m_busy))
    , m_buttons(*ui, *m_actionGate)
{
    new ReadableLinks(this);
    new ScreenRoom(this);
    ui->setupUi(this);
    new HelpMenu(this, *ui, m_busy);
    connect(&m_busy, &BusyState::ended, this, &LongJob::isOver);
    m_memories.reset(
        new Memories(this, ui->actionMemory, *m_actionGate, m_database, m_busy, m_progress));
    setWindowTitle(tr("Kavena PC"));
    applyBranding();
    m_preferences.show();
    m_debugPanel.showLogSwitches();
    m_buttons.setUp();
    windowplace::restore(*this, m_settings);

    if (!m_database.init()) {
        logDebug() << "Error initializing DB !!!";
        m_missingLibrary = new MissingLibrary(ui->statusBar);
        m_buttons.disableForGood();
        return;
    }
    logDebug() << "DB initialized correctly";
    initUserLibraryModel();
    adjustUserLibraryHeaders();
    ui->userLibraryTableView->installEventFilter(this);
    m_lists->takeDropsOf(new SongDrop(this, m_busy));
}

MainWindow::~MainWindow()
{
    // The model stands on the database's connection and must go first.
    if (m_songs != nullptr)
        delete &m_songs->model();
}

void MainWindow::applyBranding()
{
    const QString picture = QStringLiteral("image: url(%1);");
    ui->logoKavenaLabel->setStyleSheet(picture.arg(branding().productLogo));
    ui->logoKravoLabel->setStyleSheet(picture.arg(branding().makerLogo));
    ui->actionItalian->setVisible(branding().languages.contains(languages::italian));
    ui->actionGerman->setVisible(branding().languages.contains(languages::german));
    m_debugPanel.hide();
}

void MainWindow::tellMissingLibrary()
{
    if (m_missingLibrary != nullptr)
        m_missingLibrary->tell(this, m_busy);
}

/** For the calls that other code makes: what the user could press is disabled without a library. */
bool MainWindow::hasLibrary() const
{
    if (m_songs == nullptr)
        logDebug() << "[MainWindow] WARNING: no library table, ignoring the request !!!";
    return m_songs != nullptr;
}

void MainWindow::updateProgress(int done)
{
    m_progress.shown().updateProgress(done);
}

// ---------------------------------------------------------------- events

bool MainWindow::eventFilter(QObject *, QEvent *)
{
    return false;
}

void MainWindow::changeEvent(QEvent *event)
{
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    ui->retranslateUi(this);
    setWindowTitle(tr("Kavena PC"));
    ui->statusBar->clearMessage(); // it was said in the other language
    if (m_songs != nullptr)
        m_songs->retranslate();
    if (m_missingLibrary != nullptr)
        m_missingLibrary->refresh();
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    if (m_busy || !m_memories->close()) {
        event->ignore();
        return;
    }
    QMainWindow::closeEvent(event);
    if (!event->isAccepted())
        return;
    windowplace::save(*this, m_settings);
    if (m_songs != nullptr) {
        m_songs->saveLayout();
        m_lists->keepList();
    }
}

// ---------------------------------------------------------------- library table

void MainWindow::initUserLibraryModel()
{
    m_songs =
        new SongList(this, *ui, m_database.userLibraryDb(), m_settings, m_busy, *m_actionGate);
    m_import.reset(new SongImport(this, m_database, *m_songs, m_progress));
    auto *const tools = new SongTools(this, *ui, *m_songs, m_busy, *m_actionGate);
    m_rows = new RowEditing(this, m_dataEditDialog, m_database, *m_songs, m_progress, m_busy);
    m_rows->setHistory(tools->history());
    m_rows->setTags(tools->tags());
    m_sync.reset(
        new SongSync(this, m_database, *m_songs, m_progress, [this] { return suggestBackup(); }));
    m_sync->setHistory(tools->history());
    m_sync->setResult(tools->syncResult());
    m_lists = new SongLists(
        this, *ui,
        {*m_import, *m_songs, m_selectedFiles, [this](const QStringList &f) { importFiles(f); }},
        m_settings, m_busy, *m_actionGate);
    connect(m_lists, &SongLists::added, this, [this] {
        m_buttons.setSynchronise(true);
        m_buttons.setTransfer(true);
    });
    new ListOutput(this, *ui, *m_songs, m_busy, *m_actionGate);
    new ListPlayer(*m_songs);
    connect(m_songs, &SongList::editRequested, this, &MainWindow::onSongsTableViewDoubleClicked);
    connect(m_songs, &SongList::menuRequested, this, &MainWindow::onSongsTableViewShowContextMenu);
    // Backup and transfer copy the selected files: they would miss this one for ever.
    connect(m_rows, &RowEditing::fileDeleted, this,
            [this](const QString &path) { m_selectedFiles.remove(path); });
    connect(tools, &SongTools::renamed, this, [this](const QString &path, const QString &newPath) {
        m_selectedFiles.rename(path, newPath);
    });
    connect(m_songs, &SongList::unreadableFilesRequested, this, [this] {
        const BusyGuard busy(m_busy);
        UnreadableFilesDialog(m_songs->unreadableFiles(), this).exec();
    });
}

void MainWindow::adjustUserLibraryHeaders()
{
    m_songs->fitColumns();
}

// ---------------------------------------------------------------- import

void MainWindow::on_selectDirToolButton_clicked()
{
    if (!hasLibrary()) {
        tellMissingLibrary();
        return;
    }
    const BusyGuard busy(m_busy);
    const QStringList files = m_import->choose();
    if (!files.isEmpty())
        importFiles(files);
}

/** Takes the files as the user's new choice and imports them. */
void MainWindow::importFiles(const QStringList &files)
{
    m_lists->keepList();
    setSelectedFiles(files);
    m_buttons.disable();
    importUserLibrary();
    m_buttons.setTransfer(true);
}

void MainWindow::setSelectedFiles(const QStringList &files)
{
    m_selectedFiles.set(files);
}

void MainWindow::importUserLibrary()
{
    if (!hasLibrary())
        return;
    const BusyGuard busy(m_busy);
    const auto counts = m_import->importFiles(m_selectedFiles.paths());
    if (!counts)
        return;
    const bool synchronised =
        m_preferences.copyrightAsk() && askToProceed(*counts) && updateUserLibrary();
    if (!synchronised)
        m_buttons.setSynchronise(true);
}

bool MainWindow::askToProceed(const LibraryImport::Counts &counts)
{
    ProceedDialog dialog;
    dialog.setFilesCount(counts.valid, counts.kravo, counts.bad);
    const bool accepted = dialog.exec() == QDialog::Accepted;
    enableCopyrightMessage(dialog.getShowAgainValue());
    return accepted;
}

void MainWindow::scanDir(const QString &dir, int &valid, int &kravo, int &bad)
{
    if (!hasLibrary())
        return;
    const BusyGuard busy(m_busy);
    LibraryImport::Counts counts{valid, kravo, bad};
    m_import->scanDir(dir, counts);
    valid = counts.valid;
    kravo = counts.kravo;
    bad = counts.bad;
}

// ---------------------------------------------------------------- backup

bool MainWindow::suggestBackup()
{
    const BusyGuard busy(m_busy);
    return SongBackup(this, m_progress).suggest(m_selectedFiles.paths());
}

bool MainWindow::backupDirectory(const QString &source, const QString &destination, int &count)
{
    return LibraryBackup::backupDirectory(source, destination, count);
}

// ---------------------------------------------------------------- synchronisation

void MainWindow::on_updateDataToolButton_clicked()
{
    m_buttons.disable();
    if (!updateUserLibrary())
        m_buttons.setSynchronise(true);
    m_buttons.setTransfer(true);
}

bool MainWindow::updateUserLibrary()
{
    if (!hasLibrary())
        return false;
    const BusyGuard busy(m_busy);
    return m_sync->run(m_preferences.copyrightAsk(), m_preferences.previewChanges());
}

bool MainWindow::updateFileWithDb(int row)
{
    if (!hasLibrary())
        return false;
    const BusyGuard busy(m_busy);
    return m_sync->updateRow(row);
}

// ---------------------------------------------------------------- editing

void MainWindow::onSongsTableViewDoubleClicked(QModelIndex index)
{
    m_rows->edit(index);
}

void MainWindow::manualModifySong(const MetaSong &song, const SongInfo &info, const QString &path,
                                  int row)
{
    if (!hasLibrary())
        return;
    m_rows->manualModifySong(song, info, path, row);
}

void MainWindow::onSongsTableViewShowContextMenu(QPoint pos)
{
    m_rows->runMenu(pos);
}

// ---------------------------------------------------------------- transfer

void MainWindow::on_transferFilesToolButton_clicked()
{
    runTransfer(&SongTransfer::transfer);
}

void MainWindow::on_actionTransferPlan_triggered()
{
    runTransfer(&SongTransfer::showPlan);
}

void MainWindow::transferFiles()
{
    SongTransfer(this, m_progress, m_settings, m_busy, *m_memories)
        .transfer(m_selectedFiles.paths());
}

void MainWindow::runTransfer(Transfer::Outcome (SongTransfer::*job)(const QStringList &))
{
    const bool couldSynchronise = m_buttons.canSynchronise();
    m_buttons.disable();
    SongTransfer transfer(this, m_progress, m_settings, m_busy, *m_memories);
    if ((transfer.*job)(m_selectedFiles.paths()) == Transfer::Outcome::NotStarted)
        m_buttons.setSynchronise(couldSynchronise);
    m_buttons.setTransfer(true);
}

bool MainWindow::copyFiles(const QString &dest, int &copied)
{
    return SongTransfer(this, m_progress, m_settings, m_busy, *m_memories)
        .copyFiles(m_selectedFiles.paths(), dest, copied);
}

bool MainWindow::updateKavenaIndex(const QString &path)
{
    return SongTransfer(this, m_progress, m_settings, m_busy, *m_memories).updateIndex(path);
}

bool MainWindow::isSystemDisk(const QString &path) const
{
    return MountedVolumes().isSystemDisk(path);
}

QString MainWindow::getRoot(const QString &path) const
{
    return MountedVolumes().getRoot(path);
}

bool MainWindow::isRoot(const QString &path) const
{
    return MountedVolumes().isRoot(path);
}

void MainWindow::filesCount(const QString &dir, int &count) const
{
    QDirIterator files(dir, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        files.next();
        ++count;
    }
}

// ---------------------------------------------------------------- menus

void MainWindow::on_actionItalian_triggered()
{
    // Hidden in a branding that has no Italian interface.
    if (ui->actionItalian->isVisible())
        m_preferences.setLanguage(languages::italian);
}

void MainWindow::on_actionEnglish_triggered()
{
    m_preferences.setLanguage(languages::english);
}

void MainWindow::on_actionGerman_triggered()
{
    m_preferences.setLanguage(languages::german);
}

void MainWindow::enableCopyrightMessage(bool enable)
{
    m_preferences.setCopyrightAsk(enable);
}

void MainWindow::on_actionCopyrightYes_triggered()
{
    enableCopyrightMessage(true);
}

void MainWindow::on_actionCopyrightNo_triggered()
{
    enableCopyrightMessage(false);
}

void MainWindow::on_actionPreviewChanges_toggled(bool checked)
{
    m_preferences.setPreviewChanges(checked);
}

void MainWindow::on_actionAbout_triggered()
{
    runDialog<AboutDialog>();
}

void MainWindow::on_actionContents_triggered()
{
    runDialog<HelpDialog>();
}

void MainWindow::on_optimizeMemory_triggered()
{
    runDialog<IndexDialog>();
}

void MainWindow::on_actionSongsList_triggered()
{
    runDialog<SongsListDialog>();
}

void MainWindow::on_actionAbout_QT_triggered()
{
    const BusyGuard busy(m_busy);
    QMessageBox::aboutQt(this);
}

template <typename Dialog>
void MainWindow::runDialog()
{
    const BusyGuard busy(m_busy);
    Dialog dialog(nullptr);
    dialog.exec();
}

// ---------------------------------------------------------------- debug panel

void MainWindow::on_dbgImportPushButton_clicked()
{
    importUserLibrary();
}

void MainWindow::on_dbgBackupPushButton_clicked()
{
    suggestBackup();
}

void MainWindow::on_dbgShowDialogPushButton_clicked()
{
    const BusyGuard busy(m_busy);
    DebugPanel::runDataDialog(m_dataEditDialog, m_database);
}

void MainWindow::on_dbgHidePushButton_clicked()
{
    m_debugPanel.toggle();
}

void MainWindow::on_dbgLogEnableCheckBox_toggled(bool checked)
{
    m_debugPanel.setLogEnabled(checked);
}

void MainWindow::on_dbgLogClearCheckBox_toggled(bool checked)
{
    m_debugPanel.setLogClear(checked);
}

void MainWindow::on_dbgAddMarkerPushButton_clicked()
{
    m_debugPanel.saveWithMarker(*m_songs);
}

void MainWindow::on_dbgSavePushButton_clicked()
{
    DebugPanel::saveUnchanged(*m_songs);
}
