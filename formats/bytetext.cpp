#include "formats/bytetext.h"

#include <algorithm>

QString textFromBytes(QByteArrayView field)
{
    const qsizetype end = field.indexOf('\0');
    return QString::fromLatin1(end < 0 ? field : field.first(end)).trimmed();
}

QByteArray bytesFromText(QStringView text)
{
    QByteArray bytes(text.size(), Qt::Uninitialized);
    putBytesFromText(text, bytes.data(), bytes.size());
    return bytes;
}

void putBytesFromText(QStringView text, char *field, qsizetype size)
{
    const QStringView written = text.first(std::min(size, text.size()));
    std::transform(written.begin(), written.end(), field, [](QChar character) {
        return character.unicode() <= 0xFF ? static_cast<char>(character.unicode()) : '?';
    });
}

QStringList charactersOutsideLatin1(const QString &text)
{
    constexpr char16_t lastLatin1 = 0xFF;
    QStringList found;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text.at(i).unicode() <= lastLatin1)
            continue;
        const bool isPair =
            text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
        const QString character = text.mid(i, isPair ? 2 : 1);
        i += character.size() - 1;
        if (!found.contains(character))
            found.append(character);
    }
    return found;
}

qint32 countFromText(const QString &text)
{
    bool ok = false;
    const int value = text.toInt(&ok, 10);
    return ok && value > 0 ? value : 0;
}
