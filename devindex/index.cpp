#include "devindex/index.h"

#include "devindex/entrysort.h"
#include "devindex/filestamp.h"
#include "devindex/indexfiles.h"
#include "devindex/indexloader.h"
#include "devindex/indexwriter.h"
#include "devindex/memoryscan.h"
#include "devindex/pathorder.h"
#include "devindex/playlistfiles.h"
#include "devindex/playlistkeeper.h"
#include "devindex/songadder.h"
#include "devindex/songhead.h"
#include "devindex/songlistline.h"
#include "formats/songnames.h"
#include "storage/diagnostics.h"
#include "storage/recordfile.h"
#include "storage/safefile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <utility>

Index::Index()
    : m_renamer(*this, *this)
    , m_build(*this, *this)
{
}

void Index::setRenameQuestion(RenameQuestion question)
{
    m_renamer.setQuestion(std::move(question));
}

bool Index::wantsToStop()
{
    m_isStopped = m_isStopped || (m_stopQuestion && m_stopQuestion());
    return m_isStopped;
}

bool Index::createIndex(const QString &root)
{
    if (!begin(root))
        return false;
    restorePlaylists = createPlaylistFilePath() ? 1 : 0;
    if (m_playlistsFailed || !keepPlaylists())
        return false; // their songs would be lost with the ids of this index
    maxLoadedId = noIdLoaded;
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
    return begin(root) && (checkIndexFile() ? update() : createIndex(root));
}

bool Index::updateIndexAfter(const QString &root, const std::function<bool()> &change)
{
    if (!begin(root))
        return false;
    const bool wasWhole = checkIndexFile();
    if (!m_build.removeCounts() || !change() || !isMemoryThere())
        return false;
    if (!wasWhole || !hasIndexBut(indexfiles::count))
        return createIndex(root);
    indexChanged = 1; // the counts have to be written again
    return update();
}

