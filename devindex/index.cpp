#include "devindex/index.h"

#include "devindex/devicetext.h"
#include "devindex/entrymatcher.h"
#include "devindex/entrysort.h"
#include "devindex/filestamp.h"
#include "devindex/folderrules.h"
#include "devindex/indexfiles.h"
#include "devindex/indexloader.h"
#include "devindex/indexwriter.h"
#include "devindex/pathfinder.h"
#include "devindex/pathorder.h"
#include "devindex/playlistfiles.h"
#include "devindex/playlistkeeper.h"
#include "devindex/songhead.h"
#include "devindex/songrenamer.h"
#include "formats/songnames.h"
#include "storage/diagnostics.h"
#include "storage/recordfile.h"
#include "storage/safefile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QVarLengthArray>

#include <algorithm>
#include <array>
#include <optional>

namespace
{

constexpr quint32 NoIdLoaded = 0xFFFFFFFF;

/** False for a path that no scan can have given: the file would lie outside the memory. */
bool isMemoryPath(const QString &path)
{
    return path.startsWith(QLatin1Char('/')) && path.size() <= PathRecord::MaxPathLength &&
           !path.contains(QLatin1String("/../")) && !path.endsWith(QLatin1String("/.."));
}

/** Reads what the index shows of a song whose file is known to be a regular one. */
bool readSong(SongInfoIndex &entry)
{
    return readSongHead(songHeadOf(entry.fullPath), entry.fullPath, entry);
}

/** Removes a file; true when it is not there any more. */
bool removeFile(const QString &path)
{
    return QFile::remove(path) || !QFileInfo::exists(path);
}

/** A line of the list of songs: each field closed by ";", without quotes, in UTF-8. */
QByteArray listLine(const std::array<QStringView, 4> &fields)
{
    QVarLengthArray<QChar, 256> line;
    for (const QStringView field : fields) {
        line.append(field.data(), field.size());
        line.append(QLatin1Char(';'));
    }
    line.append(QLatin1Char('\n'));
    return QStringView(line).toUtf8();
}

} // namespace

/** One walk through the folders of a memory. */
struct Index::Scan {
    QSet<QString> active; ///< folders being scanned, by canonical path
    QSet<QString> linked; ///< folders that were entered through a symbolic link
    QStringList songs;    ///< absolute paths, in the order in which they were found
};

void Index::setRenameQuestion(RenameQuestion question)
{
    m_renameQuestion = std::move(question);
}

bool Index::createIndex(const QString &root)
{
    if (!begin(root))
        return false;
    restorePlaylists = createPlaylistFilePath() ? 1 : 0;
    if (m_playlistsFailed || !keepPlaylists())
        return false; // their songs would be lost with the ids of this index
    maxLoadedId = NoIdLoaded;
    nextId = 0;
    nextPosidx = 0;
    entries.clear();

    deleteIndex();
    createPathIndex();
    createKavenaDir();
    return hasWholeIndex();
}

bool Index::updateIndex(const QString &root)
{
    if (!begin(root))
        return false;
    if (!checkIndexFile())
        return createIndex(root);
    maxLoadedId = 0;
    nextId = 0;
    nextPosidx = 0;
    restorePlaylists = createPlaylistFilePath() ? 1 : 0;
    if (m_playlistsFailed)
        return false;
    if (restorePlaylists != 0) {
        // Every song is entered anew, with an id that was never used before; the playlists are
        // pointed at the new ids by path.
        if (!keepPlaylists())
            return false;
        entries.clear();
        nextPosidx = 0;
    } else {
        playlistNumbers.clear();
        if (loadAllIndexFile() < 0)
            return false;
    }
    nextId = maxLoadedId + 1;

    createPathIndex();
    createKavenaDir();
    return hasWholeIndex();
}

