#include "devindex/playlistfiles.h"

#include "devindex/devicetext.h"
#include "devindex/indexfiles.h"
#include "devindex/indexrecords.h"
#include "devindex/pathfinder.h"
#include "devindex/pathorder.h"
#include "storage/diagnostics.h"
#include "storage/recordfile.h"
#include "storage/safefile.h"

#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <algorithm>

namespace
{

constexpr QLatin1String songsSuffix("dat");
constexpr QLatin1String pathsSuffix("pts");

/**
 * True for a regular file that is no symbolic link. Anything else could block for ever, and a link
 * could lead to a file outside the memory.
 */
bool isOwnFile(const QString &path)
{
    const QFileInfo file(path);
    return file.isFile() && !file.isSymLink();
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

/** Opens a file that may be write-protected; to write it, its protection is taken away. */
bool openForWriting(QFile &file)
{
    if (openExisting(file, QIODevice::ReadWrite))
        return true;
    return isOwnFile(file.fileName()) &&
           file.setPermissions(file.permissions() | QFile::ReadOwner | QFile::WriteOwner) &&
           openExisting(file, QIODevice::ReadWrite);
}

bool holds(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return openExisting(file, QIODevice::ReadOnly) && file.size() == bytes.size() &&
           file.read(bytes.size()) == bytes;
}

/** Gives the file these bytes, on the medium and by name; after a failure there is none. */
bool replace(const QString &path, const QByteArray &bytes)
{
    RecordWriter file(path);
    if (!file.open())
        return false;
    const bool written = file.append(bytes);
    if (file.close() && written && flushFolderOf(path))
        return true;
    QFile::remove(path); // a part of the file would be taken for the whole one
    return false;
}

/** Puts the id into the playlist's next record; false at the end or when the memory fails. */
bool replaceNextId(QFile &playlist, quint32 id)
{
    const qint64 start = playlist.pos();
    QByteArray record = playlist.read(PlaylistSongRecord::size);
    if (record.size() != PlaylistSongRecord::size)
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
    QFile list(m_root + QLatin1Char('/') + indexfiles::playlistList);
    if (!isOwnFile(list.fileName()))
        return Outcome::Nothing;
    if (!openExisting(list, QIODevice::ReadOnly)) {
        logWarning() << "[PlaylistFiles::readNumbers] Impossible to read" << list.fileName();
        return Outcome::Failed;
    }
    QSet<quint16> seen; // each number once, so at most 65,536 of them
    // Reads no more than the file's size: some files can be read for ever.
    for (qint64 left = list.size(); left >= PlaylistListRecord::size;
         left -= PlaylistListRecord::size) {
        const QByteArray record = list.read(PlaylistListRecord::size);
        if (record.size() != PlaylistListRecord::size)
            break;
        const quint16 number = PlaylistListRecord::number(record.constData());
        if (seen.contains(number))
            continue;
        seen.insert(number);
        numbers.append(number);
    }
    return Outcome::Done;
}

PlaylistFiles::Outcome PlaylistFiles::readIds(quint16 number, QList<quint32> &ids) const
{
    ids.clear();
    QFile playlist(fileName(number, songsSuffix));
    if (!isOwnFile(playlist.fileName()))
        return Outcome::Nothing;
    if (!openExisting(playlist, QIODevice::ReadOnly))
        return Outcome::Failed;
    for (int song = 0; song < SongInfoIndex::maxSongs; ++song) {
        const QByteArray record = playlist.read(PlaylistSongRecord::size);
        if (record.size() != PlaylistSongRecord::size)
            break;
        ids.append(PlaylistSongRecord::id(record.constData()));
    }
    return playlist.error() == QFile::NoError ? Outcome::Done : Outcome::Failed;
}

bool PlaylistFiles::needsPathFile(quint16 number) const
{
    return isOwnFile(fileName(number, songsSuffix)) && !isTaken(fileName(number, pathsSuffix));
}

PlaylistFiles::Outcome PlaylistFiles::savePaths(quint16 number,
                                                const QList<SongInfoIndex> &entries) const
{
    const QString listName = fileName(number, songsSuffix);
    const QString pathsName = fileName(number, pathsSuffix);
    if (!isOwnFile(listName) || !(!isTaken(pathsName) || isOwnFile(pathsName)))
        return Outcome::Nothing;
    QFile playlist(listName);
    if (openExisting(playlist, QIODevice::ReadOnly)) {
        const QByteArray bytes = pathsOf(playlist, entries);
        if (playlist.error() == QFile::NoError &&
            (holds(pathsName, bytes) || replace(pathsName, bytes)))
            return Outcome::Done;
    }
    logWarning() << "[PlaylistFiles::savePaths] Impossible to save the paths of" << listName;
    return Outcome::Failed;
}

QByteArray PlaylistFiles::pathsOf(QFile &playlist, const QList<SongInfoIndex> &entries)
{
    QByteArray paths;
    for (int song = 0; song < SongInfoIndex::maxSongs; ++song) {
        const QByteArray record = playlist.read(PlaylistSongRecord::size);
        if (record.size() != PlaylistSongRecord::size)
            break;
        const quint32 id = PlaylistSongRecord::id(record.constData());
        const auto path = PlaylistPathRecord::encode(pathOfId(entries, id));
        paths.append(path.data(), static_cast<qsizetype>(path.size()));
    }
    return paths;
}

PlaylistFiles::Outcome PlaylistFiles::allowWriting(quint16 number) const
{
    QFile playlist(fileName(number, songsSuffix));
    if (!isOwnFile(playlist.fileName()))
        return Outcome::Nothing;
    if (openForWriting(playlist))
        return Outcome::Done;
    logWarning() << "[PlaylistFiles::allowWriting] Impossible to write playlist"
                 << playlist.fileName();
    return Outcome::Failed;
}

QStringList PlaylistFiles::readPaths(quint16 number) const
{
    QStringList songs;
    QFile paths(fileName(number, pathsSuffix));
    if (!openExisting(paths, QIODevice::ReadOnly))
        return songs;
    for (int song = 0; song < SongInfoIndex::maxSongs; ++song) {
        const QByteArray record = paths.read(PlaylistPathRecord::size);
        if (record.size() != PlaylistPathRecord::size)
            break;
        songs.append(PlaylistPathRecord::decode(record.constData()));
    }
    return songs;
}

bool PlaylistFiles::writePaths(quint16 number, const QStringList &paths) const
{
    QByteArray bytes;
    for (const QString &path : paths) {
        const auto record = PlaylistPathRecord::encode(path);
        bytes.append(record.data(), static_cast<qsizetype>(record.size()));
    }
    const QString name = fileName(number, pathsSuffix);
    if (isOwnFile(name) && replace(name, bytes))
        return true;
    logWarning() << "[PlaylistFiles::writePaths] Impossible to save" << name;
    return false;
}

PlaylistFiles::Outcome PlaylistFiles::restoreIds(quint16 number, PathFinder &songs) const
{
    QFile paths(fileName(number, pathsSuffix));
    QFile playlist(fileName(number, songsSuffix));
    if (!isOwnFile(paths.fileName()) || !isOwnFile(playlist.fileName()))
        return Outcome::Nothing;
    if (openExisting(paths, QIODevice::ReadOnly) && openForWriting(playlist)) {
        writeIds(paths, songs, playlist);
        if (flushToMedium(playlist) && playlist.error() == QFile::NoError)
            return Outcome::Done;
    }
    logWarning() << "[PlaylistFiles::restoreIds] Impossible to write playlist"
                 << playlist.fileName();
    return Outcome::Failed;
}

PlaylistFiles::Outcome PlaylistFiles::mendIds(quint16 number, const QSet<quint32> &known,
                                              PathFinder &songs, int &mended) const
{
    QList<quint32> ids;
    const Outcome read = readIds(number, ids);
    if (read != Outcome::Done)
        return read;
    QFile paths(fileName(number, pathsSuffix));
    if (!openExisting(paths, QIODevice::ReadOnly) ||
        paths.size() != ids.size() * PlaylistPathRecord::size)
        return Outcome::Nothing;
    QFile playlist(fileName(number, songsSuffix));
    int written = 0;
    for (qsizetype song = 0; song < ids.size(); ++song) {
        if (known.contains(ids.at(song)))
            continue;
        QByteArray record;
        if (paths.seek(song * PlaylistPathRecord::size))
            record = paths.read(PlaylistPathRecord::size);
        if (record.size() != PlaylistPathRecord::size)
            return Outcome::Failed;
        const SongInfoIndex *const entry =
            songs.find(PlaylistPathRecord::decode(record.constData()));
        if (entry == nullptr)
            continue;
        if ((!playlist.isOpen() && !openForWriting(playlist)) ||
            !playlist.seek(song * PlaylistSongRecord::size) || !replaceNextId(playlist, entry->id))
            return Outcome::Failed;
        ++written;
    }
    if (written > 0 && (!flushToMedium(playlist) || playlist.error() != QFile::NoError))
        return Outcome::Failed;
    mended += written;
    return Outcome::Done;
}

void PlaylistFiles::writeIds(QFile &paths, PathFinder &songs, QFile &playlist)
{
    for (int song = 0; song < SongInfoIndex::maxSongs; ++song) {
        const QByteArray record = paths.read(PlaylistPathRecord::size);
        if (record.size() != PlaylistPathRecord::size)
            return;
        const QString path = PlaylistPathRecord::decode(record.constData());
        const SongInfoIndex *const entry = songs.find(path);
        if (entry != nullptr && !replaceNextId(playlist, entry->id))
            return;
    }
}

QString PlaylistFiles::fileName(quint16 number, QLatin1String suffix) const
{
    return m_root + QLatin1Char('/') + nameBelowRoot(number, suffix);
}

QString PlaylistFiles::nameBelowRoot(quint16 number, QLatin1String suffix)
{
    return QStringLiteral("%1/play%2.%3")
        .arg(indexfiles::playlistFolder)
        .arg(number, 4, 10, QLatin1Char('0'))
        .arg(suffix);
}

QString PlaylistFiles::songsName(quint16 number)
{
    return nameBelowRoot(number, songsSuffix);
}
