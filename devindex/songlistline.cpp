#include "devindex/songlistline.h"

#include "devindex/index.h"

#include <QVarLengthArray>

QByteArray songListLine(const std::array<QStringView, 4> &fields)
{
    QVarLengthArray<QChar, 256> line;
    for (const QStringView field : fields) {
        line.append(field.data(), field.size());
        line.append(QLatin1Char(';'));
    }
    line.append(QLatin1Char('\n'));
    return QStringView(line).toUtf8();
}

QByteArray songListHeader()
{
    return songListLine(
        {Index::tr("TITOLO"), Index::tr("ARTISTA"), Index::tr("GENERE"), Index::tr("FILE")});
}
