#include "cli/language.h"

#include "library/branding.h"

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
QString languageOf(const QByteArray &locale)
{
    const QByteArray rest = locale.mid(2);
    const bool isWhole =
        rest.isEmpty() || rest.startsWith('_') || rest.startsWith('.') || rest.startsWith('@');
    return isWhole ? QString::fromLatin1(locale.left(2)) : QString();
}

} // namespace

Language::Language()
{
    const QString language = languageOf(wantedLocale());
    if (language == languages::italian && !branding().languages.contains(language))
        return; // the texts of the sources will do
    if (m_translator.load(branding().translation(language)))
        QCoreApplication::installTranslator(&m_translator);
}