bool Index::begin(const QString &root)
{
    QString path = root;
    if (path.endsWith(QLatin1Char('/')) || path.endsWith(QLatin1Char('\\')))
        path.chop(1);
    if (path.isEmpty())
        return false; // it would stand for the working directory
    rootPath = QDir::cleanPath(QDir(path).absolutePath());
    filesFound = 0;
    counts.values.fill(0);
    indexChanged = 0;
    m_buildFailed = false;
    m_playlistsFailed = false;
    m_renamesUnsure = false;
    return true;
}

bool Index::hasWholeIndex() const
{
    return !m_buildFailed && !m_playlistsFailed && !m_renamesUnsure && checkIndexFile();
}

QString Index::filePath(const QString &name) const
{
    return rootPath + QLatin1Char('/') + name;
}

bool Index::checkIndexFile() const
{
    return std::all_of(indexfiles::All.begin(), indexfiles::All.end(),
                       [this](QLatin1String name) { return QFileInfo(filePath(name)).isFile(); });
}

void Index::deleteIndex()
{
    logDebug() << "delete index";
    if (!removeCounts())
        logWarning() << "[Index::deleteIndex] Impossible to remove the counts in" << rootPath;
    for (const QLatin1String name : indexfiles::All)
        QFile::remove(filePath(name));
    for (const QLatin1String name : indexfiles::Temporary)
        QFile::remove(filePath(name));
}

void Index::createKavenaDir()
{
    const QDir root(rootPath);
    for (const QLatin1String name : {indexfiles::EffectsFolder, indexfiles::BridgeFolder}) {
        if (!root.exists(name))
            makeFolder(filePath(name));
    }
}

// The scan ---------------------------------------------------------------------------------------

void Index::scan_files(const QString &dir)
{
    Scan scan;
    scanFolder(dir, false, scan);
    entrymatcher::nameUnclearEntries(entries, scan.songs, rootPath.size());
    PathOrder order(entries);
    for (const QString &song : std::as_const(scan.songs))
        addFile(song, order);
    order.apply();
}

void Index::scanFolder(const QString &dir, bool throughLink, Scan &scan)
{
    if (scan.active.contains(QFileInfo(dir).canonicalFilePath()))
        return;
    const QString folder = renameLongFileName(dir);
    if (folder.isEmpty())
        return;
    const QString canonical = QFileInfo(folder).canonicalFilePath();
    if (throughLink) {
        // Links that lead to each other's folders have more ways through them than can be walked.
        if (scan.linked.contains(canonical))
            return;
        scan.linked.insert(canonical);
    }

    scan.active.insert(canonical);
    const QFileInfoList items = QDir(folder).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot,
                                                           QDir::Name | QDir::IgnoreCase);
    for (const QFileInfo &item : items) {
        if (!item.isDir())
            scanFile(item, scan);
        else if (!isPlayerFolder(item.fileName()) && !isSystemFolder(item.fileName()))
            scanFolder(item.absoluteFilePath(), throughLink || item.isSymLink(), scan);
    }
    scan.active.remove(canonical);
}

void Index::scanFile(const QFileInfo &file, Scan &scan)
{
    emit currentPathChanged(file.filePath());
    if (!checkFileExt(file.suffix()))
        return;
    if (file.isSymLink() && !file.isFile())
        return; // a pipe or device at the link's other end could be read for ever
    const QString song = renameLongFileName(file.absoluteFilePath());
    if (song.isEmpty())
        return;
    scan.songs.append(song);
    ++filesFound;
    emit fileFoundChanged(static_cast<int>(filesFound));
}

bool Index::checkFileExt(const QString &suffix) const
{
    return songnames::isSongSuffix(suffix);
}

QString Index::renameLongFileName(const QString &path)
{
    if (path.compare(rootPath, Qt::CaseInsensitive) == 0)
        return path;
    if (isShortName(path) || songrenamer::liesOutside(rootPath, path))
        return path;
    QString candidate = m_shortNames.candidateFor(QFileInfo(path));
    if (candidate.isEmpty())
        return {};
    if (!askForRename(path, candidate))
        return path;
    const songrenamer::Result renamed = songrenamer::rename(path, candidate);
    if (renamed.outcome == songrenamer::Outcome::Unfinished) {
        emit errorFromIndex(
            tr("File non rinominato, l'ultimo salvataggio non è stato completato: ") + path);
        return path;
    }
    m_renamesUnsure = m_renamesUnsure || !renamed.onMedium;
    return renamed.outcome == songrenamer::Outcome::Failed ? QString() : candidate;
}

