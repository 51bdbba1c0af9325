#include "app/sortmenu.h"

#include "app/columnlayout.h"

#include <QHeaderView>
#include <QMenu>
#include <QTableView>

SortMenu::SortMenu(QMenu *menu, const QTableView *view, ColumnLayout *columns)
    : QObject(menu)
    , m_menu(menu)
    , m_view(view)
    , m_columns(columns)
{
    connect(m_menu, &QMenu::aboutToShow, this, &SortMenu::fill);
    fill(); // Qt does not open an empty menu
}

void SortMenu::fill()
{
    m_menu->clear();
    add(tr("Ordine di importazione"), -1);
    m_menu->addSeparator();
    const QAbstractItemModel *const model = m_view->model();
    for (int column = 0; column < model->columnCount(); ++column) {
        // A column that orders the rows is named, so that the order can be seen and left.
        if (!m_view->isColumnHidden(column) ||
            column == m_view->horizontalHeader()->sortIndicatorSection())
            add(model->headerData(column, Qt::Horizontal).toString(), column);
    }
}

void SortMenu::add(const QString &text, int column)
{
    QAction *const action = m_menu->addAction(text, this, [this, column] { choose(column); });
    action->setCheckable(true);
    action->setChecked(m_view->horizontalHeader()->sortIndicatorSection() == column);
}

void SortMenu::choose(int column)
{
    const QHeaderView *const header = m_view->horizontalHeader();
    const bool turnsRound = header->sortIndicatorSection() == column &&
                            header->sortIndicatorOrder() == Qt::AscendingOrder;
    m_columns->chooseOrder(column, turnsRound ? Qt::DescendingOrder : Qt::AscendingOrder);
}
