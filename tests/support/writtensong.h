// Song files that are written in a folder of their own, for tests.
#pragma once

#include "support/faults.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

namespace writtensong
{

inline QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}

inline void makeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QFile::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot make a file for a test");
}

inline QByteArray bytes(int size, char first)
{
    QByteArray out;
    for (int i = 0; i < size; ++i)
        out.append(static_cast<char>(first + i % 50));
    return out;
}

inline mode_t modeOf(const QString &path)
{
    struct stat status {
    };
    return stat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_mode & 0777U : 0;
}

inline void setMode(const QString &path, mode_t mode)
{
    if (chmod(QFile::encodeName(path).constData(), mode) != 0)
        qFatal("cannot set the permissions of a test's file");
}

class SongWriterFixture : public QObject
{
protected:
    void init();

    QString path(const char *name) const { return m_dir->filePath(QString::fromUtf8(name)); }
    QStringList files(const QString &folder = QString()) const
    {
        return QDir(m_dir->filePath(folder))
            .entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System);
    }

    QScopedPointer<QTemporaryDir> m_dir;
};

inline void SongWriterFixture::init()
{
    m_dir.reset(new QTemporaryDir);
    QVERIFY(m_dir->isValid());
}

} // namespace writtensong
