#include "formats/bytetext.h"

QString textFromBytes(QByteArrayView field)
{
    const qsizetype end = field.indexOf('\0');
    return QString::fromLatin1(end < 0 ? field : field.first(end)).trimmed();
}

QByteArray bytesFromText(const QString &text)
{
    return text.toLatin1();
}

qint32 countFromText(const QString &text)
{
    bool ok = false;
    const int value = text.toInt(&ok, 10);
    return ok && value > 0 ? value : 0;
}
