#include "library/chosenfiles.h"

#include <QSet>

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
