// Paints the rows of the user's songs in the colour of their status.
#pragma once

#include "library/database.h"

#include <QIcon>
#include <QStyledItemDelegate>

/**
 * Gives every cell of a row the background of the row's status cell, whether that column is shown
 * or hidden. These backgrounds are light, so the text on them is dark on a dark desktop too; a
 * selected row looks as the style paints selections.
 *
 * In the mark column stands the sign of the row's state, for those who do not tell the colours
 * apart. Beside it, a row whose song could not be saved has a warning sign, whatever its colour;
 * one whose texts the player cannot show has a sign for a note.
 */
class StatusRowDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /** Takes the numbers of the model's status column and of the column for marks. */
    StatusRowDelegate(int statusColumn, int markColumn, QObject *parent = nullptr);

    /**
     * A text that its cell is too narrow for is shown whole as the tool tip, in a marked row above
     * the reason of the mark; in the mark column, what the state means stands between them.
     */
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;

private:
    QIcon signs(const QStyleOptionViewItem &option, const QModelIndex &index) const;
    Database::statusEnum stateOf(const QModelIndex &index) const;

    const int m_statusColumn;
    const int m_markColumn;
};
