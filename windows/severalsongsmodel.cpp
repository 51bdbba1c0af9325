#include "windows/severalsongsmodel.h"

#include "windows/plaintooltip.h"

#include <QGuiApplication>
#include <QPalette>

namespace
{

constexpr int fileColumn = 0;

/** The field that has the column. */
songfields::Field fieldOfColumn(int column)
{
    return songfields::all().at((column - 1) / 2);
}

bool isAfterColumn(int column)
{
    return column % 2 == 0;
}

QString fileNameOfPath(const QString &path)
{
    return path.mid(path.lastIndexOf(QLatin1Char('/')) + 1);
}

} // namespace

SeveralSongsModel::SeveralSongsModel(const QList<SongInfo> &songs, QObject *parent)
    : QAbstractTableModel(parent)
    , m_preview(songs)
    , m_chosen(static_cast<size_t>(songs.size()), true)
    , m_changesField(static_cast<size_t>(songfields::all().size()), false)
{
    makeRows();
}

int SeveralSongsModel::noteColumn()
{
    return beforeColumn(static_cast<int>(songfields::all().size()));
}

void SeveralSongsModel::setSteps(const QList<EditStep> &steps)
{
    const bool keepsRows = m_shown == Shown::All;
    if (!keepsRows)
        beginResetModel();
    m_preview.setSteps(steps);
    m_changesField.assign(m_changesField.size(), false);
    const QList<songfields::Field> &fields = songfields::all();
    for (const SeveralSong &changed : m_preview.songs()) {
        if (!changed.isChanged())
            continue;
        for (size_t i = 0; i < m_changesField.size(); ++i) {
            const songfields::Field field = fields.at(static_cast<qsizetype>(i));
            if (!m_changesField[i] &&
                songfields::text(changed.before, field) != songfields::text(changed.after, field))
                m_changesField[i] = true;
        }
    }
    if (!keepsRows) {
        makeRows();
        endResetModel();
    } else if (!m_rows.empty()) {
        emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
    }
    emit choiceChanged();
}

void SeveralSongsModel::setShown(Shown shown)
{
    beginResetModel();
    m_shown = shown;
    makeRows();
    endResetModel();
}

bool SeveralSongsModel::hasRow(const SeveralSong &song) const
{
    switch (m_shown) {
    case Shown::All:
        return true;
    case Shown::Changed:
        return song.isChanged();
    case Shown::Unfit:
        return !song.reason.isEmpty();
    }
    return true;
}

void SeveralSongsModel::makeRows()
{
    m_rows.clear();
    for (size_t i = 0; i < m_preview.songs().size(); ++i) {
        if (hasRow(m_preview.songs()[i]))
            m_rows.push_back(i);
    }
}

bool SeveralSongsModel::changesField(songfields::Field field) const
{
    return m_changesField[static_cast<size_t>(songfields::all().indexOf(field))];
}

void SeveralSongsModel::setChosen(const QList<int> &rows, bool isChosen)
{
    for (const int row : rows) {
        m_chosen[m_rows[static_cast<size_t>(row)]] = isChosen;
        emit dataChanged(index(row, fileColumn), index(row, fileColumn), {Qt::CheckStateRole});
    }
    emit choiceChanged();
}

void SeveralSongsModel::setAllChosen(bool isChosen)
{
    for (const size_t place : m_rows)
        m_chosen[place] = isChosen;
    if (!m_rows.empty())
        emit dataChanged(index(0, fileColumn), index(rowCount() - 1, fileColumn),
                         {Qt::CheckStateRole});
    emit choiceChanged();
}

bool SeveralSongsModel::isChosen(int row) const
{
    return m_chosen[m_rows[static_cast<size_t>(row)]];
}

QList<SeveralSong> SeveralSongsModel::chosen() const
{
    QList<SeveralSong> songs;
    for (size_t i = 0; i < m_chosen.size(); ++i) {
        if (m_chosen[i] && m_preview.songs()[i].isChanged())
            songs.append(m_preview.songs()[i]);
    }
    return songs;
}

