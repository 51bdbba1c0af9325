#include "devindex/mountedvolumes.h"

#include <QDir>
#include <QFileInfo>

namespace
{

const QChar slash = QLatin1Char('/');
const QString volumes = QStringLiteral("/Volumes");

/** Keeps the slash at the end, which getRoot() counts; QDir::cleanPath drops it. */
QString cleaned(const QString &path)
{
    const QString clean = QDir::cleanPath(path);
    const bool keepSlash = path.endsWith(slash) && !clean.endsWith(slash);
    return keepSlash ? clean + slash : clean;
}

QStringList usersMountDirectories()
{
#ifdef Q_OS_MACOS
    return {};
#else
    const QString user = qEnvironmentVariable("USER");
    const bool isPlainName = !user.isEmpty() && !user.contains(slash) &&
                             user != QLatin1String(".") && user != QLatin1String("..");
    if (!isPlainName)
        return {};
    return {QStringLiteral("/media/") + user, QStringLiteral("/run/media/") + user};
#endif
}

QStringList listedMountDirectories()
{
    QStringList directories;
    const QStringList parts =
        qEnvironmentVariable("KAVENA_MOUNT_DIRS").split(QLatin1Char(':'), Qt::SkipEmptyParts);
    for (const QString &part : parts) {
        const QString clean = QDir::cleanPath(part);
        if (clean.startsWith(slash) && clean != slash)
            directories.append(clean);
    }
    return directories;
}

} // namespace

MountedVolumes::MountedVolumes()
    : m_directories(QStringList(volumes) + usersMountDirectories() + listedMountDirectories())
{
    m_directories.removeDuplicates();
}

QString MountedVolumes::startFolder() const
{
    for (const QString &directory : m_directories) {
        if (QFileInfo(directory).isDir())
            return directory;
    }
    return volumes;
}

bool MountedVolumes::isSystemDisk(const QString &path) const
{
    return getRootDrivePath(path).isEmpty();
}

QString MountedVolumes::getRoot(const QString &path) const
{
    const QString above = mountDirectoryAbove(QDir::cleanPath(path));
    if (!above.isEmpty() && above != volumes)
        return getRootDrivePath(path);

    const QString clean = cleaned(path);
    const qsizetype first = clean.indexOf(slash, 1);
    if (first < 0)
        return slash;
    const qsizetype second = clean.indexOf(slash, first + 1);
    return second < 0 ? QString() : clean.left(second);
}

bool MountedVolumes::isRoot(const QString &path) const
{
    const QString memory = getRootDrivePath(path);
    if (memory.isEmpty())
        return getRoot(path) == path;
    return QDir::cleanPath(path) == memory;
}

QString MountedVolumes::getRootDrivePath(const QString &path) const
{
    const QString clean = QDir::cleanPath(path);
    const QString above = mountDirectoryAbove(clean);
    if (above.isEmpty())
        return {};
    const qsizetype nameEnd = clean.indexOf(slash, above.size() + 1);
    return nameEnd < 0 ? clean : clean.left(nameEnd);
}

/** The longest mount directory that the path lies in; empty for one that lies in none or is one. */
QString MountedVolumes::mountDirectoryAbove(const QString &cleanPath) const
{
    QString longest;
    for (const QString &directory : m_directories) {
        if (cleanPath.compare(directory, Qt::CaseInsensitive) == 0)
            return {};
        if (directory.size() > longest.size() &&
            cleanPath.startsWith(directory + slash, Qt::CaseInsensitive))
            longest = directory;
    }
    return longest;
}
