#include "devindex/songrenamer.h"

#include "library/companion.h"
#include "storage/diagnostics.h"
#include "storage/safefile.h"
#include "storage/songfilewriter.h"
#include "storage/songjournal.h"

#include <QFileInfo>
#include <QStringList>

namespace
{

/** Renames without copying, which Qt does when a rename fails. */
bool renameItem(const QString &path, const QString &newPath)
{
    if (!isTaken(newPath) && renameOver(path, newPath))
        return true;
    logWarning() << "[Index::renameLongFileName] Impossible to rename" << path;
    return false;
}

/** Each item is flushed before the folder: on FAT its new entry could otherwise lead nowhere. */
bool flushRenamed(const QStringList &paths)
{
    bool flushed = true;
    for (const QString &path : paths)
        flushed = flushPath(path) && flushed;
    if (flushFolderOf(paths.constFirst()) && flushed)
        return true;
    logWarning() << "[Index::renameLongFileName] Impossible to flush" << paths.constFirst();
    return false;
}

/** True when no journal is left that would have to go with the song. */
bool isWithoutJournal(const QString &song)
{
    if (!SongFileWriter::recover(song))
        return false;
    for (int number = 0; number < SongJournal::maxNames; ++number) {
        const QFileInfo journal(SongJournal(song, number).path());
        if (journal.isFile() && !journal.isSymLink())
            return false;
    }
    return true;
}

} // namespace

songrenamer::Result songrenamer::rename(const QString &path, const QString &newPath)
{
    const QFileInfo item(path);
    // The journal of a link's song lies beside the song, which keeps its name.
    if (item.isFile() && !item.isSymLink() && !isWithoutJournal(path))
        return {Outcome::Unfinished};
    const QString companion = item.isFile() ? companionOf(path) : QString();
    if (!renameItem(path, newPath))
        return {Outcome::Failed};
    // The player finds a song's karaoke pictures by the song's name.
    const QString pictures = companion.isEmpty() ? QString() : companionTarget(companion, newPath);
    const bool together = companion.isEmpty() || renameItem(companion, pictures);
    if (!together && renameItem(newPath, path))
        return {Outcome::Failed, flushRenamed({path})};
    QStringList renamed{newPath};
    if (!companion.isEmpty() && together)
        renamed.append(pictures);
    return {Outcome::Renamed, flushRenamed(renamed)};
}

bool songrenamer::liesOutside(const QString &root, const QString &path)
{
    const QString memory = QFileInfo(root).canonicalFilePath();
    const QString folder = QFileInfo(QFileInfo(path).path()).canonicalFilePath();
    const QString below = memory.endsWith(QLatin1Char('/')) ? memory : memory + QLatin1Char('/');
    return !folder.isEmpty() && folder != memory && !folder.startsWith(below);
}
