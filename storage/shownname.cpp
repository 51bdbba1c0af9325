#include "storage/shownname.h"

#include <QByteArrayView>

namespace
{

constexpr qsizetype longestUtf8Sequence = 4;

/** How many bytes of the valid character stand at the beginning; 0 when there is none. */
qsizetype characterSize(QByteArrayView bytes)
{
    for (qsizetype size = 1; size <= qMin(longestUtf8Sequence, bytes.size()); ++size) {
        if (bytes.first(size).isValidUtf8())
            return size;
    }
    return 0;
}

} // namespace

QString shownName(const QByteArray &name)
{
    if (name.isValidUtf8())
        return QString::fromUtf8(name);
    QString text;
    QByteArrayView left(name);
    while (!left.isEmpty()) {
        const qsizetype size = characterSize(left);
        if (size > 0)
            text += QString::fromUtf8(left.first(size));
        else
            text += QStringLiteral("\\x%1").arg(static_cast<quint8>(left.front()), 2, 16,
                                                QLatin1Char('0'));
        left = left.sliced(qMax(size, qsizetype{1}));
    }
    return text;
}

QString onOneLine(const QString &text)
{
    QString line = text;
    for (QChar &character : line) {
        if (character == QLatin1Char('\n'))
            character = QLatin1Char(' ');
        else if (character.category() == QChar::Other_Control)
            character = QLatin1Char('?');
    }
    return line;
}
