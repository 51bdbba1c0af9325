#include "devindex/severalrenames.h"

#include "devindex/devicetext.h"
#include "devindex/namekey.h"
#include "library/companion.h"
#include "storage/devicenames.h"
#include "storage/safefile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace
{

/** Longer names do not fit every file system; some room is left for numbers and suffixes. */
constexpr qsizetype maxNameBytes = 200;

QString nameInFolder(const QString &path)
{
    return path.mid(path.lastIndexOf(QLatin1Char('/')) + 1);
}

QString dottedSuffixOf(const QString &path)
{
    const QString name = nameInFolder(path);
    const qsizetype dot = name.lastIndexOf(QLatin1Char('.'));
    return dot < 0 ? QString() : name.mid(dot);
}

bool isForbiddenInNames(QChar character)
{
    return character.category() == QChar::Other_Control ||
           QStringLiteral("\"*/:<>?\\|").contains(character);
}

} // namespace

SeveralRenames::SeveralRenames(const QList<SongInfo> &songs)
{
    m_songs.reserve(static_cast<size_t>(songs.size()));
    for (const SongInfo &song : songs)
        m_songs.push_back({song, {}, {}});
}

QString SeveralRenames::cleaned(const QString &text)
{
    QString base = text;
    for (QChar &character : base) {
        if (isForbiddenInNames(character))
            character = QLatin1Char('-');
    }
    base = base.simplified();
    while (QFile::encodeName(base).size() > maxNameBytes)
        base.chop(base.size() > 1 && base.back().isLowSurrogate() ? 2 : 1);
    const auto isEdge = [](QChar character) {
        return character == QLatin1Char('.') || character == QLatin1Char(' ');
    };
    while (!base.isEmpty() && isEdge(base.back()))
        base.chop(1);
    while (!base.isEmpty() && isEdge(base.front()))
        base.remove(0, 1);
    return devicenames::isDevice(base) ? base + QLatin1Char('_') : base;
}

void SeveralRenames::setPattern(const QString &pattern, bool isShort)
{
    m_folders.clear();
    m_shortNames = ShortNames();
    m_renamed = 0;
    m_unfit = 0;
    m_problem = NamePattern::problemOf(pattern, NamePattern::Use::MakeNames);
    const auto parsed = NamePattern::parse(pattern, NamePattern::Use::MakeNames);
    QSet<QString> seen;
    for (SeveralRename &song : m_songs) {
        song.newPath.clear();
        song.reason.clear();
        if (!parsed || seen.contains(song.info.fileName))
            continue;
        seen.insert(song.info.fileName);
        findName(song, *parsed, isShort);
        m_renamed += song.isRenamed() ? 1 : 0;
        m_unfit += song.reason.isEmpty() ? 0 : 1;
    }
}

void SeveralRenames::findName(SeveralRename &song, const NamePattern &pattern, bool isShort)
{
    const QString &path = song.info.fileName;
    const std::optional<QString> made = pattern.make(song.info, path);
    if (!made) {
        song.reason = tr("alla song manca un dato del modello");
        return;
    }
    // The player's index and playlists know its songs by their names.
    if (!m_volumes.memoryOf(path).isEmpty()) {
        song.reason = tr("è in una memoria: si rinomina nella finestra della memoria");
        return;
    }
    const QString base = cleaned(*made);
    if (base.isEmpty()) {
        song.reason = tr("il nome sarebbe vuoto");
        return;
    }
    const QString newPath = isShort ? shortName(path, base, song.reason) : freeName(path, base);
    if (newPath.isEmpty() && song.reason.isEmpty())
        song.reason = tr("non c'è un nome libero");
    if (newPath.isEmpty() || newPath == path)
        return;
    // Where letter case does not count, the new name is the file's own already.
    if (nameKey(newPath) == nameKey(path) && isTaken(newPath)) {
        song.reason = tr("qui il nome cambierebbe solo nelle maiuscole");
        return;
    }
    Folder &folder = folderOf(path);
    folder.names.insert(nameKey(nameInFolder(newPath)));
    const QStringList pictures = companionPaths(newPath);
    for (const QString &file : pictures)
        folder.names.insert(nameKey(nameInFolder(file)));
    song.newPath = newPath;
}

SeveralRenames::Folder &SeveralRenames::folderOf(const QString &path)
{
    const QString name = QFileInfo(path).path();
    const auto known = m_folders.find(name);
    if (known != m_folders.end())
        return *known;
    Folder folder;
    const QStringList entries =
        QDir(name).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    folder.names.reserve(entries.size());
    for (const QString &entry : entries)
        folder.names.insert(nameKey(entry));
    return *m_folders.insert(name, folder);
}

/** True when neither a file has the name nor the song would come to lie beside foreign pictures. */
bool SeveralRenames::isFree(const QString &path, const QString &newPath)
{
    const Folder &folder = folderOf(path);
    const auto isOthers = [&](const QString &name, const QString &own) {
        return nameKey(name) != nameKey(own) && folder.names.contains(nameKey(name));
    };
    const QString companion = nameInFolder(companionOf(path));
    const QStringList pictures = companionPaths(newPath);
    return !isOthers(nameInFolder(newPath), nameInFolder(path)) &&
           std::none_of(pictures.cbegin(), pictures.cend(), [&](const QString &file) {
               return isOthers(nameInFolder(file), companion);
           });
}

/** The path with the base for its name, and with a number where that is taken; empty for none. */
QString SeveralRenames::freeName(const QString &path, const QString &base)
{
    constexpr int maxNumber = 9999;
    const QString start = path.left(path.lastIndexOf(QLatin1Char('/')) + 1) + base;
    const QString suffix = dottedSuffixOf(path);
    if (isFree(path, start + suffix))
        return start + suffix;
    // Where many songs want one name, the numbers that are given away are not tried again.
    int &count = folderOf(path).counts[nameKey(base + suffix)];
    for (count = std::max(count, 1); count < maxNumber;) {
        ++count;
        QString numbered = start + QStringLiteral(" (%1)").arg(count) + suffix;
        if (isFree(path, numbered))
            return numbered;
    }
    return {};
}

/** Likewise, with a name that the player can show. */
QString SeveralRenames::shortName(const QString &path, const QString &base, QString &reason)
{
    if (textFromIbm850(ibm850FromText(base)) != base) {
        reason = tr("il player non ha uno dei caratteri");
        return {};
    }
    QString wanted =
        path.left(path.lastIndexOf(QLatin1Char('/')) + 1) + base + dottedSuffixOf(path);
    if (isShortName(wanted) && isFree(path, wanted))
        return wanted;
    // It may have the short name of the wanted one already.
    const QString ownKey = shortNameKey(nameInFolder(path));
    if (!ownKey.isEmpty() && keysOfShortNames(nameInFolder(wanted)).contains(ownKey))
        return path;
    QString candidate = m_shortNames.candidateForSong(wanted);
    while (!candidate.isEmpty() && !isFree(path, candidate)) {
        m_shortNames.keepFree(candidate);
        candidate = m_shortNames.candidateForSong(wanted);
    }
    if (!candidate.isEmpty())
        m_shortNames.keepFree(candidate);
    return candidate;
}
