#include "app/mainwindow.h"

#include "app/actiongate.h"
#include "app/buttonaction.h"
#include "app/songdrop.h"
#include "app/songlist.h"
#include "devindex/filecopier.h"
#include "devindex/mountedvolumes.h"
#include "devindex/transfer.h"
#include "formats/songnames.h"
#include "library/librarybackup.h"
#include "library/libraryimport.h"
#include "library/settings.h"
#include "library/songeditor.h"
#include "library/songsearch.h"
#include "library/synchronisation.h"
#include "storage/diagnostics.h"
#include "windows/aboutdialog.h"
#include "windows/backupdialog.h"
#include "windows/changepreviewdialog.h"
#include "windows/confirmation.h"
#include "windows/helpdialog.h"
#include "windows/indexdialog.h"
#include "windows/missinglibrary.h"
#include "windows/paintingpaused.h"
#include "windows/proceeddialog.h"
#include "windows/readablelinks.h"
#include "windows/runreportbox.h"
#include "windows/screenroom.h"
#include "windows/shownprogress.h"
#include "windows/songslistdialog.h"
#include "windows/transferdialogs.h"
#include "windows/translation.h"
#include "windows/unreadablefilesdialog.h"
#include "windows/usersongsreltablemodel.h"
#include "windows/windowplace.h"

#include "ui_mainwindow.h"

#include <QCloseEvent>
#include <QDirIterator>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QMessageBox>
#include <QTableView>

namespace
{

constexpr int messageMilliseconds = 8000;

} // namespace

MainWindow::MainWindow(QWidget *parent)
    : QMainWindow(parent)
    , ui(new Ui::MainWindow)
    , m_settings(settings::organisation, settings::application)
    , m_actionGate(new ActionGate(this, m_busy))
{
    new ReadableLinks(this);
    new ScreenRoom(this);
    ui->setupUi(this);
    addToGate();
    setWindowTitle(tr("Kavena PC"));
    applyBranding();
    showSettings();
    addMenuActions();
    windowplace::restore(*this, m_settings);

    if (!m_database.init()) {
        logDebug() << "Error initializing DB !!!";
        m_missingLibrary = new MissingLibrary(ui->statusBar);
        return;
    }
    logDebug() << "DB initialized correctly";
    initUserLibraryModel();
    adjustUserLibraryHeaders();
    ui->userLibraryTableView->installEventFilter(this);
    connect(new SongDrop(this, m_busy), &SongDrop::dropped, this, &MainWindow::importDropped);
}

MainWindow::~MainWindow()
{
    // The model stands on the database's connection and must go first.
    if (m_songs != nullptr)
        delete &m_songs->model();
}

void MainWindow::applyBranding()
{
    ui->logoKavenaLabel->setStyleSheet(QStringLiteral("image: url(:/imgs/logo-RB27-Utility.png);"));
    ui->logoKravoLabel->setStyleSheet(QStringLiteral("image: url(:/imgs/logo-quorvane.png);"));
    ui->actionItalian->setVisible(false);
    ui->actionGerman->setVisible(true);
    m_copyrightDefault = false;
    ui->debugGroupBox->hide();
    ui->debugKravoGroupBox->hide();
    disableActionButtons();
}

void MainWindow::showSettings()
{
    checkLanguage(m_settings.value(settings::language, translation::german).toString());
    const bool ask = copyrightAsk();
    ui->actionCopyrightYes->setChecked(ask);
    ui->actionCopyrightNo->setChecked(!ask);
    ui->actionPreviewChanges->setChecked(
        m_settings.value(settings::previewChanges, false).toBool());
    ui->dbgLogEnableCheckBox->setChecked(m_settings.value(settings::logEnabled, false).toBool());
    ui->dbgLogClearCheckBox->setChecked(m_settings.value(settings::logClear, false).toBool());
}

void MainWindow::checkLanguage(const QString &language)
{
    const bool italian = language == translation::italian;
    const bool german = language == translation::german;
    ui->actionItalian->setChecked(italian);
    ui->actionGerman->setChecked(german);
    ui->actionEnglish->setChecked(!italian && !german);
}

