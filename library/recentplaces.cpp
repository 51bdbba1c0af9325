#include "library/recentplaces.h"

#include <QDir>

RecentPlaces::RecentPlaces(QSettings &settings, const QString &key)
    : m_settings(settings)
    , m_key(key)
{
}

QStringList RecentPlaces::paths() const
{
    QStringList paths;
    const QStringList stored = m_settings.value(m_key).toStringList();
    for (const QString &path : stored) {
        if (QDir::isAbsolutePath(path) && !paths.contains(path) && paths.size() < most)
            paths.append(path);
    }
    return paths;
}

void RecentPlaces::add(const QString &path)
{
    QStringList all = paths();
    all.removeAll(path);
    all.prepend(path);
    m_settings.setValue(m_key, QStringList(all.mid(0, most)));
}
