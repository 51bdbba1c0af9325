// The table of the user's songs as the main window's list shows it.
#pragma once

#include "library/songtable.h"

#include <QColor>
#include <QMimeData>
#include <QModelIndexList>
#include <QStringList>

/** Adds column titles, colours and explanations to the rows of SongTable. */
class UserSongsRelTableModel : public SongTable
{
    Q_OBJECT

public:
    /** Loads the rows that the connection's `usersongs` holds, in the order of their import. */
    UserSongsRelTableModel(QObject *parent, const QSqlDatabase &db);

    /** Sets the column titles in the present language. */
    void setHeaderLabels();

    /** In every column of a marked row: why the song was not saved, in the user's words. */
    static constexpr int notSavedRole = Qt::UserRole;

    /** In every column of a row whose texts the player cannot show: why, in the user's words. */
    static constexpr int tagTroublesRole = Qt::UserRole + 1;

    /** The background of a row of this Database::statusEnum; odd and even rows differ. */
    static QColor statusColour(int status, int row);

    /**
     * The cell's value; as background the grey of the row, and in the status column the colour of
     * the status as background and foreground, so that the number in it cannot be read. In a
     * marked row, the tool tip and the description for screen readers tell why it is marked; the
     * text for them names the state beside the format.
     */
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

    /** Rows can be dragged. */
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    /** Copies only: whoever takes a dragged song must not take it away from its folder. */
    Qt::DropActions supportedDragActions() const override { return Qt::CopyAction; }

    QStringList mimeTypes() const override;

    /**
     * The files of the rows as addresses, each with the karaoke pictures that belong to it; none
     * for files that are not there. Null when nothing is left to be dragged.
     */
    QMimeData *mimeData(const QModelIndexList &indexes) const override;

private:
    QString accessibleText(const QModelIndex &index) const;
    QVariant notSavedText(int row, int role) const;
    QVariant tagTroublesText(int row) const;
    QVariant markText(int row, int role) const;
};
