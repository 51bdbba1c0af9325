#include "library/songtable.h"

#include <QCollator>
#include <QCollatorSortKey>
#include <QDir>
#include <QSqlError>
#include <QSqlRecord>
#include <QStringList>

#include <algorithm>
#include <iterator>
#include <numeric>

namespace
{
const int idColumn = songcolumns::Id;

/** The inverse of lengthText(), so that "100:00" is longer than "02:05". */
qint64 secondsOf(const QString &lengthText)
{
    const qsizetype colon = lengthText.indexOf(QLatin1Char(':'));
    if (colon < 0)
        return -1;
    return lengthText.left(colon).toLongLong() * 60 + lengthText.mid(colon + 1).toLongLong();
}

/** The positions of the keys in the order of the keys; equal keys stay as they are. */
template <typename Key>
std::vector<int> positionsInOrder(const std::vector<Key> &keys, Qt::SortOrder order)
{
    std::vector<int> positions(keys.size());
    std::iota(positions.begin(), positions.end(), 0);
    std::stable_sort(positions.begin(), positions.end(), [&keys, order](int left, int right) {
        const Key &leftKey = keys[static_cast<size_t>(left)];
        const Key &rightKey = keys[static_cast<size_t>(right)];
        return order == Qt::AscendingOrder ? leftKey < rightKey : rightKey < leftKey;
    });
    return positions;
}
} // namespace

SongTable::SongTable(QObject *parent, const QSqlDatabase &db)
    : QSqlRelationalTableModel(parent, db)
    , m_insert(db)
    , m_delete(db)
{
    setTable(QStringLiteral("usersongs"));
    setFiledsIndexes();
    setEditStrategy(QSqlTableModel::OnFieldChange);
    setSort(idColumn, Qt::AscendingOrder);
    prepareStatements();
    SongTable::select();
}

void SongTable::setFiledsIndexes()
{
    for (size_t column = 0; column < m_columns.size(); ++column)
        m_columns[column] = fieldIndex(songcolumns::fields[column].name);
}

QString SongTable::lengthText(qint32 seconds)
{
    if (seconds < 0)
        return QStringLiteral("");
    const QLatin1Char zero('0');
    return QStringLiteral("%1:%2").arg(seconds / 60, 2, 10, zero).arg(seconds % 60, 2, 10, zero);
}

void SongTable::prepareStatements()
{
    QStringList names;
    QStringList values;
    const QSqlRecord fields = record();
    for (int column = 0; column < fields.count(); ++column) {
        const QString name = fields.fieldName(column);
        m_updates.emplace_back(database())
            .prepare(QStringLiteral("UPDATE usersongs SET %1 = ? WHERE id = ?").arg(name));
        if (column == idColumn)
            continue;
        names.append(name);
        values.append(QStringLiteral("?"));
    }
    const QLatin1Char comma(',');
    m_insert.prepare(QStringLiteral("INSERT INTO usersongs (%1) VALUES (%2)")
                         .arg(names.join(comma), values.join(comma)));
    m_delete.prepare(QStringLiteral("DELETE FROM usersongs WHERE id = ?"));
}

bool SongTable::execute(QSqlQuery &statement)
{
    const bool succeeded = statement.exec();
    setLastError(statement.lastError());
    return succeeded;
}

bool SongTable::select()
{
    QSqlQuery query(database());
    query.setForwardOnly(true);
    const bool succeeded = query.exec(selectStatement());
    setLastError(query.lastError());
    if (!succeeded)
        return false;

    beginResetModel();
    m_rows.clear();
    m_notSaved.clear();
    m_troubles.clear();
    const int columns = colIdxFolder(); // the fields stand before it
    while (query.next()) {
        Row row;
        row.reserve(columns);
        for (int column = 0; column < columns; ++column)
            row.append(query.value(column));
        m_rows.push_back(std::move(row));
    }
    arrange(sortedRows());
    endResetModel();
    return true;
}

