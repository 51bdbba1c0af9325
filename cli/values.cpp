#include "cli/values.h"

#include "formats/metasong.h"

#include <algorithm>

namespace
{

/** A number of at most so many decimal digits, and nothing else. */
std::optional<qint32> digits(const QString &text, qsizetype most)
{
    const auto isDigit = [](QChar character) {
        return character >= QLatin1Char('0') && character <= QLatin1Char('9');
    };
    if (text.isEmpty() || text.size() > most || !std::all_of(text.cbegin(), text.cend(), isDigit))
        return std::nullopt;
    return text.toInt();
}

} // namespace

std::optional<bool> values::yesOrNo(const QString &text)
{
    if (text == QLatin1String("yes"))
        return true;
    if (text == QLatin1String("no"))
        return false;
    return std::nullopt;
}

std::optional<QString> values::key(const QString &text)
{
    QString name = text;
    name.remove(QLatin1Char(' '));
    if (name.isEmpty() || MetaSong::getKeysList().contains(name))
        return name;
    return std::nullopt;
}

std::optional<qint32> values::tempo(const QString &text)
{
    return digits(text, 3);
}

std::optional<qint32> values::length(const QString &text)
{
    const qsizetype colon = text.indexOf(QLatin1Char(':'));
    const auto minutes = digits(text.left(colon), 2);
    const auto seconds = digits(text.mid(colon + 1), 2);
    if (colon < 0 || text.size() != colon + 3 || !minutes || !seconds || *seconds > 59)
        return std::nullopt;
    return *minutes * 60 + *seconds;
}

std::optional<Index::SORT_MODE> values::sortMode(const QString &text)
{
    if (text == QLatin1String("title"))
        return Index::SortByTitle;
    if (text == QLatin1String("artist"))
        return Index::SortByArtist;
    if (text == QLatin1String("genre"))
        return Index::SortByGenre;
    return std::nullopt;
}
