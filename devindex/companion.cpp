#include "devindex/companion.h"

#include <QFileInfo>
#include <QLatin1String>

namespace
{

constexpr int SuffixSize = 4; // with the dot, both ".mp3" and ".cdg"

} // namespace

QString companionOf(const QString &path)
{
    if (!path.endsWith(QLatin1String(".mp3"), Qt::CaseInsensitive))
        return {};
    // Card file systems know no letter case, others do.
    for (const QLatin1String suffix : {QLatin1String(".cdg"), QLatin1String(".CDG")}) {
        QString companion = path.chopped(SuffixSize) + suffix;
        if (QFileInfo(companion).isFile())
            return companion;
    }
    return {};
}

QString companionTarget(const QString &companion, const QString &target)
{
    return target.chopped(SuffixSize) + companion.right(SuffixSize);
}
