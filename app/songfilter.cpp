#include "app/songfilter.h"

#include "app/columnchoice.h"
#include "windows/busystate.h"
#include "windows/paintingpaused.h"
#include "windows/songstates.h"
#include "windows/usersongsreltablemodel.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QTableView>

SongFilter::SongFilter(QLineEdit *field, QTableView *view, const UserSongsRelTableModel &model,
                       const BusyState &busy)
    : QObject(view)
    , m_field(field)
    , m_view(view)
    , m_model(model)
    , m_busy(busy)
{
    m_later.setSingleShot(true);
    m_later.setInterval(0);
    connect(&m_later, &QTimer::timeout, this, &SongFilter::applyUnlessBusy);
    connect(&m_model, &QAbstractItemModel::rowsInserted, this, &SongFilter::applyLater);
    connect(&m_model, &QAbstractItemModel::dataChanged, this, &SongFilter::applyLater);
    connect(&m_model, &QAbstractItemModel::layoutChanged, this, &SongFilter::applyLater);
    connect(&m_model, &QAbstractItemModel::modelReset, this, &SongFilter::applyLater);
    connect(&m_busy, &BusyState::ended, this, [this] {
        if (m_stale)
            apply();
    });
    connect(m_field, &QLineEdit::textChanged, this, [this] {
        m_stale = true;
        applyUnlessBusy();
    });
    // Queued: while rows are removed, the view makes the next row the current one, shown or not.
    connect(m_view->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &SongFilter::leaveHiddenRow, Qt::QueuedConnection);
    m_field->installEventFilter(this);
}

void SongFilter::applyLater()
{
    if (m_stale || (m_field->text().isEmpty() && m_states.isEmpty() && !m_hidesRows))
        return;
    m_stale = true;
    m_later.start();
}

void SongFilter::applyUnlessBusy()
{
    if (m_stale && !m_busy)
        apply();
}

void SongFilter::apply()
{
    m_stale = false;
    const QString text = m_field->text().trimmed();
    const bool isFilter = !text.isEmpty() || !m_states.isEmpty();
    if (!isFilter && !m_hidesRows)
        return;
    m_hidesRows = isFilter;
    {
        const PaintingPaused paused(m_view);
        const int rows = m_model.rowCount();
        for (int row = 0; row < rows; ++row)
            m_view->setRowHidden(row, m_hidesRows && !isWanted(row, text));
    }
    const QModelIndex current = m_view->currentIndex();
    if (current.isValid() && m_view->isRowHidden(current.row()))
        m_view->selectionModel()->clear();
    emit applied();
}

bool SongFilter::isWanted(int row, const QString &text) const
{
    const int status = m_model.index(row, m_model.colIdxStatus()).data().toInt();
    return (m_states.isEmpty() || m_states.contains(SongStates::known(status))) &&
           (text.isEmpty() || m_model.rowContains(row, text));
}

void SongFilter::setStates(const QSet<int> &states)
{
    m_states = states;
    m_stale = true;
    applyUnlessBusy();
}

void SongFilter::clearText()
{
    m_field->clear();
}

/** Goes on to a row that can be seen when a hidden one has become the current one. */
void SongFilter::leaveHiddenRow()
{
    const QModelIndex current = m_view->currentIndex();
    if (!current.isValid() || !m_view->isRowHidden(current.row()))
        return;
    const int row = nearestShownRow(current.row());
    if (row >= 0)
        m_view->setCurrentIndex(m_model.index(row, current.column()));
    else
        m_view->selectionModel()->clear();
}

/** The next row that is shown, or else the one before; -1 when none is. */
int SongFilter::nearestShownRow(int row) const
{
    for (int below = row; below < m_model.rowCount(); ++below) {
        if (!m_view->isRowHidden(below))
            return below;
    }
    for (int above = row - 1; above >= 0; --above) {
        if (!m_view->isRowHidden(above))
            return above;
    }
    return -1;
}

void SongFilter::focusField()
{
    m_field->setFocus(Qt::ShortcutFocusReason);
    m_field->selectAll();
}

bool SongFilter::eventFilter(QObject *watched, QEvent *event)
{
    const bool isKey = watched == m_field && event->type() == QEvent::KeyPress;
    return (isKey && fieldKey(static_cast<const QKeyEvent *>(event)->key())) ||
           QObject::eventFilter(watched, event);
}

bool SongFilter::fieldKey(int key)
{
    switch (key) {
    case Qt::Key_Escape:
        if (m_field->text().isEmpty())
            focusList();
        m_field->clear();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Down:
        focusList();
        return true;
    default:
        return false;
    }
}

/**
 * Moves the focus from the field to the list: to the chosen row, or to the first one that is shown.
 */
void SongFilter::focusList()
{
    if (m_view->isHidden()) // it has nothing to show
        return;
    const int row = nearestShownRow(0);
    if (!m_view->selectionModel()->hasSelection() && row >= 0)
        m_view->setCurrentIndex(m_model.index(row, ColumnChoice::firstShown(m_view)));
    m_view->setFocus(Qt::ShortcutFocusReason);
}
