#include "formats/closespelling.h"

#include "formats/bytetext.h"

#include <memory>
#include <unicode/translit.h>
#include <unicode/unistr.h>

namespace
{

/** ICU's rules of this name; the text itself where the system has none. */
QString transliterated(const QString &text, const icu::Transliterator *rules)
{
    if (rules == nullptr)
        return text;
    icu::UnicodeString changed(QStringView(text).utf16(), static_cast<int32_t>(text.size()));
    rules->transliterate(changed);
    return QString::fromUtf16(changed.getBuffer(), changed.length());
}

std::unique_ptr<icu::Transliterator> rulesOf(const char *name)
{
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Transliterator> rules(icu::Transliterator::createInstance(
        icu::UnicodeString::fromUTF8(name), UTRANS_FORWARD, status));
    return U_SUCCESS(status) ? std::move(rules) : nullptr;
}

bool isLatin1(const QString &text)
{
    return charactersOutsideLatin1(text).isEmpty();
}

/** Each character that ISO-8859-1 does not have, spelled with those of ASCII. */
QString withoutOtherLetters(const QString &text)
{
    static const std::unique_ptr<icu::Transliterator> toAscii =
        rulesOf("Latin-ASCII; NFD; "
                "[:Nonspacing Mark:] Remove");
    QString spelled;
    for (qsizetype pos = 0; pos < text.size();) {
        const bool isPair = text.at(pos).isHighSurrogate() && pos + 1 < text.size() &&
                            text.at(pos + 1).isLowSurrogate();
        const QString character = text.mid(pos, isPair ? 2 : 1);
        pos += character.size();
        if (isLatin1(character)) {
            spelled += character;
            continue;
        }
        const QString close = transliterated(character, toAscii.get());
        spelled += isLatin1(close) ? close : QStringLiteral("?");
    }
    return spelled;
}

} // namespace

QString closeSpelling(const QString &text)
{
    QString spelled = text.normalized(QString::NormalizationForm_C);
    if (!isLatin1(spelled)) {
        // The first rules spell Cyrillic as people do, "Chaykovskiy", the others with marks.
        static const std::unique_ptr<icu::Transliterator> toLatin =
            rulesOf("Russian-Latin/BGN; Any-Latin; NFC");
        spelled = withoutOtherLetters(transliterated(spelled, toLatin.get()));
    }
    for (QChar &character : spelled) {
        if (character.category() == QChar::Other_Control)
            character = QLatin1Char(' ');
    }
    return spelled.trimmed();
}
