// A folder with one song and its journal.
#pragma once

#include "storage/songfilewriter.h"

#include <QDir>
#include <QObject>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

/** An empty folder for each test. */
class JournalFixture : public QObject
{
protected:
    void init()
    {
        m_dir = std::make_unique<QTemporaryDir>();
        QVERIFY(m_dir->isValid());
    }

    QString path(const char *name) const { return m_dir->filePath(QString::fromUtf8(name)); }
    QString songPath() const { return path("song.mid"); }
    QString journal() const { return path(".song.mid.kavena-journal"); }

    /** All that lies in the folder, sorted by name. */
    QStringList files() const
    {
        return QDir(m_dir->path())
            .entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System);
    }

    static bool rewriteInPlace(const QString &song, const QByteArray &content)
    {
        SongFileWriter writer(song);
        return writer.open() && writer.replaceBytes(content);
    }

private:
    std::unique_ptr<QTemporaryDir> m_dir;
};
