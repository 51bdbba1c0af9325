#include "devindex/filecopier.h"

#include "devindex/copybatch.h"
#include "devindex/namekey.h"
#include "devindex/samefile.h"
#include "devindex/shownnames.h"
#include "library/backgroundwork.h"
#include "library/companion.h"
#include "storage/diagnostics.h"
#include "storage/leftovers.h"
#include "storage/safefile.h"
#include "storage/songfilewriter.h"
#include "storage/songjournal.h"
#include "storage/writeproblem.h"

#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>

#include <algorithm>
#include <utility>

#ifdef Q_OS_LINUX
#include <fcntl.h>
#endif

namespace
{

constexpr qint64 clusterSize = 32768;

/** Bytes read and written at once; between two chunks the windows can process events. */
constexpr qsizetype chunkSize = 262144;

QString targetOf(const QString &source, const QString &dest)
{
    return dest + QLatin1Char('/') + source.section(QLatin1Char('/'), -1);
}

bool isInPlace(const QString &source, const QString &target)
{
    return source == target || isSameFile(source, target);
}

qint64 clusters(const QString &path)
{
    const QFileInfo file(path);
    return file.isFile() ? (file.size() + clusterSize - 1) / clusterSize * clusterSize : 0;
}

/** True when the source has room on the target's medium, but not beside the target. */
bool fitsInsteadOf(const QString &source, const QString &target)
{
    const qint64 available = QStorageInfo(QFileInfo(target).path()).bytesAvailable();
    const qint64 size = QFileInfo(source).size();
    return available >= 0 && available < size && available + QFileInfo(target).size() >= size;
}

/**
 * Writes all of the bytes. On a full medium the system first writes as much as there is room for,
 * without an error; only the write of the rest fails with the reason.
 */
bool writeWhole(QFile &file, QByteArrayView bytes)
{
    while (!bytes.isEmpty()) {
        const qint64 written = file.write(bytes.data(), bytes.size());
        if (written <= 0)
            return false;
        bytes = bytes.sliced(static_cast<qsizetype>(written));
    }
    return true;
}

qint64 growth(const QString &source, const QString &target)
{
    return isInPlace(source, target) ? 0 : qMax<qint64>(0, clusters(source) - clusters(target));
}

/**
 * Lets the medium begin to write a large file while the next ones are read, so that the flush of
 * the batch is shorter; for small ones it costs more than it saves. Errors do not matter here: that
 * flush reports them.
 */
void beginFlush(const QFile &file, qint64 size)
{
#ifdef Q_OS_LINUX
    constexpr qint64 large = 1000000;
    if (size < large)
        return;
    ::sync_file_range(file.handle(), 0, 0, SYNC_FILE_RANGE_WRITE);
#else
    Q_UNUSED(file)
    Q_UNUSED(size)
#endif
}

} // namespace

QStringList FileCopier::Report::failedLines(const ShownNames &names) const
{
    QStringList lines;
    for (const Failure &failure : failed)
        lines.append(names.of(failure.source) + QLatin1String(": ") + failure.reason);
    return lines;
}

FileCopier::FileCopier(AskReplace askReplace)
    : m_askReplace(std::move(askReplace))
    , m_buffer(chunkSize, Qt::Uninitialized)
{
}

FileCopier::~FileCopier() = default;

bool FileCopier::copyFiles(const QStringList &files, const QString &dest, int &copied,
                           Progress &progress)
{
    QList<Order> orders;
    for (const QString &source : files)
        orders.append({source, targetOf(source, dest)});
    const bool complete = copyAs(orders, dest, progress);
    const bool toTheEnd = std::none_of(m_songs.cbegin(), m_songs.cend(), [](const Song &song) {
        return song.state == State::NotReached;
    });
    copied = toTheEnd ? m_report.copied : 0;
    return complete;
}

bool FileCopier::copyAs(const QList<Order> &orders, const QString &dest, Progress &progress)
{
    m_report = {};
    Leftovers().tidy(dest);
    m_songs.clear();
    m_displacing.clear();
    for (const Order &order : orders)
        m_songs.append({order.source, order.target, State::NotReached, {}});
    m_dest = dest;
    m_batch = std::make_unique<CopyBatch>(dest);
    m_replace = RememberedAnswer();

    m_inPlace.reset();
    m_names.reset();
    if (m_ignoresCase)
        m_names.emplace(dest);
    const bool toTheEnd = copyAll(orders, progress);
    settle();
    findReplaced();
    for (const Song &song : std::as_const(m_songs)) {
        if (song.state == State::Copied)
            ++m_report.copied;
        else if (song.state == State::Skipped)
            m_report.skipped.append(song.source);
        else if (song.state == State::Replaced)
            m_report.replaced.append(song.source);
        else if (song.state == State::Failed)
            m_report.failed.append({song.source, song.reason});
    }
    return toTheEnd && m_report.failed.isEmpty();
}

