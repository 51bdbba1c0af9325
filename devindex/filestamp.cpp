#include "devindex/filestamp.h"

#include "devindex/indexrecords.h"

#include <QDateTime>
#include <QFileInfo>

#include <algorithm>

FileStamp FileStamp::of(const QFileInfo &file)
{
    const QDateTime modified = file.lastModified();
    if (!modified.isValid())
        return {};
    const QDate date = modified.date();
    const QTime time = modified.time();
    const int days = date.year() * 10000 + date.month() * 100 + date.day();
    const int seconds = time.hour() * 10000 + time.minute() * 100 + time.second();
    // A year of five digits could not be noted, and would look like a change at every update.
    return {static_cast<quint32>(std::clamp(days, 0, int(PathRecord::MaxDate))),
            static_cast<quint32>(seconds)};
}
