// Steps between the 8-bit text of song and index files and QString.
#pragma once

#include <QByteArray>
#include <QString>

/**
 * The text of a fixed or length-prefixed field: cut at the first zero byte, taken as Latin-1
 * (ISO/IEC 8859-1), white space stripped at both ends.
 */
QString textFromBytes(const QByteArray &field);

/** The Latin-1 bytes of a text; a character outside Latin-1 becomes "?". */
QByteArray bytesFromText(const QString &text);

/**
 * The number of a decimal text, such as a length or a tempo: 0 when the text is no integer, is
 * negative or does not fit 32 bits. A leading "+" is accepted.
 */
qint32 countFromText(const QString &text);
