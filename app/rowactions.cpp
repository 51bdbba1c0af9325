#include "app/rowactions.h"

#include "app/actiongate.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QTableView>

RowActions::RowActions(QTableView *view, const Actions &actions, ActionGate &gate)
    : QObject(view)
    , m_view(view)
    , m_actions(actions)
    , m_gate(gate)
{
    m_actions.edit->setShortcuts({Qt::Key_Return, Qt::Key_Enter});
#ifdef Q_OS_MACOS
    m_actions.remove->setShortcuts({Qt::Key_Backspace, Qt::Key_Delete}); // as on Mac keyboards
#else
    m_actions.remove->setShortcut(Qt::Key_Delete);
#endif
    for (QAction *action : {m_actions.edit, m_actions.remove}) {
        action->setShortcutContext(Qt::WidgetShortcut);
        m_view->addAction(action);
    }
    connect(m_actions.edit, &QAction::triggered, this,
            [this] { emit editRequested(m_view->currentIndex()); });
    connect(m_actions.remove, &QAction::triggered, this,
            [this] { emit removeRequested(chosenRow()); });
    connect(m_actions.deleteFile, &QAction::triggered, this,
            [this] { emit deleteRequested(chosenRow()); });
    connect(m_actions.addToCatalogue, &QAction::triggered, this,
            [this] { emit catalogueRequested(chosenRow()); });

    // A reset of the model clears the selection without a signal.
    connect(m_view->model(), &QAbstractItemModel::modelReset, this, &RowActions::enableActions);
    connect(m_view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &RowActions::enableActions);
    connect(m_view->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &RowActions::enableActions);
    m_view->installEventFilter(this);
    for (QAction *action :
         {m_actions.edit, m_actions.remove, m_actions.deleteFile, m_actions.addToCatalogue})
        m_gate.add(action);
    enableActions();
}

int RowActions::chosenRow() const
{
    const QModelIndex current = m_view->currentIndex();
    const bool chosen = current.isValid() && !m_view->isRowHidden(current.row()) &&
                        m_view->selectionModel()->isRowSelected(current.row(), QModelIndex());
    return chosen ? current.row() : -1;
}

void RowActions::enableActions()
{
    const bool chosen = chosenRow() >= 0;
    for (QAction *action :
         {m_actions.edit, m_actions.remove, m_actions.deleteFile, m_actions.addToCatalogue})
        m_gate.setWanted(action, chosen);
}

/** A menu that is asked for by its key would open in the middle of the list, for any row there. */
bool RowActions::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_view || event->type() != QEvent::ContextMenu ||
        static_cast<const QContextMenuEvent *>(event)->reason() != QContextMenuEvent::Keyboard)
        return QObject::eventFilter(watched, event);
    if (chosenRow() >= 0) {
        m_view->scrollTo(m_view->currentIndex());
        emit m_view->customContextMenuRequested(
            m_view->visualRect(m_view->currentIndex()).center());
    }
    return true;
}
