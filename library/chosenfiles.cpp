#include "library/chosenfiles.h"

#include <QSet>

#include <algorithm>

void ChosenFiles::add(const QStringList &paths)
{
    QSet<QString> known(m_paths.cbegin(), m_paths.cend());
    for (const QString &path : paths) {
        if (known.contains(path))
            continue;
        known.insert(path);
        m_paths.append(path);
    }
}

void ChosenFiles::rename(const QString &path, const QString &newPath)
{
    std::replace(m_paths.begin(), m_paths.end(), path, newPath);
}
