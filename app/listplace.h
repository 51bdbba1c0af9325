// What is seen in the place of the list: the list, or why there is nothing to see in it.
#pragma once

#include <QObject>

class BusyState;
class EmptyListPage;
class NoMatchPage;
class QAbstractItemModel;
class QStackedWidget;
class QTableView;

/**
 * An empty list gives way to the page that tells how to begin, and one whose songs are all hidden
 * to the page with the way back. While work runs nothing gives way by itself: an import clears the
 * list before it fills it.
 */
class ListPlace : public QObject
{
    Q_OBJECT

public:
    /** The stack holds the view, which shows its model already; it owns the object. */
    ListPlace(QStackedWidget *stack, QTableView *view, const BusyState &busy);

    EmptyListPage &emptyPage() const { return *m_emptyPage; }
    NoMatchPage &noMatchPage() const { return *m_noMatchPage; }

    /** Shows what belongs there now, also while work runs. */
    void update();

private:
    void updateUnlessBusy();
    void giveFocusBack();
    QWidget *wanted() const;

    QStackedWidget *const m_stack;
    QTableView *const m_view;
    const QAbstractItemModel &m_model;
    const BusyState &m_busy;
    EmptyListPage *const m_emptyPage;
    NoMatchPage *const m_noMatchPage;
};
