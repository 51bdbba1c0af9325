#include "devindex/shortname.h"

#include "library/companion.h"
#include "storage/safefile.h"

#include <QFileInfo>

#include <algorithm>

namespace
{

constexpr int maxBaseLength = 8;
constexpr int maxNumber = 999;
constexpr int maxStemLength = 6; // with "-" and one digit the base is full

QString stemOf(const QString &base)
{
    QString stem;
    for (const QChar c : base) {
        if (stem.size() == maxStemLength)
            break;
        if (!QStringLiteral(" .'-").contains(c))
            stem += c;
    }
    return stem;
}

QString numberedBase(const QString &stem, int number)
{
    const QString tail = QStringLiteral("-%1").arg(number);
    QString base = stem.left(maxBaseLength - tail.size());
    if (!base.isEmpty() && base.back().isHighSurrogate())
        base.chop(1); // half a character is no valid file name
    return base + tail;
}

/** An MP3 must not come to lie beside the karaoke pictures of another song. */
bool isFreeFor(const QFileInfo &item, const QString &candidate)
{
    const QStringList pictures = item.isDir() ? QStringList() : companionPaths(candidate);
    return !isTaken(candidate) && std::none_of(pictures.cbegin(), pictures.cend(), isTaken);
}

} // namespace

bool isShortName(const QString &path)
{
    const QStringView name = QStringView(path).sliced(path.lastIndexOf(QLatin1Char('/')) + 1);
    const qsizetype dot = name.lastIndexOf(QLatin1Char('.'));
    return (dot < 0 ? name.size() : dot) <= maxBaseLength;
}

QString ShortNames::candidateFor(const QFileInfo &item)
{
    QString folder = item.path();
    if (!folder.endsWith(QLatin1Char('/')))
        folder += QLatin1Char('/');
    const QString stem = stemOf(item.completeBaseName());
    const QString suffix = item.isDir() ? QString() : QLatin1Char('.') + item.suffix();

    int &number = m_firstFree[folder + stem + suffix];
    for (number = std::max(number, 1); number <= maxNumber; ++number) {
        QString candidate = folder + numberedBase(stem, number) + suffix;
        if (isFreeFor(item, candidate))
            return candidate;
    }
    return {};
}
