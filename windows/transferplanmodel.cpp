#include "windows/transferplanmodel.h"

#include "devindex/sizetext.h"
#include "windows/plaintooltip.h"

#include <QDir>
#include <QFont>

#include <algorithm>

namespace
{

using State = TransferPlan::State;
using Item = TransferPlan::Item;

constexpr State order[] = {State::Collides,   State::Renamed, State::Differs, State::TooLong,
                           State::Unreadable, State::New,     State::Same,    State::Remove};
constexpr QLatin1Char slash('/');

} // namespace

TransferPlanModel::TransferPlanModel(TransferPlan &plan, QObject *parent)
    : QAbstractItemModel(parent)
    , m_plan(plan)
{
    findGroups();
}

void TransferPlanModel::showOthers(bool show)
{
    beginResetModel();
    m_showsOthers = show;
    findGroups();
    endResetModel();
}

void TransferPlanModel::findGroups()
{
    m_groups.clear();
    for (const State state : order) {
        if (state != State::Remove || m_showsOthers)
            m_groups.append({state, {}, 0, {}});
    }
    for (int i = 0; i < m_plan.items.size(); ++i) {
        const State state = m_plan.items.at(i).state;
        const auto group = std::find_if(m_groups.begin(), m_groups.end(),
                                        [state](const Group &g) { return g.state == state; });
        if (group != m_groups.end())
            group->songs.append(i);
    }
    m_groups.removeIf([](const Group &group) { return group.songs.isEmpty(); });
    for (Group &group : m_groups)
        sum(group);
}

void TransferPlanModel::sum(Group &group) const
{
    group.room = 0;
    bool isOneRemedy = true;
    const TransferPlan::Remedy first = m_plan.items.at(group.songs.first()).remedy;
    for (const int song : std::as_const(group.songs)) {
        group.room += m_plan.items.at(song).room;
        isOneRemedy = isOneRemedy && m_plan.items.at(song).remedy == first;
    }
    group.remedies = isOneRemedy ? remedyText(group.state, first) : tr("Diverso per ogni song");
}

void TransferPlanModel::refresh()
{
    for (int row = 0; row < m_groups.size(); ++row) {
        Group &group = m_groups[row];
        sum(group);
        const QModelIndex above = index(row, Song);
        emit dataChanged(index(0, Song, above),
                         index(static_cast<int>(group.songs.size()) - 1, Room, above));
    }
    if (!m_groups.isEmpty())
        emit dataChanged(index(0, Song), index(static_cast<int>(m_groups.size()) - 1, Room));
}

QList<int> TransferPlanModel::songs(const QModelIndexList &rows) const
{
    QList<int> numbers;
    for (const QModelIndex &row : rows) {
        if (isGroup(row))
            numbers += m_groups.at(row.row()).songs;
        else
            numbers.append(m_groups.at(row.parent().row()).songs.at(row.row()));
    }
    std::sort(numbers.begin(), numbers.end());
    numbers.resize(std::unique(numbers.begin(), numbers.end()) - numbers.begin());
    return numbers;
}

bool TransferPlanModel::isUneventful(const QModelIndex &group) const
{
    const State state = m_groups.at(group.row()).state;
    return state == State::New || state == State::Same;
}

QModelIndex TransferPlanModel::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    // A song's id is its group's row and 1; a group's is 0.
    return createIndex(row, column,
                       parent.isValid() ? static_cast<quintptr>(parent.row()) + 1 : quintptr(0));
}

QModelIndex TransferPlanModel::parent(const QModelIndex &index) const
{
    if (!index.isValid() || isGroup(index))
        return {};
    return createIndex(static_cast<int>(index.internalId()) - 1, Song, quintptr(0));
}

int TransferPlanModel::rowCount(const QModelIndex &parent) const
{
    if (!parent.isValid())
        return static_cast<int>(m_groups.size());
    if (!isGroup(parent) || parent.column() != Song)
        return 0;
    return static_cast<int>(m_groups.at(parent.row()).songs.size());
}

int TransferPlanModel::columnCount(const QModelIndex &) const
{
    return ColumnCount;
}

const TransferPlan::Item &TransferPlanModel::itemAt(const QModelIndex &index) const
{
    const Group &group = m_groups.at(static_cast<int>(index.internalId()) - 1);
    return m_plan.items.at(group.songs.at(index.row()));
}