/** Brings the index up to date whose files, but perhaps that of the counts, are all there. */
bool Index::update()
{
    maxLoadedId = 0;
    nextId = 0;
    nextPosidx = 0;
    restorePlaylists = createPlaylistFilePath() ? 1 : 0;
    if (m_playlistsFailed)
        return false;
    if (restorePlaylists != 0) {
        // Every song gets a new entry with an id that was never used before; the playlists get the
        // new ids through their path files.
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

Index::Change Index::changeSongs(const QString &root, const SongChange &change)
{
    if (!begin(root))
        return Change::NotStarted;
    const FolderId memory = folderIdOf(rootPath);
    const auto hasNoSongs = [&] {
        // A memory that was pulled has gone itself, and not its songs.
        return filesFound == 0 && unreadFolders.isEmpty() && !m_renamer.isUnsure() &&
               !memory.isEmpty() && folderIdOf(rootPath) == memory;
    };
    const bool hadIndex = checkIndexFile();
    maxLoadedId = 0;
    nextId = 0;
    nextPosidx = 0;
    restorePlaylists = 0;
    if (hadIndex && loadAllIndexFile() < 0)
        return Change::NotStarted;
    QList<quint16> numbers;
    if (PlaylistKeeper(rootPath).savePaths(numbers) == PlaylistFiles::Outcome::Failed ||
        !m_build.removeCounts())
        return Change::NotStarted;
    if (!change(entries) || !isMemoryThere())
        return Change::NoIndex;
    if (!hadIndex) {
        const bool isWhole = createIndex(root);
        return isWhole ? Change::Done : hasNoSongs() ? Change::NoSongsLeft : Change::NoIndex;
    }
    saveChangedPaths(numbers);
    nextId = maxLoadedId + 1;
    indexChanged = 1; // even an unchanged memory needs its counts again
    createPathIndex();
    // The folders of a memory that was pulled may look empty.
    if (hasNoSongs())
        return deleteIndex() ? Change::NoSongsLeft : Change::NoIndex;
    createKavenaDir();
    return hasWholeIndex() ? Change::Done : Change::NoIndex;
}

/** Until the new index is whole, only the path files know under which names songs lie now. */
void Index::saveChangedPaths(const QList<quint16> &numbers)
{
    const PlaylistFiles playlists(rootPath);
    for (const quint16 number : numbers) {
        if (playlists.savePaths(number, entries) == PlaylistFiles::Outcome::Failed)
            m_playlistsFailed = true;
    }
    m_pathsAreSaved = true;
}

bool Index::begin(const QString &root)
{
    QString path = root;
    if (path.endsWith(QLatin1Char('/')) || path.endsWith(QLatin1Char('\\')))
        path.chop(1);
    rootPath = QDir::cleanPath(QDir(path).absolutePath());
    device = memoryDevice(rootPath);
    const QByteArray expected = std::exchange(expectedDevice, {});
    if (path.isEmpty() || (!expected.isEmpty() && device != expected))
        return false; // an empty path would mean the working directory
    filesFound = 0;
    counts.values.fill(0);
    indexChanged = 0;
    m_isStopped = false;
    m_buildFailed = false;
    m_playlistsFailed = false;
    m_pathsAreSaved = false;
    m_renamer.start();
    return true;
}

bool Index::hasWholeIndex() const
{
    const bool isThere = isMemoryThere();
    if (!isThere)
        logWarning() << "[Index::hasWholeIndex] The memory has gone:" << rootPath;
    return !m_isStopped && !m_buildFailed && !m_playlistsFailed && !m_renamer.isUnsure() &&
           isThere && checkIndexFile();
}

bool Index::checkIndexFile() const
{
    return hasIndexBut(QLatin1String());
}

bool Index::hasIndexBut(QLatin1String missing) const
{
    return std::all_of(indexfiles::all.begin(), indexfiles::all.end(), [&](QLatin1String name) {
        return name == missing || QFileInfo(filePath(name)).isFile();
    });
}

bool Index::deleteIndex()
{
    logDebug() << "delete index";
    const bool isGone = m_build.removeCounts();
    if (!isGone)
        logWarning() << "[Index::deleteIndex] Impossible to remove the counts in" << rootPath;
    const auto remove = [this](QLatin1String name) { QFile::remove(filePath(name)); };
    std::for_each(indexfiles::all.begin(), indexfiles::all.end(), remove);
    std::for_each(indexfiles::temporary.begin(), indexfiles::temporary.end(), remove);
    return isGone;
}

void Index::createKavenaDir()
{
    const QDir root(rootPath);
    for (const QLatin1String name : {indexfiles::effectsFolder, indexfiles::bridgeFolder}) {
        if (!m_isStopped && !root.exists(name) && isMemoryThere())
            makeFolder(filePath(name));
    }
}

// The scan ---------------------------------------------------------------------------------------

void Index::scan_files(const QString &dir)
{
    SongAdder adder(*this, *this);
    scanInto(adder, dir, SongTimes::Ask);
}

void Index::scanInto(SongAdder &adder, const QString &dir, SongTimes times)
{
    MemoryScan scan(*this, *this, m_renamer);
    scan.tidyFolders();
    const QList<FoundSong> songs = scan.songsIn(dir, times);
    m_renamer.renameEntries();
    m_playlistsFailed = m_playlistsFailed || !m_renamer.havePlaylistsFollowed();
    adder.addAll(songs);
}

bool Index::checkFileExt(const QString &suffix) const
{
    return songnames::isSongSuffix(suffix);
}

QString Index::renameLongFileName(const QString &path)
{
    return m_renamer.renameLong(path);
}

bool Index::addFileToIndex(const QFileInfo &fi)
{
    const QString path = fi.absoluteFilePath();
    return SongAdder(*this, *this).add({path, FileStamp::of(path)});
}

int Index::setSongInfo(SongInfoIndex &e) const
{
    // Only a regular file can be read without the risk of waiting for ever.
    SongHeadBuffer buffer;
    const QByteArrayView head =
        QFileInfo(e.fullPath).isFile() ? songHeadOf(e.fullPath, buffer).bytes : QByteArrayView();
    return readSongHead(head, e.fullPath, e) ? 1 : 0;
}

// The build --------------------------------------------------------------------------------------

void Index::createPathIndex()
{
    logDebug() << "create path index";
    emit progressValueChanged(0);
    filesFound = 0;
    unreadFolders.clear();
    SongAdder scanned(*this, *this);
    // Without entries every song is new: its time is asked for when it is read.
    scanInto(scanned, rootPath, entries.isEmpty() ? SongTimes::Leave : SongTimes::Ask);
    if (m_renamer.isUnsure() || m_playlistsFailed || wantsToStop() || !isMemoryThere())
        return;
    if (filesFound == 0) {
        logWarning() << "[Index::createPathIndex] No songs in" << rootPath;
        return;
    }

    emit progressMaxSetup(static_cast<int>(filesFound));
    refreshEntries(&scanned);
    if (indexChanged == 0 || wantsToStop() || !isMemoryThere())
        return;

    emit progressMaxSetup(100);
    emit progressValueChanged(0);
    removeDeletedItems();
    emit progressValueChanged(10);
    QList<quint16> numbers;
    // The index on the memory does not know yet what was renamed now.
    if (restorePlaylists == 0 && !m_pathsAreSaved &&
        (PlaylistKeeper(rootPath).savePaths(numbers) == PlaylistFiles::Outcome::Failed ||
         !m_renamer.tellPlaylists())) {
        m_playlistsFailed = true;
        return;
    }
    m_buildFailed = !m_build.write();
    if (m_buildFailed) {
        logWarning() << "[Index::createPathIndex] Impossible to write the index of" << rootPath;
        if (isMemoryThere())
            deleteIndex();
    }
}

void Index::createTitleIndex()
{
    refreshEntries(nullptr);
}

void Index::refreshEntries(const SongAdder *scanned)
{
    logDebug() << "create title index";
    m_build.refreshEntries(scanned);
}

void Index::removeDeletedItems()
{
    const auto isRemoved = [](const SongInfoIndex &entry) {
        return entry.id == SongInfoIndex::removedId;
    };
    if (std::none_of(entries.cbegin(), entries.cend(), isRemoved))
        return;
    sortByPosidx(entries);
    quint16 removed = 0;
    for (SongInfoIndex &entry : entries) {
        if (isRemoved(entry))
            ++removed;
        else
            entry.posidx = static_cast<quint16>(entry.posidx - removed);
    }
    entries.removeIf(isRemoved);
}

// The writers ------------------------------------------------------------------------------------

int Index::writePathIndex()
{
    sortByPosidx(entries);
    return indexwriter::writePaths(filePath(indexfiles::path), listOf(entries));
}

int Index::writeOrdIndex()
{
    PathOrder(entries).apply();
    return indexwriter::writeOrder(filePath(indexfiles::order), listOf(entries));
}

int Index::writeTitleIndex(const QString &name)
{
    sortByTitle(entries);
    clearAlphaBuffer();
    return indexwriter::writeTitles(filePath(name), listOf(entries), alphaBuffer);
}

int Index::writeArtistIndex(const QString &name)
{
    sortByArtist(entries);
    clearAlphaBuffer();
    return indexwriter::writeGroups(filePath(name), listOf(entries), &SongInfoIndex::artist,
                                    alphaBuffer);
}

int Index::writeGenreIndex(const QString &name)
{
    sortByGenre(entries);
    clearAlphaBuffer();
    return indexwriter::writeGroups(filePath(name), listOf(entries), &SongInfoIndex::genre,
                                    alphaBuffer);
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
    return m_build.writeCounts();
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

/**
 * All ids are given anew, and the playlists get them through their path files. False if they
 * cannot.
 */
bool Index::keepPlaylists()
{
    const auto kept = PlaylistKeeper(rootPath).prepareForNewIds(playlistNumbers);
    restorePlaylists = kept == PlaylistFiles::Outcome::Done ? 1 : 0;
    m_playlistsFailed = kept == PlaylistFiles::Outcome::Failed;
    return !m_playlistsFailed;
}

void Index::restorePlaylistFilePath()
{
    const auto restored = PlaylistKeeper(rootPath).restoreIds(playlistNumbers, entries);
    m_playlistsFailed = m_playlistsFailed || restored == PlaylistFiles::Outcome::Failed;
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
        QFile::remove(fileName); // a part of the list would be taken for the whole one
    return 0;
}

bool Index::writeSongsList(RecordWriter &list)
{
    if (!list.append(songListHeader()))
        return false;
    emit progressMaxSetup(static_cast<int>(entries.size()));
    int step = 0;
    for (const SongInfoIndex &entry : std::as_const(entries)) {
        const QString longPath = getLongFileNamePath(entry.fullPath);
        const QString &path = longPath.isNull() ? entry.fullPath : longPath;
        if (!list.append(songListLine(
                {entry.title, entry.artist, entry.genre, QStringView(path).mid(rootPath.size())})))
            return false;
        emit currentPathChanged(entry.fullPath);
        emit progressValueChanged(++step);
    }
    return list.close() && flushFolderOf(list.path());
}