bool Index::askForRename(const QString &path, const QString &candidate)
{
    RememberedAnswer rename(renameAccepted != 0, askBeforeRename == 0);
    const bool accepted = rename.isYes([&] {
        const QString message =
            tr("verrà rinominato: ") + candidate + QLatin1String("\n\n") +
            tr("Se il file non viene rinominato, è possibile che non venga rilevato da Kavena.");
        return m_renameQuestion ? m_renameQuestion(path, message) : Answer::No;
    });
    renameAccepted = accepted ? 1 : 0;
    askBeforeRename = rename.isToAll() ? 0 : 1;
    return accepted;
}

bool Index::addFileToIndex(const QFileInfo &fi)
{
    SortedEntries order(entries);
    return addFile(fi.absoluteFilePath(), order);
}

template <typename Order>
bool Index::addFile(const QString &fullPath, Order &order)
{
    QString path;
    if (!pathOnMemory(fullPath, path))
        return false;

    const QByteArray key = pathSortKey(path);
    const qsizetype place = placeBehind(order, key);
    // Different characters may share a key, so that the song can be anywhere among equal ones. They
    // stand as they were found, and are gone through in that order.
    qsizetype same = place;
    while (same > 0 && order.keyAt(same - 1) == key)
        --same;
    for (; same < place; ++same) {
        if (isIndexedAs(order.entryAt(same), path, fullPath))
            return true;
    }
    if (!hasRoomFor(fullPath))
        return false;

    const FileStamp stamp = FileStamp::of(fullPath).value_or(FileStamp());
    SongInfoIndex entry;
    entry.fullPath = fullPath;
    entry.path = path;
    entry.id = nextId++;
    entry.posidx = nextPosidx++;
    entry.date = stamp.date;
    entry.time = stamp.time;
    order.insert(place, entry, key);
    indexChanged = 1;
    return true;
}

bool Index::pathOnMemory(const QString &fullPath, QString &path)
{
    const QString shortPath = getShortFileNamePath(fullPath);
    const QString shortRoot = getShortFileNamePath(rootPath);
    if (!shortPath.isNull() && !shortRoot.isNull())
        path = shortPath.mid(shortRoot.size());
    if (!path.startsWith(QLatin1Char('/'))) {
        emit errorFromIndex(tr("File non importato, errore nel path:") + fullPath);
        return false;
    }
    if (path.size() > PathRecord::MaxPathLength) {
        emit errorFromIndex(tr("File non importato, path troppo lungo: ") + fullPath);
        return false;
    }
    return true;
}

/** True when the entry is the song of this path, and for a second file of its name: see match. */
bool Index::isIndexedAs(SongInfoIndex &entry, const QString &path, const QString &fullPath)
{
    const entrymatcher::Match found = entrymatcher::match(entry, path, fullPath);
    if (found == entrymatcher::Match::NewSpelling)
        indexChanged = 1;
    if (found == entrymatcher::Match::OtherFile)
        emit errorFromIndex(
            tr("File non importato, il nome differisce da un altro solo per le maiuscole: ") +
            fullPath);
    return found != entrymatcher::Match::None;
}

bool Index::hasRoomFor(const QString &fullPath)
{
    if (entries.size() < SongInfoIndex::MaxSongs && nextId != SongInfoIndex::RemovedId)
        return true;
    emit errorFromIndex(tr("File non importato, troppi file nella memoria: ") + fullPath);
    return false;
}

int Index::setSongInfo(SongInfoIndex &e) const
{
    // Only a regular file can be read without the risk of waiting for ever.
    const QByteArray head = QFileInfo(e.fullPath).isFile() ? songHeadOf(e.fullPath) : QByteArray();
    return readSongHead(head, e.fullPath, e) ? 1 : 0;
}

