// Finds a song in the catalogues and merges the data of the first one that knows it into it.
#pragma once

#include "formats/metasong.h"
#include "library/cataloguesource.h"
#include "library/database.h"
#include "library/owncatalogue.h"

#include <QHash>
#include <QString>

#include <optional>

/** The step that the synchronisation of a song and its preview share; no file is touched. */
class CatalogueMerge
{
public:
    /**
     * The database must outlive the object. The user's own catalogue lies at the path and is looked
     * into first, as it stands now; one that is absent or cannot be used is passed over.
     */
    explicit CatalogueMerge(const Database &database,
                            const QString &ownCatalogue = OwnCatalogue::defaultPath());

    /** Why the user's own catalogue cannot be used, for him; empty when it can, or is absent. */
    const QString &problem() const { return m_problem; }

    /** The name of a song's file as the catalogues have it: in capitals, without its extension. */
    static QString fileKey(const QString &shortName);

    struct Merged {
        SongInfo record;
        CatalogueSource source;
    };

    /** True when mergeInto() finds a song with this title and this name of its file. */
    bool knows(const QString &title, const QString &shortName) const;

    /**
     * Merges the catalogue's data into the loaded song, in memory. info is what the song holds,
     * shortName the name of its file without the folder. Returns the record that was merged;
     * nothing, with the song unchanged, when the catalogue does not know the song.
     */
    std::optional<Merged> mergeInto(MetaSong &song, const SongInfo &info,
                                    const QString &shortName) const;

private:
    std::optional<CatalogueSource> findRecord(const SongInfo &info, const QString &shortName,
                                              SongsDbRecord &record) const;
    const SongsDbRecord *findOwn(const SongInfo &info, const QString &shortName) const;

    bool findByFileName(const QString &key, SongsDbRecord &record) const;

    const Database &m_database;
    mutable QHash<QString, SongsDbRecord> m_found; ///< by the names that knows() looked up
    OwnEntries m_own;
    QString m_problem;
};
