// The text of a file's name.
#pragma once

#include <QByteArrayView>
#include <QString>

/**
 * The text of a valid UTF-8 file name as Qt's file classes need it to find the file again: a byte
 * order mark at its beginning is part of the name.
 */
inline QString nameText(QByteArrayView name)
{
    constexpr char16_t byteOrderMark = 0xFEFF;
    if (!name.startsWith("\xEF\xBB\xBF"))
        return QString::fromUtf8(name);
    return QChar(byteOrderMark) + QString::fromUtf8(name.sliced(3));
}