/** False when the user stopped it. */
bool FileCopier::copyAll(const QList<Order> &orders, Progress &progress)
{
    for (int i = 0; i < orders.size(); ++i) {
        m_keepAlive.processEvents();
        if (progress.wasCanceled())
            return false;
        const QString &source = orders.at(i).source;
        const bool mayReplace = orders.at(i).replace;
        if (m_batch->isFull())
            beginSettling();
        if (isPending(orders.at(i).target) || isPending(source))
            settle();
        const QString target = placeOf(orders.at(i));
        m_songs[i].target = target;
        const bool exists = QFileInfo::exists(target);
        if (source == target || (exists && isSameFile(source, target))) {
            m_songs[i].state = State::Copied;
            continue;
        }
        logDebug() << "Copying file:" << source << "to:" << target;
        if (exists && !mayReplace && !m_replace.isYes([&] { return m_askReplace(target); })) {
            m_songs[i].state = State::Skipped;
            continue;
        }
        if (exists && isInList(target)) {
            m_songs[i].state = State::Failed;
            m_songs[i].reason = tr("una song dell'elenco si trova lì con questo nome");
            continue;
        }
        m_songs[i].state = State::Copied;
        if (m_names)
            m_names->add(target);
        if (!copySong(i, source, target, exists || mayReplace))
            m_songs[i].state = State::Failed;
        progress.updateProgress(i + 1);
    }
    return true;
}

/** What lies there in another letter case is replaced, or kept, under its own spelling. */
QString FileCopier::placeOf(const Order &order) const
{
    const QString there = m_names ? m_names->existing(order.target) : QString();
    return there.isEmpty() ? order.target : there;
}

/** True for a file that is to be copied itself: what replaced it would take its place unseen. */
bool FileCopier::isInList(const QString &target)
{
    if (!m_inPlace) {
        m_inPlace.emplace();
        for (const Song &song : std::as_const(m_songs)) {
            if (isInPlace(song.source, song.target))
                m_inPlace->insert(nameKey(song.target), song.source);
        }
    }
    const QStringList sources = m_inPlace->values(nameKey(target));
    return std::any_of(sources.cbegin(), sources.cend(),
                       [&target](const QString &source) { return isInPlace(source, target); });
}

/**
 * Of several songs that got one name, the memory has at most the last: one that failed may have
 * taken the place of another before.
 */
void FileCopier::findReplaced()
{
    QMultiHash<QString, int> places;
    for (int i = 0; i < m_songs.size(); ++i) {
        const Song &song = m_songs.at(i);
        if (song.state != State::Copied && !m_displacing.contains(i))
            continue;
        const QString key = nameKey(song.target);
        const QList<int> earlier = places.values(key);
        for (const int place : earlier) {
            Song &other = m_songs[place];
            const bool isAnother = other.source != song.source || song.state == State::Failed;
            if (isAnother && other.state == State::Copied && isInPlace(other.target, song.target))
                other.state = State::Replaced;
        }
        places.insert(key, i);
    }
}

/** True when a file was copied that does not have this name yet, or not surely. */
bool FileCopier::isPending(const QString &target) const
{
    return m_batch->holds(target) || (m_settling && m_settling->holds(target));
}

/** What was copied is flushed to the medium, while the next files are copied. */
void FileCopier::beginSettling()
{
    endSettling();
    m_settling = std::exchange(m_batch, std::make_unique<CopyBatch>(m_dest));
    m_settlingWork =
        std::make_unique<BackgroundWork>([batch = m_settling.get()] { batch->settle(); });
}

/** Waits for the medium; songs that cannot be flushed count as failed. */
void FileCopier::endSettling()
{
    if (!m_settling)
        return;
    m_settlingWork->wait();
    m_settlingWork.reset();
    m_displacing.unite(m_settling->named());
    for (const int number : m_settling->failed()) {
        Song &song = m_songs[number];
        song.state = State::Failed;
        song.reason = m_settling->changed().contains(number)
                          ? tr("la memoria restituisce byte diversi da quelli scritti")
                          : WriteProblem::whyNotCopied(song.source, song.target);
    }
    m_settling.reset();
}

/** Everything that was copied is flushed to the medium. */
void FileCopier::settle()
{
    if (!m_batch->isEmpty())
        beginSettling();
    endSettling();
}

