#include "devindex/pathfinder.h"

#include "devindex/devicetext.h"

PathFinder::PathFinder(QList<SongInfoIndex> &entries)
    : m_entries(entries)
    , m_order(entries)
{
    for (qsizetype position = 0; position < entries.size(); ++position) {
        const QByteArray latin1 = entries.at(position).path.toLatin1();
        if (QString::fromLatin1(latin1) != entries.at(position).path &&
            !m_outsideLatin1.contains(latin1))
            m_outsideLatin1.insert(latin1, position);
    }
}

const SongInfoIndex *PathFinder::find(const QString &path)
{
    const SongInfoIndex *const found = findByKey(path);
    if (found != nullptr)
        return found;
    const auto position = m_outsideLatin1.constFind(path.toLatin1());
    return position == m_outsideLatin1.constEnd() ? nullptr : &m_entries.at(*position);
}

const SongInfoIndex *PathFinder::findByKey(const QString &path)
{
    const QByteArray key = pathSortKey(path);
    const SongInfoIndex *found = nullptr;
    for (qsizetype place = placeBehind(m_order, key) - 1; place >= 0 && m_order.keyAt(place) == key;
         --place) {
        found = &m_order.entryAt(place);
        if (found->path.compare(path, Qt::CaseInsensitive) == 0)
            break;
    }
    return found;
}
