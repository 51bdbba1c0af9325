#include "devindex/memorydevice.h"

#include <QFile>

#include <sys/stat.h>

QByteArray memoryDevice(const QString &folder)
{
    struct stat status = {};
    if (::stat(QFile::encodeName(folder).constData(), &status) != 0 || !S_ISDIR(status.st_mode))
        return {};
    return QByteArray::number(static_cast<qulonglong>(status.st_dev), 16);
}
