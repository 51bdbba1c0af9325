#include "devindex/filecopier.h"

#include "devindex/companion.h"
#include "devindex/copybatch.h"
#include "formats/diagnostics.h"
#include "formats/safefile.h"
#include "library/nocopyrightdialog.h"
#include "library/whileanswering.h"

#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>

#include <filesystem>
#include <system_error>
#include <utility>

namespace
{

constexpr qint64 clusterSize = 32768;

/** Read and written at once; between two of these the windows get their turn. */
constexpr qsizetype chunkSize = 262144;

/** A copy that is not whole yet; with no song's suffix, so that nobody takes it for a song. */
constexpr QLatin1String partSuffix("kavena-part");

QString targetOf(const QString &source, const QString &dest)
{
    return dest + QLatin1Char('/') + source.section(QLatin1Char('/'), -1);
}

/** True when both paths lead to one file: by links, other spellings or another letter case. */
bool isSameFile(const QString &first, const QString &second)
{
    std::error_code error;
    return std::filesystem::equivalent(QFile::encodeName(first).constData(),
                                       QFile::encodeName(second).constData(), error) &&
           !error;
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

qint64 growth(const QString &source, const QString &target)
{
    return isInPlace(source, target) ? 0 : qMax<qint64>(0, clusters(source) - clusters(target));
}

} // namespace

FileCopier::FileCopier(AskReplace askReplace)
    : m_askReplace(std::move(askReplace))
    , m_buffer(chunkSize, Qt::Uninitialized)
{
}

FileCopier::~FileCopier() = default;

bool FileCopier::copyFiles(const QStringList &files, const QString &dest, int &copied,
                           Progress &progress)
{
    copied = 0;
    m_report = {};
    m_songs = QList<Song>(files.size(), Song::NotReached);
    m_batch = std::make_unique<CopyBatch>(dest);
    m_ask = true;
    m_replaceAll = false;

    const bool toTheEnd = copyAll(files, dest, progress);
    settle();
    for (qsizetype i = 0; i < files.size(); ++i) {
        if (m_songs.at(i) == Song::Failed)
            m_report.failed.append(files.at(i));
    }
    m_report.copied = static_cast<int>(m_songs.count(Song::Copied));
    m_report.skipped = static_cast<int>(m_songs.count(Song::Skipped));
    if (!toTheEnd)
        return false;
    copied = m_report.copied;
    return m_report.failed.isEmpty();
}

/** False when the user stopped it. */
bool FileCopier::copyAll(const QStringList &files, const QString &dest, Progress &progress)
{
    for (int i = 0; i < files.size(); ++i) {
        m_keepAlive.processEvents();
        if (progress.wasCanceled())
            return false;
        const QString &source = files.at(i);
        const QString target = targetOf(source, dest);
        if (m_batch->isFull() || m_batch->holds(target))
            settle();
        const bool exists = QFileInfo::exists(target);
        if (source == target || (exists && isSameFile(source, target))) {
            m_songs[i] = Song::Copied;
            continue;
        }
        logDebug() << "Copying file:" << source << "to:" << target;
        if (exists && !mayReplace(target)) {
            m_songs[i] = Song::Skipped;
            continue;
        }
        m_songs[i] = Song::Copied;
        if (!copySong(i, source, target, exists))
            m_songs[i] = Song::Failed;
        progress.updateProgress(i + 1);
    }
    return true;
}

/** Brings what was copied to the medium; songs that do not get there have failed. */
void FileCopier::settle()
{
    QSet<int> failed;
    if (!m_batch->isEmpty())
        whileAnswering([&] {
            failed = m_batch->settle();
            return true;
        });
    for (const int song : std::as_const(failed))
        m_songs[song] = Song::Failed;
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

int FileCopier::showReplaceQuestion(const QString &target)
{
    NoCopyrightDialog dialog;
    dialog.setFilename(target);
    dialog.setMessage(tr("esiste già, vuoi sostituirlo?"));
    return dialog.exec();
}

bool FileCopier::mayReplace(const QString &target)
{
    if (!m_ask)
        return m_replaceAll;
    const int answer = m_askReplace(target);
    const bool replace = answer == NoCopyrightDialog::Yes || answer == NoCopyrightDialog::YesAll;
    if (answer == NoCopyrightDialog::YesAll || answer == NoCopyrightDialog::NoAll) {
        m_ask = false;
        m_replaceAll = replace;
    }
    return replace;
}

bool FileCopier::copySong(int song, const QString &source, const QString &target, bool replace)
{
    if (!copyFile(song, source, target, replace))
        return false;
    const QString companion = companionOf(source);
    if (companion.isEmpty())
        return true;
    const QString besideTarget = companionTarget(companion, target);
    return isSameFile(companion, besideTarget) || copyFile(song, companion, besideTarget, replace);
}

/**
 * The copy takes the target's name only when it is whole, with the others of its batch: whatever
 * happens before, an old target is still there. Only where there is no room for both does the old
 * one go first.
 */
bool FileCopier::copyFile(int song, const QString &source, const QString &target, bool replace)
{
    const QString part = hiddenBeside(target, partSuffix);
    const auto refuse = [&target](const char *reason) {
        logWarning() << "[FileCopier::copyFile] Impossible to copy," << reason << target;
        return false;
    };
    if (m_batch->holds(target))
        settle();
    if (QFileInfo(target).isDir() || (!replace && isTaken(target)))
        return refuse("the name is taken:");

    Copy copy = copyBytes(source, part);
    if (copy == Copy::NoRoom && !m_batch->isEmpty()) {
        settle(); // the files that it replaces give their room back
        copy = copyBytes(source, part);
    }
    if (copy == Copy::NoRoom && replace && fitsInsteadOf(source, target)) {
        if (!giveUp(target))
            return refuse("no room and the old file cannot be removed:");
        copy = copyBytes(source, part);
    }
    if (copy != Copy::Done)
        return refuse(copy == Copy::NoSource ? "the file cannot be read:"
                                             : "it cannot be written:");
    m_batch->add({song, part, target, replace && isTaken(target)}, QFileInfo(part).size());
    return true;
}

/**
 * Removes an old file to make room. Its place is free when its name is gone on the medium: no name
 * must lead to bytes that have become another song's.
 */
bool FileCopier::giveUp(const QString &target)
{
    const auto oldBytes = keepBytesOf(target);
    return QFile::remove(target) && flushFolderOf(target);
}

/** Copies into a new file, and removes it when it does not become whole. */
FileCopier::Copy FileCopier::copyBytes(const QString &source, const QString &part)
{
    const QFileInfo before(source);
    QFile in(source);
    if (!before.isFile() || !in.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return Copy::NoSource;
    qint64 left = before.size();
    qint64 count = readChunk(in, left);
    if (count < 0)
        return Copy::NoSource;

    QFile out(part);
    if (isTaken(part))
        out.remove(); // left behind when the program ended in the middle of a copy
    if (!out.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered))
        return Copy::Failed;
    while (count > 0 && out.write(m_buffer.constData(), count) == count) {
        left -= count;
        m_keepAlive.processEvents();
        count = readChunk(in, left);
    }
    const bool noRoom = out.error() == QFile::ResourceError;
    const bool arrived = closeChecked(out);
    if (left == 0 && arrived && QFileInfo(part).size() == QFileInfo(source).size())
        return Copy::Done;
    out.remove();
    return noRoom ? Copy::NoRoom : Copy::Failed;
}

qint64 FileCopier::readChunk(QFile &in, qint64 left)
{
    return left > 0 ? in.read(m_buffer.data(), qMin<qint64>(left, m_buffer.size())) : 0;
}