void MainWindow::disableActionButtons()
{
    m_actionGate->setWanted(ui->updateDataToolButton, false);
    m_actionGate->setWanted(ui->transferFilesToolButton, false);
}

/** All that starts work; it cannot be started while other work runs. */
void MainWindow::addToGate()
{
    QObject *const actions[] = {
        ui->selectDirToolButton, ui->updateDataToolButton,    ui->transferFilesToolButton,
        ui->optimizeMemory,      ui->actionSongsList,         ui->actionContents,
        ui->actionAbout,         ui->actionAbout_QT,          ui->dbgImportPushButton,
        ui->dbgBackupPushButton, ui->dbgShowDialogPushButton, ui->dbgAddMarkerPushButton,
        ui->dbgSavePushButton};
    for (QObject *const action : actions)
        m_actionGate->add(action);
}

void MainWindow::addMenuActions()
{
    new ButtonAction(ui->actionSelectSongs, ui->selectDirToolButton);
    new ButtonAction(ui->actionSynchronise, ui->updateDataToolButton);
    new ButtonAction(ui->actionTransfer, ui->transferFilesToolButton);
    ui->selectDirToolButton->setFocus(); // what a user begins with
}

void MainWindow::tellMissingLibrary()
{
    if (m_missingLibrary != nullptr)
        m_missingLibrary->tell(this, m_busy);
}

bool MainWindow::hasLibrary() const
{
    if (m_songs == nullptr)
        logDebug() << "[MainWindow] WARNING: no library table, ignoring the request !!!";
    return m_songs != nullptr;
}

bool MainWindow::copyrightAsk() const
{
    return m_settings.value(settings::copyrightAsk, m_copyrightDefault).toBool();
}

OpenProgress MainWindow::openProgress()
{
    return [this](const QString &title, const QString &label, int maximum) {
        return std::make_unique<ShownProgress>(m_progress, title, label, maximum, this);
    };
}

void MainWindow::updateProgress(int done)
{
    if (m_progress != nullptr)
        m_progress->updateProgress(done);
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
    if (m_songs != nullptr)
        m_songs->retranslate();
    if (m_missingLibrary != nullptr)
        m_missingLibrary->refresh();
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    if (m_busy) {
        event->ignore();
        return;
    }
    QMainWindow::closeEvent(event);
    if (!event->isAccepted())
        return;
    windowplace::save(*this, m_settings);
    if (m_songs != nullptr)
        m_songs->saveLayout();
}

// ---------------------------------------------------------------- library table

