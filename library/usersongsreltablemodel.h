// The table of the user's songs behind the main window's list.
#pragma once

#include "formats/songinfo.h"
#include "library/database.h"

#include <QSqlRelationalTableModel>

class UserSongsRelTableModel : public QSqlRelationalTableModel
{
    Q_OBJECT

public:
    UserSongsRelTableModel(QObject *parent, const QSqlDatabase &db);
    void setFiledsIndexes();
    void setHeaderLabels();
    bool addSong(const SongInfo &info);
    void updateRow(int row, const SongInfo &info);
    void setStatus(int row, Database::statusEnum status);
    int status(int row);
    int goodRowCount();
    QModelIndex rowIndex(int row);
    QString fileName(int row);
    QString shortName(int row);
    int colIdxFilename() const;
    int colIdxStatus() const;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
};
