#include "library/cataloguemerge.h"

#include "storage/diagnostics.h"

#include <algorithm>

namespace
{

constexpr int extensionLetters = 3;

/** So many songs are asked for together, and a few more. */
constexpr qsizetype mostFound = 64;

bool isWordCharacter(QChar character)
{
    return character.isLetterOrNumber() || character.isMark() || character == QLatin1Char('_');
}

/**
 * Cuts a dot and exactly three word characters (in any script) off the end: the extensions of all
 * song formats have three. Other extensions belong to the name.
 */
QString withoutExtension(const QString &name)
{
    const auto dot = name.size() - extensionLetters - 1;
    if (dot < 0 || name.at(dot) != QLatin1Char('.'))
        return name;
    const bool isExtension = std::all_of(name.cbegin() + dot + 1, name.cend(), isWordCharacter);
    return isExtension ? name.left(dot) : name;
}

/**
 * The catalogue's items replace those of the file, even an item that the catalogue leaves empty.
 */
SongInfo withCatalogueData(SongInfo info, const SongsDbRecord &record)
{
    info.title = record.title;
    info.artist = record.artist;
    info.altArtist = record.altartist;
    info.genre = record.genre;
    info.author = record.author;
    info.length = record.length;
    info.userBpm = record.bpm;
    info.key = record.key;
    info.markers = record.markers;
    return info;
}

} // namespace

bool CatalogueMerge::knows(const QString &title, const QString &shortName) const
{
    SongsDbRecord record;
    const QString fileKey = withoutExtension(shortName.toUpper());
    if (!m_database.getRecordByFilename(fileKey, record))
        return !title.isEmpty() && m_database.getRecordByTitle(title.toUpper(), record);
    if (m_found.size() >= mostFound)
        m_found.clear();
    m_found.insert(fileKey, record);
    return true;
}

std::optional<SongInfo> CatalogueMerge::mergeInto(MetaSong &song, const SongInfo &info,
                                                  const QString &shortName) const
{
    SongsDbRecord record;
    if (!findRecord(info, shortName, record))
        return std::nullopt;
    SongInfo merged = withCatalogueData(info, record);
    song.setSongInfo(merged, false);
    return merged;
}

/** What knows() has found is not looked up again. */
bool CatalogueMerge::findByFileName(const QString &fileKey, SongsDbRecord &record) const
{
    const auto found = m_found.constFind(fileKey);
    if (found == m_found.constEnd())
        return m_database.getRecordByFilename(fileKey, record);
    record = *found;
    return true;
}

/** By file name, by the long name of an MFX header, by title: the first hit counts. */
bool CatalogueMerge::findRecord(const SongInfo &info, const QString &shortName,
                                SongsDbRecord &record) const
{
    const QString fileKey = withoutExtension(shortName.toUpper());
    const QString longNameKey = withoutExtension(info.mfxLongName.toUpper());
    const QString titleKey = info.title.toUpper();
    QString foundBy;
    if (findByFileName(fileKey, record))
        foundBy = QStringLiteral("FILENAME: ") + fileKey;
    else if (!longNameKey.isEmpty() && m_database.getRecordByFilename(longNameKey, record))
        foundBy = QStringLiteral("MFXLONGNAME: ") + longNameKey;
    else if (m_database.getRecordByTitle(titleKey, record))
        foundBy = QStringLiteral("TITLE: ") + titleKey;

    if (foundBy.isEmpty()) {
        logDebug() << "Record " << fileKey + QLatin1Char('/') + titleKey << "NOT found in DB";
        return false;
    }
    logDebug() << "Found in DB by: " << foundBy;
    record.dbgDump();
    return true;
}