QString Index::getLongFileNamePath(const QString &path) const
{
    return path;
}

QString Index::getShortFileNamePath(const QString &path) const
{
    return path;
}

// The build --------------------------------------------------------------------------------------

void Index::createPathIndex()
{
    logDebug() << "create path index";
    emit progressValueChanged(0);
    filesFound = 0;
    scan_files(rootPath);
    if (m_renamesUnsure)
        return;
    if (filesFound == 0) {
        logWarning() << "[Index::createPathIndex] No songs in" << rootPath;
        return;
    }

    emit progressMaxSetup(static_cast<int>(filesFound));
    createTitleIndex();
    if (indexChanged == 0)
        return;

    emit progressMaxSetup(100);
    emit progressValueChanged(0);
    removeDeletedItems();
    emit progressValueChanged(10);
    QList<quint16> numbers;
    if (restorePlaylists == 0 &&
        PlaylistKeeper(rootPath).savePaths(numbers) == PlaylistFiles::Outcome::Failed) {
        m_playlistsFailed = true;
        return;
    }
    m_buildFailed = !writeIndexFiles();
    if (m_buildFailed) {
        logWarning() << "[Index::createPathIndex] Impossible to write the index of" << rootPath;
        deleteIndex();
    }
}

void Index::createTitleIndex()
{
    logDebug() << "create title index";
    int step = 0;
    for (SongInfoIndex &entry : entries) {
        emit currentPathChanged(entry.fullPath);
        refreshEntry(entry);
        emit progressValueChanged(++step);
    }
    emit currentPathChanged(QString());
}

void Index::refreshEntry(SongInfoIndex &entry)
{
    if (maxLoadedId == NoIdLoaded || entry.id > maxLoadedId) {
        // The scan has just seen the file. Only one that cannot be read is looked for again.
        if (!readSong(entry) && !QFileInfo(entry.fullPath).isFile())
            entry.id = SongInfoIndex::RemovedId;
        indexChanged = 1;
        return;
    }
    const std::optional<FileStamp> stamp = FileStamp::of(entry.fullPath);
    if (!isMemoryPath(entry.path) || !stamp) {
        entry.id = SongInfoIndex::RemovedId;
        indexChanged = 1;
        return;
    }
    if (stamp->date == entry.date && stamp->time == entry.time)
        return;
    readSong(entry);
    entry.date = stamp->date;
    entry.time = stamp->time;
    indexChanged = 1;
}

void Index::removeDeletedItems()
{
    sortByPosidx(entries);
    quint16 removed = 0;
    for (SongInfoIndex &entry : entries) {
        if (entry.id == SongInfoIndex::RemovedId)
            ++removed;
        else
            entry.posidx = static_cast<quint16>(entry.posidx - removed);
    }
    entries.removeIf(
        [](const SongInfoIndex &entry) { return entry.id == SongInfoIndex::RemovedId; });
}

/**
 * Order of the flushes: the folder once the old counts are gone; each file; the folder; the new
 * counts, before and after they get their name; the folder again.
 */
