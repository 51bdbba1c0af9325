#include "devindex/renamedpath.h"

#include <algorithm>

namespace
{

/** As the player compares, and where the path comes from a file that has only Latin-1. */
bool isSame(QChar noted, QChar real)
{
    constexpr ushort lastOfLatin1 = 0xFF;
    return noted.toUpper() == real.toUpper() ||
           (noted == QLatin1Char('?') && real.unicode() > lastOfLatin1);
}

} // namespace

bool renamedpath::follow(QString &path, const QString &renamed, const QString &newPath)
{
    const qsizetype size = renamed.size();
    const bool canLeadThere =
        path.size() == size || (path.size() > size && path.at(size) == QLatin1Char('/'));
    if (!canLeadThere || !std::equal(renamed.cbegin(), renamed.cend(), path.cbegin(),
                                     [](QChar real, QChar noted) { return isSame(noted, real); }))
        return false;
    path.replace(0, size, newPath);
    return true;
}
