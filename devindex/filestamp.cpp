#include "devindex/filestamp.h"

#include "devindex/indexrecords.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace
{

FileStamp stampOf(int year, int month, int day, int hour, int minute, int second)
{
    // A year of five digits could not be noted, and would look like a change at every update.
    const qint64 date = qint64(year) * 10000 + qint64(month) * 100 + day;
    FileStamp stamp;
    stamp.date = static_cast<quint32>(std::clamp<qint64>(date, 0, PathRecord::maxDate));
    stamp.time = static_cast<quint32>(hour * 10000 + minute * 100 + second);
    return stamp;
}

} // namespace

#ifdef Q_OS_UNIX

// Every song of a memory is asked for its time at every update. QFileInfo takes three times as
// long: it looks at the system's time zone anew for each file.
std::optional<FileStamp> FileStamp::of(const QString &path)
{
    struct stat status {
    };
    if (::stat(QFile::encodeName(path).constData(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    return at(status.st_mtime);
}

FileStamp FileStamp::at(std::time_t moment)
{
    static const bool zoneIsKnown = (::tzset(), true);
    Q_UNUSED(zoneIsKnown)
    struct tm local {
    };
    if (::localtime_r(&moment, &local) == nullptr)
        return FileStamp();
    return stampOf(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour,
                   local.tm_min, local.tm_sec);
}

#else

std::optional<FileStamp> FileStamp::of(const QString &path)
{
    const QFileInfo file(path);
    if (!file.isFile())
        return std::nullopt;
    return at(static_cast<std::time_t>(file.lastModified().toSecsSinceEpoch()));
}

FileStamp FileStamp::at(std::time_t moment)
{
    const QDateTime modified = QDateTime::fromSecsSinceEpoch(moment);
    if (!modified.isValid())
        return FileStamp();
    const QDate date = modified.date();
    const QTime time = modified.time();
    return stampOf(date.year(), date.month(), date.day(), time.hour(), time.minute(),
                   time.second());
}

#endif
