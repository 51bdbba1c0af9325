// Folders of a test's own, in place of the user's settings and of the working directory.
#pragma once

#include "library/settings.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

/**
 * An empty settings store and an empty folder for data. One is made at the start of the test
 * program, before anything opens the store: Qt looks only once where the store lies.
 */
class OwnSettings
{
public:
    OwnSettings()
    {
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_folder.path()));
        qputenv("XDG_DATA_HOME", QFile::encodeName(m_folder.filePath(QStringLiteral("data"))));
    }

    static void clear()
    {
        QSettings store(settings::organisation, settings::application);
        store.clear();
        QDir(dataFolder()).removeRecursively();
    }

    /** In place of the folder of the user's data; empty, or not there yet, after clear(). */
    static QString dataFolder() { return qEnvironmentVariable("XDG_DATA_HOME"); }

    static void set(const QString &key, const QVariant &value)
    {
        QSettings store(settings::organisation, settings::application);
        store.setValue(key, value);
    }

    static QVariant value(const QString &key)
    {
        return QSettings(settings::organisation, settings::application).value(key);
    }

private:
    QTemporaryDir m_folder;
};

/** An empty working directory for as long as it lives. */
class OwnWorkingFolder
{
public:
    OwnWorkingFolder() { QDir::setCurrent(m_folder.path()); }
    ~OwnWorkingFolder() { QDir::setCurrent(m_before); }
    Q_DISABLE_COPY_MOVE(OwnWorkingFolder)

    QString path() const { return m_folder.path(); }
    QString filePath(const QString &name) const { return m_folder.filePath(name); }

private:
    const QString m_before = QDir::currentPath();
    QTemporaryDir m_folder;
};
