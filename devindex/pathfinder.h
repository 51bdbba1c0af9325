// Finds the index entries of the songs that the playlists' path files name.
#pragma once

#include "devindex/pathorder.h"
#include "devindex/songinfoindex.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>

/** Looks up entries by path; the entries must not change while it lives. */
class PathFinder
{
public:
    explicit PathFinder(QList<SongInfoIndex> &entries);

    /**
     * The entry with this path from a path file, in which "?" stands for each character outside
     * Latin-1; otherwise the first entry whose path the player cannot tell from it. Null if there
     * is none.
     */
    const SongInfoIndex *find(const QString &path);

private:
    const SongInfoIndex *findByKey(const QString &path);

    QList<SongInfoIndex> &m_entries;
    PathOrder m_order;
    QHash<QByteArray, qsizetype> m_outsideLatin1; ///< positions, by path as a path file has it
};
