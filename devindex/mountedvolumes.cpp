#include "devindex/mountedvolumes.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <system_error>

namespace
{

const QChar slash = QLatin1Char('/');
const QString volumes = QStringLiteral("/Volumes");

/** Resolves doubled slashes, "." and ".."; no slash stays at the end. */
QString cleaned(const QString &path)
{
    QString clean = QDir::cleanPath(path);
    // The folder above "/" is "/" itself, but QDir leaves these in place.
    while (clean.startsWith(QLatin1String("/../")))
        clean.remove(0, 3);
    return clean == QLatin1String("/..") ? QString(slash) : clean;
}

/** As cleaned(), but keeps the slash at the end, which getRoot() counts. */
QString cleanedWithSlash(const QString &path)
{
    const QString clean = cleaned(path);
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
        const QString clean = cleaned(part);
        if (clean.startsWith(slash) && clean != slash)
            directories.append(clean);
    }
    return directories;
}

/** The table of mounted file systems; empty on systems that have no such file. */
QByteArray readMountTable()
{
    QFile table(QStringLiteral("/proc/self/mounts"));
    return table.open(QIODevice::ReadOnly) ? table.readAll() : QByteArray();
}

/** The table writes blanks, tabs, line ends and backslashes as a backslash and three octal digits.
 */
QByteArray unescaped(const QByteArray &field)
{
    QByteArray text = field;
    for (const char character : {' ', '\t', '\n', '\\'}) {
        const QByteArray digits = QByteArray::number(character, 8).rightJustified(3, '0');
        text.replace('\\' + digits, QByteArray(1, character));
    }
    return text;
}

void askForSize(MountedMemory &memory)
{
    std::error_code error;
    const std::filesystem::space_info space =
        std::filesystem::space(QFile::encodeName(memory.path).constData(), error);
    if (error)
        return;
    memory.freeBytes = static_cast<qint64>(space.available);
    memory.totalBytes = static_cast<qint64>(space.capacity);
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

QList<MountedMemory> MountedVolumes::memories() const
{
    const QStringList withoutDevice = mountPointsWithoutDevice(readMountTable());
    QList<MountedMemory> found;
    for (const QString &directory : m_directories) {
        const QStringList names = QDir(directory).entryList(
            QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks, QDir::Name | QDir::IgnoreCase);
        for (const QString &name : names) {
            MountedMemory memory{name, directory + slash + name};
            if (m_directories.contains(memory.path))
                continue;
            if (!withoutDevice.contains(memory.path))
                askForSize(memory);
            found.append(memory);
        }
    }
    return found;
}

QStringList MountedVolumes::mountPointsWithoutDevice(const QByteArray &mountTable)
{
    QStringList mountPoints;
    const QList<QByteArray> lines = mountTable.split('\n');
    for (const QByteArray &line : lines) {
        const QList<QByteArray> fields = line.split(' ');
        if (fields.size() > 1 && !fields.at(0).startsWith("/dev/"))
            mountPoints.append(QFile::decodeName(unescaped(fields.at(1))));
    }
    return mountPoints;
}

bool MountedVolumes::isSystemDisk(const QString &path) const
{
    return memoryOf(path).isEmpty();
}

QString MountedVolumes::getRoot(const QString &path) const
{
    const QString above = mountDirectoryAbove(cleaned(path));
    if (!above.isEmpty() && above != volumes)
        return memoryOf(path);

    const QString clean = cleanedWithSlash(path);
    const qsizetype first = clean.indexOf(slash, 1);
    if (first < 0)
        return slash;
    const qsizetype second = clean.indexOf(slash, first + 1);
    return second < 0 ? QString() : clean.left(second);
}

bool MountedVolumes::isRoot(const QString &path) const
{
    const QString memory = memoryOf(path);
    if (memory.isEmpty())
        return getRoot(path) == path;
    return cleaned(path) == memory;
}

bool MountedVolumes::isMemory(const QString &path) const
{
    const QString memory = memoryOf(path);
    return !memory.isEmpty() && memory == cleaned(path) && QFileInfo(memory).isDir() &&
           !QFileInfo(memory).isSymLink();
}

QString MountedVolumes::getRootDrivePath(const QString &path) const
{
    const QString above = mountDirectoryAbove(path);
    if (above.isEmpty())
        return {};
    // The name has one character at least, even if that is a slash.
    const QString root = path.left(path.indexOf(slash, above.size() + 2));
    // Dots or slashes in the place of the name must not lead to the system disk.
    return memoryOf(root).isEmpty() ? QString() : root;
}

QString MountedVolumes::memoryOf(const QString &path) const
{
    const QString clean = cleaned(path);
    const QString above = mountDirectoryAbove(clean);
    if (above.isEmpty())
        return {};
    const qsizetype nameEnd = clean.indexOf(slash, above.size() + 1);
    return nameEnd < 0 ? clean : clean.left(nameEnd);
}

QString MountedVolumes::withoutLinks(const QString &path) const
{
    const QString clean = cleaned(path);
    const QFileInfo there(clean);
    const QString real = there.canonicalFilePath();
    if (real.isEmpty())
        return there.isSymLink() ? QString() : clean;
    const QString memory = memoryOf(clean);
    // On macOS a link among the memories leads to the system disk.
    if (!memory.isEmpty() && !QFileInfo(memory).isSymLink()) {
        const QString root = QFileInfo(memory).canonicalFilePath();
        if (real == root || real.startsWith(root + slash))
            return memory + real.mid(root.size());
    }
    return isSystemDisk(real) ? QString() : real;
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
