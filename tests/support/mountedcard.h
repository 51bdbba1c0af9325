// A memory named CARD in a mount directory of the test's own, and a music folder beside it.
#pragma once

#include "support/memorychecker.h"
#include "support/songbytes.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <QTemporaryDir>
#include <QtEndian>

class MountedCard
{
public:
    MountedCard()
    {
        qunsetenv("USER");
        qputenv("KAVENA_MOUNT_DIRS", QFile::encodeName(mountDirectory()));
        if (!m_folder.isValid() || !QDir().mkpath(root()) || !QDir().mkpath(music()))
            qFatal("Cannot make the test's folders");
    }
    /** Whatever index a test leaves behind is judged, unless the test says that it is broken. */
    ~MountedCard()
    {
        if (!m_isLeftBroken)
            MemoryChecker::judgeLeftBehind(root());
    }
    Q_DISABLE_COPY_MOVE(MountedCard)

    /** The test leaves an index that is damaged, or that does not fit the songs, on purpose. */
    void isLeftBroken() { m_isLeftBroken = true; }

    QString mountDirectory() const { return m_folder.filePath(QStringLiteral("mounts")); }
    QString root() const { return mountDirectory() + QStringLiteral("/CARD"); }
    QString path(const QString &name) const { return root() + QLatin1Char('/') + name; }

    /** A folder of the computer, on no memory. */
    QString music() const { return m_folder.filePath(QStringLiteral("music")); }

    /** Writes a file, with the folders above it, and returns its path. */
    QString write(const QString &fullPath, const QByteArray &bytes) const
    {
        QDir().mkpath(QFileInfo(fullPath).path());
        QFile file(fullPath);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("Cannot write %s", qPrintable(fullPath));
        return fullPath;
    }

    QString writeOnCard(const QString &name, const QByteArray &bytes) const
    {
        return write(path(name), bytes);
    }
    QString writeMusic(const QString &name, const QByteArray &bytes) const
    {
        return write(music() + QLatin1Char('/') + name, bytes);
    }

    QByteArray read(const QString &name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
    }

    /** A MIDI song with this title. */
    static QByteArray midi(const QByteArray &title)
    {
        return songbytes::midiFile(
            {songbytes::track(songbytes::metaEvent(3, title) + songbytes::notes())});
    }

    /** The songs that the player finds: the path of each 64-byte record of index.idx. */
    QStringList indexedPaths() const
    {
        QStringList paths;
        const QByteArray records = read(QStringLiteral("index.idx"));
        for (qsizetype at = 0; at + 64 <= records.size(); at += 64)
            paths.append(QString::fromLatin1(records.mid(at + 4, 46).constData()));
        return paths;
    }

    /** The ids of the same records. */
    QList<quint32> indexedIds() const
    {
        QList<quint32> ids;
        const QByteArray records = read(QStringLiteral("index.idx"));
        for (qsizetype at = 0; at + 64 <= records.size(); at += 64)
            ids.append(qFromBigEndian<quint32>(records.constData() + at));
        return ids;
    }

    bool hasIndex() const { return QFileInfo::exists(path(QStringLiteral("fsinfos.idx"))); }

private:
    QTemporaryDir m_folder;
    bool m_isLeftBroken = false;
};
