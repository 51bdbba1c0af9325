// The folders or lists that the user took songs from, the last one first.
#pragma once

#include <QSettings>
#include <QString>
#include <QStringList>

/** Kept in the settings; what stands there is not relied on. */
class RecentPlaces
{
public:
    static constexpr int most = 8;

    /** The places under this key of the settings, which must outlive the object. */
    RecentPlaces(QSettings &settings, const QString &key);

    /** Absolute paths, the last one first; some may not exist any more. */
    QStringList paths() const;

    /** Puts the path in front. */
    void add(const QString &path);

private:
    QSettings &m_settings;
    const QString m_key;
};
