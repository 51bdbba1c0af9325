#include "devindex/transferplanner.h"

#include "devindex/folderrules.h"
#include "devindex/indexrecords.h"
#include "devindex/itemrenamer.h"
#include "devindex/memorydevice.h"
#include "devindex/memoryscan.h"
#include "devindex/namekey.h"
#include "library/companion.h"
#include "storage/safefile.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>

#include <algorithm>

namespace
{

/** Where the system does not tell: the largest cluster that a memory card is formatted with. */
constexpr qint64 largestCluster = 32768;

QString nameOf(const QString &path)
{
    return path.section(QLatin1Char('/'), -1);
}

QString folderOf(const QString &path)
{
    return path.section(QLatin1Char('/'), 0, -2);
}

/** Hears what a scan of the memory tells, which is nothing that a plan needs. */
class SilentObserver : public IndexObserver
{
public:
    void tellError(const QString &) override {}
    void tellCurrentPath(const QString &) override {}
    void tellProgress(int) override {}
    void tellMaximum(int) override {}
    void tellFilesFound(int) override { m_keepAlive.processEvents(); }

private:
    KeepAlive m_keepAlive;
};

/** The length of a name once the player's limit for names is kept. */
qsizetype shortenedSize(const QString &name, bool isFolder)
{
    return isShortName(name) ? name.size() : firstShortName(name, isFolder).size();
}

bool canBeRead(const QString &path)
{
    QFile file(path);
    char first = 0;
    // One without a size may make the reader wait for ever.
    return file.open(QIODevice::ReadOnly | QIODevice::Unbuffered) &&
           (file.size() == 0 || file.read(&first, 1) >= 0);
}

} // namespace

MemoryRoom MemoryRoom::of(const QString &folder)
{
    const QStorageInfo storage(folder);
    MemoryRoom room;
    room.medium = WriteProblem::Medium::of(folder);
    if (!storage.isValid())
        return room;
    room.freeBytes = storage.bytesAvailable();
    room.totalBytes = storage.bytesTotal();
    room.clusterSize = storage.blockSize();
    return room;
}

TransferPlanner::TransferPlanner(const QString &root, const QString &folder)
    : m_root(root)
    , m_folder(folder)
    , m_room(MemoryRoom::of(root))
{
}

std::optional<TransferPlan> TransferPlanner::plan(const QStringList &files, Progress &progress)
{
    m_plan.root = m_root;
    m_plan.folder = m_folder;
    m_plan.device = memoryDevice(m_root);
    m_plan.freeBytes = m_room.freeBytes;
    m_plan.totalBytes = m_room.totalBytes;
    for (const QString &file : files) {
        Item item;
        item.path = file;
        item.target = m_folder + QLatin1Char('/') + nameOf(file);
        m_plan.items.append(item);
    }
    progress.setMaximum(static_cast<int>(files.size()));
    findSongsThere();
    // A song that lies under its own name is never taken for another one's.
    if (!forAll(progress, false, &TransferPlanner::examine) ||
        !forAll(progress, true, &TransferPlanner::lookUnderItsName) ||
        !forAll(progress, false, &TransferPlanner::lookUnderShortNames) ||
        !forAll(progress, false, &TransferPlanner::decide) ||
        !forAll(progress, false, &TransferPlanner::propose))
        return std::nullopt;
    if (m_listsOthers)
        addOthers();
    return std::move(m_plan);
}

/** The songs as an index build would find them, but for those that it would rename first. */
void TransferPlanner::findSongsThere()
{
    IndexState state;
    state.rootPath = m_root;
    SilentObserver observer;
    ItemRenamer renamer(state, observer);
    const QList<FoundSong> songs = MemoryScan(state, observer, renamer).songsIn(m_root);
    m_plan.songsThere = songs.size();
    const QString below = nameKey(m_folder + QLatin1Char('/'));
    for (const FoundSong &song : songs) {
        const QString key = nameKey(song.path);
        if (!key.startsWith(below))
            continue;
        const auto place = static_cast<int>(m_there.size());
        m_there.push_back({song.path});
        m_byPath[key].append(place);
        m_byName[nameOf(key)].append(place);
        const QString shortKey = shortNameKey(nameOf(song.path));
        if (!shortKey.isEmpty())
            m_byShortName[shortKey].append(place);
    }
}

