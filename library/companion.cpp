#include "library/companion.h"

#include <QFileInfo>
#include <QLatin1String>

#include <algorithm>

namespace
{

constexpr int suffixSize = 4; // with the dot, both ".mp3" and ".cdg"

} // namespace

QStringList companionPaths(const QString &path)
{
    if (!path.endsWith(QLatin1String(".mp3"), Qt::CaseInsensitive))
        return {};
    // File systems of memory cards ignore letter case, others do not.
    const QString base = path.chopped(suffixSize);
    return {base + QLatin1String(".cdg"), base + QLatin1String(".CDG")};
}

QString companionOf(const QString &path)
{
    const QStringList companions = companionPaths(path);
    const auto found = std::find_if(companions.cbegin(), companions.cend(),
                                    [](const QString &file) { return QFileInfo(file).isFile(); });
    return found == companions.cend() ? QString() : *found;
}

QString companionTarget(const QString &companion, const QString &target)
{
    return target.chopped(suffixSize) + companion.right(suffixSize);
}
