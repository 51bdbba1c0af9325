#include "windows/memorysongsmodel.h"

#include "devindex/sizetext.h"
#include "windows/plaintooltip.h"

#include <QStringBuilder>
#include <QStringList>
#include <QStringMatcher>

#include <algorithm>
#include <numeric>
#include <utility>

namespace
{

QString formatText(quint8 fileType)
{
    switch (fileType) {
    case SongInfoIndex::Mp3:
        return QStringLiteral("MP3");
    case SongInfoIndex::Mf3:
        return QStringLiteral("MF3");
    case SongInfoIndex::Mf4:
        return QStringLiteral("MF4");
    case SongInfoIndex::Mf5:
        return QStringLiteral("MF5");
    default:
        return QStringLiteral("MIDI");
    }
}

/** What the columns of numbers are ordered by. */
qint64 numberOf(const MemorySong &song, int column)
{
    switch (column) {
    case MemorySongsModel::Tempo:
        return song.info.bpm;
    case MemorySongsModel::Size:
        return song.size;
    case MemorySongsModel::Sections:
        return song.info.hasMarkers;
    default:
        return song.companion.isEmpty() ? 0 : 1;
    }
}

bool isNumber(int column)
{
    return column == MemorySongsModel::Tempo || column == MemorySongsModel::Size ||
           column == MemorySongsModel::Sections || column == MemorySongsModel::Pictures;
}

} // namespace

void MemorySongsModel::setContents(SharedContents contents)
{
    beginResetModel();
    m_contents = std::move(contents);
    m_isDuplicate.assign(m_contents ? static_cast<std::size_t>(m_contents->songs().size()) : 0,
                         false);
    if (m_contents)
        markDuplicates(m_contents->sameTitle());
    makeKeys();
    orderSongs();
    filterSongs();
    endResetModel();
}

void MemorySongsModel::addDuplicates(const QList<memoryduplicates::Group> &groups)
{
    beginResetModel();
    markDuplicates(groups);
    makeKeys();
    orderSongs();
    filterSongs();
    endResetModel();
}

void MemorySongsModel::markDuplicates(const QList<memoryduplicates::Group> &groups)
{
    for (const memoryduplicates::Group &group : groups) {
        for (const qsizetype place : group)
            m_isDuplicate.at(static_cast<std::size_t>(place)) = true;
    }
}

void MemorySongsModel::setFilter(const QString &text)
{
    const QString filter = text.trimmed().toCaseFolded();
    if (filter == m_filter)
        return;
    beginResetModel();
    m_filter = filter;
    filterSongs();
    endResetModel();
}

void MemorySongsModel::retranslate()
{
    beginResetModel();
    makeKeys();
    orderSongs();
    filterSongs();
    endResetModel();
}

int MemorySongsModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int MemorySongsModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : columns;
}

QVariant MemorySongsModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    const qsizetype place = songAt(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return text(place, index.column());
    case Qt::ToolTipRole:
        return plainToolTip(text(place, index.column()));
    case Qt::TextAlignmentRole:
        return index.column() == Tempo || index.column() == Size
                   ? QVariant(Qt::AlignRight | Qt::AlignVCenter)
                   : QVariant();
    default:
        return {};
    }
}

QVariant MemorySongsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    switch (section) {
    case Title:
        return tr("Titolo");
    case Artist:
        return tr("Artista");
    case Genre:
        return tr("Genere");
    case Format:
        return tr("Formato");
    case Tempo:
        return tr("Bpm");
    case Sections:
        return tr("Marker");
    case Pictures:
        return tr(".cdg");
    case Size:
        return tr("Dimensione");
    case State:
        return tr("Stato");
    default:
        return tr("File");
    }
}

