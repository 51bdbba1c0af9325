// Finds the songs on a memory that no entry of its index stands for.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

namespace unlistedsongs
{

struct Song {
    QString path;         ///< on the memory
    bool hasTwin = false; ///< the index holds a file whose name differs in letter case only
};

/**
 * One entry stands for one file: for the one of its path, else for one whose path differs in letter
 * case only. Other paths to a file that has an entry need none.
 *
 * @param root of the memory
 * @param files all songs on the memory, as paths that begin with "/"
 * @param listed the paths of the entries, as they stand in the path file
 */
QList<Song> find(const QString &root, const QStringList &files, const QList<QByteArray> &listed);

} // namespace unlistedsongs
