#include "windows/musicoffersmodel.h"

#include "windows/plaintooltip.h"
#include "windows/severalsongsmodel.h"

#include <QDir>

#include <algorithm>
#include <iterator>

namespace
{

constexpr int valueCount = static_cast<int>(std::size(MusicOffer::values));

/** The value that has the column. */
MusicOffer::Value valueOf(int column)
{
    return MusicOffer::values[(column - MusicOffersModel::beforeColumn(0)) / 2];
}

bool isFoundColumn(int column)
{
    return column >= MusicOffersModel::foundColumn(0) && column % 2 != 0;
}

bool isWhole(const MusicOffer &offer)
{
    return offer.unmeasurable() == MusicOffer::Values() && offer.note().isEmpty();
}

bool offersGuess(const MusicOffer &offer)
{
    return offer.filling().testFlag(MusicOffer::Key) && offer.isGuess(MusicOffer::Key);
}

} // namespace

MusicOffersModel::MusicOffersModel(QObject *parent)
    : QAbstractTableModel(parent)
{
}

void MusicOffersModel::add(const QList<MusicOffer> &offers)
{
    beginResetModel();
    for (const MusicOffer &offer : offers)
        m_songs.push_back({offer, offer.advised()});
    makeRows();
    endResetModel();
    emit choiceChanged();
}

void MusicOffersModel::setAllShown(bool isAll)
{
    beginResetModel();
    m_isAllShown = isAll;
    makeRows();
    endResetModel();
}

/** What was ticked while all songs were shown does not get out of sight. */
void MusicOffersModel::makeRows()
{
    m_rows.clear();
    for (size_t i = 0; i < m_songs.size(); ++i) {
        const Song &song = m_songs[i];
        if (m_isAllShown || song.offer.filling() != MusicOffer::Values() ||
            song.ticked != MusicOffer::Values() || !isWhole(song.offer))
            m_rows.push_back(i);
    }
}

void MusicOffersModel::showAll()
{
    if (!m_rows.empty())
        emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
    emit choiceChanged();
}

void MusicOffersModel::tickAdvised(bool isTicked)
{
    for (Song &song : m_songs)
        song.ticked = isTicked ? song.ticked | song.offer.advised() : MusicOffer::Values();
    showAll();
}

void MusicOffersModel::tickGuesses(bool isTicked)
{
    for (Song &song : m_songs) {
        if (offersGuess(song.offer))
            song.ticked.setFlag(MusicOffer::Key, isTicked);
    }
    showAll();
}

int MusicOffersModel::guesses() const
{
    return static_cast<int>(std::count_if(m_songs.cbegin(), m_songs.cend(), [](const Song &song) {
        return offersGuess(song.offer);
    }));
}

int MusicOffersModel::tickedGuesses() const
{
    return static_cast<int>(std::count_if(m_songs.cbegin(), m_songs.cend(), [](const Song &song) {
        return offersGuess(song.offer) && song.ticked.testFlag(MusicOffer::Key);
    }));
}

bool MusicOffersModel::isUsed(int column) const
{
    return std::any_of(m_songs.cbegin(), m_songs.cend(), [column](const Song &song) {
        return column == noteColumn ? !song.offer.note().isEmpty()
                                    : !song.offer.textBefore(valueOf(column)).isEmpty();
    });
}

int MusicOffersModel::changed() const
{
    return static_cast<int>(std::count_if(m_songs.cbegin(), m_songs.cend(), [](const Song &song) {
        return song.ticked != MusicOffer::Values();
    }));
}

int MusicOffersModel::unmeasured() const
{
    return static_cast<int>(std::count_if(m_songs.cbegin(), m_songs.cend(),
                                          [](const Song &song) { return !isWhole(song.offer); }));
}

QList<SeveralSong> MusicOffersModel::chosen() const
{
    const SongStandIn standIn;
    QList<SeveralSong> songs;
    for (const Song &song : m_songs) {
        if (song.ticked != MusicOffer::Values())
            songs.append(song.offer.with(song.ticked, standIn));
    }
    return songs;
}

bool MusicOffersModel::hasBox(const Song &song, int column)
{
    if (column == fileColumn)
        return song.offer.filling() != MusicOffer::Values();
    return isFoundColumn(column) &&
           (song.offer.filling() | song.offer.replacing()).testFlag(valueOf(column));
}

