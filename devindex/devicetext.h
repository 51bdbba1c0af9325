// Text as the player stores and orders it.
#pragma once

#include <QByteArray>
#include <QString>

/**
 * The text in upper case, with every "ß" kept: the player's character set holds it as one character
 * and "SS" would change the length and the place of a name.
 */
QString stringToUpper(QString text);

/**
 * Compares two texts by their characters, ignoring case, with the result of QString::compare: below
 * 0, 0 or above. Equal characters are not looked up in Unicode's tables, which makes it fast.
 */
int compareIgnoringCase(const QString &first, const QString &second);

/**
 * Appends bytes whose order is that of compareIgnoringCase: the case-folded UTF-16 units, each in
 * as many bytes as UTF-8 would take for it. Most texts take one byte for a character.
 */
void appendSortKey(QByteArray &key, const QString &text);

/** The bytes of a path in code page IBM 850; a character outside it becomes "?". */
QByteArray ibm850FromText(const QString &text);

/** The text of IBM 850 bytes; every byte stands for a character. */
QString textFromIbm850(const QByteArray &bytes);

/**
 * True for a song below the folder, by its path as it stands in an index, which may hold "?" for
 * characters of the folder. Both paths begin with "/"; an empty folder is the root.
 */
bool isBelowFolder(const QString &indexedPath, const QString &folder);

/**
 * The bytes by which the player orders paths: the upper-cased path in IBM 850, compared as unsigned
 * characters.
 */
QByteArray pathSortKey(const QString &path);
