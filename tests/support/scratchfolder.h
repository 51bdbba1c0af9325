// A folder of its own that is the working directory for as long as the object lives.
#pragma once

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

class ScratchFolder
{
public:
    ScratchFolder()
        : m_previous(QDir::currentPath())
    {
        QDir::setCurrent(m_folder.path());
    }
    ~ScratchFolder() { QDir::setCurrent(m_previous); }
    Q_DISABLE_COPY_MOVE(ScratchFolder)

    QString path() const { return m_folder.path(); }

    /** Creates or replaces a file in the folder; false when it could not be written in full. */
    static bool write(const QString &name, const QByteArray &bytes)
    {
        QFile file(name);
        return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
    }

private:
    const QString m_previous;
    QTemporaryDir m_folder;
};
