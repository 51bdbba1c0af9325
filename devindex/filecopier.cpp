#include "devindex/filecopier.h"

#include "devindex/companion.h"
#include "formats/diagnostics.h"
#include "library/nocopyrightdialog.h"

#include <QFile>
#include <QFileInfo>

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
            ++m_report.skipped;
            continue;
        }
        if (copySong(source, target, exists))
            ++m_report.copied;
        else
            m_report.failed.append(source);
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
    if (!copyFile(source, target, replace))
        return false;
    const QString companion = companionOf(source);
    if (companion.isEmpty())
        return true;
    const QString besideTarget = companionTarget(companion, target);
    return isSameFile(companion, besideTarget) || copyFile(companion, besideTarget, replace);
}

/**
 * The old target goes before the copy begins, because a full memory may need its room; but only
 * once the beginning of the source has been read, so that no song is given up for one that cannot
 * be read.
 */
bool FileCopier::copyFile(const QString &source, const QString &target, bool replace)
{
    const QFileInfo before(source);
    QFile in(source);
    if (!before.isFile() || !in.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return false;
    qint64 left = before.size();
    qint64 count = readChunk(in, left);
    if (count < 0)
        return false;

    QFile out(target);
    if (replace && out.exists() && !out.remove())
        return false;
    if (!out.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered))
        return false;

    while (count > 0 && out.write(m_buffer.constData(), count) == count) {
        left -= count;
        m_keepAlive.processEvents();
        count = readChunk(in, left);
    }
    out.close();
    if (left == 0 && QFileInfo(target).size() == QFileInfo(source).size())
        return true;
    logWarning() << "[FileCopier::copyFile] Incomplete copy removed:" << target;
    out.remove();
    return false;
}

qint64 FileCopier::readChunk(QFile &in, qint64 left)
{
    return left > 0 ? in.read(m_buffer.data(), qMin<qint64>(left, m_buffer.size())) : 0;
}
