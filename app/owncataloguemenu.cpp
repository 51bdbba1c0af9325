#include "app/owncataloguemenu.h"

#include "app/actiongate.h"
#include "app/songlist.h"
#include "windows/busystate.h"
#include "windows/catalogueadding.h"
#include "windows/cataloguedialog.h"
#include "windows/usersongsreltablemodel.h"

#include "ui_mainwindow.h"

#include <QMainWindow>
#include <QSet>
#include <QTableView>

namespace
{

constexpr int addedMilliseconds = 8000;

} // namespace

OwnCatalogueMenu::OwnCatalogueMenu(QMainWindow *window, const Ui::MainWindow &form, SongList &songs,
                                   BusyState &busy, ActionGate &gate)
    : QObject(window)
    , m_window(window)
    , m_songs(songs)
    , m_busy(busy)
{
    connect(&songs, &SongList::catalogueRequested, this, &OwnCatalogueMenu::add);
    connect(form.actionCatalogue, &QAction::triggered, this, &OwnCatalogueMenu::show);
    gate.add(form.actionCatalogue);
    gate.setWanted(form.actionCatalogue, true);
}

void OwnCatalogueMenu::add(int row)
{
    const BusyGuard busy(m_busy);
    const QString path = m_songs.model().fileName(row);
    if (path.isEmpty())
        return;
    OwnCatalogue catalogue;
    const auto entries = CatalogueAdding::addSongs(catalogue, {path}, m_window);
    if (!entries || entries->isEmpty())
        return;
    m_window->statusBar()->showMessage(
        tr("%1 è nel mio catalogo").arg(m_songs.model().shortName(row)), addedMilliseconds);
    showAdded(*entries);
}

void OwnCatalogueMenu::addSongs(const QStringList &paths)
{
    const BusyGuard busy(m_busy);
    if (paths.isEmpty())
        return;
    OwnCatalogue catalogue;
    const auto entries = CatalogueAdding::addSongs(catalogue, paths, m_window);
    if (!entries || entries->isEmpty())
        return;
    m_window->statusBar()->showMessage(
        tr("%n song sono nel mio catalogo", nullptr, static_cast<int>(entries->size())),
        addedMilliseconds);
    showAdded(*entries);
}

void OwnCatalogueMenu::show()
{
    const BusyGuard busy(m_busy);
    QStringList shown;
    for (int row = 0; row < m_songs.model().goodRowCount(); ++row) {
        if (!m_songs.view()->isRowHidden(row))
            shown.append(m_songs.model().fileName(row));
    }
    CatalogueDialog dialog(shown, m_window);
    connect(&dialog, &CatalogueDialog::added, this, &OwnCatalogueMenu::showAdded);
    dialog.exec();
}

/** A song that no catalogue knew has the data of a catalogue now. */
void OwnCatalogueMenu::showAdded(const QStringList &paths)
{
    const QSet<QString> entries(paths.cbegin(), paths.cend());
    UserSongsRelTableModel &model = m_songs.model();
    for (int row = 0; row < model.goodRowCount(); ++row) {
        if (model.status(row) == Database::StatusNotSynced && entries.contains(model.fileName(row)))
            model.setStatus(row, Database::StatusSynced);
    }
    emit added();
}
