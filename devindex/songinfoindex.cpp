#include "devindex/songinfoindex.h"

#include "devindex/devicetext.h"

namespace
{

bool compareTextThenTitle(QString SongInfoIndex::*text, const SongInfoIndex &first,
                          const SongInfoIndex &second)
{
    const int order = compareIgnoringCase(first.*text, second.*text);
    return order != 0 ? order < 0 : compareTitle(first, second);
}

} // namespace

QString knownText(const QString &text)
{
    return text.compare(QLatin1String("<unknown>"), Qt::CaseInsensitive) == 0 ? QString() : text;
}

bool compareByPosidx(const SongInfoIndex &first, const SongInfoIndex &second)
{
    return first.posidx < second.posidx;
}

bool compareById(const SongInfoIndex &first, const SongInfoIndex &second)
{
    return first.id < second.id;
}

bool compareTitle(const SongInfoIndex &first, const SongInfoIndex &second)
{
    return compareIgnoringCase(first.title, second.title) < 0;
}

bool compareArtist(const SongInfoIndex &first, const SongInfoIndex &second)
{
    return compareTextThenTitle(&SongInfoIndex::artist, first, second);
}

bool compareGenre(const SongInfoIndex &first, const SongInfoIndex &second)
{
    return compareTextThenTitle(&SongInfoIndex::genre, first, second);
}

bool compareByPath(const SongInfoIndex &first, const SongInfoIndex &second)
{
    return pathSortKey(first.path) < pathSortKey(second.path);
}
