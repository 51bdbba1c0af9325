#include "app/listplace.h"

#include "windows/busystate.h"
#include "windows/emptylistpage.h"
#include "windows/nomatchpage.h"

#include <QAbstractItemModel>
#include <QStackedWidget>
#include <QTableView>

ListPlace::ListPlace(QStackedWidget *stack, QTableView *view, const BusyState &busy)
    : QObject(stack)
    , m_stack(stack)
    , m_view(view)
    , m_model(*view->model())
    , m_busy(busy)
    , m_emptyPage(new EmptyListPage(stack))
    , m_noMatchPage(new NoMatchPage(stack))
{
    stack->addWidget(m_emptyPage);
    stack->addWidget(m_noMatchPage);
    QWidget *before = view;
    const QList<QWidget *> stops = m_emptyPage->tabStops() << m_noMatchPage->focusProxy();
    for (QWidget *const next : stops) {
        QWidget::setTabOrder(before, next);
        before = next;
    }
    connect(&m_model, &QAbstractItemModel::rowsInserted, this, &ListPlace::updateUnlessBusy);
    connect(&m_model, &QAbstractItemModel::rowsRemoved, this, &ListPlace::updateUnlessBusy);
    connect(&m_model, &QAbstractItemModel::modelReset, this, &ListPlace::updateUnlessBusy);
    connect(&m_busy, &BusyState::ended, this, [this] {
        update();
        giveFocusBack();
    });
    update();
}

void ListPlace::updateUnlessBusy()
{
    if (!m_busy)
        update();
}

void ListPlace::update()
{
    QWidget *const page = wanted();
    if (page == m_noMatchPage)
        m_noMatchPage->setSongs(m_model.rowCount());
    if (page == m_stack->currentWidget())
        return;
    const QWidget *const focus = m_stack->window()->focusWidget();
    const bool hadFocus = focus != nullptr && m_stack->isAncestorOf(focus);
    m_stack->setCurrentWidget(page);
    if (hadFocus)
        page->setFocus();
}

/** A button of a page that has given way meanwhile may have got the focus back. */
void ListPlace::giveFocusBack()
{
    const QWidget *const focus = m_stack->window()->focusWidget();
    if (focus != nullptr && m_stack->isAncestorOf(focus) && !focus->isVisibleTo(m_stack))
        m_stack->currentWidget()->setFocus();
}

QWidget *ListPlace::wanted() const
{
    const int rows = m_model.rowCount();
    if (rows == 0)
        return m_emptyPage;
    for (int row = 0; row < rows; ++row) {
        if (!m_view->isRowHidden(row))
            return m_view;
    }
    return m_noMatchPage;
}
