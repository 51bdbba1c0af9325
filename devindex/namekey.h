// When two names mean one file on a memory.
#pragma once

#include <QString>

/**
 * The same for two paths exactly when the memory takes them for one: letter case does not count,
 * nor whether an accent is a character of its own. "ß" and "ss" stay two names.
 */
QString nameKey(const QString &path);