bool SongTable::addSong(const SongInfo &info)
{
    Row row(colIdxFolder());
    const auto set = [&](songcolumns::Column column, const QVariant &value) {
        if (columnNumber(column) >= 0)
            row[columnNumber(column)] = value;
    };
    set(songcolumns::Type, info.format);
    set(songcolumns::Title, info.title);
    set(songcolumns::Artist, info.artist);
    set(songcolumns::Genre, info.genre);
    set(songcolumns::Author, info.author);
    set(songcolumns::Length, lengthText(info.length));
    set(songcolumns::UserBpm, info.userBpm);
    set(songcolumns::Key, info.key);
    set(songcolumns::FileName, info.fileName);
    set(songcolumns::ShortName, info.shortName);
    set(songcolumns::Status, static_cast<int>(Database::StatusNew));
    for (int column = idColumn + 1; column < row.size(); ++column)
        m_insert.bindValue(column - 1, row.at(column));
    if (!execute(m_insert))
        return false;

    row[idColumn] = m_insert.lastInsertId();
    const int last = rowCount();
    beginInsertRows(QModelIndex(), last, last);
    if (info.troubles != TagTroubles())
        m_troubles.insert(row.at(idColumn).toLongLong(), info.troubles);
    m_rows.push_back(std::move(row));
    endInsertRows();
    return true;
}

void SongTable::updateRow(int row, const SongInfo &info)
{
    setValue(row, songcolumns::Title, info.title);
    setValue(row, songcolumns::Artist, info.artist);
    setValue(row, songcolumns::Genre, info.genre);
    setValue(row, songcolumns::Author, info.author);
    setValue(row, songcolumns::Length, lengthText(info.length));
    setValue(row, songcolumns::UserBpm, qMax(0, info.userBpm));
    setValue(row, songcolumns::Key, info.key);
    setTagTroubles(row, info.troubles);
}

void SongTable::setTagTroubles(int row, TagTroubles troubles)
{
    if (idOf(row) < 0 || tagTroubles(row) == troubles)
        return;
    if (troubles == TagTroubles())
        m_troubles.remove(idOf(row));
    else
        m_troubles.insert(idOf(row), troubles);
    emit dataChanged(index(row, 0), index(row, columnCount() - 1));
}

void SongTable::setValue(int row, songcolumns::Column column, const QVariant &value)
{
    setData(index(row, columnNumber(column)), value);
}

void SongTable::setStatus(int row, Database::statusEnum status)
{
    setValue(row, songcolumns::Status, static_cast<int>(status));
}

int SongTable::status(int row)
{
    return index(row, columnNumber(songcolumns::Status)).data().toInt();
}

/** -1 for a row that does not exist; no row has that id. */
qint64 SongTable::idOf(int row) const
{
    if (row < 0 || row >= rowCount())
        return -1;
    return m_rows[static_cast<size_t>(row)].at(idColumn).toLongLong();
}

void SongTable::setSaveFailure(int row, SaveFailure failure)
{
    if (idOf(row) < 0 || saveFailure(row) == failure)
        return;
    if (failure == SaveFailure::None)
        m_notSaved.remove(idOf(row));
    else
        m_notSaved.insert(idOf(row), failure);
    emit dataChanged(index(row, 0), index(row, columnCount() - 1));
}

SaveFailure SongTable::saveFailure(int row) const
{
    return m_notSaved.value(idOf(row), SaveFailure::None);
}

int SongTable::goodRowCount()
{
    return rowCount();
}

QModelIndex SongTable::rowIndex(int row)
{
    return index(row, idColumn);
}

QString SongTable::fileName(int row)
{
    return index(row, columnNumber(songcolumns::FileName)).data().toString();
}

QString SongTable::title(int row)
{
    return index(row, columnNumber(songcolumns::Title)).data().toString();
}

QString SongTable::shortName(int row)
{
    return index(row, columnNumber(songcolumns::ShortName)).data().toString();
}

bool SongTable::rowContains(int row, const QString &text) const
{
    if (row < 0 || row >= rowCount())
        return false;
    const Row &values = m_rows[static_cast<size_t>(row)];
    const songcolumns::Column searched[] = {songcolumns::Title, songcolumns::Artist,
                                            songcolumns::Genre, songcolumns::Author,
                                            songcolumns::ShortName};
    return std::any_of(std::begin(searched), std::end(searched), [&](songcolumns::Column column) {
        return values.value(columnNumber(column)).toString().contains(text, Qt::CaseInsensitive);
    });
}

QString SongTable::columnName(int column) const
{
    return column == colIdxFolder() ? songcolumns::folderName : record().fieldName(column);
}

int SongTable::columnOf(const QString &name) const
{
    return name == songcolumns::folderName ? colIdxFolder() : fieldIndex(name);
}

