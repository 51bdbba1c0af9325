// A file system of its own for a test: as small as it should be, or protected (Linux, root only).
#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

#include <sys/mount.h>

/** Mounts a small file system of its own on the folder, where that is allowed (root only). */
class SmallMemory
{
public:
    SmallMemory(const QString &folder, unsigned long flags, const char *options)
        : m_folder(QFile::encodeName(folder))
        , m_mounted(::mount("tmpfs", m_folder.constData(), "tmpfs", flags, options) == 0)
    {
    }
    ~SmallMemory()
    {
        if (m_mounted)
            ::umount2(m_folder.constData(), MNT_DETACH);
    }
    Q_DISABLE_COPY_MOVE(SmallMemory)

    bool isMounted() const { return m_mounted; }

    /** From now on nothing can be written to it; false when that failed. */
    bool protect() const
    {
        return ::mount(nullptr, m_folder.constData(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr) ==
               0;
    }

private:
    const QByteArray m_folder;
    const bool m_mounted;
};