/** False when the progress was stopped. */
bool TransferPlanner::forAll(Progress &progress, bool counts, void (TransferPlanner::*step)(Item &))
{
    int done = 0;
    for (Item &item : m_plan.items) {
        m_keepAlive.processEvents();
        if (progress.wasCanceled())
            return false;
        (this->*step)(item);
        if (counts)
            progress.setValue(++done);
    }
    return true;
}

void TransferPlanner::examine(Item &item)
{
    const QFileInfo song(item.path);
    if (!song.isFile()) {
        setUnreadable(item);
        return;
    }
    item.size = song.size();
    item.companion = companionOf(item.path);
    item.room = inClusters(item.size) + clusters(item.companion);
}

void TransferPlanner::setUnreadable(Item &item)
{
    item.state = State::Unreadable;
    item.reason = QFileInfo::exists(item.path) ? tr("il file non può essere letto")
                                               : tr("il file non c'è più");
}

void TransferPlanner::lookUnderItsName(Item &item)
{
    if (item.state == State::Unreadable)
        return;
    const QString there = existing(item.target);
    if (there.isEmpty() || m_taken.contains(nameKey(there)))
        return;
    const bool isTrusted = m_trustsNames && QFileInfo(there).size() == item.size;
    const std::optional<State> found = isTrusted ? State::Same : lies(item, there);
    if (found)
        settle(item, *found, there);
}

void TransferPlanner::lookUnderShortNames(Item &item)
{
    if (item.state != State::New)
        return;
    const QList<int> candidates = candidatesFor(item);
    for (const int place : candidates) {
        There &song = m_there[static_cast<std::size_t>(place)];
        if (song.isClaimed || !hasSizeOf(song, item))
            continue;
        const QString path = song.path;
        const std::optional<State> found = lies(item, path);
        if (item.state == State::Unreadable)
            return;
        if (!found)
            continue;
        settle(item, *found == State::Same ? State::Renamed : *found, path);
        return;
    }
}

/**
 * Same when the song lies at the path, Differs when its pictures do not; nothing for another song,
 * and for one that turns out to be unreadable.
 */
std::optional<TransferPlan::State> TransferPlanner::lies(Item &item, const QString &path)
{
    const ContentComparer::Result result = m_comparer.compare(item.path, path);
    if (result == ContentComparer::Result::Unreadable)
        setUnreadable(item);
    if (result != ContentComparer::Result::Same)
        return std::nullopt;
    if (item.companion.isEmpty())
        return State::Same;
    const QString pictures = companionOf(path);
    const bool isWhole = !pictures.isEmpty() && m_comparer.compare(item.companion, pictures) ==
                                                    ContentComparer::Result::Same;
    return isWhole ? State::Same : State::Differs;
}

/** Many names can have become one short name; most of these songs differ in size. */
bool TransferPlanner::hasSizeOf(There &song, const Item &item) const
{
    if (song.size < 0)
        song.size = QFileInfo(song.path).size();
    return song.size == item.size;
}

/** The item's song lies at the path. */
void TransferPlanner::settle(Item &item, State state, const QString &path)
{
    item.state = state;
    item.target = path;
    item.isThere = true;
    m_taken.insert(nameKey(path), item.path);
    claim(path);
}

QList<int> TransferPlanner::candidatesFor(const Item &item) const
{
    const QString name = heldName(nameOf(item.path));
    QList<int> candidates = m_byName.value(nameKey(name));
    for (const QString &key : keysOfShortNames(name))
        candidates += m_byShortName.value(key);
    return candidates;
}

