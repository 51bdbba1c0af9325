#include "storage/safefile.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QRandomGenerator>

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

#ifdef Q_OS_LINUX
#include <sys/vfs.h>
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

/**
 * Network and user-space file systems tell as late as at close() that bytes did not arrive, and
 * QFile does not listen. They tell it at each close of the file, that of a second handle included.
 */
bool closesWell(int handle)
{
    const int second = ::dup(handle);
    return second >= 0 && ::close(second) == 0;
}

enum class Links { Refuse, Follow };

/** Waits for nothing; the QFile closes the handle. */
bool openHandle(QFile &file, const QByteArray &path, int flags, Links links = Links::Refuse)
{
    if (links == Links::Refuse)
        flags |= O_NOFOLLOW;
    const int handle = ::open(path.constData(), flags | O_NONBLOCK | O_CLOEXEC);
    if (handle < 0)
        return false;
    const QFile::OpenMode access =
        (flags & O_ACCMODE) == O_RDONLY ? QFile::ReadOnly : QFile::ReadWrite;
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
    // Opening a device can have effects of its own, such as rewinding a tape.
    if (!S_ISREG(status.st_mode))
        return Found::SomethingElse;
    if (!openHandle(file, name, O_RDWR) && !openHandle(file, name, O_RDONLY))
        return Found::Unreadable;
    if (::fstat(file.handle(), &status) == 0 && S_ISREG(status.st_mode) && status.st_nlink <= 1)
        return Found::Opened;
    file.close();
    return Found::SomethingElse;
}

bool removeUnheld(const QString &path, const MayGo &mayGo)
{
    QFile file;
    return openOwnFile(file, path) == Found::Opened &&
           ::flock(file.handle(), LOCK_EX | LOCK_NB) == 0 && (!mayGo || mayGo(file)) &&
           QFile::remove(path);
}

bool flushToMedium(QFile &file)
{
    return file.flush() && flushHandle(file.handle()) && closesWell(file.handle());
}

bool hasArrived(QFile &file)
{
    return file.flush() && closesWell(file.handle());
}

bool flushPath(const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    int handle = ::open(name.constData(), O_RDONLY | O_CLOEXEC);
    if (handle < 0 && errno == EACCES)
        handle = ::open(name.constData(), O_WRONLY | O_CLOEXEC);
    if (handle < 0)
        return errno == EISDIR; // files may be made in a folder that may not be read
    const bool flushed = flushHandle(handle);
    return ::close(handle) == 0 && flushed;
}

bool flushFolderOf(const QString &path)
{
    return flushPath(QFileInfo(path).path());
}

std::unique_ptr<QFile> keepBytesOf(const QString &path)
{
    // A pipe would make the program wait for its other end, and has no bytes on the medium.
    if (!QFileInfo(path).isFile())
        return nullptr;
    auto file = std::make_unique<QFile>();
    struct stat status {
    };
    const bool isKept = openHandle(*file, QFile::encodeName(path), O_RDONLY, Links::Follow) &&
                        ::fstat(file->handle(), &status) == 0 && S_ISREG(status.st_mode);
    return isKept ? std::move(file) : nullptr;
}

bool holdFile(QFile &file)
{
    if (::flock(file.handle(), LOCK_EX | LOCK_NB) != 0)
        return errno != EWOULDBLOCK;
    struct stat status {
    };
    if (::fstat(file.handle(), &status) != 0 || status.st_nlink > 0)
        return true;
    errno = EBUSY;
    return false;
}

#else

bool flushToMedium(QFile &file)
{
    return file.flush();
}

bool hasArrived(QFile &file)
{
    return file.flush();
}

bool flushPath(const QString &)
{
    return true;
}

bool flushFolderOf(const QString &)
{
    return true;
}

std::unique_ptr<QFile> keepBytesOf(const QString &)
{
    return nullptr; // no file takes the name of an open one there
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

bool removeUnheld(const QString &path, const MayGo &mayGo)
{
    QFile file;
    if (openOwnFile(file, path) != Found::Opened || (mayGo && !mayGo(file)))
        return false;
    file.close();
    // A file that a running program has open cannot be removed here.
    return QFile::remove(path);
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
    return renameOver(file.fileName(), to);
}

bool replaceOnMedium(QFile &from, const QString &to)
{
    const auto oldBytes = keepBytesOf(to);
    const bool renamed = renameOver(from, to);
    from.close();
    if (!renamed)
        return false;
    // When one flush fails, the following ones are still done.
    bool flushed = !oldBytes || flushFolderOf(to);
    flushed = flushPath(to) && flushed;
    return flushFolderOf(to) && flushed;
}

bool makeFolder(const QString &path)
{
    return QDir().mkdir(path) && flushPath(path) && flushFolderOf(path);
}

FileSystemFlush::FileSystemFlush(const QString &folder)
{
#ifdef Q_OS_LINUX
    // The file systems that the kernel writes itself, and brings to the medium whole.
    constexpr std::array<quint32, 8> known{0x4D44,     // FAT
                                           0x2011BAB0, // exFAT
                                           0xEF53,     // ext2 to ext4
                                           0x9123683E, // Btrfs
                                           0x58465342, // XFS
                                           0xF2F52010, // F2FS
                                           0x7366746E, // NTFS
                                           0x01021994};
    m_handle = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_CLOEXEC);
    struct statfs system {
    };
    m_works =
        m_handle >= 0 && ::fstatfs(m_handle, &system) == 0 &&
        std::find(known.begin(), known.end(), static_cast<quint32>(system.f_type)) != known.end();
#else
    Q_UNUSED(folder)
#endif
}

FileSystemFlush::~FileSystemFlush()
{
#ifdef Q_OS_LINUX
    if (m_handle >= 0)
        ::close(m_handle);
#endif
}

bool FileSystemFlush::flush() const
{
#ifdef Q_OS_LINUX
    // The folder's own flush makes a disk write what it still holds in a buffer of its own.
    return m_works && ::syncfs(m_handle) == 0 && flushHandle(m_handle);
#else
    return false;
#endif
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
#ifdef Q_OS_UNIX
    struct stat status {
    };
    return ::lstat(QFile::encodeName(path).constData(), &status) == 0;
#else
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
#endif
}
