#include "storage/safefile.h"

#include <QCryptographicHash>
#include <QFileInfo>

#include <filesystem>
#include <system_error>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

#ifdef Q_OS_UNIX

namespace
{

bool flushHandle(int handle)
{
#ifdef F_FULLFSYNC
    // macOS leaves the bytes in the drive's own buffer unless asked like this.
    if (::fcntl(handle, F_FULLFSYNC) == 0)
        return true;
#endif
    // Some file systems cannot flush a single file or a folder; they say so with these two codes.
    return ::fsync(handle) == 0 || errno == EINVAL || errno == ENOTSUP;
}

} // namespace

bool flushToMedium(QFile &file)
{
    return file.flush() && flushHandle(file.handle());
}

bool flushFolderOf(const QString &path)
{
    const QByteArray folder = QFile::encodeName(QFileInfo(path).path());
    const int handle = ::open(folder.constData(), O_RDONLY | O_CLOEXEC);
    if (handle < 0)
        return errno == EACCES; // files may be made in a folder that may not be read
    const bool flushed = flushHandle(handle);
    ::close(handle);
    return flushed;
}

bool holdFile(QFile &file)
{
    if (::flock(file.handle(), LOCK_EX | LOCK_NB) != 0)
        return errno != EWOULDBLOCK;
    struct stat status {
    };
    return ::fstat(file.handle(), &status) != 0 || status.st_nlink > 0;
}

#else

bool flushToMedium(QFile &file)
{
    return file.flush();
}

bool flushFolderOf(const QString &)
{
    return true;
}

bool holdFile(QFile &)
{
    return true;
}

#endif

bool renameOver(const QString &from, const QString &to)
{
    std::error_code error;
    std::filesystem::rename(QFileInfo(from).filesystemFilePath(),
                            QFileInfo(to).filesystemFilePath(), error);
    return !error;
}

QString hiddenBeside(const QString &path, QLatin1String suffix)
{
    constexpr qsizetype longestFileName = 255;
    const QFileInfo info(path);
    QByteArray name = info.fileName().toUtf8();
    if (name.size() + 2 + suffix.size() > longestFileName)
        name = QCryptographicHash::hash(name, QCryptographicHash::Sha1).toHex();
    return info.path() + QLatin1String("/.") + QString::fromUtf8(name) + QLatin1Char('.') + suffix;
}

bool isTaken(const QString &path)
{
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
}
