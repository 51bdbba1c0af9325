#include "windows/usersongsreltablemodel.h"

#include <QLatin1String>

UserSongsRelTableModel::UserSongsRelTableModel(QObject *parent, const QSqlDatabase &db)
    : SongTable(parent, db)
{
}

void UserSongsRelTableModel::setHeaderLabels()
{
    const auto setTitle = [this](const char *field, const QString &title) {
        setHeaderData(fieldIndex(QLatin1String(field)), Qt::Horizontal, title, Qt::EditRole);
    };
    setTitle("id", tr("Num"));
    setTitle("type", tr("Formato"));
    setTitle("title", tr("Titolo"));
    setTitle("artist", tr("Artista"));
    setTitle("genre", tr("Genere"));
    setTitle("author", tr("Autore"));
    setTitle("length", tr("Durata"));
    setTitle("userbpm", tr("Bpm"));
    setTitle("key", tr("Tonalita'"));
    setTitle("filename", QString());
    setTitle("shortname", tr("Nome file"));
    setTitle("status", QString());
}

QColor UserSongsRelTableModel::statusColour(int status, int row)
{
    const bool isOdd = row % 2 != 0;
    switch (status) {
    case Database::StatusSynced:
        return isOdd ? QColor(130, 255, 130) : QColor(100, 225, 100);
    case Database::StatusEdited:
        return isOdd ? QColor(255, 255, 130) : QColor(225, 225, 100);
    case Database::StatusNotSynced:
        return isOdd ? QColor(255, 130, 130) : QColor(225, 100, 100);
    default:
        return isOdd ? QColor(230, 230, 230) : QColor(200, 200, 200);
    }
}

QVariant UserSongsRelTableModel::data(const QModelIndex &index, int role) const
{
    const bool isColour = role == Qt::BackgroundRole || role == Qt::ForegroundRole;
    if (!isColour || !index.isValid() || index.row() >= rowCount())
        return SongTable::data(index, role);
    const bool isStatus = index.column() == colIdxStatus();
    if (!isStatus && role == Qt::ForegroundRole)
        return QVariant();
    const int status = isStatus ? SongTable::data(index).toInt() : Database::StatusNew;
    return statusColour(status, index.row());
}
