// Finds a song in the reference catalogue and merges the catalogue's data into it.
#pragma once

#include "formats/metasong.h"
#include "library/database.h"

#include <QHash>
#include <QString>

#include <optional>

/** The step that the synchronisation of a song and its preview share; no file is touched. */
class CatalogueMerge
{
public:
    /** The database must outlive the object. */
    explicit CatalogueMerge(const Database &database)
        : m_database(database)
    {
    }

    /** True when mergeInto() finds a song with this title and this name of its file. */
    bool knows(const QString &title, const QString &shortName) const;

    /**
     * Merges the catalogue's data into the loaded song, in memory. info is what the song holds,
     * shortName the name of its file without the folder. Returns the record that was merged;
     * nothing, with the song unchanged, when the catalogue does not know the song.
     */
    std::optional<SongInfo> mergeInto(MetaSong &song, const SongInfo &info,
                                      const QString &shortName) const;

private:
    bool findRecord(const SongInfo &info, const QString &shortName, SongsDbRecord &record) const;

    bool findByFileName(const QString &fileKey, SongsDbRecord &record) const;

    const Database &m_database;
    mutable QHash<QString, SongsDbRecord> m_found; ///< by the names that knows() looked up
};
