#include "cli/language.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

namespace
{

QByteArray wantedLocale()
{
    for (const char *const variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        QByteArray value = qgetenv(variable);
        if (!value.isEmpty())
            return value;
    }
    return {};
}

/** The locale begins with the language, which stands alone or before "_", "." or "@". */
bool isLanguage(const QByteArray &locale, const char *language)
{
    const QByteArray rest = locale.mid(2);
    return locale.startsWith(language) &&
           (rest.isEmpty() || rest.startsWith('_') || rest.startsWith('.') || rest.startsWith('@'));
}

} // namespace

Language::Language()
{
    const QByteArray locale = wantedLocale();
    if (isLanguage(locale, "it"))
        return; // the language of the texts in the program
    const bool isGerman = isLanguage(locale, "de");
    if (m_translator.load(isGerman ? QStringLiteral(":/trans/quorvane_de")
                                   : QStringLiteral(":/trans/quorvane_en")))
        QCoreApplication::installTranslator(&m_translator);
}