qint64 FileCopier::roomNeeded(const QStringList &files, const QString &dest)
{
    qint64 needed = 0;
    for (const QString &source : files) {
        const QString target = targetOf(source, dest);
        if (isInPlace(source, target))
            continue;
        needed += growth(source, target);
        const QString companion = companionOf(source);
        if (!companion.isEmpty())
            needed += growth(companion, companionTarget(companion, target));
    }
    return needed;
}

bool FileCopier::copySong(int song, const QString &source, const QString &target, bool replace)
{
    // A song whose last save was cut off is a mixture until it is put back.
    if (!SongFileWriter::recover(source) || !copyFile(song, source, target, replace)) {
        m_songs[song].reason = whyNotCopied(source, target, replace);
        return false;
    }
    const QString companion = companionOf(source);
    if (companion.isEmpty())
        return true;
    const QString besideTarget = companionTarget(companion, target);
    if (isSameFile(companion, besideTarget) || copyFile(song, companion, besideTarget, replace))
        return true;
    m_songs[song].reason = companion.section(QLatin1Char('/'), -1) + QLatin1String(": ") +
                           whyNotCopied(companion, besideTarget, replace);
    return false;
}

/** The cause of a failure, found from the state of the files after it. */
QString FileCopier::whyNotCopied(const QString &source, const QString &target, bool replace)
{
    const QFileInfo there(target);
    if (!replace && isTaken(target) && !there.isDir() && QFileInfo::exists(source))
        return tr("esiste già un file con questo nome");
    return WriteProblem::whyNotCopied(source, target);
}

/**
 * The copy takes the target's name only when it is whole, with the others of its batch: whatever
 * happens before, an old target is still there. Only where there is no room for both does the old
 * one go first.
 */
bool FileCopier::copyFile(int song, const QString &source, const QString &target, bool replace)
{
    const auto part = std::make_shared<QFile>();
    const auto refuse = [&target](const char *reason) {
        logWarning() << "[FileCopier::copyFile] Impossible to copy," << reason << target;
        return false;
    };
    if (isPending(target))
        settle();
    if (isTaken(target) && (!replace || QFileInfo(target).isDir()))
        return refuse("the name is taken:");

    Copy copy = copyBytes(source, target, *part);
    if (copy == Copy::NoRoom && (m_settling || !m_batch->isEmpty())) {
        settle(); // the files that it replaces give their room back
        copy = copyBytes(source, target, *part);
    }
    if (copy == Copy::NoRoom && replace && fitsInsteadOf(source, target)) {
        if (!giveUp(target))
            return refuse("no room and the old file cannot be removed:");
        m_displacing.insert(song);
        copy = copyBytes(source, target, *part);
    }
    if (copy != Copy::Done)
        return refuse(copy == Copy::NoSource ? "the file cannot be read:"
                                             : "it cannot be written:");
    m_batch->add({song, part, target, replace && isTaken(target), m_readBack ? source : QString()});
    return true;
}

/**
 * Removes an old file to make room. Its place may be used only when its name is gone on the medium:
 * no name may lead to bytes that belong to another song.
 */
bool FileCopier::giveUp(const QString &target)
{
    const auto oldBytes = keepBytesOf(target); // cppcheck-suppress unreadVariable
    return QFile::remove(target) && flushFolderOf(target);
}

/**
 * Copies into a new file beside the target, which stays open, so that it is held; removes it when
 * it does not become whole.
 */
FileCopier::Copy FileCopier::copyBytes(const QString &source, const QString &target, QFile &part)
{
    const QFileInfo before(source);
    QFile in(source);
    if (!before.isFile() || !in.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return Copy::NoSource;
    qint64 left = before.size();
    qint64 count = readChunk(in, left);
    if (count < 0)
        return Copy::NoSource;

    if (!createHiddenBeside(part, target, Leftovers::partSuffix))
        return Copy::Failed;
    while (count > 0 && writeWhole(part, QByteArrayView(m_buffer).first(count))) {
        left -= count;
        m_keepAlive.processEvents();
        count = readChunk(in, left);
    }
    const bool noRoom = part.error() == QFile::ResourceError;
    const qint64 size = part.size();
    if (left == 0 && hasArrived(part) && size == QFileInfo(source).size()) {
        beginFlush(part, size);
        return Copy::Done;
    }
    part.close();
    QFile::remove(part.fileName());
    return noRoom ? Copy::NoRoom : Copy::Failed;
}

qint64 FileCopier::readChunk(QFile &in, qint64 left)
{
    return left > 0 ? in.read(m_buffer.data(), qMin<qint64>(left, m_buffer.size())) : 0;
}
