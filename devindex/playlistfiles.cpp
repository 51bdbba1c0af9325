#include "devindex/playlistfiles.h"

#include "devindex/devicetext.h"
#include "devindex/indexfiles.h"
#include "devindex/indexrecords.h"
#include "devindex/pathorder.h"
#include "devindex/recordfile.h"
#include "formats/diagnostics.h"
#include "formats/safefile.h"

#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <algorithm>

namespace
{

constexpr QLatin1String SongsSuffix("dat");
constexpr QLatin1String PathsSuffix("pts");

/**
 * True for a regular file, which never blocks for ever, that lies here itself: a link could lead
 * what is written to a file outside the memory.
 */
bool isOwnFile(const QString &path)
{
    const QFileInfo file(path);
    return file.isFile() && !file.isSymLink();
}

/** True for a path at which nothing lies, not even a link that leads nowhere. */
bool isFree(const QString &path)
{
    const QFileInfo file(path);
    return !file.exists() && !file.isSymLink();
}

bool openExisting(QFile &file, QIODevice::OpenMode mode)
{
    return isOwnFile(file.fileName()) && file.open(mode | QIODevice::ExistingOnly);
}

QString pathOfId(const QList<SongInfoIndex> &entries, quint32 id)
{
    SongInfoIndex wanted;
    wanted.id = id;
    const auto found = std::lower_bound(entries.cbegin(), entries.cend(), wanted, compareById);
    return found != entries.cend() && found->id == id ? found->path : QString();
}

/** The entry with this path, or the first that the player takes for the same; null if none. */
const SongInfoIndex *entryOfPath(PathOrder &entries, const QString &path)
{
    const QByteArray key = pathSortKey(path);
    const SongInfoIndex *found = nullptr;
    for (qsizetype place = placeBehind(entries, key) - 1; place >= 0 && entries.keyAt(place) == key;
         --place) {
        found = &entries.entryAt(place);
        if (found->path.compare(path, Qt::CaseInsensitive) == 0)
            break;
    }
    return found;
}

/** Puts the id into the playlist's next record; false at the end or when the memory fails. */
bool replaceNextId(QFile &playlist, quint32 id)
{
    const qint64 start = playlist.pos();
    QByteArray record = playlist.read(PlaylistSongRecord::Size);
    if (record.size() != PlaylistSongRecord::Size)
        return false;
    PlaylistSongRecord::setId(record.data(), id);
    return playlist.seek(start) && playlist.write(record) == record.size();
}

} // namespace

PlaylistFiles::PlaylistFiles(const QString &root)
    : m_root(root)
{
}

PlaylistFiles::Outcome PlaylistFiles::readNumbers(QList<quint16> &numbers) const
{
    numbers.clear();
    QFile list(m_root + QLatin1Char('/') + indexfiles::PlaylistList);
    if (!isOwnFile(list.fileName()))
        return Outcome::Nothing;
    if (!openExisting(list, QIODevice::ReadOnly)) {
        logWarning() << "[PlaylistFiles::readNumbers] Impossible to read" << list.fileName();
        return Outcome::Failed;
    }
    QSet<quint16> seen; // a list is trusted to hold no more numbers than there can be
    while (true) {
        const QByteArray record = list.read(PlaylistListRecord::Size);
        if (record.size() != PlaylistListRecord::Size)
            return Outcome::Done;
        const quint16 number = PlaylistListRecord::number(record.constData());
        if (seen.contains(number))
            continue;
        seen.insert(number);
        numbers.append(number);
    }
}

bool PlaylistFiles::needsPathFile(quint16 number) const
{
    return isOwnFile(fileName(number, SongsSuffix)) && isFree(fileName(number, PathsSuffix));
}

PlaylistFiles::Outcome PlaylistFiles::savePaths(quint16 number,
                                                const QList<SongInfoIndex> &entries) const
{
    const QString songsName = fileName(number, SongsSuffix);
    const QString pathsName = fileName(number, PathsSuffix);
    if (!isOwnFile(songsName) || !(isFree(pathsName) || isOwnFile(pathsName)))
        return Outcome::Nothing;
    QFile playlist(songsName);
    RecordWriter paths(pathsName);
    if (openExisting(playlist, QIODevice::ReadOnly) && paths.open()) {
        const bool written = writePaths(playlist, entries, paths);
        if (paths.close() && written && flushFolderOf(pathsName))
            return Outcome::Done;
        QFile::remove(pathsName); // a part of the playlist would pass for all of it
    }
    logWarning() << "[PlaylistFiles::savePaths] Impossible to save the paths of" << songsName;
    return Outcome::Failed;
}

bool PlaylistFiles::writePaths(QFile &playlist, const QList<SongInfoIndex> &entries,
                               RecordWriter &paths)
{
    for (int song = 0; song < SongInfoIndex::MaxSongs; ++song) {
        const QByteArray record = playlist.read(PlaylistSongRecord::Size);
        if (record.size() != PlaylistSongRecord::Size)
            break;
        const quint32 id = PlaylistSongRecord::id(record.constData());
        if (!paths.append(PlaylistPathRecord::encode(pathOfId(entries, id))))
            return false;
    }
    return true;
}

PlaylistFiles::Outcome PlaylistFiles::restoreIds(quint16 number, PathOrder &entries) const
{
    QFile paths(fileName(number, PathsSuffix));
    QFile playlist(fileName(number, SongsSuffix));
    if (!isOwnFile(paths.fileName()) || !isOwnFile(playlist.fileName()))
        return Outcome::Nothing;
    if (openExisting(paths, QIODevice::ReadOnly) && openExisting(playlist, QIODevice::ReadWrite)) {
        writeIds(paths, entries, playlist);
        if (flushToMedium(playlist) && playlist.error() == QFile::NoError)
            return Outcome::Done;
    }
    logWarning() << "[PlaylistFiles::restoreIds] Impossible to write playlist"
                 << playlist.fileName();
    return Outcome::Failed;
}

void PlaylistFiles::writeIds(QFile &paths, PathOrder &entries, QFile &playlist)
{
    for (int song = 0; song < SongInfoIndex::MaxSongs; ++song) {
        const QByteArray record = paths.read(PlaylistPathRecord::Size);
        if (record.size() != PlaylistPathRecord::Size)
            return;
        const QString path = PlaylistPathRecord::decode(record.constData());
        const SongInfoIndex *const entry = entryOfPath(entries, path);
        if (entry != nullptr && !replaceNextId(playlist, entry->id))
            return;
    }
}

QString PlaylistFiles::fileName(quint16 number, QLatin1String suffix) const
{
    return QStringLiteral("%1/%2/play%3.%4")
        .arg(m_root, indexfiles::PlaylistFolder)
        .arg(number, 4, 10, QLatin1Char('0'))
        .arg(suffix);
}
