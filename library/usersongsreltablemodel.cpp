#include "library/usersongsreltablemodel.h"

QVariant UserSongsRelTableModel::data(const QModelIndex &index, int role) const
{
    return QSqlRelationalTableModel::data(index, role);
}
