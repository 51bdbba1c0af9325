// The interface languages of this branding. Italian is the language of the source texts.
#pragma once

#include <QString>

namespace translation
{
inline const QString italian = QStringLiteral("it");
inline const QString english = QStringLiteral("en");
inline const QString german = QStringLiteral("de");

/**
 * Makes German or, for every other value, English the language of the program's texts, of those of
 * Qt's own windows and key names, and of numbers and dates; what an earlier call installed is taken
 * out. Needs the application object, which owns the translators. A translation that cannot be
 * loaded leaves the texts of the sources.
 */
void use(const QString &language);
} // namespace translation
