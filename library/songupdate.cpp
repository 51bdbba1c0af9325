#include "library/songupdate.h"

bool SongUpdate::load()
{
    if (!m_song.importFile(m_path))
        return false;
    m_song.getSongInfo(m_before);
    return true;
}

bool SongUpdate::merge(const CatalogueMerge &catalogue, const QString &shortName)
{
    const auto record = catalogue.mergeInto(m_song, m_before, shortName);
    if (record) {
        m_record = record->record;
        m_source = record->source;
    }
    return record.has_value();
}

QList<ChangePreview::Change> SongUpdate::changes() const
{
    SongInfo after;
    m_song.getSongInfo(after);
    QList<ChangePreview::Change> found = ChangePreview::changes(m_before, after);
    ChangePreview::nameLostCharacters(found, m_record);
    return found;
}
