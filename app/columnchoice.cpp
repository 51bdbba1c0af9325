#include "app/columnchoice.h"

#include "library/settings.h"
#include "library/songtable.h"

#include <QAction>
#include <QHeaderView>
#include <QMenu>
#include <QSet>
#include <QSettings>
#include <QTableView>

ColumnChoice::ColumnChoice(QTableView *view, const SongTable &model, QSettings &settings,
                           QMenu *menu)
    : QObject(view)
    , m_view(view)
    , m_model(model)
    , m_settings(settings)
    , m_menu(menu)
{
    m_view->hideColumn(m_model.colIdxFolder());
    m_firstShown = names(shown(m_view));
    QHeaderView *const header = m_view->horizontalHeader();
    header->setSectionsMovable(true);
    load();
    header->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(header, &QHeaderView::customContextMenuRequested, this,
            [this, header](const QPoint &position) {
                m_menu->popup(header->viewport()->mapToGlobal(position));
            });
    connect(m_menu, &QMenu::aboutToShow, this, &ColumnChoice::fillMenu);
    fillMenu(); // Qt does not open an empty menu
}

bool ColumnChoice::isOffered(int column)
{
    return column > songcolumns::Id && column != songcolumns::FileName &&
           column != songcolumns::Status;
}

QList<int> ColumnChoice::shown(const QTableView *view)
{
    const QHeaderView *const header = view->horizontalHeader();
    QList<int> columns;
    for (int place = 0; place < header->count(); ++place) {
        const int column = header->logicalIndex(place);
        if (!view->isColumnHidden(column))
            columns.append(column);
    }
    return columns;
}

int ColumnChoice::firstShown(const QTableView *view)
{
    return shown(view).value(0, -1);
}

QStringList ColumnChoice::names(const QList<int> &columns) const
{
    QStringList names;
    for (const int column : columns)
        names.append(m_model.columnName(column));
    return names;
}

QStringList ColumnChoice::namesInOrder() const
{
    QList<int> columns;
    for (int place = 0; place < m_view->horizontalHeader()->count(); ++place)
        columns.append(m_view->horizontalHeader()->logicalIndex(place));
    return names(columns);
}

void ColumnChoice::load()
{
    const QStringList wanted = m_settings.value(settings::columnsShown).toStringList();
    if (!wanted.isEmpty()) {
        for (int column = 0; column < m_model.columnCount(); ++column) {
            if (isOffered(column) && column != m_model.colIdxType())
                m_view->setColumnHidden(column, !wanted.contains(m_model.columnName(column)));
        }
    }
    QHeaderView *const header = m_view->horizontalHeader();
    int place = 0;
    const QStringList order = m_settings.value(settings::columnOrder).toStringList();
    for (const QString &name : order) {
        const int column = m_model.columnOf(name);
        if (column >= 0 && header->visualIndex(column) >= place)
            header->moveSection(header->visualIndex(column), place++);
    }
}

void ColumnChoice::save()
{
    const QStringList now = names(shown(m_view));
    const QSet<QString> before(m_firstShown.cbegin(), m_firstShown.cend());
    if (QSet<QString>(now.cbegin(), now.cend()) == before)
        m_settings.remove(settings::columnsShown);
    else
        m_settings.setValue(settings::columnsShown, now);
    QStringList asAtFirst;
    for (int column = 0; column < m_model.columnCount(); ++column)
        asAtFirst.append(m_model.columnName(column));
    if (namesInOrder() == asAtFirst)
        m_settings.remove(settings::columnOrder);
    else
        m_settings.setValue(settings::columnOrder, namesInOrder());
}

void ColumnChoice::fillMenu()
{
    m_menu->clear();
    for (int column = 0; column < m_model.columnCount(); ++column) {
        if (!isOffered(column))
            continue;
        QAction *const action =
            m_menu->addAction(m_model.headerData(column, Qt::Horizontal).toString());
        action->setCheckable(true);
        action->setChecked(!m_view->isColumnHidden(column));
        action->setEnabled(column != m_model.colIdxType());
        connect(action, &QAction::triggered, this,
                [this, column](bool checked) { showColumn(column, checked); });
    }
    m_menu->addSeparator();
    m_menu->addAction(tr("Come all'inizio"), this, &ColumnChoice::restore);
}

void ColumnChoice::showColumn(int column, bool show)
{
    m_view->setColumnHidden(column, !show);
    moveCurrentCell();
    emit changed();
}

/** A view neither scrolls to a cell that it does not show nor finds its place on the screen. */
void ColumnChoice::moveCurrentCell()
{
    const QModelIndex current = m_view->currentIndex();
    if (current.isValid() && m_view->isColumnHidden(current.column()))
        m_view->selectionModel()->setCurrentIndex(current.siblingAtColumn(firstShown(m_view)),
                                                  QItemSelectionModel::NoUpdate);
}

void ColumnChoice::restore()
{
    QHeaderView *const header = m_view->horizontalHeader();
    for (int column = 0; column < m_model.columnCount(); ++column) {
        if (isOffered(column))
            m_view->setColumnHidden(column, !m_firstShown.contains(m_model.columnName(column)));
        header->moveSection(header->visualIndex(column), column);
    }
    moveCurrentCell();
    emit restored();
    emit changed();
}
