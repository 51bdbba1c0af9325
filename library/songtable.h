// The table of the user's songs: its rows, their order, and which of them could not be saved.
#pragma once

#include "formats/savefailure.h"
#include "formats/songinfo.h"
#include "library/database.h"
#include "library/songcolumns.h"

#include <QHash>
#include <QList>
#include <QSqlQuery>
#include <QSqlRelationalTableModel>
#include <QVariant>

#include <array>
#include <vector>

/**
 * The rows of `usersongs`, each change written to the table at once.
 *
 * The base class fetches rows in batches, keeps every row that was written in a cache which each
 * further access walks through, and shows a removed or an inserted row properly only after a new
 * select(): with thousands of songs each step takes milliseconds, and rows move while a caller
 * walks over them. So this class holds the rows itself and changes the table with prepared
 * statements:
 *
 * - select() loads all rows; from then on a row number means the row that the user sees.
 * - addSong(), setData() and removeRows() change the table and the row held here, and report just
 * that to the views, which keep their scroll position; no other row moves.
 * - sort() orders the rows here; nothing else does. A new row goes to the end.
 *
 * A row whose song could not be saved is marked until it is saved; its status is not touched.
 *
 * Rows enter through addSong() only; insertRows() and so insertRecord() refuse.
 */
class SongTable : public QSqlRelationalTableModel
{
    Q_OBJECT

public:
    /** Loads the rows that the connection's `usersongs` holds, in the order of their import. */
    SongTable(QObject *parent, const QSqlDatabase &db);

    /** Looks the column numbers up by the names of the fields. */
    void setFiledsIndexes();

    /** Minutes and seconds, "02:05"; the minutes are not limited to two digits. */
    static QString lengthText(qint32 seconds);

    /** Appends the song with the status "new"; false when the table refuses it. */
    bool addSong(const SongInfo &info);

    /**
     * Rewrites title, artist, genre, author, length, tempo and key of a row; a negative tempo
     * becomes 0. Like every writer here it does nothing for a row that does not exist.
     */
    void updateRow(int row, const SongInfo &info);

    void setStatus(int row, Database::statusEnum status);

    /** The row's Database::statusEnum; 0 for a row that does not exist. */
    int status(int row);

    /** Marks the row as not saved; None takes the mark away. select() takes all marks away. */
    void setSaveFailure(int row, SaveFailure failure);

    /** Why the row's song was not saved; None for an unmarked row and for one that is not there. */
    SaveFailure saveFailure(int row) const;

    /**
     * Why the player cannot show the texts of the row's MP3 file, as addSong() and updateRow() were
     * told; none for a row that does not exist.
     */
    TagTroubles tagTroubles(int row) const { return m_troubles.value(idOf(row)); }

    /** The number of all rows. */
    int goodRowCount();

    /** The index of the row's first column; invalid for a row that does not exist. */
    QModelIndex rowIndex(int row);

    /** The full path of the row's song file; empty for a row that does not exist. */
    QString fileName(int row);

    /** The row's title; empty for a row that does not exist. */
    QString title(int row);

    /** The row's file name without its folder; empty for a row that does not exist. */
    QString shortName(int row);

    /**
     * True when the row's title, artist, genre, author or file name without its folder holds the
     * text, in whatever case.
     */
    bool rowContains(int row, const QString &text) const;

    /** The number of the column in this table; -1 when the table does not have it. */
    int columnNumber(songcolumns::Column column) const { return m_columns[column]; }

    int colIdxFilename() const { return columnNumber(songcolumns::FileName); }
    int colIdxStatus() const { return columnNumber(songcolumns::Status); }
    int colIdxType() const { return columnNumber(songcolumns::Type); }

    /** The column behind those of the table: the folder of the file, from its path. */
    int colIdxFolder() const { return QSqlRelationalTableModel::columnCount(); }

    /** The name of the column's field, or that of the folders; empty for a number out of range. */
    QString columnName(int column) const;

    /** The number of the column with this columnName(); -1 when there is none. */
    int columnOf(const QString &name) const;

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;

    /** The cell's value for display and editing; other roles are left to the base class. */
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

    /** Writes one cell to the table at once; the id and the folder cannot be changed. */
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;

    /**
     * Orders the rows by a column; rows that are equal in it keep their order. Texts are compared
     * as the user's language does, without regard to case. Column 0, which is not offered to the
     * user, and a negative one bring back the order of the import whatever the direction: a view
     * asks for column 0, descending, by itself when sorting is switched on.
     */
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

    /** Removes rows from the list and the table. */
    bool removeRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;

    /** Always false. */
    bool insertRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;

    /** Always false: select() loads all rows. */
    bool canFetchMore(const QModelIndex &parent = QModelIndex()) const override;

public slots:
    /** Loads the rows of the table anew, in the order that sort() was last asked for. */
    bool select() override;

private:
    using Row = QList<QVariant>; ///< one value a column, the id first

    QString folderOf(const Row &row) const;
    void prepareStatements();
    bool execute(QSqlQuery &statement);
    qint64 idOf(int row) const;
    void setTagTroubles(int row, TagTroubles troubles);
    void setValue(int row, songcolumns::Column column, const QVariant &value);
    std::vector<int> sortedRows() const;
    void arrange(const std::vector<int> &order);

    std::vector<Row> m_rows;               ///< as the views show them
    QHash<qint64, SaveFailure> m_notSaved; ///< the marked rows, by their ids
    QHash<qint64, TagTroubles> m_troubles; ///< of rows that have any, by their ids
    int m_sortColumn = 0;
    Qt::SortOrder m_sortOrder = Qt::AscendingOrder;

    QSqlQuery m_insert;
    std::vector<QSqlQuery> m_updates; ///< one a column, by its number
    QSqlQuery m_delete;
    std::array<int, songcolumns::count> m_columns{}; ///< their numbers in this table
};
