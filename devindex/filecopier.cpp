#include "devindex/filecopier.h"

#include "devindex/companion.h"
#include "devindex/unfinishedcopy.h"
#include "devindex/writeproblem.h"
#include "formats/diagnostics.h"
#include "formats/safefile.h"
#include "library/nocopyrightdialog.h"

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

bool FileCopier::copyFiles(const QStringList &files, const QString &dest, int &copied,
                           Progress &progress)
{
    copied = 0;
    int processed = 0;
    m_report = {};
    unfinishedcopy::removeLeftovers(dest);
    m_ask = true;
    m_replaceAll = false;

    for (const QString &source : files) {
        m_keepAlive.processEvents();
        if (progress.wasCanceled())
            return false;
        const QString target = targetOf(source, dest);
        ++processed;
        const bool exists = QFileInfo::exists(target);
        if (source == target || (exists && isSameFile(source, target))) {
            ++m_report.copied;
            continue;
        }
        logDebug() << "Copying file:" << source << "to:" << target;
        if (exists && !mayReplace(target)) {
            m_report.skipped.append(source);
            continue;
        }
        if (copySong(source, target, exists))
            ++m_report.copied;
        else
            m_report.failed.append({source, m_reason});
        progress.updateProgress(processed);
    }
    copied = m_report.copied;
    return m_report.failed.isEmpty();
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

bool FileCopier::copySong(const QString &source, const QString &target, bool replace)
{
    if (!copyFile(source, target, replace)) {
        m_reason = whyNotCopied(source, target, replace);
        return false;
    }
    const QString companion = companionOf(source);
    if (companion.isEmpty())
        return true;
    const QString besideTarget = companionTarget(companion, target);
    if (isSameFile(companion, besideTarget) || copyFile(companion, besideTarget, replace))
        return true;
    m_reason = companion.section(QLatin1Char('/'), -1) + QLatin1String(": ") +
               whyNotCopied(companion, besideTarget, replace);
    return false;
}

/** The cause, from what is to be seen after the failure. */
QString FileCopier::whyNotCopied(const QString &source, const QString &target, bool replace)
{
    const QFileInfo there(target);
    if (!replace && isTaken(target) && !there.isDir() && QFileInfo::exists(source))
        return tr("esiste già un file con questo nome");
    return WriteProblem::whyNotCopied(source, target);
}

/**
 * The copy takes the target's name only when it is whole: whatever happens before, an old target is
 * still there. Only where there is no room for both does the old one go first.
 */
bool FileCopier::copyFile(const QString &source, const QString &target, bool replace)
{
    const QString part = unfinishedcopy::pathFor(target);
    const auto refuse = [&target](const char *reason) {
        logWarning() << "[FileCopier::copyFile] Impossible to copy," << reason << target;
        return false;
    };
    if (QFileInfo(target).isDir() || (!replace && isTaken(target)))
        return refuse("the name is taken:");

    Copy copy = copyBytes(source, part, replace);
    if (copy == Copy::NoRoom && replace && fitsInsteadOf(source, target)) {
        if (!QFile::remove(target))
            return refuse("no room and the old file cannot be removed:");
        copy = copyBytes(source, part, replace);
    }
    if (copy != Copy::Done)
        return refuse(copy == Copy::NoSource ? "the file cannot be read:"
                                             : "it cannot be written:");
    if (renameOver(part, target))
        return true;
    QFile::remove(part);
    return refuse("the new file cannot take its name:");
}

/** Copies into a new file, and removes it when it does not become whole. */
FileCopier::Copy FileCopier::copyBytes(const QString &source, const QString &part, bool replace)
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
    if (!out.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered))
        return Copy::Failed;
    while (count > 0 && out.write(m_buffer.constData(), count) == count) {
        left -= count;
        m_keepAlive.processEvents();
        count = readChunk(in, left);
    }
    const bool noRoom = out.error() == QFile::ResourceError;
    // A new file can be copied again if the memory is pulled too early; flushing each would take
    // half as long again. One that is replaced is not given up for bytes that are not there yet.
    const bool whole = left == 0 && (!replace || flushToMedium(out));
    out.close();
    if (whole && QFileInfo(part).size() == QFileInfo(source).size())
        return Copy::Done;
    out.remove();
    return noRoom ? Copy::NoRoom : Copy::Failed;
}

qint64 FileCopier::readChunk(QFile &in, qint64 left)
{
    return left > 0 ? in.read(m_buffer.data(), qMin<qint64>(left, m_buffer.size())) : 0;
}