void TransferPlanner::decide(Item &item)
{
    // Where bytes were compared, they could be read.
    if (item.state == State::New && !canBeRead(item.path))
        setUnreadable(item);
    if (item.state == State::Unreadable) {
        keepAlternatives(item);
        return;
    }
    if (item.state != State::New) {
        item.remedy = item.state == State::Differs ? Remedy::Replace : Remedy::Skip;
        if (item.state == State::Differs)
            item.roomThere = clusters(item.target) + clusters(companionOf(item.target));
        return;
    }
    item.reason = whyTooLong(nameOf(item.path));
    if (!item.reason.isEmpty()) {
        item.state = State::TooLong;
        keepAlternatives(item);
        return;
    }
    const QString there = existing(item.target);
    const QString key = nameKey(item.target);
    const auto other = m_taken.constFind(key);
    if (other != m_taken.constEnd()) {
        item.state = State::Collides;
        item.isTwin = lies(item, *other) == State::Same;
        if (item.state == State::Unreadable) {
            keepAlternatives(item);
            return;
        }
        item.remedy = item.isTwin ? Remedy::Skip : Remedy::KeepBoth;
        if (item.isTwin)
            item.reason = tr("è la stessa song, scelta due volte");
        return;
    }
    m_taken.insert(key, item.path);
    m_shortNames.keepFree(item.target);
    const QString pictures =
        item.companion.isEmpty() ? QString() : companionTarget(item.companion, item.target);
    item.isThere = !there.isEmpty();
    if (!item.isThere && (pictures.isEmpty() || !isTaken(pictures))) {
        item.remedy = Remedy::Copy;
        return;
    }
    item.state = State::Differs;
    item.remedy = Remedy::Replace;
    if (item.isThere)
        item.target = there;
    claim(item.target);
    item.roomThere = clusters(item.target);
    if (!pictures.isEmpty())
        item.roomThere += clusters(pictures);
}

/** Finds free places; only now all names are known that the list itself needs. */
void TransferPlanner::propose(Item &item)
{
    if (item.state == State::Same || item.state == State::Unreadable)
        return;
    const QString own = m_folder + QLatin1Char('/') + heldName(nameOf(item.path));
    if (item.state != State::New) {
        const QString free = m_shortNames.candidateForSong(own);
        if (!free.isEmpty() && whyTooLong(nameOf(free)).isEmpty()) {
            item.keepBothTarget = free;
            m_shortNames.keepFree(free);
        }
    }
    if (item.state != State::TooLong)
        proposeSubFolder(item);
    if (item.remedy == Remedy::KeepBoth && item.keepBothTarget.isEmpty())
        item.remedy = item.subFolderTarget.isEmpty() ? Remedy::Skip : Remedy::SubFolder;
    if (item.remedy == Remedy::Replace && QFileInfo(item.target).isDir())
        item.remedy = item.keepBothTarget.isEmpty() ? Remedy::Skip : Remedy::KeepBoth;
}

void TransferPlanner::proposeSubFolder(Item &item)
{
    const QString folder = subFolderFor(item.path);
    if (folder.isEmpty())
        return;
    QString target = folder + QLatin1Char('/') + nameOf(item.path);
    const QString below = target.mid(m_root.size());
    const qsizetype size =
        below.size() - nameOf(below).size() + shortenedSize(nameOf(item.path), false);
    if (size > PathRecord::maxPathLength)
        return;
    if (m_taken.contains(nameKey(target)) || !existing(target).isEmpty())
        target = m_shortNames.candidateForSong(target);
    if (target.isEmpty())
        return;
    m_taken.insert(nameKey(target), item.path);
    m_shortNames.keepFree(target);
    item.subFolderTarget = target;
}

/** A folder below the chosen one with the name of the song's own, as the player can read it. */
QString TransferPlanner::subFolderFor(const QString &path)
{
    QString name = heldName(nameOf(folderOf(QFileInfo(path).absoluteFilePath())));
    while (name.startsWith(QLatin1Char('.')))
        name.remove(0, 1); // the player would not look into it
    if (name.isEmpty())
        return {};
    if (!isShortName(name) || isReservedFolder(name) || isSystemFolder(name))
        name = firstShortName(name, true);
    const QString folder = m_folder + QLatin1Char('/') + name;
    const QFileInfo there(folder);
    return there.isSymLink() || (there.exists() && !there.isDir()) ? QString() : folder;
}

