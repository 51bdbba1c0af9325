// The sub-menu by which the list is sorted without the mouse.
#pragma once

#include <QObject>

class ColumnLayout;
class QMenu;
class QTableView;

/**
 * Offers the order of the import and the columns that are shown, under the names in their headings.
 * Choosing the column by which the list is sorted already turns its order round.
 */
class SortMenu : public QObject
{
    Q_OBJECT

public:
    /** The menu owns the object; the rest must outlive it. */
    SortMenu(QMenu *menu, const QTableView *view, ColumnLayout *columns);

private:
    void fill();
    void add(const QString &text, int column);
    void choose(int column);

    QMenu *const m_menu;
    const QTableView *const m_view;
    ColumnLayout *const m_columns;
};