QVariant TransferPlanModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    if (role == Qt::TextAlignmentRole && index.column() == Room)
        return int(Qt::AlignRight | Qt::AlignVCenter);
    if (isGroup(index))
        return groupData(m_groups.at(index.row()), index.column(), role);
    const Item &item = itemAt(index);
    switch (role) {
    case Qt::DisplayRole:
        return textOf(item, index.column());
    case Qt::ToolTipRole:
        return plainToolTip(index.column() == Song ? QDir::toNativeSeparators(item.path)
                                                   : textOf(item, index.column()));
    case Qt::CheckStateRole:
        if (item.state == State::Remove && index.column() == Song)
            return item.remedy == TransferPlan::Remedy::Remove ? Qt::Checked : Qt::Unchecked;
        break;
    default:
        break;
    }
    return {};
}

QVariant TransferPlanModel::groupData(const Group &group, int column, int role) const
{
    if (role == Qt::FontRole && column == Song) {
        QFont bold;
        bold.setBold(true);
        return bold;
    }
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return {};
    QString text;
    if (column == Song)
        text = tr("%1: %2").arg(groupText(group.state)).arg(group.songs.size());
    else if (column == Remedy)
        text = group.remedies;
    else if (column == Room && group.room > 0)
        text = sizeText(group.room);
    return role == Qt::ToolTipRole ? plainToolTip(text) : text;
}

QString TransferPlanModel::textOf(const Item &item, int column) const
{
    switch (column) {
    case Song:
        // Where names are equal, the folder tells which song it is.
        return item.state == State::Remove ? pathBelowRoot(item.path)
                                           : item.path.section(slash, -2);
    case Remedy: {
        const QString text = remedyText(item.state, item.remedy);
        return item.reason.isEmpty() || item.remedy != TransferPlan::Remedy::Skip
                   ? text
                   : tr("%1: %2").arg(text, item.reason);
    }
    case Place: {
        const QString destination = item.destination();
        if (!destination.isEmpty())
            return pathBelowRoot(destination);
        return item.isThere ? pathBelowRoot(item.target) : QString();
    }
    case Room:
        return item.room > 0 ? sizeText(item.room) : QString();
    default:
        return {};
    }
}

QString TransferPlanModel::pathBelowRoot(const QString &path) const
{
    return QDir::toNativeSeparators(
        path.startsWith(m_plan.root + slash) ? path.mid(m_plan.root.size()) : path);
}

bool TransferPlanModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::CheckStateRole || !flags(index).testFlag(Qt::ItemIsUserCheckable))
        return false;
    m_plan.choose(songs({index}), value.toInt() == Qt::Checked ? TransferPlan::Remedy::Remove
                                                               : TransferPlan::Remedy::Skip);
    refresh();
    return true;
}

QVariant TransferPlanModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QAbstractItemModel::headerData(section, orientation, role);
    switch (section) {
    case Song:
        return tr("Song");
    case Remedy:
        return tr("Che cosa succede");
    case Place:
        return tr("Nella memoria");
    case Room:
        return tr("Spazio");
    default:
        return {};
    }
}

Qt::ItemFlags TransferPlanModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (!isGroup(index) && index.column() == Song && itemAt(index).state == State::Remove)
        flags |= Qt::ItemIsUserCheckable;
    return flags;
}

QString TransferPlanModel::remedyText(State state, TransferPlan::Remedy remedy)
{
    switch (remedy) {
    case TransferPlan::Remedy::Skip:
        if (state == State::Same || state == State::Renamed)
            return tr("Niente da fare");
        return state == State::Remove ? tr("Resta") : tr("Salta");
    case TransferPlan::Remedy::Copy:
        return tr("Copia");
    case TransferPlan::Remedy::KeepBoth:
        return state == State::TooLong ? tr("Copia con un nome nuovo")
                                       : tr("Tieni entrambe (nome nuovo)");
    case TransferPlan::Remedy::Replace:
        return tr("Sostituisci");
    case TransferPlan::Remedy::SubFolder:
        return tr("Copia in una sottocartella");
    case TransferPlan::Remedy::Remove:
        return tr("Rimuovi dalla memoria");
    }
    return {};
}

QString TransferPlanModel::groupText(State state)
{
    switch (state) {
    case State::New:
        return tr("Nuove");
    case State::Same:
        return tr("Già presenti");
    case State::Differs:
        return tr("Presenti, ma diverse");
    case State::Renamed:
        return tr("Presenti con un nome accorciato");
    case State::Collides:
        return tr("Nome già usato da un'altra song dell'elenco");
    case State::Unreadable:
        return tr("Non leggibili");
    case State::TooLong:
        return tr("Nome non adatto alla memoria o al player");
    case State::Remove:
        return tr("Nella memoria, ma non nell'elenco");
    }
    return {};
}
