#include "devindex/devicetext.h"

#include <QTextCodec>

#include <algorithm>
#include <array>

namespace
{

constexpr QChar sharpS(0x00DF);
constexpr int maxUnitBytes = 3; // a UTF-16 unit in a sort key

/** Tables between IBM 850 and Unicode, for both directions. */
class Ibm850
{
public:
    Ibm850()
    {
        constexpr int ascii = 0x80;
        QByteArray codes;
        for (int byte = ascii; byte < int(m_characters.size()); ++byte)
            codes += static_cast<char>(byte);
        const QString upperHalf = QTextCodec::codecForName("IBM 850")->toUnicode(codes);

        m_codes.fill('?');
        for (int byte = 0; byte < int(m_characters.size()); ++byte) {
            const QChar unicode = byte < ascii ? QChar(byte) : upperHalf.at(byte - ascii);
            m_characters[std::size_t(byte)] = unicode;
            m_codes[unicode.unicode()] = static_cast<char>(byte);
        }
    }

    QChar character(char code) const { return m_characters[static_cast<quint8>(code)]; }
    char code(QChar character) const
    {
        return character.unicode() < m_codes.size() ? m_codes[character.unicode()] : '?';
    }

private:
    static constexpr std::size_t lastCharacter = 0x25A0; // BLACK SQUARE

    std::array<QChar, 256> m_characters;
    std::array<char, lastCharacter + 1> m_codes{};
};

const Ibm850 &ibm850()
{
    static const Ibm850 tables;
    return tables;
}

/** Writes a UTF-16 unit at end, in up to three bytes, and moves end behind it. */
void putUnit(char *&end, int unit)
{
    if (unit < 0x80) {
        *end++ = static_cast<char>(unit);
        return;
    }
    if (unit < 0x800) {
        *end++ = static_cast<char>(0xC0 | unit >> 6);
    } else {
        *end++ = static_cast<char>(0xE0 | unit >> 12);
        *end++ = static_cast<char>(0x80 | (unit >> 6 & 0x3F));
    }
    *end++ = static_cast<char>(0x80 | (unit & 0x3F));
}

int folded(QChar character)
{
    const ushort code = character.unicode();
    if (code >= 0x80)
        return character.toCaseFolded().unicode();
    return code >= 'A' && code <= 'Z' ? code + ('a' - 'A') : code;
}

bool isLatin1(QStringView text)
{
    ushort bits = 0;
    for (const QChar character : text)
        bits = static_cast<ushort>(bits | character.unicode());
    return bits <= 0xFF;
}

/** In Latin-1, "ß" alone has more than one character in upper case. */
QChar upperLatin1(QChar character)
{
    const ushort code = character.unicode();
    if (code >= 0x80)
        return character == sharpS ? character : character.toUpper();
    return code >= 'a' && code <= 'z' ? QChar(code - ('a' - 'A')) : character;
}

} // namespace

QString stringToUpper(QString text)
{
    static const QString placeholder = QStringLiteral("|#§§#|");
    if (isLatin1(text)) { // most texts by far
        std::transform(text.cbegin(), text.cend(), text.begin(), upperLatin1);
        return text;
    }
    if (!text.contains(sharpS))
        return text.toUpper();
    text.replace(sharpS, placeholder);
    text = text.toUpper();
    return text.replace(placeholder, sharpS);
}

int compareIgnoringCase(const QString &first, const QString &second)
{
    const qsizetype common = std::min(first.size(), second.size());
    for (qsizetype i = 0; i < common; ++i) {
        const QChar one = first.at(i);
        const QChar other = second.at(i);
        if (one == other)
            continue;
        if (one.isSurrogate() || other.isSurrogate())
            return first.compare(second, Qt::CaseInsensitive);
        const int difference = folded(one) - folded(other);
        if (difference != 0)
            return difference;
    }
    return first.size() == second.size() ? 0 : first.size() < second.size() ? -1 : 1;
}

void appendSortKey(QByteArray &key, const QString &text)
{
    const qsizetype start = key.size();
    key.resize(start + maxUnitBytes * text.size());
    char *end = key.data() + start;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar character = text.at(i);
        if (!character.isHighSurrogate() || i + 1 == text.size() ||
            !text.at(i + 1).isLowSurrogate()) {
            putUnit(end, folded(character));
            continue;
        }
        ++i;
        const char32_t pair = QChar::toCaseFolded(QChar::surrogateToUcs4(character, text.at(i)));
        putUnit(end, QChar::highSurrogate(pair));
        putUnit(end, QChar::lowSurrogate(pair));
    }
    key.truncate(end - key.constData());
}

QByteArray ibm850FromText(const QString &text)
{
    const Ibm850 &tables = ibm850();
    QByteArray bytes(text.size(), Qt::Uninitialized);
    char *end = bytes.data();
    for (const QChar character : text) {
        if (!character.isLowSurrogate()) // one "?" stands for both halves
            *end++ = tables.code(character);
    }
    bytes.truncate(end - bytes.constData());
    return bytes;
}

QString textFromIbm850(const QByteArray &bytes)
{
    const Ibm850 &tables = ibm850();
    QString text(bytes.size(), Qt::Uninitialized);
    std::transform(bytes.begin(), bytes.end(), text.begin(),
                   [&tables](char code) { return tables.character(code); });
    return text;
}

bool isBelowFolder(const QString &indexedPath, const QString &folder)
{
    const QString start = folder + QLatin1Char('/');
    return indexedPath.startsWith(start, Qt::CaseInsensitive) ||
           indexedPath.startsWith(textFromIbm850(ibm850FromText(start)), Qt::CaseInsensitive);
}

QByteArray pathSortKey(const QString &path)
{
    if (!isLatin1(path))
        return ibm850FromText(stringToUpper(path));
    const Ibm850 &tables = ibm850();
    QByteArray key(path.size(), Qt::Uninitialized);
    std::transform(path.begin(), path.end(), key.begin(),
                   [&tables](QChar character) { return tables.code(upperLatin1(character)); });
    return key;
}
