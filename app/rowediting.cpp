#include "app/rowediting.h"

#include "app/songlist.h"
#include "app/tagpreparing.h"
#include "app/windowprogress.h"
#include "library/songeditor.h"
#include "storage/desktopbin.h"
#include "windows/busystate.h"
#include "windows/dataeditdialog.h"
#include "windows/runreportbox.h"
#include "windows/usersongsreltablemodel.h"

#include <QCoreApplication>
#include <QMenu>
#include <QMessageBox>
#include <QTableView>

namespace
{

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(MainWindow)
};

} // namespace

RowEditing::RowEditing(QWidget *window, DataEditDialog &dialog, const Database &database,
                       SongList &songs, WindowProgress &progress, BusyState &busy)
    : QObject(window)
    , m_window(window)
    , m_dialog(dialog)
    , m_database(database)
    , m_songs(songs)
    , m_progress(progress)
    , m_busy(busy)
{
    connect(&songs, &SongList::removeRequested, this, &RowEditing::removeFromList);
    connect(&songs, &SongList::deleteRequested, this, &RowEditing::deleteFile);
}

void RowEditing::edit(const QModelIndex &index)
{
    const BusyGuard busy(m_busy);
    const QPersistentModelIndex place = index; // the list may be sorted during the save
    SongEditor songEditor = editor();
    if ((m_tags != nullptr && !m_tags->offerBeforeEdit(place.row())) ||
        !songEditor.edit(place.row()))
        return;
    m_songs.fitColumns(); // the texts may have become longer
    m_songs.scrollToRow(place.row());
    RunReportBox::tell(songEditor.report(), m_window);
}

void RowEditing::manualModifySong(const MetaSong &song, const SongInfo &info, const QString &path,
                                  int row)
{
    const BusyGuard busy(m_busy);
    editor().manualModifySong(song, info, path, row);
}

void RowEditing::runMenu(const QPoint &position)
{
    const BusyGuard busy(m_busy);
    QTableView *const view = m_songs.view();
    const int row = view->rowAt(position.y());
    QMenu menu;
    const QAction *const remove = menu.addAction(Texts::tr("Remove from list"));
    const QAction *const deletion = menu.addAction(Texts::tr("Delete file"));
    const QAction *const addition = menu.addAction(Texts::tr("Aggiungi al mio catalogo"));
    const QAction *const chosen = menu.exec(view->viewport()->mapToGlobal(position));
    if (chosen == nullptr)
        return;
    if (chosen == remove)
        removeFromList(row);
    else if (chosen == deletion)
        deleteFile(row);
    else if (chosen == addition && row >= 0)
        emit m_songs.catalogueRequested(row);
}

void RowEditing::removeFromList(int row)
{
    const BusyGuard busy(m_busy);
    editor().removeFromList(row);
}

void RowEditing::deleteFile(int row)
{
    const BusyGuard busy(m_busy);
    const QString deleted = editor().deleteFile(row);
    if (!deleted.isEmpty())
        emit fileDeleted(deleted);
}

SongEditor RowEditing::editor()
{
    const auto askEdit = [this](const SongInfo &info) {
        return editInDialog(m_dialog, m_database, info);
    };
    const auto askDelete = [this] {
        return QMessageBox::question(m_window, Texts::tr("Attenzione"),
                                     Texts::tr("Sei sicuro di voler cancellare il file?"),
                                     QMessageBox::Yes | QMessageBox::No,
                                     QMessageBox::No) == QMessageBox::Yes;
    };
    SongEditor made(m_songs.model(), askEdit, askDelete, m_progress.open());
    made.setBin(&desktopbin::take);
    made.setHistory(m_openHistory);
    return made;
}
