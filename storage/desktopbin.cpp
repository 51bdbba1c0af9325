#include "storage/desktopbin.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QStorageInfo>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace
{

QStorageInfo storageOf(const QString &path)
{
    QFileInfo existing(path);
    while (!existing.exists() && !existing.isRoot())
        existing.setFile(existing.absolutePath());
    return QStorageInfo(existing.absoluteFilePath());
}

/**
 * Qt makes what is missing of a bin, but where it cannot it moves files to wherever the program was
 * started.
 */
bool isUsable(const QString &bin)
{
    for (const char *part : {"files", "info"}) {
        const QString folder = QDir(bin).filePath(QLatin1String(part));
        if (!QDir().mkpath(folder) || !QFileInfo(folder).isWritable())
            return false;
    }
    return true;
}

/** The home's bin is in the folder of the user's data. */
bool hasHomeBin(const QStorageInfo &storage)
{
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    if (storage != storageOf(QDir::homePath()) || storage != storageOf(data))
        return false;
#if defined(Q_OS_MACOS) || defined(Q_OS_WIN)
    return true;
#else
    return isUsable(QDir(data).filePath(QStringLiteral("Trash")));
#endif
}

bool hasBin(const QStorageInfo &storage)
{
#ifdef Q_OS_UNIX
    const QFileInfo bin(
        QDir(storage.rootPath()).filePath(QStringLiteral(".Trash-%1").arg(getuid())));
    return bin.isDir() && !bin.isSymLink() && bin.ownerId() == getuid() && isUsable(bin.filePath());
#else
    return false;
#endif
}

} // namespace

bool desktopbin::take(const QString &path)
{
    const QStorageInfo storage = storageOf(QFileInfo(path).absolutePath());
    return storage.isValid() && (hasHomeBin(storage) || hasBin(storage)) &&
           QFile::moveToTrash(path);
}
