// A catalogue of the user's own with entries whose pages are damaged.
#pragma once

#include "library/owncatalogue.h"
#include "support/shorttext.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace damagedcatalogue
{

/** The page with the table's layout stays whole; all that follow are written over. */
inline bool write(const QString &path)
{
    if (!QDir().mkpath(QFileInfo(path).path()))
        return false;
    {
        OwnCatalogue own(path);
        QList<SongsDbRecord> entries;
        for (int number = 0; number < 200; ++number) {
            SongsDbRecord entry;
            entry.filename = s("S%1").arg(number);
            entry.title = s("Title %1 ").arg(number) + QString(100, QLatin1Char('t'));
            entries.append(entry);
        }
        if (own.openOrMake() != OwnCatalogue::State::Ready || !own.put(entries))
            return false;
    }
    constexpr qint64 firstPage = 4096;
    QFile file(path);
    if (!file.open(QFile::ReadWrite) || file.size() <= firstPage || !file.seek(firstPage))
        return false;
    const QByteArray damage(static_cast<qsizetype>(file.size() - firstPage), '\x55');
    return file.write(damage) == damage.size();
}

} // namespace damagedcatalogue
