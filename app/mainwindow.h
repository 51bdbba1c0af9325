// The program's window: the user's songs as a table, and what can be done with them.
#pragma once

#include "app/actionbuttons.h"
#include "app/debugpanel.h"
#include "app/preferences.h"
#include "app/windowprogress.h"
#include "devindex/transfer.h"
#include "formats/metasong.h"
#include "formats/songinfo.h"
#include "library/chosenfiles.h"
#include "library/database.h"
#include "library/libraryimport.h"
#include "windows/busystate.h"
#include "windows/dataeditdialog.h"

#include <QMainWindow>
#include <QModelIndex>
#include <QPoint>
#include <QScopedPointer>
#include <QSettings>
#include <QStringList>

class ActionGate;
class Memories;
class MissingLibrary;
class RowEditing;
class SongImport;
class SongList;
class SongLists;
class SongSync;
class SongTransfer;

QT_BEGIN_NAMESPACE
namespace Ui
{
class MainWindow;
}
QT_END_NAMESPACE

/**
 * The window hands each job to a workflow class and shows its questions. While one runs no other
 * can start and the window refuses to close: a question that cannot be shown any more would count
 * as answered with yes. With a catalogue that cannot be opened the table is empty and inert, and
 * the status bar says so.
 */
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(QWidget *parent = nullptr);
    ~MainWindow() override;

    /** Chooses the files that import, backup and transfer work on; absolute paths. */
    void setSelectedFiles(const QStringList &files);

    /**
     * Replaces the table's rows by the selected files and, where the user wants to be asked, shows
     * the summary and synchronises at once if he agrees.
     */
    void importUserLibrary();

    /**
     * Says why the list cannot be used, once the window is on the screen; nothing where it can.
     * Called at the start of the program, and when the user tries to choose songs all the same.
     */
    void tellMissingLibrary();

    /** Creates the table's model and sets up its view; called once, with an open database. */
    void initUserLibraryModel();

    /** Fits the columns to their contents; the one of the full path keeps its width. */
    void adjustUserLibraryHeaders();

    /**
     * Imports a folder with all folders in it and adds to the numbers of songs, of songs that the
     * maker signed and of other files. Ends early when the shown progress is cancelled.
     *
     * Kept interface: nothing in the window leads here, since songs are chosen as files or dropped;
     * other code may rely on the name.
     */
    void scanDir(const QString &dir, int &valid, int &kravo, int &bad);

    /** Offers a backup and makes it; false when the files must not be rewritten. */
    bool suggestBackup();

    /**
     * Copies a folder with everything in it and adds the number of files copied to the count; false
     * when something could not be copied.
     *
     * Kept interface: the backup copies the chosen files; other code may rely on the name.
     */
    bool backupDirectory(const QString &source, const QString &destination, int &count);

    /** Synchronises all rows with the catalogue; true when the run went through to its end. */
    bool updateUserLibrary();

    /** Synchronises one row; true when the catalogue knows the song. Its status stays. */
    bool updateFileWithDb(int row);

    /** Stores whether to ask before files without the maker's signature are changed. */
    void enableCopyrightMessage(bool enable);

    /** Writes the data into the song, saves it to the path and refreshes the row. */
    void manualModifySong(const MetaSong &song, const SongInfo &info, const QString &path, int row);

    /** Copies the selected files onto a memory and updates its index, with all questions. */
    void transferFiles();

    /**
     * Copies the selected files into the folder; false when one failed or the user stopped. On a
     * memory that another program is writing to nothing is copied, and the user is told.
     *
     * Kept interface: transferFiles() copies with Transfer; other code may rely on the name. The
     * index is not updated.
     */
    bool copyFiles(const QString &dest, int &copied);

    /**
     * Updates the index of the memory that holds the path.
     *
     * Kept interface: transferFiles() updates it with Transfer; other code may rely on the name.
     */
    bool updateKavenaIndex(const QString &path);

    /** @name Kept interface: the program asks MountedVolumes; other code may rely on the names. */
    ///@{
    /** False for a path inside a mounted memory (or its root), true for everything else. */
    bool isSystemDisk(const QString &path) const;

    /** The root of the volume that holds the path; see MountedVolumes. */
    QString getRoot(const QString &path) const;

    /** True when the path is a volume's root. */
    bool isRoot(const QString &path) const;
    ///@}

    /**
     * Adds the number of files in the folder and in all folders in it.
     *
     * Links to folders are not followed.
     *
     * Kept interface: nothing in the window leads here; other code may rely on the name.
     */
    void filesCount(const QString &dir, int &count) const;

    /** Shows "n of all" and advances the bar of the progress that is on screen, if one is. */
    void updateProgress(int done);

    /** Lets every event pass. */
    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private slots:
    void on_selectDirToolButton_clicked();
    void on_updateDataToolButton_clicked();
    void on_actionItalian_triggered();
    void on_actionEnglish_triggered();
    void on_actionGerman_triggered();
    void on_actionAbout_triggered();
    void on_actionAbout_QT_triggered();
    void on_actionContents_triggered();
    void on_actionCopyrightYes_triggered();
    void on_actionCopyrightNo_triggered();
    void onSongsTableViewDoubleClicked(QModelIndex index);
    void on_optimizeMemory_triggered();
    void on_transferFilesToolButton_clicked();
    void on_actionTransferPlan_triggered();
    void on_actionSongsList_triggered();
    void on_actionPreviewChanges_toggled(bool checked);
    void onSongsTableViewShowContextMenu(QPoint pos);
    void on_dbgImportPushButton_clicked();
    void on_dbgSavePushButton_clicked();
    void on_dbgAddMarkerPushButton_clicked();
    void on_dbgShowDialogPushButton_clicked();
    void on_dbgHidePushButton_clicked();
    void on_dbgBackupPushButton_clicked();
    void on_dbgLogEnableCheckBox_toggled(bool checked);
    void on_dbgLogClearCheckBox_toggled(bool checked);

private:
    void applyBranding();
    bool hasLibrary() const;
    void importFiles(const QStringList &files);
    bool askToProceed(const LibraryImport::Counts &counts);
    void runTransfer(Transfer::Outcome (SongTransfer::*job)(const QStringList &));
    template <typename Dialog>
    void runDialog();

    const QScopedPointer<Ui::MainWindow> ui;
    Database m_database;
    DataEditDialog m_dataEditDialog;
    QSettings m_settings;
    Preferences m_preferences;
    DebugPanel m_debugPanel;
    ChosenFiles m_selectedFiles;
    WindowProgress m_progress;
    BusyState m_busy; ///< while a workflow runs or a dialog is open

    ActionGate *const m_actionGate;
    ActionButtons m_buttons;
    QScopedPointer<Memories> m_memories;
    MissingLibrary *m_missingLibrary = nullptr; ///< only when the database could not be opened

    // These are null when the database could not be opened.
    SongList *m_songs = nullptr;
    QScopedPointer<SongImport> m_import;
    QScopedPointer<SongSync> m_sync;
    RowEditing *m_rows = nullptr;
    SongLists *m_lists = nullptr;
};
