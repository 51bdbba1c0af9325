#include "storage/folderid.h"

#include <QFile>
#include <QFileInfo>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

#ifdef Q_OS_UNIX

namespace
{

using FileStatus = struct stat;

FolderId idOf(const FileStatus &status)
{
    if (!S_ISDIR(status.st_mode))
        return {};
    return QByteArray::number(static_cast<qulonglong>(status.st_dev), 16) + '.' +
           QByteArray::number(static_cast<qulonglong>(status.st_ino), 16);
}

} // namespace

FolderId folderIdOf(const QString &path)
{
    FileStatus status{};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 ? idOf(status) : FolderId();
}

FolderId folderIdOf(int handle)
{
    FileStatus status{};
    return ::fstat(handle, &status) == 0 ? idOf(status) : FolderId();
}

#else

FolderId folderIdOf(const QString &path)
{
    return QFileInfo(path).canonicalFilePath().toUtf8();
}

#endif
