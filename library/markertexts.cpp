#include "library/markertexts.h"

#include "library/database.h"

namespace
{

const QLatin1String percent("%");
const QLatin1String semicolon(";");
const QLatin1String writtenPercent("%25");
const QLatin1String writtenSemicolon("%3B");

} // namespace

QString markertexts::toText(const QList<Marker> &markers)
{
    QString joined;
    for (const Marker &marker : markers) {
        QString text = marker.text;
        text.replace(percent, writtenPercent).replace(semicolon, writtenSemicolon);
        joined += QString::number(marker.bar) + semicolon +
                  (text.isEmpty() ? QString(percent) : text) + semicolon;
    }
    return joined;
}

QList<Marker> markertexts::fromText(const QString &text)
{
    QList<Marker> markers;
    Database::splitMarkers(text, markers);
    for (Marker &marker : markers) {
        if (marker.text == percent)
            marker.text.clear();
        marker.text.replace(writtenSemicolon, semicolon).replace(writtenPercent, percent);
    }
    return markers;
}
