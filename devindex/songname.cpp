#include "devindex/songname.h"

#include "devindex/devicetext.h"
#include "devindex/indexrecords.h"
#include "library/companion.h"
#include "storage/devicenames.h"

#include <QDir>
#include <QFileInfo>
#include <QStringList>

#include <algorithm>

namespace
{

const QString forbiddenCharacters = QStringLiteral("\"*/:<>?\\|");

bool isForbidden(QChar character)
{
    return character.unicode() < 0x20 || character.unicode() == 0x7F ||
           forbiddenCharacters.contains(character);
}

/** True when an entry of the folder, but for those named, has the name in any letter case. */
bool isTakenIn(const QString &folder, const QString &name, const QStringList &butFor)
{
    const QStringList entries =
        QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System);
    return std::any_of(entries.cbegin(), entries.cend(), [&](const QString &entry) {
        return entry.compare(name, Qt::CaseInsensitive) == 0 && !butFor.contains(entry);
    });
}

} // namespace

QString SongName::whyNot(const QString &root, const QString &path, const QString &newName)
{
    const QFileInfo song(root + path);
    const QFileInfo renamed(song.path() + QLatin1Char('/') + newName);
    if (renamed.suffix().compare(song.suffix(), Qt::CaseInsensitive) != 0)
        return tr("il nome deve finire con .%1").arg(song.suffix());
    QString problem = whyNotWritten(newName.chopped(renamed.suffix().size() + 1));
    if (!problem.isEmpty())
        return problem;
    const QString folder = path.left(path.lastIndexOf(QLatin1Char('/')) + 1);
    if (folder.size() + newName.size() > PathRecord::maxPathLength)
        return tr("con la cartella il nome supera %1 caratteri").arg(PathRecord::maxPathLength);
    if (newName == song.fileName())
        return tr("è il nome che ha già");
    // A file system without letter case would take the new name for the old file.
    if (isTakenIn(song.path(), newName, {}))
        return tr("un altro file ha già questo nome");
    const QStringList pictures = companionPaths(renamed.filePath());
    const bool takesPictures =
        std::any_of(pictures.cbegin(), pictures.cend(), [&](const QString &file) {
            return isTakenIn(song.path(), QFileInfo(file).fileName(), {});
        });
    return takesPictures ? tr("ci sono già immagini karaoke con questo nome") : QString();
}

/** Of the name in front of the suffix. */
QString SongName::whyNotWritten(const QString &base)
{
    if (base.trimmed().isEmpty())
        return tr("il nome è vuoto");
    if (base.size() > maxLength)
        return tr("il nome supera %1 caratteri").arg(maxLength);
    if (std::any_of(base.cbegin(), base.cend(), isForbidden))
        return tr("questi caratteri non sono permessi: %1").arg(forbiddenCharacters);
    if (textFromIbm850(ibm850FromText(base)) != base)
        return tr("il player non ha uno dei caratteri");
    if (base.startsWith(QLatin1Char('.')) || base.startsWith(QLatin1Char(' ')) ||
        base.endsWith(QLatin1Char('.')) || base.endsWith(QLatin1Char(' ')))
        return tr("il nome non può iniziare o finire con un punto o uno spazio");
    return devicenames::isDevice(base) ? tr("questo nome è riservato dai computer") : QString();
}
