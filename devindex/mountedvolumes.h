// Where the player's memories are mounted, and which part of a path is the memory.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

/** A memory that is mounted now. */
struct MountedMemory {
    QString name;
    QString path;
    qint64 freeBytes = -1; ///< negative when the volume was not asked, or did not tell
    qint64 totalBytes = -1;
};

/**
 * The rules about mount directories. A mount directory is a folder whose sub-folders are memories:
 * "/Volumes" always; off macOS also "/media/$USER" and "/run/media/$USER"; and each folder that the
 * environment variable KAVENA_MOUNT_DIRS lists, separated by colons. Empty and relative parts of
 * that list count for nothing, and "/" neither: it would declare the whole system disk a memory.
 *
 * Mount directories are compared ignoring case. Where they are nested, the longest one that fits
 * decides; a mount directory is never itself a memory. Paths are taken as a user may type them:
 * doubled slashes, "." and ".." are resolved first, so that "/Volumes/../home" is no memory.
 *
 * The environment is read when the object is built.
 */
class MountedVolumes
{
public:
    MountedVolumes();

    /** The mount directories, existing or not, without a slash at their end. */
    QStringList mountDirectories() const { return m_directories; }

    /** The first mount directory that exists, for a chooser to start in; else "/Volumes". */
    QString startFolder() const;

    /**
     * The memories that are mounted now: the folders in the mount directories, in the order of the
     * directories and then of their names. Hidden folders are left out, and symbolic links too: one
     * of them leads to the system disk on macOS. A volume is only asked for its size, and only when
     * it is on a device of this computer: a server may not answer for minutes.
     */
    QList<MountedMemory> memories() const;

    /**
     * The mount points that do not lie on a device of this computer, from a table in the form of
     * /proc/self/mounts. Lines that are too short are skipped.
     */
    static QStringList mountPointsWithoutDevice(const QByteArray &mountTable);

    /** False for a path inside a mounted memory (or its root), true for everything else. */
    bool isSystemDisk(const QString &path) const;

    /**
     * The root of the volume that holds the path. Under "/Volumes" and anywhere else this is the
     * text before the second "/" after the first character: empty when there is no second "/", and
     * "/" when there is none at all. Inside another mount directory it is the mount directory and
     * the memory's name.
     */
    QString getRoot(const QString &path) const;

    /**
     * True when the path is a memory's root, with or without a slash at its end. Outside the
     * mount directories, true when the path is its own getRoot().
     */
    bool isRoot(const QString &path) const;

    /** True for a memory's root in a mount directory that is a folder itself and no link. */
    bool isMemory(const QString &path) const;

    /** The root of the memory that holds the path, or an empty text when it lies in none. */
    QString memoryOf(const QString &path) const;

    /**
     * The path with all links resolved, where a link leads: below the memory's root as it is
     * spelled when it stays on that memory. A path at which nothing lies is only cleaned. Empty for
     * a link that leads nowhere, and for one that leads to the system disk.
     */
    QString withoutLinks(const QString &path) const;

    /**
     * The beginning of the path that names a memory's root, from the text as it is: ".." behind the
     * memory's name and doubled slashes in front of it are not resolved. Empty where there is none.
     */
    QString getRootDrivePath(const QString &path) const;

private:
    QString mountDirectoryAbove(const QString &cleanPath) const;

    QStringList m_directories;
};