Qt::CheckState MusicOffersModel::box(const Song &song, int column)
{
    if (column != fileColumn)
        return song.ticked.testFlag(valueOf(column)) ? Qt::Checked : Qt::Unchecked;
    if (song.ticked == MusicOffer::Values())
        return Qt::Unchecked;
    const bool isFull = (song.ticked & song.offer.filling()) == song.offer.filling();
    return isFull ? Qt::Checked : Qt::PartiallyChecked;
}

void MusicOffersModel::setBox(Song &song, int column, bool isTicked)
{
    if (column != fileColumn)
        song.ticked.setFlag(valueOf(column), isTicked);
    else if (isTicked)
        song.ticked |= song.offer.filling();
    else
        song.ticked = MusicOffer::Values();
}

void MusicOffersModel::toggle(const QModelIndexList &cells)
{
    bool isFirst = true;
    bool isTicked = false;
    for (const QModelIndex &cell : cells) {
        Song &song = songAt(cell.row());
        if (!hasBox(song, cell.column()))
            continue;
        if (isFirst)
            isTicked = box(song, cell.column()) != Qt::Checked;
        isFirst = false;
        setBox(song, cell.column(), isTicked);
    }
    if (!isFirst)
        showAll();
}

int MusicOffersModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int MusicOffersModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : beforeColumn(valueCount);
}

QVariant MusicOffersModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const Song &song = songAt(index.row());
    const int column = index.column();
    if (role == Qt::CheckStateRole)
        return hasBox(song, column) ? QVariant(box(song, column)) : QVariant();
    if (column == fileColumn)
        return fileData(song, role);
    if (isFoundColumn(column))
        return foundData(song, column, role);
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return {};
    const QString text =
        column == noteColumn ? song.offer.note() : song.offer.textBefore(valueOf(column));
    return role == Qt::DisplayRole ? text : plainToolTip(text);
}

QVariant MusicOffersModel::fileData(const Song &song, int role)
{
    const QString &path = song.offer.before().fileName;
    if (role == Qt::DisplayRole)
        return path.section(QLatin1Char('/'), -1);
    return role == Qt::ToolTipRole ? plainToolTip(QDir::toNativeSeparators(path)) : QVariant();
}

QVariant MusicOffersModel::foundData(const Song &song, int column, int role)
{
    const MusicOffer::Value value = valueOf(column);
    const bool isTicked = song.ticked.testFlag(value);
    switch (role) {
    case Qt::DisplayRole: {
        if (song.offer.unmeasurable().testFlag(value))
            return tr("non misurabile");
        if (!hasBox(song, column))
            return {}; // nothing new
        const QString text = song.offer.textFound(value);
        return song.offer.isGuess(value) ? tr("%1 (stimata)").arg(text) : text;
    }
    case Qt::ToolTipRole: {
        constexpr qsizetype longest = 1000;
        return plainToolTip(song.offer.longTextFound(value).left(longest));
    }
    case Qt::AccessibleDescriptionRole:
        return isTicked ? SeveralSongsModel::changedText() : QString();
    default:
        return isTicked ? SeveralSongsModel::changedLook(role) : QVariant();
    }
}

bool MusicOffersModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid() || role != Qt::CheckStateRole)
        return false;
    Song &song = songAt(index.row());
    if (!hasBox(song, index.column()))
        return false;
    setBox(song, index.column(), value.toInt() == Qt::Checked);
    emit dataChanged(this->index(index.row(), 0), this->index(index.row(), columnCount() - 1));
    emit choiceChanged();
    return true;
}

QVariant MusicOffersModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    if (section == fileColumn)
        return tr("File");
    if (section == noteColumn)
        return tr("Nota");
    const QString name = ChangePreview::fieldName(MusicOffer::field(valueOf(section)));
    return isFoundColumn(section) ? tr("%1 dopo").arg(name) : tr("%1 ora").arg(name);
}

Qt::ItemFlags MusicOffersModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    if (!index.isValid() || !hasBox(songAt(index.row()), index.column()))
        return flags;
    return flags | Qt::ItemIsUserCheckable;
}

void MusicOffersModel::retranslate()
{
    emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
    showAll();
}