bool Index::writeIndexFiles()
{
    struct SongFile {
        int (Index::*write)(const QString &name);
        QLatin1String name;
        QLatin1String alphaName;
        int progress;
    };
    constexpr std::array songFiles{
        SongFile{&Index::writeTitleIndex, indexfiles::Title, indexfiles::AlphaTitle, 30},
        SongFile{&Index::writeArtistIndex, indexfiles::Artist, indexfiles::AlphaArtist, 40},
        SongFile{&Index::writeGenreIndex, indexfiles::Genre, indexfiles::AlphaGenre, 50},
        SongFile{&Index::writeTitleIndex, indexfiles::Mp3Title, indexfiles::AlphaMp3Title, 70},
        SongFile{&Index::writeArtistIndex, indexfiles::Mp3Artist, indexfiles::AlphaMp3Artist, 80},
        SongFile{&Index::writeGenreIndex, indexfiles::Mp3Genre, indexfiles::AlphaMp3Genre, 90}};
    constexpr std::size_t firstMp3File = 3;

    if (!removeCounts() || !removeLinks())
        return false;
    if (writeOrdIndex() < 0)
        return false;
    if (restorePlaylists != 0)
        restorePlaylistFilePath();
    if (m_playlistsFailed || writePathIndex() < 0)
        return false;
    emit progressValueChanged(20);

    for (std::size_t i = 0; i < songFiles.size(); ++i) {
        if (i == firstMp3File) {
            createMp3TitleIndex();
            emit progressValueChanged(60);
        }
        const SongFile &file = songFiles.at(i);
        const int count = (this->*file.write)(file.name);
        if (count < 0 || writeAlphaBuffer(file.alphaName) < 0)
            return false;
        counts.values.at(i) = static_cast<quint32>(count);
        emit progressValueChanged(file.progress);
    }
    // The other files are on the medium by name, too, before the counts make them an index.
    const QString countFile = filePath(indexfiles::Count);
    if (!flushFolderOf(countFile) || writeNumFile() < 0)
        return false;
    emit progressValueChanged(100);
    return true;
}

/**
 * Takes away the file of counts, on the medium as well, before any other index file changes: what
 * is there if the work is cut off after that is no index. Where the playlists get new ids, the old
 * path file goes, too: nobody must look for the new ids in it.
 */
bool Index::removeCounts() const
{
    const auto remove = [this](QLatin1String name) {
        const QString path = filePath(name);
        return removeFile(path) && flushFolderOf(path);
    };
    return remove(indexfiles::Count) && (restorePlaylists == 0 || remove(indexfiles::Path));
}

/** Writing through a link would change a file outside the memory. */
bool Index::removeLinks() const
{
    const auto isNoLink = [this](QLatin1String name) {
        const QString path = filePath(name);
        return !QFileInfo(path).isSymLink() || QFile::remove(path);
    };
    return std::all_of(indexfiles::All.begin(), indexfiles::All.end(), isNoLink) &&
           isNoLink(indexfiles::UnfinishedCount);
}

// The writers ------------------------------------------------------------------------------------

int Index::writePathIndex()
{
    sortByPosidx(entries);
    return indexwriter::writePaths(filePath(indexfiles::Path), entries);
}

int Index::writeOrdIndex()
{
    PathOrder(entries).apply();
    return indexwriter::writeOrder(filePath(indexfiles::Order), entries);
}

int Index::writeTitleIndex(const QString &name)
{
    sortByTitle(entries);
    clearAlphaBuffer();
    return indexwriter::writeTitles(filePath(name), entries, alphaBuffer);
}

int Index::writeArtistIndex(const QString &name)
{
    sortByArtist(entries);
    clearAlphaBuffer();
    return indexwriter::writeGroups(filePath(name), entries, &SongInfoIndex::artist, alphaBuffer);
}

int Index::writeGenreIndex(const QString &name)
{
    sortByGenre(entries);
    clearAlphaBuffer();
    return indexwriter::writeGroups(filePath(name), entries, &SongInfoIndex::genre, alphaBuffer);
}

void Index::clearAlphaBuffer()
{
    alphaBuffer.clear();
}

void Index::addToAlphaBuffer(const QString &text, unsigned long offset)
{
    alphaBuffer.add(text, static_cast<qint64>(offset));
}

int Index::writeAlphaBuffer(const QString &name)
{
    return indexwriter::writeAlpha(filePath(name), alphaBuffer);
}

int Index::writeNumFile()
{
    // It makes the others an index, so it appears with its bytes or not at all.
    QFile unfinished(filePath(indexfiles::UnfinishedCount));
    if (indexwriter::writeCounts(unfinished.fileName(), counts) == 0 &&
        replaceOnMedium(unfinished, filePath(indexfiles::Count)))
        return 0;
    unfinished.remove();
    return -1;
}