int SeveralSongsModel::chosenCount() const
{
    int count = 0;
    for (size_t i = 0; i < m_chosen.size(); ++i)
        count += m_chosen[i] && m_preview.songs()[i].isChanged() ? 1 : 0;
    return count;
}

const SeveralSong *SeveralSongsModel::song(int row) const
{
    if (row >= 0 && row < rowCount())
        return &m_preview.songs()[m_rows[static_cast<size_t>(row)]];
    return m_preview.songs().empty() ? nullptr : &m_preview.songs().front();
}

int SeveralSongsModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int SeveralSongsModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : noteColumn() + 1;
}

QVariant SeveralSongsModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const SeveralSong &shown = *song(index.row());
    if (index.column() == fileColumn) {
        if (role == Qt::DisplayRole)
            return fileNameOfPath(shown.before.fileName);
        if (role == Qt::CheckStateRole)
            return isChosen(index.row()) ? Qt::Checked : Qt::Unchecked;
        return role == Qt::ToolTipRole ? plainToolTip(shown.before.fileName) : QVariant();
    }
    if (index.column() != noteColumn())
        return valueData(shown, index.column(), role);
    if (role == Qt::DisplayRole)
        return note(shown);
    return role == Qt::ToolTipRole ? plainToolTip(note(shown)) : QVariant();
}

QVariant SeveralSongsModel::valueData(const SeveralSong &song, int column, int role) const
{
    const songfields::Field field = fieldOfColumn(column);
    const bool isAfter = isAfterColumn(column);
    const QString before = songfields::text(song.before, field);
    const QString after = songfields::text(song.after, field);
    const bool isChanged = isAfter && before != after;
    const QString &text = isAfter ? after : before;
    switch (role) {
    case Qt::DisplayRole:
        return isChanged && text.isEmpty() ? ChangePreview::emptyValue() : text;
    case Qt::ToolTipRole:
        return plainToolTip(text);
    case Qt::AccessibleDescriptionRole:
        return isChanged ? changedText() : QString();
    default:
        return isChanged ? changedLook(role) : QVariant();
    }
}

QVariant SeveralSongsModel::changedLook(int role)
{
    if (role == Qt::BackgroundRole) {
        // A light tone of the selection, which can be seen on a light and on a dark desktop.
        QColor colour = QGuiApplication::palette().color(QPalette::Highlight);
        constexpr int lightly = 60;
        colour.setAlpha(lightly);
        return colour;
    }
    if (role != Qt::FontRole)
        return {};
    QFont bold = QGuiApplication::font();
    bold.setBold(true);
    return bold;
}

QString SeveralSongsModel::changedText()
{
    return tr("cambia");
}

/** What the user should know about the song; empty when there is nothing. */
QString SeveralSongsModel::note(const SeveralSong &song) const
{
    QStringList notes;
    if (!song.reason.isEmpty())
        notes << song.reason;
    if (song.isChanged()) {
        const QList<ChangePreview::Change> changes = song.changes();
        for (const ChangePreview::Change &change : changes) {
            if (song.isCut(change.field))
                notes << tr("%1 accorciato").arg(ChangePreview::fieldName(change.field));
            if (!change.lost.isEmpty())
                notes << tr("\"?\" al posto di: %1").arg(change.lost);
        }
    }
    return notes.join(QStringLiteral("; "));
}

bool SeveralSongsModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid() || index.column() != fileColumn || role != Qt::CheckStateRole)
        return false;
    setChosen({index.row()}, value.toInt() == Qt::Checked);
    return true;
}

QVariant SeveralSongsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    if (section == fileColumn)
        return tr("File");
    if (section == noteColumn())
        return tr("Nota");
    const QString name = ChangePreview::fieldName(fieldOfColumn(section));
    return isAfterColumn(section) ? tr("%1 dopo").arg(name) : tr("%1 ora").arg(name);
}

Qt::ItemFlags SeveralSongsModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.column() == fileColumn ? flags | Qt::ItemIsUserCheckable : flags;
}
