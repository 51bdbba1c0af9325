// Makes names of files, and texts from files, safe to be shown.
#pragma once

#include <QByteArray>
#include <QString>

/**
 * The bytes of a file's name as text. A byte that is no part of valid UTF-8 becomes "\x" and two
 * hexadecimal digits.
 */
QString shownName(const QByteArray &name);

/**
 * The text on one line: a line feed becomes a blank, any other control character, which could
 * command a terminal, becomes "?".
 */
QString onOneLine(const QString &text);
