#include "devindex/memorydevice.h"

#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

QByteArray memoryDevice(const QString &folder)
{
    struct stat status = {};
    if (::stat(QFile::encodeName(folder).constData(), &status) != 0 || !S_ISDIR(status.st_mode))
        return {};
    return QByteArray::number(static_cast<qulonglong>(status.st_dev), 16);
}

bool isOnMemory(const QString &folder, const QString &root)
{
    const QString real = QFileInfo(folder).canonicalFilePath();
    const QString realRoot = QFileInfo(root).canonicalFilePath();
    return QFileInfo(folder).isDir() && !realRoot.isEmpty() &&
           (real == realRoot || real.startsWith(realRoot + QLatin1Char('/')));
}
