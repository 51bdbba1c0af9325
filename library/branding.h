// What differs between the brandings of the program. Which one it carries is fixed when it is
// built.
#pragma once

#include <QString>
#include <QStringList>

namespace languages
{
inline const QString italian = QStringLiteral("it"); ///< that of the texts in the sources
inline const QString english = QStringLiteral("en");
inline const QString german = QStringLiteral("de");
} // namespace languages

/** The files are named by their paths in the resources. */
struct Branding {
    QString productLogo; ///< of the main window, at the left
    QString makerLogo;   ///< at the right
    QString aboutLogo;
    QStringList languages; ///< that the menu offers; the first one is that of a first start
    QString translations;  ///< what comes before the language
    QStringList helpLanguages;
    QString helpPages;    ///< what comes before the language
    QString helpPictures; ///< of this branding only; what comes before the language
    bool asksCopyright;   ///< before a synchronisation, unless the user has chosen

    QString firstLanguage() const { return languages.constFirst(); }

    /** The language of the texts for one that was chosen: English for every other one. */
    QString shownLanguage(const QString &language) const
    {
        return languages.contains(language) ? language : languages::english;
    }

    QString translation(const QString &language) const
    {
        return translations + shownLanguage(language);
    }

    QString helpPage(const QString &language) const
    {
        return helpPages + (helpLanguages.contains(language) ? language : languages::english) +
               QStringLiteral(".html");
    }

    /**
     * Where the pictures of that help page are, in the order to look. A picture that shows neither
     * name nor logo is the same in each branding. What the program does not show in the language it
     * shows in English.
     */
    QStringList helpPicturePaths(const QString &language) const
    {
        return {helpPictures + language, QStringLiteral(":/help/") + language,
                helpPictures + languages::english};
    }
};

/** The branding of this build. */
const Branding &branding();
