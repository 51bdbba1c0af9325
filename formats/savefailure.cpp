#include "formats/savefailure.h"

#include "storage/songfilewriter.h"

#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>

#include <cerrno>

namespace
{

/** None for a number that tells a user nothing. */
SaveFailure failureOfNumber(int systemError)
{
    switch (systemError) {
    case EROFS:
        return SaveFailure::ReadOnly;
#ifdef EDQUOT
    case EDQUOT:
#endif
    case EFBIG:
    case ENOSPC:
        return SaveFailure::DiskFull;
    case ENODEV:
    case ENOENT:
    case ENOTDIR:
    case ENXIO:
        return SaveFailure::FileGone;
    case EACCES:
    case EPERM:
        return SaveFailure::NoPermission;
    case EAGAIN: // a lock that another program holds
    case EBUSY:
    case ETXTBSY:
        return SaveFailure::InUse;
    case EIO:
        return SaveFailure::MediumFailed;
    default:
        return SaveFailure::None;
    }
}

} // namespace

SaveFailure saveFailureFrom(int systemError, const QString &path)
{
    const SaveFailure known = failureOfNumber(systemError);
    if (known != SaveFailure::None)
        return known;
    if (!QFileInfo::exists(path))
        return SaveFailure::FileGone;
    if (SongFileWriter::isBeingSaved(path))
        return SaveFailure::InUse;
    if (QStorageInfo(QFileInfo(path).path()).isReadOnly())
        return SaveFailure::ReadOnly;
    return SaveFailure::Other;
}

SaveFailure loadFailureOf(const QString &path)
{
    const QFileInfo info(path);
    if (info.exists() && !info.isFile())
        return SaveFailure::Unreadable;
    QFile file(path);
    if (!file.open(QFile::ReadOnly))
        return saveFailureFrom(errno, path);
    return SongFileWriter::isBeingSaved(path) ? SaveFailure::InUse : SaveFailure::Unreadable;
}
