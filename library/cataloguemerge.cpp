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

CatalogueMerge::CatalogueMerge(const Database &database, const QString &ownCatalogue)
    : m_database(database)
{
    OwnCatalogue own(ownCatalogue);
    if (own.open() == OwnCatalogue::State::Ready)
        m_own = OwnEntries(own);
    m_problem = own.problem();
}

QString CatalogueMerge::fileKey(const QString &shortName)
{
    return withoutExtension(shortName.toUpper());
}

bool CatalogueMerge::knows(const QString &title, const QString &shortName) const
{
    SongsDbRecord record;
    if (m_own.byFilename(fileKey(shortName)) != nullptr || m_own.byTitle(title) != nullptr)
        return true;
    const QString key = fileKey(shortName);
    if (!m_database.getRecordByFilename(key, record))
        return !title.isEmpty() && m_database.getRecordByTitle(title.toUpper(), record);
    if (m_found.size() >= mostFound)
        m_found.clear();
    m_found.insert(key, record);
    return true;
}

std::optional<CatalogueMerge::Merged>
CatalogueMerge::mergeInto(MetaSong &song, const SongInfo &info, const QString &shortName) const
{
    SongsDbRecord record;
    const auto source = findRecord(info, shortName, record);
    if (!source)
        return std::nullopt;
    SongInfo merged = withCatalogueData(info, record);
    song.setSongInfo(merged, false);
    return Merged{merged, *source};
}

/** By the same keys, in the same order, as the built-in catalogue is asked. */
const SongsDbRecord *CatalogueMerge::findOwn(const SongInfo &info, const QString &shortName) const
{
    if (m_own.isEmpty())
        return nullptr;
    if (const auto *const found = m_own.byFilename(fileKey(shortName)))
        return found;
    if (const auto *const found = m_own.byFilename(fileKey(info.mfxLongName)))
        return found;
    return m_own.byTitle(info.title);
}

/** What knows() has found is not looked up again. */
bool CatalogueMerge::findByFileName(const QString &key, SongsDbRecord &record) const
{
    const auto found = m_found.constFind(key);
    if (found == m_found.constEnd())
        return m_database.getRecordByFilename(key, record);
    record = *found;
    return true;
}

/** By file name, by the long name of an MFX header, by title: the first hit counts. */
std::optional<CatalogueSource> CatalogueMerge::findRecord(const SongInfo &info,
                                                          const QString &shortName,
                                                          SongsDbRecord &record) const
{
    if (const SongsDbRecord *const own = findOwn(info, shortName)) {
        logDebug() << "Found in the user's own catalogue: " << own->filename;
        record = *own;
        record.dbgDump();
        return CatalogueSource::Own;
    }
    const QString shortNameKey = fileKey(shortName);
    const QString longNameKey = fileKey(info.mfxLongName);
    const QString titleKey = info.title.toUpper();
    QString foundBy;
    if (findByFileName(shortNameKey, record))
        foundBy = QStringLiteral("FILENAME: ") + shortNameKey;
    else if (!longNameKey.isEmpty() && m_database.getRecordByFilename(longNameKey, record))
        foundBy = QStringLiteral("MFXLONGNAME: ") + longNameKey;
    else if (m_database.getRecordByTitle(titleKey, record))
        foundBy = QStringLiteral("TITLE: ") + titleKey;

    if (foundBy.isEmpty()) {
        logDebug() << "Record " << shortNameKey + QLatin1Char('/') + titleKey << "NOT found in DB";
        return std::nullopt;
    }
    logDebug() << "Found in DB by: " << foundBy;
    record.dbgDump();
    return m_own.isEmpty() ? CatalogueSource::Only : CatalogueSource::BuiltIn;
}
