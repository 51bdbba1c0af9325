// Steps between the 8-bit text of song and index files and QString.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringList>

/**
 * The text of a fixed or length-prefixed field: cut at the first zero byte, taken as Latin-1
 * (ISO/IEC 8859-1), white space stripped at both ends.
 */
QString textFromBytes(QByteArrayView field);

/**
 * The Latin-1 bytes of a text; a character outside Latin-1 becomes "?" (two of them where it
 * takes two UTF-16 units, so that a text cut to n units never exceeds n bytes).
 */
QByteArray bytesFromText(QStringView text);

/** Writes the first of these bytes into a field, at most size of them and no more than there are.
 */
void putBytesFromText(QStringView text, char *field, qsizetype size);

/**
 * The characters of the text that Latin-1 does not hold, so that no song file can and the player
 * does not show them: bytesFromText makes "?" of them. Each one once, in the order in which they
 * first appear; one that takes two UTF-16 units stays whole.
 */
QStringList charactersOutsideLatin1(const QString &text);

/**
 * The number of a decimal text, such as a length or a tempo: 0 when the text is no integer, is
 * negative or does not fit 32 bits. A leading "+" and white space around are accepted.
 */
qint32 countFromText(const QString &text);