/** What could be this song's only copy is not offered for removal. */
void TransferPlanner::keepAlternatives(const Item &item)
{
    claim(existing(item.target));
    const QList<int> candidates = candidatesFor(item);
    for (const int place : candidates)
        m_there[static_cast<std::size_t>(place)].isClaimed = true;
}

void TransferPlanner::addOthers()
{
    for (const There &song : m_there) {
        if (song.isClaimed || !mayBeRemoved(song))
            continue;
        const QFileInfo file(song.path);
        Item item;
        item.path = song.path;
        item.state = State::Remove;
        item.companion = companionOf(song.path);
        item.room = clusters(song.path) + clusters(item.companion);
        item.size = file.size();
        item.changed = file.lastModified().toMSecsSinceEpoch();
        m_plan.items.append(item);
    }
}

bool TransferPlanner::mayBeRemoved(const There &song)
{
    if (QFileInfo(song.path).isSymLink() || !isReachedDirectly(folderOf(song.path)))
        return false;
    const QStringList folders =
        folderOf(song.path.mid(m_root.size())).split(QLatin1Char('/'), Qt::SkipEmptyParts);
    return std::none_of(folders.cbegin(), folders.cend(), [](const QString &name) {
        return isReservedFolder(name) || isSystemFolder(name);
    });
}

/** True for a folder of the memory to which no link leads on the way from the root. */
bool TransferPlanner::isReachedDirectly(const QString &folder)
{
    const auto known = m_direct.constFind(folder);
    if (known != m_direct.constEnd())
        return *known;
    const QString straight = QFileInfo(m_root).canonicalFilePath() + folder.mid(m_root.size());
    const QString real = QFileInfo(folder).canonicalFilePath();
    const bool isDirect = real.compare(straight, Qt::CaseInsensitive) == 0;
    m_direct.insert(folder, isDirect);
    return isDirect;
}

/** The path of what lies there, as it is spelled there; empty when nothing does. */
QString TransferPlanner::existing(const QString &path) const
{
    const QList<int> places = m_byPath.value(nameKey(path));
    QString other;
    for (const int place : places) {
        const QString &there = m_there[static_cast<std::size_t>(place)].path;
        if (there == path)
            return path;
        other = there;
    }
    if (!other.isEmpty())
        return other;
    return isTaken(path) ? path : QString();
}

void TransferPlanner::claim(const QString &path)
{
    const QList<int> places = m_byPath.value(nameKey(path));
    for (const int place : places)
        m_there[static_cast<std::size_t>(place)].isClaimed = true;
}

/** Why the memory or the player cannot have a song of this name in the folder; else empty. */
QString TransferPlanner::whyTooLong(const QString &name) const
{
    QString problem = WriteProblem::whyNotNamed(name, m_room.medium);
    if (!problem.isEmpty())
        return problem;
    qsizetype size = 1 + shortenedSize(name, false);
    const QStringList folders =
        m_folder.mid(m_root.size()).split(QLatin1Char('/'), Qt::SkipEmptyParts);
    for (const QString &folder : folders)
        size += 1 + shortenedSize(folder, true);
    return size > PathRecord::maxPathLength ? tr("il percorso è troppo lungo per il player")
                                            : QString();
}

/** The name with "_" for what the memory does not hold in names. */
QString TransferPlanner::heldName(const QString &name) const
{
    QString held = name;
    if (WriteProblem::whyNotNamed(name, m_room.medium).isEmpty())
        return held;
    for (QChar &character : held) {
        if (!character.isSurrogate() &&
            !WriteProblem::whyNotNamed(QString(character) + QLatin1Char('x'), m_room.medium)
                 .isEmpty())
            character = QLatin1Char('_');
    }
    return held;
}

/** The room of a file in whole clusters; 0 when there is none. */
qint64 TransferPlanner::clusters(const QString &file) const
{
    if (file.isEmpty())
        return 0;
    const QFileInfo info(file);
    return info.isFile() ? inClusters(info.size()) : 0;
}

qint64 TransferPlanner::inClusters(qint64 size) const
{
    const qint64 cluster = m_room.clusterSize > 0 ? m_room.clusterSize : largestCluster;
    return (size + cluster - 1) / cluster * cluster;
}