void MainWindow::initUserLibraryModel()
{
    m_songs =
        new SongList(this, *ui, m_database.userLibraryDb(), m_settings, m_busy, *m_actionGate);
    connect(m_songs, &SongList::editRequested, this, &MainWindow::onSongsTableViewDoubleClicked);
    connect(m_songs, &SongList::menuRequested, this, &MainWindow::onSongsTableViewShowContextMenu);
    connect(m_songs, &SongList::removeRequested, this, [this](int row) {
        const BusyGuard busy(m_busy);
        songEditor().removeFromList(row);
    });
    connect(m_songs, &SongList::deleteRequested, this, [this](int row) {
        const BusyGuard busy(m_busy);
        deleteRowsFile(row);
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
    // Qt's own dialog: unlike some desktops' it takes *.mid for SONG.MID too.
    const QStringList files = QFileDialog::getOpenFileNames(
        this, tr("Seleziona i file da importare"), m_libraryFolder,
        QStringLiteral("Songs (%1)").arg(songnames::patterns().join(QLatin1Char(' '))), nullptr,
        QFileDialog::DontUseNativeDialog);
    if (!files.isEmpty())
        importFiles(files);
}

void MainWindow::importDropped(const QStringList &paths)
{
    if (!hasLibrary())
        return;
    const BusyGuard busy(m_busy);
    const auto files = SongSearch(openProgress()).search(paths);
    if (files && files->isEmpty())
        ui->statusBar->showMessage(tr("Nessuna song trovata"), messageMilliseconds);
    else if (files)
        importFiles(*files);
}

/** Takes the files as the user's new choice and imports them. */
void MainWindow::importFiles(const QStringList &files)
{
    m_libraryFolder = QFileInfo(files.first()).path();
    setSelectedFiles(files);
    disableActionButtons();
    importUserLibrary();
    m_actionGate->setWanted(ui->transferFilesToolButton, true);
}

void MainWindow::setSelectedFiles(const QStringList &files)
{
    m_selectedFiles = files;
    m_filesCount = static_cast<int>(m_selectedFiles.size());
}

void MainWindow::importUserLibrary()
{
    if (!hasLibrary())
        return;
    const BusyGuard busy(m_busy);
    LibraryImport::logBanner();
    if (m_songs->model().goodRowCount() > 0) {
        if (!m_database.clearUserLibraryDb()) {
            logDebug() << "[importUserLibrary] WARNING: impossible to CLEAR table. Aborting import "
                          "!!!";
            return;
        }
    }
    m_songs->startImport();

    LibraryImport::Counts counts;
    QList<UnreadableFile> unreadable;
    {
        const auto progress =
            openProgress()(tr("Lettura file"), tr("Importo la libreria..."), m_filesCount);
        const PaintingPaused paused(m_songs->view());
        LibraryImport import(m_songs->model(), *progress);
        counts = import.importFiles(m_selectedFiles);
        unreadable = import.unreadableFiles();
    }
    m_songs->showImport(unreadable);

    const bool synchronised = copyrightAsk() &&
                              askToProceed(counts.valid, counts.kravo, counts.bad) &&
                              updateUserLibrary();
    if (!synchronised)
        m_actionGate->setWanted(ui->updateDataToolButton, true);
}

bool MainWindow::askToProceed(int valid, int kravo, int bad)
{
    ProceedDialog dialog;
    dialog.setFilesCount(valid, kravo, bad);
    const bool accepted = dialog.exec() == QDialog::Accepted;
    enableCopyrightMessage(dialog.getShowAgainValue());
    return accepted;
}

void MainWindow::scanDir(const QString &dir, int &valid, int &kravo, int &bad)
{
    if (!hasLibrary())
        return;
    const BusyGuard busy(m_busy);
    NoProgress noProgress;
    LibraryImport::Counts counts{valid, kravo, bad};
    LibraryImport(m_songs->model(), m_progress != nullptr ? *m_progress : noProgress)
        .scanDir(dir, counts);
    valid = counts.valid;
    kravo = counts.kravo;
    bad = counts.bad;
}

// ---------------------------------------------------------------- backup

bool MainWindow::suggestBackup()
{
    const BusyGuard busy(m_busy);
    const auto ask = [] {
        BackupDialog dialog;
        dialog.exec();
        return LibraryBackup::Choice{dialog.wish(), dialog.directory()};
    };
    QStringList failed;
    const auto copy = [this, &failed](const QString &destination, int &copied) {
        NoProgress noProgress;
        const auto copyList = [&failed](const QStringList &files, const QString &folder,
                                        int &arrived, Progress &progress) {
            FileCopier copier(&confirmation::askToReplace);
            const bool complete = copier.copyFiles(files, folder, arrived, progress);
            failed += copier.report().failedLines();
            return complete;
        };
        return LibraryBackup::copyFiles(m_selectedFiles, destination, copied,
                                        m_progress != nullptr ? *m_progress : noProgress, copyList);
    };
    const auto report = [this, &failed](bool succeeded) {
        if (succeeded) {
            QMessageBox::information(this, tr("Backup"), tr("Backup eseguito correttamente"));
            return;
        }
        QMessageBox box(QMessageBox::Critical, tr("Backup"), tr("Backup FALLITO !!!"),
                        QMessageBox::Ok, this);
        box.setDetailedText(failed.join(QLatin1Char('\n')));
        box.exec();
    };
    return LibraryBackup(ask, copy, report, openProgress()).suggest(m_filesCount);
}

bool MainWindow::backupDirectory(const QString &source, const QString &destination, int &count)
{
    return LibraryBackup::backupDirectory(source, destination, count);
}

// ---------------------------------------------------------------- synchronisation

void MainWindow::on_updateDataToolButton_clicked()
{
    if (!hasLibrary())
        return;
    disableActionButtons();
    if (!updateUserLibrary())
        m_actionGate->setWanted(ui->updateDataToolButton, true);
    m_actionGate->setWanted(ui->transferFilesToolButton, true);
}

bool MainWindow::updateUserLibrary()
{
    if (!hasLibrary())
        return false;
    const BusyGuard busy(m_busy);
    const bool preview = m_settings.value(settings::previewChanges, false).toBool();
    if (preview && !ChangePreviewDialog::confirm(m_database, m_songs->model(), copyrightAsk(),
                                                 openProgress(), this))
        return false;
    Synchronisation run = synchronisation();
    const bool finished = run.run(copyrightAsk());
    adjustUserLibraryHeaders(); // the rows hold the catalogue's texts now
    RunReportBox::tell(run.report(), this);
    return finished;
}

bool MainWindow::updateFileWithDb(int row)
{
    if (!hasLibrary())
        return false;
    const BusyGuard busy(m_busy);
    return synchronisation().updateFileWithDb(row);
}

Synchronisation MainWindow::synchronisation()
{
    return {m_database, m_songs->model(), [this] { return suggestBackup(); },
            &confirmation::askToChange, openProgress()};
}

void MainWindow::on_actionPreviewChanges_toggled(bool checked)
{
    m_settings.setValue(settings::previewChanges, checked);
}

void MainWindow::enableCopyrightMessage(bool enable)
{
    m_settings.setValue(settings::copyrightAsk, enable);
    ui->actionCopyrightYes->setChecked(enable);
    ui->actionCopyrightNo->setChecked(!enable);
}

void MainWindow::on_actionCopyrightYes_triggered()
{
    enableCopyrightMessage(true);
}

void MainWindow::on_actionCopyrightNo_triggered()
{
    enableCopyrightMessage(false);
}

// ---------------------------------------------------------------- editing

void MainWindow::onSongsTableViewDoubleClicked(QModelIndex index)
{
    if (!hasLibrary())
        return;
    const BusyGuard busy(m_busy);
    const QPersistentModelIndex place = index; // the list may be sorted during the save
    SongEditor editor = songEditor();
    if (!editor.edit(index.row()))
        return;
    adjustUserLibraryHeaders(); // the texts may have become longer
    m_songs->scrollToRow(place.row());
    RunReportBox::tell(editor.report(), this);
}

void MainWindow::manualModifySong(const MetaSong &song, const SongInfo &info, const QString &path,
                                  int row)
{
    if (!hasLibrary())
        return;
    const BusyGuard busy(m_busy);
    songEditor().manualModifySong(song, info, path, row);
}

void MainWindow::onSongsTableViewShowContextMenu(QPoint pos)
{
    if (!hasLibrary())
        return;
    const BusyGuard busy(m_busy);
    QTableView *const view = m_songs->view();
    const int row = view->rowAt(pos.y());
    QMenu menu;
    const QAction *const remove = menu.addAction(tr("Remove from list"));
    const QAction *const deleteFile = menu.addAction(tr("Delete file"));
    const QAction *const chosen = menu.exec(view->viewport()->mapToGlobal(pos));
    if (chosen == nullptr)
        return;
    if (chosen == remove)
        songEditor().removeFromList(row);
    else if (chosen == deleteFile)
        deleteRowsFile(row);
}

void MainWindow::deleteRowsFile(int row)
{
    const QString deleted = songEditor().deleteFile(row);
    if (deleted.isEmpty())
        return;
    // Backup and transfer copy the selected files: they would miss this one for ever.
    QStringList files = m_selectedFiles;
    files.removeAll(deleted);
    setSelectedFiles(files);
}

SongEditor MainWindow::songEditor()
{
    const auto askEdit = [this](const SongInfo &info) {
        return editInDialog(m_dataEditDialog, m_database, info);
    };
    const auto askDelete = [this] {
        return QMessageBox::question(
                   this, tr("Attenzione"), tr("Sei sicuro di voler cancellare il file?"),
                   QMessageBox::Yes | QMessageBox::No, QMessageBox::No) == QMessageBox::Yes;
    };
    return {m_songs->model(), askEdit, askDelete, openProgress()};
}

// ---------------------------------------------------------------- transfer

void MainWindow::on_transferFilesToolButton_clicked()
{
    const bool couldSynchronise = m_actionGate->isWanted(ui->updateDataToolButton);
    disableActionButtons();
    if (!transferSelectedFiles())
        m_actionGate->setWanted(ui->updateDataToolButton, couldSynchronise);
    m_actionGate->setWanted(ui->transferFilesToolButton, true);
}

void MainWindow::transferFiles()
{
    transferSelectedFiles();
}

/** False when the user changed his mind or the folder was refused. */
bool MainWindow::transferSelectedFiles()
{
    const BusyGuard busy(m_busy);
    TransferDialogs dialogs(this);
    const auto outcome = Transfer(dialogs, openProgress()).transferFiles(m_selectedFiles);
    return outcome != Transfer::Outcome::NotStarted;
}

bool MainWindow::copyFiles(const QString &dest, int &copied)
{
    const BusyGuard busy(m_busy);
    NoProgress noProgress;
    return FileCopier(&confirmation::askToReplace)
        .copyFiles(m_selectedFiles, dest, copied, m_progress != nullptr ? *m_progress : noProgress);
}

bool MainWindow::updateKavenaIndex(const QString &path)
{
    const BusyGuard busy(m_busy);
    TransferDialogs dialogs(this);
    return Transfer(dialogs, openProgress()).updateKavenaIndex(path);
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

// Hidden in this branding, which has no Italian interface.
void MainWindow::on_actionItalian_triggered() {}

void MainWindow::on_actionEnglish_triggered()
{
    m_settings.setValue(settings::language, translation::english);
    checkLanguage(translation::english);
    translation::use(translation::english);
}

void MainWindow::on_actionGerman_triggered()
{
    m_settings.setValue(settings::language, translation::german);
    checkLanguage(translation::german);
    translation::use(translation::german);
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
    m_dataEditDialog.setGenresCombo(m_database.genresList());
    m_dataEditDialog.setArtistsCombo(m_database.artistsList());
    if (m_dataEditDialog.exec() == QDialog::Accepted)
        logDebug() << "Accettato";
    else
        logDebug() << "Rifiutato";
}

void MainWindow::on_dbgHidePushButton_clicked()
{
    ui->debugGroupBox->setVisible(ui->debugGroupBox->isHidden());
}

void MainWindow::on_dbgLogEnableCheckBox_toggled(bool checked)
{
    m_settings.setValue(settings::logEnabled, checked);
}

void MainWindow::on_dbgLogClearCheckBox_toggled(bool checked)
{
    m_settings.setValue(settings::logClear, checked);
}

void MainWindow::on_dbgAddMarkerPushButton_clicked()
{
    if (!hasLibrary())
        return;
    const int row = m_songs->currentRow();
    logDebug() << "[MainWindow] Adding marker to row:" << row;
    MetaSong song;
    if (!song.importFile(m_songs->model().fileName(row))) {
        logDebug() << "Error!";
        return;
    }
    song.dbgAddMarker(ui->dbgMarkerTextLineEdit->text().trimmed(),
                      static_cast<unsigned short>(ui->dbgMarkerBarSpinBox->value()));
    saveTestCopy(song, QStringLiteral("test_addmarker.bin"));
}

void MainWindow::on_dbgSavePushButton_clicked()
{
    if (!hasLibrary())
        return;
    const int row = m_songs->currentRow();
    logDebug() << "[MainWindow] Saving row:" << row;
    MetaSong song;
    if (!song.importFile(m_songs->model().fileName(row))) {
        logDebug() << "Error!";
        return;
    }
    saveTestCopy(song, QStringLiteral("test_save.bin"));
}

void MainWindow::saveTestCopy(MetaSong &song, const QString &fileName)
{
    logDebug() << "Saving to file:" << fileName;
    if (!song.saveToFile(fileName))
        logDebug() << "Error!";
}
