// How amounts of data are shown.
#pragma once

#include <QLocale>
#include <QString>

/** A number of bytes as people read it, in powers of 1000 as memories are sold: "1.5 GB". */
inline QString sizeText(qint64 bytes)
{
    return QLocale().formattedDataSize(bytes, 1, QLocale::DataSizeSIFormat);
}