QString MemorySongsModel::text(qsizetype place, int column) const
{
    const MemorySong &shown = song(place);
    const bool isThere = shown.state != MemorySong::State::Gone;
    switch (column) {
    case Title:
        return shown.info.title;
    case Artist:
        return knownText(shown.info.artist);
    case Genre:
        return knownText(shown.info.genre);
    case Format:
        return formatText(shown.info.fileType);
    case Tempo:
        return shown.info.bpm > 0 ? QString::number(shown.info.bpm) : QString();
    case Sections:
        return shown.info.hasMarkers != 0 ? tr("Sì") : QString();
    case Pictures:
        return shown.companion.isEmpty() ? QString() : tr("Sì");
    case Size:
        return isThere && shown.size > 0 ? sizeText(shown.size) : QString();
    case State:
        return stateText(place);
    default:
        return shown.info.path;
    }
}

QString MemorySongsModel::stateText(qsizetype place) const
{
    const MemorySong &shown = song(place);
    QStringList parts;
    switch (shown.state) {
    case MemorySong::State::Indexed:
        break;
    case MemorySong::State::NotIndexed:
        parts.append(tr("non ancora nel database"));
        break;
    case MemorySong::State::Changed:
        parts.append(tr("modificata dopo l'aggiornamento"));
        break;
    case MemorySong::State::Gone:
        parts.append(tr("il file non c'è più"));
        break;
    case MemorySong::State::Unreadable:
        parts.append(tr("cartella non leggibile"));
        break;
    }
    if (shown.showsOnlyName)
        parts.append(tr("il player non legge il tag"));
    if (m_isDuplicate.at(static_cast<std::size_t>(place)))
        parts.append(tr("doppia"));
    if (shown.state == MemorySong::State::Indexed)
        parts.prepend(tr("nel database"));
    return parts.join(QStringLiteral(", "));
}

void MemorySongsModel::makeKeys()
{
    m_keys.clear();
    if (!m_contents)
        return;
    m_keys.reserve(m_isDuplicate.size());
    const QChar gap(0); // nobody types it, so that no text reaches from one field into the next
    for (qsizetype place = 0; place < m_contents->songs().size(); ++place) {
        const SongInfoIndex &info = song(place).info;
        const QString all = info.title % gap % knownText(info.artist) % gap %
                            knownText(info.genre) % gap % formatText(info.fileType) % gap %
                            info.path % gap % stateText(place);
        m_keys.push_back(all.toCaseFolded());
    }
}

void MemorySongsModel::sort(int column, Qt::SortOrder order)
{
    beginResetModel();
    m_sortColumn = column;
    m_sortOrder = order;
    orderSongs();
    filterSongs();
    endResetModel();
}

/** Songs that are equal in the column keep the order of the folders, in both directions. */
void MemorySongsModel::orderSongs()
{
    m_order.resize(m_keys.size());
    std::iota(m_order.begin(), m_order.end(), qsizetype{0});
    if (m_sortColumn < 0)
        return;
    const auto arrange = [this](const auto &keys) {
        const auto key = [&keys](qsizetype place) -> const auto &
        {
            return keys[static_cast<std::size_t>(place)];
        };
        if (m_sortOrder == Qt::AscendingOrder)
            std::stable_sort(m_order.begin(), m_order.end(),
                             [&](qsizetype a, qsizetype b) { return key(a) < key(b); });
        else
            std::stable_sort(m_order.begin(), m_order.end(),
                             [&](qsizetype a, qsizetype b) { return key(b) < key(a); });
    };
    if (isNumber(m_sortColumn)) {
        std::vector<qint64> numbers;
        numbers.reserve(m_keys.size());
        for (const qsizetype place : m_order)
            numbers.push_back(numberOf(song(place), m_sortColumn));
        arrange(numbers);
    } else {
        std::vector<QString> texts;
        texts.reserve(m_keys.size());
        for (const qsizetype place : m_order)
            texts.push_back(text(place, m_sortColumn).toCaseFolded());
        arrange(texts);
    }
}

void MemorySongsModel::filterSongs()
{
    m_rows.clear();
    m_rows.reserve(m_order.size());
    m_rowOf.assign(m_order.size(), -1);
    const QStringMatcher matcher(m_filter);
    for (const qsizetype place : m_order) {
        const auto at = static_cast<std::size_t>(place);
        if (!m_filter.isEmpty() && matcher.indexIn(m_keys[at]) < 0)
            continue;
        m_rowOf[at] = static_cast<int>(m_rows.size());
        m_rows.push_back(place);
    }
}
