#include "storage/wholefile.h"

#include "storage/leftovers.h"
#include "storage/safefile.h"

#include <QFile>
#include <QFileInfo>

std::optional<QByteArray> readWholeFile(const QString &path, qint64 maxBytes)
{
    QFile file(path);
    // Anything but a regular file could keep the reader waiting for ever.
    if (!QFileInfo(path).isFile() || !file.open(QFile::ReadOnly | QFile::ExistingOnly))
        return {};
    QByteArray bytes = file.read(maxBytes + 1);
    if (file.error() != QFile::NoError || bytes.size() > maxBytes)
        return {};
    return bytes;
}

bool writeWholeFile(const QString &path, const QByteArray &bytes)
{
    const QFileInfo info(path);
    const QString target = info.exists() ? info.canonicalFilePath() : path;
    if (target.isEmpty() || (isTaken(target) && !QFileInfo(target).isFile()))
        return false;
    QFile temporary;
    if (!createHiddenBeside(temporary, target, Leftovers::temporarySuffix))
        return false;
    if (QFileInfo::exists(target))
        temporary.setPermissions(QFile::permissions(target) | QFile::WriteOwner);
    if (temporary.write(bytes) == bytes.size() && flushToMedium(temporary) &&
        replaceOnMedium(temporary, target))
        return true;
    temporary.close();
    QFile::remove(temporary.fileName());
    return false;
}
