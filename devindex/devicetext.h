// Text as the player stores and orders it.
#pragma once

#include <QByteArray>
#include <QString>

/**
 * The text in upper case, with every "ß" kept: the player's character set holds it as one character
 * and "SS" would change the length and the place of a name.
 */
QString stringToUpper(const QString &text);

/**
 * The order of two texts by their code points, ignoring case, as QString::compare gives it: below
 * 0, 0 or above. The player's lists are sorted by it, a song at a time, so it is made for speed.
 */
int compareIgnoringCase(const QString &first, const QString &second);

/** The bytes of a path in code page IBM 850; a character outside it becomes "?". */
QByteArray ibm850FromText(const QString &text);

/** The text of IBM 850 bytes; every byte stands for a character. */
QString textFromIbm850(const QByteArray &bytes);

/**
 * The bytes by which the player orders paths: the upper-cased path in IBM 850, compared as unsigned
 * characters.
 */
QByteArray pathSortKey(const QString &path);
