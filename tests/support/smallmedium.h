// A memory of a fixed size in a folder of its own (Linux only, and only for root).
#pragma once

#include <QDir>
#include <QFile>
#include <QString>
#include <QTemporaryDir>

#include <sys/mount.h>

class SmallMedium
{
public:
    /** Check isMounted(): where mounting is not allowed the test has to be skipped. */
    explicit SmallMedium(int kibibytes)
    {
        const QByteArray options = "size=" + QByteArray::number(kibibytes) + "k";
        m_mounted = mount("none", place().constData(), "tmpfs", 0, options.constData()) == 0;
    }
    ~SmallMedium()
    {
        if (m_mounted)
            umount2(place().constData(), MNT_DETACH);
    }
    Q_DISABLE_COPY_MOVE(SmallMedium)

    bool isMounted() const { return m_mounted; }
    QString path(const QString &name) const { return m_folder.filePath(name); }

    /** The write-protect switch of a card. */
    bool setReadOnly(bool readOnly)
    {
        unsigned long flags = MS_REMOUNT;
        if (readOnly)
            flags |= MS_RDONLY;
        return mount("none", place().constData(), "tmpfs", flags, nullptr) == 0;
    }

    /** Fills the medium to its last byte with a file "filler". */
    void fill()
    {
        QFile filler(path(QStringLiteral("filler")));
        if (!filler.open(QFile::WriteOnly | QFile::Unbuffered))
            return;
        qint64 step = 4096;
        while (step > 0) {
            if (filler.write(QByteArray(step, 'x')) != step)
                step /= 2;
        }
    }

    /** Takes the filler away again. */
    bool makeRoom() { return QFile::remove(path(QStringLiteral("filler"))); }

private:
    QByteArray place() const { return QFile::encodeName(m_folder.path()); }

    QTemporaryDir m_folder;
    bool m_mounted = false;
};