void Index::createMp3TitleIndex()
{
    entries.removeIf(
        [](const SongInfoIndex &entry) { return entry.fileType != SongInfoIndex::Mp3; });
}

// Reading an index -------------------------------------------------------------------------------

int Index::loadAllIndexFile()
{
    if (!IndexLoader(rootPath, entries).load()) {
        logWarning() << "[Index::loadAllIndexFile] Damaged index in" << rootPath;
        entries.clear();
        nextPosidx = 0;
        return -1;
    }
    nextPosidx = static_cast<quint16>(entries.size());
    if (!entries.isEmpty())
        maxLoadedId = entries.constLast().id;
    return 0;
}

// Playlists and export ---------------------------------------------------------------------------

bool Index::createPlaylistFilePath()
{
    logDebug() << "create playlist file path";
    const PlaylistFiles playlists(rootPath);
    const auto read = playlists.readNumbers(playlistNumbers);
    m_playlistsFailed = read == PlaylistFiles::Outcome::Failed;
    if (read != PlaylistFiles::Outcome::Done)
        return false;
    const bool anyNew =
        std::any_of(playlistNumbers.cbegin(), playlistNumbers.cend(),
                    [&](quint16 number) { return playlists.needsPathFile(number); });
    if (!anyNew)
        return false;
    if (loadAllIndexFile() < 0) {
        playlistNumbers.clear();
        return false;
    }
    if (entries.isEmpty())
        return false;
    bool saved = false;
    for (const quint16 number : std::as_const(playlistNumbers)) {
        const auto outcome = playlists.savePaths(number, entries);
        saved = outcome == PlaylistFiles::Outcome::Done || saved;
        m_playlistsFailed = outcome == PlaylistFiles::Outcome::Failed || m_playlistsFailed;
    }
    return saved;
}

/** Ids are given anew: the playlists will be pointed at them by path. False if they cannot be. */
bool Index::keepPlaylists()
{
    const auto kept = PlaylistKeeper(rootPath).prepareForNewIds(playlistNumbers);
    restorePlaylists = kept == PlaylistFiles::Outcome::Done ? 1 : 0;
    m_playlistsFailed = kept == PlaylistFiles::Outcome::Failed;
    return !m_playlistsFailed;
}

void Index::restorePlaylistFilePath()
{
    logDebug() << "restore playlist file path";
    const PlaylistFiles playlists(rootPath);
    PathFinder songs(entries);
    for (const quint16 number : std::as_const(playlistNumbers))
        m_playlistsFailed = playlists.restoreIds(number, songs) == PlaylistFiles::Outcome::Failed ||
                            m_playlistsFailed;
}

int Index::saveSongsList(const QString &root, const QString &fileName, SORT_MODE mode)
{
    if (!begin(root) || !checkIndexFile())
        return -1;
    if (loadAllIndexFile() < 0)
        return 0;
    if (mode == SortByArtist)
        sortByArtist(entries);
    else if (mode == SortByGenre)
        sortByGenre(entries);
    else
        sortByTitle(entries);
    RecordWriter list(fileName);
    if (!list.open())
        return 0;
    if (writeSongsList(list))
        return 1;
    if (QFileInfo(fileName).isFile())
        QFile::remove(fileName); // a part of the list would pass for all of it
    return 0;
}

bool Index::writeSongsList(RecordWriter &list)
{
    if (!list.append(listLine({tr("TITOLO"), tr("ARTISTA"), tr("GENERE"), tr("FILE")})))
        return false;
    emit progressMaxSetup(static_cast<int>(entries.size()));
    int step = 0;
    for (const SongInfoIndex &entry : std::as_const(entries)) {
        const QString longPath = getLongFileNamePath(entry.fullPath);
        const QString &path = longPath.isNull() ? entry.fullPath : longPath;
        if (!list.append(listLine(
                {entry.title, entry.artist, entry.genre, QStringView(path).mid(rootPath.size())})))
            return false;
        emit currentPathChanged(entry.fullPath);
        emit progressValueChanged(++step);
    }
    return list.close() && flushFolderOf(list.path());
}
