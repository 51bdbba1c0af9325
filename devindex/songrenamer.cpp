#include "devindex/songrenamer.h"

#include "devindex/companion.h"
#include "storage/diagnostics.h"
#include "storage/safefile.h"
#include "storage/songfilewriter.h"
#include "storage/songjournal.h"

#include <QFileInfo>

namespace
{

/** Never by copying, as Qt does after a failure. */
bool renameItem(const QString &path, const QString &newPath)
{
    if (!isTaken(newPath) && renameOver(path, newPath))
        return true;
    logWarning() << "[Index::renameLongFileName] Impossible to rename" << path;
    return false;
}

/**
 * The items themselves before their folder: on FAT their new entries would else lead nowhere. Both
 * lie in one folder; the second may be none.
 */
bool flushRenamed(const QString &path, const QString &other)
{
    const bool items = flushPath(path) && (other.isEmpty() || flushPath(other));
    if (flushFolderOf(path) && items)
        return true;
    logWarning() << "[Index::renameLongFileName] Impossible to flush" << path;
    return false;
}

/** True when no journal is left that would have to go with the song. */
bool isWithoutJournal(const QString &song)
{
    if (!SongFileWriter::recover(song))
        return false;
    for (int number = 0; number < SongJournal::Names; ++number) {
        const QFileInfo journal(SongJournal(song, number).path());
        if (journal.isFile() && !journal.isSymLink())
            return false;
    }
    return true;
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
    const QString pictures = companion.isEmpty() ? QString() : companionTarget(companion, newPath);
    const bool together = companion.isEmpty() || renameItem(companion, pictures);
    if (!together && renameItem(newPath, path))
        return Outcome::Failed;
    return flushRenamed(newPath, together ? pictures : QString()) ? Outcome::Renamed
                                                                  : Outcome::Unsure;
}

bool songrenamer::liesOutside(const QString &root, const QString &path)
{
    const QString memory = QFileInfo(root).canonicalFilePath();
    const QString folder = QFileInfo(QFileInfo(path).path()).canonicalFilePath();
    const QString below = memory.endsWith(QLatin1Char('/')) ? memory : memory + QLatin1Char('/');
    return !folder.isEmpty() && folder != memory && !folder.startsWith(below);
}
