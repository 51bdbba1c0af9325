// The interface languages of this branding. Italian is the language of the source texts.
#pragma once

#include <QString>

class QTranslator;

namespace translation
{
inline const QString italian = QStringLiteral("it");
inline const QString english = QStringLiteral("en");
inline const QString german = QStringLiteral("de");

/** Puts the program's German texts and those of Qt's own dialogs in front of what is installed. */
void installGerman(QTranslator &program, QTranslator &qt);

/** Puts the program's English texts in front of what is installed; Qt itself speaks English. */
void installEnglish(QTranslator &program);
} // namespace translation
