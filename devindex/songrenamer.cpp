#include "devindex/songrenamer.h"

#include "devindex/companion.h"
#include "formats/diagnostics.h"
#include "formats/songfilewriter.h"
#include "formats/songjournal.h"

#include <QDir>
#include <QFileInfo>

namespace
{

bool renameItem(const QString &path, const QString &newPath)
{
    if (QDir().rename(path, newPath))
        return true;
    logWarning() << "[Index::renameLongFileName] Impossible to rename" << path;
    return false;
}

/** True when no journal is left that would have to go with the song. */
bool isWithoutJournal(const QString &song)
{
    if (!SongFileWriter::recover(song))
        return false;
    const QFileInfo journal(SongJournal(song).path());
    return !journal.isFile() || journal.isSymLink();
}

} // namespace

songrenamer::Outcome songrenamer::rename(const QString &path, const QString &newPath)
{
    const QFileInfo item(path);
    // The journal of a link's song lies beside the song, which keeps its name.
    if (item.isFile() && !item.isSymLink() && !isWithoutJournal(path))
        return Outcome::Unfinished;
    const QString companion = item.isFile() ? companionOf(path) : QString();
    if (!renameItem(path, newPath))
        return Outcome::Failed;
    // The player finds a song's karaoke pictures by the song's name.
    if (companion.isEmpty() || renameItem(companion, companionTarget(companion, newPath)))
        return Outcome::Renamed;
    return renameItem(newPath, path) ? Outcome::Failed : Outcome::Renamed;
}

bool songrenamer::liesOutside(const QString &root, const QString &path)
{
    const QString memory = QFileInfo(root).canonicalFilePath();
    const QString folder = QFileInfo(QFileInfo(path).path()).canonicalFilePath();
    const QString below = memory.endsWith(QLatin1Char('/')) ? memory : memory + QLatin1Char('/');
    return !folder.isEmpty() && folder != memory && !folder.startsWith(below);
}
