#include "formats/safefile.h"

#include <QCryptographicHash>
#include <QFileInfo>
#include <QRandomGenerator>

#include <filesystem>
#include <system_error>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace
{

QString uniqueHiddenBeside(const QString &path, QLatin1String suffix)
{
    const QByteArray random =
        QByteArray::number(QRandomGenerator::system()->generate(), 16).rightJustified(8, '0');
    const QByteArray ending = random + '.' + QByteArray(suffix.data(), suffix.size());
    return hiddenBeside(path, QLatin1String(ending));
}

} // namespace

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

/** Neither follows a link nor waits; the QFile closes the handle. */
bool openHandle(QFile &file, const QByteArray &path, int flags)
{
    const int handle = ::open(path.constData(), flags | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (handle < 0)
        return false;
    const QFile::OpenMode access = flags == O_RDONLY ? QFile::ReadOnly : QFile::ReadWrite;
    if (file.open(handle, access | QFile::Unbuffered, QFile::AutoCloseHandle))
        return true;
    ::close(handle);
    return false;
}

} // namespace

Found openOwnFile(QFile &file, const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    struct stat status {
    };
    if (::lstat(name.constData(), &status) != 0)
        return Found::Nothing;
    // Opening a device may already set something off.
    if (!S_ISREG(status.st_mode))
        return Found::SomethingElse;
    if (!openHandle(file, name, O_RDWR) && !openHandle(file, name, O_RDONLY))
        return Found::Unreadable;
    if (::fstat(file.handle(), &status) == 0 && S_ISREG(status.st_mode) && status.st_nlink <= 1)
        return Found::Opened;
    file.close();
    return Found::SomethingElse;
}

bool removeUnheld(const QString &path)
{
    QFile file;
    return openOwnFile(file, path) == Found::Opened &&
           ::flock(file.handle(), LOCK_EX | LOCK_NB) == 0 && QFile::remove(path);
}

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

Found openOwnFile(QFile &file, const QString &path)
{
    const QFileInfo info(path);
    if (!isTaken(path))
        return Found::Nothing;
    if (!info.isFile() || info.isSymLink())
        return Found::SomethingElse;
    file.setFileName(path);
    const bool opened = file.open(QFile::ReadWrite | QFile::ExistingOnly | QFile::Unbuffered) ||
                        file.open(QFile::ReadOnly | QFile::Unbuffered);
    return opened ? Found::Opened : Found::Unreadable;
}

bool removeUnheld(const QString &path)
{
    // A file that a running program has open cannot be removed here.
    const QFileInfo info(path);
    return info.isFile() && !info.isSymLink() && QFile::remove(path);
}

#endif

bool createHeld(QFile &file)
{
    if (file.open(QFile::ReadWrite | QFile::NewOnly | QFile::Unbuffered,
                  QFile::ReadOwner | QFile::WriteOwner) &&
        holdFile(file))
        return true;
    file.close();
    return false;
}

bool createHiddenBeside(QFile &file, const QString &path, QLatin1String suffix)
{
    constexpr int attempts = 100;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        file.setFileName(uniqueHiddenBeside(path, suffix));
        if (!file.open(QFile::ReadWrite | QFile::NewOnly | QFile::Unbuffered)) {
            if (!isTaken(file.fileName()))
                return false;
        } else if (holdFile(file)) {
            return true;
        }
        file.close();
    }
    return false;
}

bool renameOver(const QString &from, const QString &to)
{
    std::error_code error;
    std::filesystem::rename(QFileInfo(from).filesystemFilePath(),
                            QFileInfo(to).filesystemFilePath(), error);
    return !error;
}

bool renameOver(QFile &file, const QString &to)
{
#ifndef Q_OS_UNIX
    file.close();
#endif
    const bool renamed = renameOver(file.fileName(), to);
    file.close();
    return renamed;
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