/** The folder as the desktop writes it. */
QString SongTable::folderOf(const Row &row) const
{
    const QString path = row.value(colIdxFilename()).toString();
    const qsizetype slash = path.lastIndexOf(QLatin1Char('/'));
    return QDir::toNativeSeparators(path.left(slash == 0 ? 1 : qMax<qsizetype>(slash, 0)));
}

int SongTable::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int SongTable::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : colIdxFolder() + 1;
}

QVariant SongTable::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return QVariant();
    if (role == Qt::DisplayRole || role == Qt::EditRole) {
        const Row &row = m_rows[static_cast<size_t>(index.row())];
        return index.column() == colIdxFolder() ? folderOf(row) : row.value(index.column());
    }
    return QSqlRelationalTableModel::data(index, role);
}

bool SongTable::setData(const QModelIndex &index, const QVariant &value, int role)
{
    const int column = index.column();
    if (role != Qt::EditRole || !index.isValid() || index.row() >= rowCount() ||
        column == idColumn || column == colIdxFolder())
        return false;
    Row &row = m_rows[static_cast<size_t>(index.row())];
    QSqlQuery &update = m_updates[static_cast<size_t>(column)];
    update.bindValue(0, value);
    update.bindValue(1, row.at(idColumn));
    if (!execute(update))
        return false;

    row[column] = value;
    // The whole row is painted in the colour of its status; the folder is part of the path.
    if (column == colIdxStatus() || column == colIdxFilename())
        emit dataChanged(this->index(index.row(), 0), this->index(index.row(), columnCount() - 1));
    else
        emit dataChanged(index, index);
    return true;
}

std::vector<int> SongTable::sortedRows() const
{
    const bool isNumber = m_sortColumn == idColumn ||
                          m_sortColumn == columnNumber(songcolumns::UserBpm) ||
                          m_sortColumn == colIdxStatus();
    if (isNumber || m_sortColumn == columnNumber(songcolumns::Length)) {
        std::vector<qint64> keys;
        keys.reserve(m_rows.size());
        for (const Row &row : m_rows) {
            const QVariant &value = row.at(m_sortColumn);
            keys.push_back(isNumber ? value.toLongLong() : secondsOf(value.toString()));
        }
        return positionsInOrder(keys, m_sortOrder);
    }
    const QCollator collator;
    std::vector<QCollatorSortKey> keys;
    keys.reserve(m_rows.size());
    for (const Row &row : m_rows) {
        const QString text =
            m_sortColumn == colIdxFolder() ? folderOf(row) : row.at(m_sortColumn).toString();
        keys.push_back(collator.sortKey(text.toCaseFolded()));
    }
    return positionsInOrder(keys, m_sortOrder);
}

/** Puts the rows into the order of their present row numbers. */
void SongTable::arrange(const std::vector<int> &order)
{
    std::vector<Row> arranged;
    arranged.reserve(order.size());
    for (const int row : order)
        arranged.push_back(std::move(m_rows[static_cast<size_t>(row)]));
    m_rows = std::move(arranged);
}

void SongTable::sort(int column, Qt::SortOrder order)
{
    if (column >= columnCount())
        return;
    m_sortColumn = qMax(column, idColumn);
    m_sortOrder = m_sortColumn == idColumn ? Qt::AscendingOrder : order;

    emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    const std::vector<int> rows = sortedRows();
    std::vector<int> newRows(rows.size());
    for (size_t position = 0; position < rows.size(); ++position)
        newRows[static_cast<size_t>(rows[position])] = static_cast<int>(position);
    arrange(rows);
    const QModelIndexList held = persistentIndexList();
    QModelIndexList moved;
    for (const QModelIndex &old : held)
        moved.append(index(newRows[static_cast<size_t>(old.row())], old.column()));
    changePersistentIndexList(held, moved);
    emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

bool SongTable::removeRows(int row, int count, const QModelIndex &parent)
{
    if (parent.isValid() || row < 0 || count <= 0 || count > rowCount() - row)
        return false;
    for (int left = count; left > 0; --left) {
        const auto song = m_rows.begin() + row;
        m_delete.bindValue(0, song->at(idColumn));
        if (!execute(m_delete))
            return false;
        beginRemoveRows(QModelIndex(), row, row);
        m_notSaved.remove(idOf(row));
        m_troubles.remove(idOf(row));
        m_rows.erase(song);
        endRemoveRows();
    }
    return true;
}

bool SongTable::insertRows(int, int, const QModelIndex &)
{
    return false;
}

bool SongTable::canFetchMore(const QModelIndex &) const
{
    return false;
}
