// Writes the catalogue's data into one song.
#pragma once

#include "formats/metasong.h"
#include "library/cataloguemerge.h"
#include "library/changepreview.h"

#include <QList>
#include <QString>

/** The steps that a synchronisation and a preview of it take for each song, in this order. */
class SongUpdate
{
public:
    /** The song file at the path. */
    explicit SongUpdate(const QString &path)
        : m_path(path)
    {
    }

    /** False for a file that cannot be read as a song. */
    bool load();

    /** True when load() failed because another program was saving the song. */
    bool wasInUse() const { return m_song.wasInUse(); }

    /** What the song holds before the change. */
    const SongInfo &before() const { return m_before; }

    /**
     * Merges the catalogue's data into the song, in memory. shortName is the file's name without
     * its folder. False when the catalogue does not know the song.
     */
    bool merge(const CatalogueMerge &catalogue, const QString &shortName);

    /** Which catalogue merge() found the song in. */
    CatalogueSource source() const { return m_source; }

    /** What merge() changed. */
    QList<ChangePreview::Change> changes() const;

    /** False when save() would refuse on any medium. */
    bool canBeSaved() const { return m_song.canBeSaved(); }

    /** Writes the song to its file; None when it was written. */
    SaveFailure save() { return m_song.save(m_path); }

    /** The characters that the saved song has lost, as a list to be shown; see ChangePreview. */
    QString lostCharacters(const SongInfo &saved) const
    {
        return ChangePreview::lostCharacters(m_before, saved, m_record);
    }

private:
    QString m_path;
    MetaSong m_song;
    SongInfo m_before;
    SongInfo m_record; ///< the catalogue's data
    CatalogueSource m_source = CatalogueSource::Only;
};
