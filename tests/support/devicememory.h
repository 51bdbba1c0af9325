// A memory of the player in a temporary folder, and the judge of what lies on it.
#pragma once

#include "support/memorychecker.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

class DeviceMemory
{
public:
    DeviceMemory() = default;

    /** Whatever index a test leaves behind is judged, unless the test says that it is broken. */
    ~DeviceMemory()
    {
        if (!m_isLeftBroken)
            MemoryChecker::judgeLeftBehind(root(), m_options);
    }
    Q_DISABLE_COPY_MOVE(DeviceMemory)

    /** The test leaves an index that is damaged, or that does not fit the songs, on purpose. */
    void isLeftBroken() const { m_isLeftBroken = true; }

    /** What the judge lets pass at the end of the test: options of check_memory.py. */
    void isJudgedWith(const QStringList &options) const { m_options = options; }

    /** When the songs were changed, unless a test says otherwise: 27 May 2013, 9:30:05. */
    static QDateTime defaultTime()
    {
        return QDateTime(QDate(2013, 5, 27), QTime(9, 30, 5), Qt::LocalTime);
    }

    /** The fifteen files of a complete index. */
    static QStringList indexFiles()
    {
        return QStringLiteral("index.idx ordfile.idx title.idx artist.idx genre.idx atitle.idx "
                              "aartist.idx agenre.idx title3.idx artist3.idx genre3.idx "
                              "atitle3.idx aartist3.idx agenre3.idx fsinfos.idx")
            .split(QLatin1Char(' '));
    }

    QString root() const { return m_folder.path(); }
    QString path(const QString &name) const { return root() + QLatin1Char('/') + name; }

    /** Writes a file below the root, making its folders. */
    QString add(const QString &name, const QByteArray &bytes,
                const QDateTime &modified = defaultTime()) const
    {
        const QString full = path(name);
        QDir().mkpath(QFileInfo(full).path());
        QFile file(full);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush())
            qFatal("cannot write %s", qPrintable(full));
        file.setFileTime(modified, QFileDevice::FileModificationTime);
        return full;
    }

    QByteArray read(const QString &name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    void remove(const QString &name) const { QFile::remove(path(name)); }

    void makeFolder(const QString &name) const { QDir(root()).mkpath(name); }

    void setTime(const QString &name, const QDateTime &modified) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::ReadWrite) ||
            !file.setFileTime(modified, QFileDevice::FileModificationTime))
            qFatal("cannot set the time of %s", qPrintable(name));
    }

    /** The index files that are there, of those that make an index. */
    QStringList presentIndexFiles() const
    {
        QStringList present;
        for (const QString &name : indexFiles()) {
            if (QFileInfo(path(name)).isFile())
                present.append(name);
        }
        return present;
    }

    /** Makes every index file look old, so that a later write shows. */
    void ageIndex() const
    {
        for (const QString &name : presentIndexFiles())
            setTime(name, QDateTime(QDate(2001, 1, 1), QTime(0, 0)));
    }

    /** Everything on the memory: path to content and time of change. */
    QMap<QString, QByteArray> snapshot() const
    {
        QMap<QString, QByteArray> files;
        QDirIterator walk(root(), QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                          QDirIterator::Subdirectories);
        while (walk.hasNext()) {
            const QFileInfo item(walk.next());
            QFile file(item.filePath());
            QByteArray content = "folder";
            if (item.isFile() && file.open(QIODevice::ReadOnly))
                content = item.lastModified().toString(Qt::ISODateWithMs).toUtf8() + file.readAll();
            files.insert(item.filePath(), content);
        }
        return files;
    }

    /** What the independent checker finds wrong with the index; empty when it is consistent. */
    static QString faultsAt(const QString &root, const QStringList &options = {})
    {
        return MemoryChecker::faultsAt(root, options);
    }

    QString faults(const QStringList &options = {}) const { return faultsAt(root(), options); }

    /**
     * Notes which songs the playlists mean; from now on whatever index is judged must leave them
     * meaning the same. The index must be consistent.
     */
    void notePlaylists() const
    {
        const QString note = m_notes.filePath(QStringLiteral("playlists"));
        const QString found = faults({QStringLiteral("--save-playlists"), note});
        if (!found.isEmpty())
            QTest::qFail(qPrintable(found), __FILE__, __LINE__);
        m_options += {QStringLiteral("--playlists-before"), note};
    }

    /** What is wrong with the index, or with the songs that the playlists mean by now. */
    QString playlistFaults() const { return faults(m_options); }

private:
    QTemporaryDir m_folder;
    QTemporaryDir m_notes;
    mutable bool m_isLeftBroken = false;
    mutable QStringList m_options;
};
