// The language of the interface.
#pragma once

#include "library/branding.h" // the languages

#include <QString>

namespace translation
{
/**
 * Makes a language that the branding offers or, for every other value, English that of the
 * program's texts, of those of Qt's own windows and key names, and of numbers and dates; what an
 * earlier call installed is taken out. Needs the application object, which owns the translators. A
 * translation that cannot be loaded leaves the texts of the sources.
 */
void use(const QString &language);
} // namespace translation
