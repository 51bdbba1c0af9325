// Reads the index that lies on a memory.
#pragma once

#include "devindex/songinfoindex.h"

#include <QLatin1String>
#include <QList>
#include <QString>

/**
 * Puts the songs of an index together from its path, title, artist and genre files. The files may
 * be damaged or hostile: of each file at most as many records are read as the index of a full
 * memory has, and the counts in them are not trusted.
 */
class IndexLoader
{
public:
    /** Reads from the memory's root into entries, which are emptied first. */
    IndexLoader(const QString &root, QList<SongInfoIndex> &entries);

    /**
     * True when all four files were read. Then the entries stand in the order of their record
     * numbers, their ids ascending. A file that is missing, ends within a record or names a song
     * that the path file does not have makes it false.
     */
    bool load();

    /**
     * Reads only ids and paths. True when the path file is whole, as far as the order file tells;
     * the other files may be damaged or missing.
     */
    bool loadPathsAlone();

    /** True for a root with all files of an index, whatever is in them. */
    static bool areFilesThere(const QString &root);

    /** True for a root with all files of an index, from which load() gets none. */
    static bool isDamaged(const QString &root);

private:
    bool loadPaths();
    bool loadTitles();
    bool loadGroups(QLatin1String name, QString SongInfoIndex::*text);
    bool read(QLatin1String name, int recordSize, int maxRecords, QByteArray &bytes) const;
    SongInfoIndex *entryOf(quint32 id);

    QString m_root;
    QList<SongInfoIndex> &m_entries;
};
