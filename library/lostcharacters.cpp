#include "library/lostcharacters.h"

#include "formats/bytetext.h"

#include <QChar>
#include <QStringList>

namespace
{

/**
 * A combining mark would be drawn on the comma before it, a space or half a character would not be
 * visible.
 */
bool hasPicture(char32_t character)
{
    return QChar::isPrint(character) && !QChar::isSpace(character) && !QChar::isMark(character) &&
           !QChar::isSurrogate(character);
}

} // namespace

QString lostCharacters(const QString &text)
{
    QStringList names;
    for (const QString &character : charactersOutsideLatin1(text)) {
        const char32_t number = character.toUcs4().value(0);
        const char32_t unit = character.size() == 1 ? character.at(0).unicode() : number;
        names.append(hasPicture(unit) ? character
                                      : QStringLiteral("U+%1")
                                            .arg(static_cast<uint>(unit), 4, 16, QLatin1Char('0'))
                                            .toUpper());
    }
    return names.join(QStringLiteral(", "));
}
