#include "storage/leftovers.h"

#include "storage/diagnostics.h"
#include "storage/safefile.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>

#include <algorithm>
#include <iterator>

namespace
{

/** Of files that are of no use without the program that made them. */
constexpr QLatin1String suffixes[] = {Leftovers::partSuffix, Leftovers::temporarySuffix};

} // namespace

bool Leftovers::isLeftover(const QString &name)
{
    return name.startsWith(QLatin1Char('.')) &&
           std::any_of(std::cbegin(suffixes), std::cend(suffixes), [&name](QLatin1String suffix) {
               return name.endsWith(suffix) &&
                      name.chopped(suffix.size()).endsWith(QLatin1Char('.'));
           });
}

void Leftovers::remove(const QString &path)
{
    if (isLeftover(QFileInfo(path).fileName()) && removeUnheld(path))
        logDebug() << "[Leftovers::remove] Removed, it was left behind:" << path;
}

void Leftovers::tidy(const QString &folder)
{
    if (m_tidied.contains(folder))
        return;
    m_tidied.insert(folder);
    QStringList found;
    QDirIterator it(folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    while (it.hasNext()) {
        const QString path = it.next();
        if (isLeftover(it.fileName()))
            found.append(path);
    }
    for (const QString &path : std::as_const(found))
        remove(path);
}

void Leftovers::tidyBeside(const QString &song)
{
    tidy(QFileInfo(song).path());
}
