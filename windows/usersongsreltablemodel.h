// The table of the user's songs as the main window's list shows it.
#pragma once

#include "library/songtable.h"

#include <QColor>
#include <QVariant>

/** Adds the titles of the columns and the colours. */
class UserSongsRelTableModel : public SongTable
{
    Q_OBJECT

public:
    /** Loads the rows that the connection's `usersongs` holds, in the order of their import. */
    UserSongsRelTableModel(QObject *parent, const QSqlDatabase &db);

    /** Sets the column titles in the present language. */
    void setHeaderLabels();

    /** The background of a row of this Database::statusEnum; odd and even rows differ. */
    static QColor statusColour(int status, int row);

    /**
     * As background the grey of the row, and in the status column the colour of the status as
     * background and foreground, so that the number in it cannot be read; else as the table does.
     */
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
};
