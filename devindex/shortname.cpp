#include "devindex/shortname.h"

#include "devindex/namekey.h"
#include "library/companion.h"
#include "storage/safefile.h"

#include <QFileInfo>
#include <QStringList>

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

/** What is left of the stem where a number of so many digits follows it. */
QString stemBefore(const QString &stem, int digits)
{
    QString base = stem.left(maxBaseLength - 1 - digits);
    if (!base.isEmpty() && base.back().isHighSurrogate())
        base.chop(1); // half a character is no valid file name
    return base;
}

QString numberedBase(const QString &stem, int number)
{
    const QString digits = QString::number(number);
    return stemBefore(stem, static_cast<int>(digits.size())) + QLatin1Char('-') + digits;
}

QString suffixOf(const QFileInfo &item, bool isFolder)
{
    return isFolder ? QString() : QLatin1Char('.') + item.suffix();
}

QString keyOf(const QString &stem, int digits, const QString &suffix)
{
    return nameKey(stem + QLatin1Char('-') + QString::number(digits) + suffix);
}

} // namespace

bool isShortName(const QString &path)
{
    const QStringView name = QStringView(path).sliced(path.lastIndexOf(QLatin1Char('/')) + 1);
    const qsizetype dot = name.lastIndexOf(QLatin1Char('.'));
    return (dot < 0 ? name.size() : dot) <= maxBaseLength;
}

QString firstShortName(const QString &name, bool isFolder)
{
    const QFileInfo item(name);
    return numberedBase(stemOf(item.completeBaseName()), 1) + suffixOf(item, isFolder);
}

QString shortNameKey(const QString &shortName)
{
    const QFileInfo item(shortName);
    const QString base = item.completeBaseName();
    const qsizetype dash = base.lastIndexOf(QLatin1Char('-'));
    const qsizetype digits = base.size() - dash - 1;
    if (dash < 0 || digits < 1 || digits > 3 || base.at(dash + 1) == QLatin1Char('0') ||
        !std::all_of(base.cbegin() + dash + 1, base.cend(),
                     [](QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); }))
        return {};
    return keyOf(base.left(dash), static_cast<int>(digits), suffixOf(item, false));
}

QStringList keysOfShortNames(const QString &name)
{
    const QFileInfo item(name);
    const QString stem = stemOf(item.completeBaseName());
    QStringList keys;
    for (int digits = 1; digits <= 3; ++digits)
        keys.append(keyOf(stemBefore(stem, digits), digits, suffixOf(item, false)));
    return keys;
}

QString ShortNames::candidateFor(const QFileInfo &item)
{
    return find(item.filePath(), item.isDir());
}

QString ShortNames::candidateForSong(const QString &path)
{
    return find(path, false);
}

void ShortNames::keepFree(const QString &path)
{
    m_keptFree.insert(nameKey(path));
}

QString ShortNames::find(const QString &path, bool isFolder)
{
    const QFileInfo item(path);
    QString folder = item.path();
    if (!folder.endsWith(QLatin1Char('/')))
        folder += QLatin1Char('/');
    const QString stem = stemOf(item.completeBaseName());
    const QString suffix = suffixOf(item, isFolder);

    auto names = m_names.find(folder);
    if (names == m_names.end())
        names = m_names.insert(folder, FolderNames(item.path()));
    int &number = m_firstFree[folder + stem + suffix];
    for (number = std::max(number, 1); number <= maxNumber; ++number) {
        QString candidate = folder + numberedBase(stem, number) + suffix;
        if (!isFree(candidate, isFolder, *names))
            continue;
        names->add(candidate); // it may be made
        return candidate;
    }
    return {};
}

/** An MP3 must not come to lie beside the karaoke pictures of another song. */
bool ShortNames::isFree(const QString &candidate, bool isFolder, const FolderNames &names) const
{
    if (!names.existing(candidate).isEmpty() ||
        (!m_keptFree.isEmpty() && m_keptFree.contains(nameKey(candidate))))
        return false;
    const QStringList pictures = isFolder ? QStringList() : companionPaths(candidate);
    return std::none_of(pictures.cbegin(), pictures.cend(), isTaken);
}
