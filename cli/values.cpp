#include "cli/values.h"

#include "library/songfields.h"

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
    return songfields::key(text);
}

std::optional<qint32> values::tempo(const QString &text)
{
    return songfields::tempo(text);
}

std::optional<qint32> values::length(const QString &text)
{
    return songfields::length(text);
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
