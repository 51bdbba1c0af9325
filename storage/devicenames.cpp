#include "storage/devicenames.h"

#include <QStringList>

bool devicenames::isDevice(const QString &name)
{
    const QString base = name.section(QLatin1Char('.'), 0, 0).toUpper();
    static const QStringList devices = {QStringLiteral("CON"), QStringLiteral("PRN"),
                                        QStringLiteral("AUX"), QStringLiteral("NUL")};
    const bool isPort =
        base.size() == 4 &&
        (base.startsWith(QLatin1String("COM")) || base.startsWith(QLatin1String("LPT"))) &&
        base.at(3) >= QLatin1Char('1') && base.at(3) <= QLatin1Char('9');
    return isPort || devices.contains(base);
}
