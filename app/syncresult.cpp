#include "app/syncresult.h"

#include "app/actiongate.h"
#include "app/songlist.h"
#include "windows/busystate.h"
#include "windows/usersongsreltablemodel.h"

#include "ui_mainwindow.h"

#include <QMainWindow>
#include <QPushButton>
#include <QSet>
#include <QToolButton>

#include <initializer_list>

SyncResult::SyncResult(QMainWindow *window, const Ui::MainWindow &form, SongList &songs,
                       const BusyState &busy, ActionGate &gate)
    : QObject(window)
    , m_songs(songs)
    , m_bar(new SyncSummaryBar(form.centralWidget))
{
    form.verticalLayout->insertWidget(form.verticalLayout->indexOf(form.listStackedWidget), m_bar);
    QWidget *before = form.filterLineEdit;
    for (QWidget *const next :
         std::initializer_list<QWidget *>{m_bar->editButton(), m_bar->addButton(),
                                          m_bar->closeButton(), form.userLibraryTableView}) {
        QWidget::setTabOrder(before, next);
        before = next;
    }
    gate.add(m_bar->editButton());
    gate.add(m_bar->addButton());
    connect(m_bar, &SyncSummaryBar::editWanted, this, [this] { emit editWanted(unknownSongs()); });
    connect(m_bar, &SyncSummaryBar::addWanted, this, [this] { emit addWanted(unknownSongs()); });
    connect(&songs.model(), &QAbstractItemModel::modelReset, m_bar, &QWidget::hide);
    connect(&busy, &BusyState::ended, this, &SyncResult::hideWhenDone);
}

void SyncResult::show(const Synchronisation::Outcome &outcome)
{
    UserSongsRelTableModel &model = m_songs.model();
    const QSet<QString> unknown(outcome.unknown.cbegin(), outcome.unknown.cend());
    m_unknown.clear();
    for (int row = 0; row < model.goodRowCount(); ++row) {
        if (unknown.contains(model.fileName(row)))
            m_unknown.append(model.rowIndex(row));
    }
    const int count = static_cast<int>(outcome.unknown.size());
    m_result = {model.goodRowCount(), outcome.found, count, outcome.left};
    if (outcome.found + outcome.left + count > 0)
        m_bar->tell(m_result);
    else
        m_bar->hide();
}

void SyncResult::wereAdded()
{
    const auto added =
        static_cast<int>(m_unknown.removeIf([this](const QPersistentModelIndex &row) {
            return row.isValid() && m_songs.model().status(row.row()) == Database::StatusSynced;
        }));
    if (added == 0)
        return;
    m_result.unknown -= added;
    m_result.added += added;
    if (m_bar->isVisible())
        m_bar->tell(m_result);
}

/** Those that are still in the list as the synchronisation left them. */
QStringList SyncResult::unknownSongs() const
{
    QStringList paths;
    for (const QPersistentModelIndex &row : m_unknown) {
        if (row.isValid() && m_songs.model().status(row.row()) == Database::StatusNotSynced)
            paths.append(m_songs.model().fileName(row.row()));
    }
    return paths;
}

void SyncResult::hideWhenDone()
{
    if (!m_unknown.isEmpty() && unknownSongs().isEmpty())
        m_bar->hide();
}
