// The menu entries and keys that act on the song chosen in the list.
#pragma once

#include <QModelIndex>
#include <QObject>

class ActionGate;
class QAction;
class QTableView;

/**
 * A song is chosen when its row is the current one, selected and not hidden by a filter; the
 * entries are enabled only then, so that nobody changes what he does not see, and only while no
 * work runs. The keys work while
 * the list has the focus. The menu key opens the menu of the chosen row.
 */
class RowActions : public QObject
{
    Q_OBJECT

public:
    struct Actions {
        QAction *edit = nullptr;
        QAction *remove = nullptr;
        QAction *deleteFile = nullptr;
        QAction *addToCatalogue = nullptr;
    };

    /** The view has its model already; it owns the object. */
    RowActions(QTableView *view, const Actions &actions, ActionGate &gate);

    /** The chosen song's row; -1 when none is. */
    int chosenRow() const;

    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    void editRequested(const QModelIndex &index);
    void removeRequested(int row);
    void deleteRequested(int row);
    void catalogueRequested(int row);

private:
    void enableActions();

    QTableView *const m_view;
    const Actions m_actions;
    ActionGate &m_gate;
};
