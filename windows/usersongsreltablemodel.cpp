#include "windows/usersongsreltablemodel.h"

#include "library/companion.h"
#include "library/runreport.h"
#include "library/tagremarks.h"
#include "windows/songstates.h"

#include <QFileInfo>
#include <QSet>
#include <QUrl>

#include <memory>

UserSongsRelTableModel::UserSongsRelTableModel(QObject *parent, const QSqlDatabase &db)
    : SongTable(parent, db)
{
}

void UserSongsRelTableModel::setHeaderLabels()
{
    const auto setTitle = [this](songcolumns::Column column, const QString &title) {
        setHeaderData(columnNumber(column), Qt::Horizontal, title, Qt::EditRole);
    };
    setTitle(songcolumns::Id, tr("Num"));
    setTitle(songcolumns::Type, tr("Formato"));
    setTitle(songcolumns::Title, tr("Titolo"));
    setTitle(songcolumns::Artist, tr("Artista"));
    setTitle(songcolumns::Genre, tr("Genere"));
    setTitle(songcolumns::Author, tr("Autore"));
    setTitle(songcolumns::Length, tr("Durata"));
    setTitle(songcolumns::UserBpm, tr("Bpm"));
    setTitle(songcolumns::Key, tr("Tonalita'"));
    setTitle(songcolumns::FileName, QString());
    setTitle(songcolumns::ShortName, tr("Nome file"));
    setTitle(songcolumns::Status, QString());
    setHeaderData(colIdxFolder(), Qt::Horizontal, tr("Cartella"), Qt::EditRole);
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
    if (!index.isValid() || index.row() >= rowCount())
        return QVariant();
    const bool isStatus = index.column() == colIdxStatus();
    const auto colour = [&] {
        const int status = isStatus ? SongTable::data(index).toInt() : Database::StatusNew;
        return statusColour(status, index.row());
    };
    switch (role) {
    case Qt::BackgroundRole:
        return colour();
    case Qt::ForegroundRole:
        return isStatus ? colour() : QVariant();
    case notSavedRole:
        return notSavedText(index.row(), role);
    case tagTroublesRole:
        return tagTroublesText(index.row());
    case Qt::AccessibleTextRole:
        return accessibleText(index);
    case Qt::AccessibleDescriptionRole:
    case Qt::ToolTipRole:
        return markText(index.row(), role);
    default:
        return SongTable::data(index, role);
    }
}

Qt::ItemFlags UserSongsRelTableModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = SongTable::flags(index);
    return index.isValid() ? flags | Qt::ItemIsDragEnabled : flags;
}

QStringList UserSongsRelTableModel::mimeTypes() const
{
    return {QStringLiteral("text/uri-list")};
}

QMimeData *UserSongsRelTableModel::mimeData(const QModelIndexList &indexes) const
{
    QSet<int> rows;
    QList<QUrl> addresses;
    for (const QModelIndex &cell : indexes) {
        const QString path = cell.siblingAtColumn(colIdxFilename()).data().toString();
        if (rows.contains(cell.row()) || !QFileInfo(path).isFile())
            continue;
        rows.insert(cell.row());
        addresses.append(QUrl::fromLocalFile(path));
        const QString pictures = companionOf(path);
        if (!pictures.isEmpty())
            addresses.append(QUrl::fromLocalFile(pictures));
    }
    if (addresses.isEmpty())
        return nullptr;
    auto files = std::make_unique<QMimeData>();
    files->setUrls(addresses);
    return files.release(); // the view owns it
}

/** What is read out for a cell: for the one in which the state's sign stands, the state as well. */
QString UserSongsRelTableModel::accessibleText(const QModelIndex &index) const
{
    QString text = SongTable::data(index).toString();
    if (index.column() != colIdxType())
        return text;
    const int status = SongTable::data(index.siblingAtColumn(colIdxStatus())).toInt();
    return text + QLatin1String(", ") + SongStates::name(SongStates::known(status));
}

/** No value for an unmarked row. */
QVariant UserSongsRelTableModel::notSavedText(int row, int role) const
{
    const SaveFailure failure = saveFailure(row);
    if (failure == SaveFailure::None)
        return QVariant();
    QString reason = RunReport::reasonText(failure);
    if (role == notSavedRole)
        return reason;
    return RunReport::text({SongFinding::Kind::NotSaved, QString(), reason});
}

/** No value for a row without troubles. */
QVariant UserSongsRelTableModel::tagTroublesText(int row) const
{
    const QString text = tagremarks::songText(tagTroubles(row));
    return text.isEmpty() ? QVariant() : text;
}

/** All that is to be said of a row. */
QVariant UserSongsRelTableModel::markText(int row, int role) const
{
    const QVariant notSaved = notSavedText(row, role);
    const QVariant troubles = tagTroublesText(row);
    if (!notSaved.isValid() || !troubles.isValid())
        return notSaved.isValid() ? notSaved : troubles;
    return QString(notSaved.toString() + QLatin1Char('\n') + troubles.toString());
}
