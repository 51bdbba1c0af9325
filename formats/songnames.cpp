#include "formats/songnames.h"

#include <algorithm>
#include <array>

namespace
{

constexpr std::array suffixes{QLatin1String("mid"), QLatin1String("kar"), QLatin1String("mp3"),
                              QLatin1String("mf3"), QLatin1String("mf4"), QLatin1String("mf5")};

} // namespace

QStringList songnames::patterns()
{
    QStringList patterns;
    for (const QLatin1String suffix : suffixes)
        patterns.append(QLatin1String("*.") + suffix);
    return patterns;
}

bool songnames::isSongSuffix(QStringView suffix)
{
    return std::any_of(suffixes.begin(), suffixes.end(), [&suffix](QLatin1String known) {
        return suffix.compare(known, Qt::CaseInsensitive) == 0;
    });
}

bool songnames::isSongName(const QString &name)
{
    const auto dot = name.lastIndexOf(QLatin1Char('.'));
    return dot >= 0 && isSongSuffix(QStringView(name).sliced(dot + 1));
}

QString songnames::titleFromFileName(const QString &path)
{
    const QString name = path.mid(path.lastIndexOf(QLatin1Char('/')) + 1);
    const auto dot = name.lastIndexOf(QLatin1Char('.'));
    return dot < 0 ? name : name.left(dot);
}
