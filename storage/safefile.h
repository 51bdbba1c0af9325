// Replaces files in such steps that a crash, a power cut or a pulled stick loses nothing.
#pragma once

#include <QFile>
#include <QLatin1String>
#include <QString>

#include <functional>
#include <memory>

/**
 * Flushes everything that was written to the open file to the medium. False when the disk turns out
 * to be full or broken only now, or when closing the file would report an error. True on file
 * systems that cannot flush single files.
 */
bool flushToMedium(QFile &file);

/** False when the system reports, as it may do only at a close, that written bytes are lost. */
bool hasArrived(QFile &file);

/**
 * Brings a file that nobody writes any more, or the entries of a folder, to the medium. After a
 * file was renamed, this is what makes its new entry lead to its bytes on a FAT file system. False
 * when the medium fails or nothing lies there; true where that cannot be flushed.
 */
bool flushPath(const QString &path);

/**
 * Brings the entries of the folder that holds the path to the medium: files that were created,
 * renamed or removed in it. False when the medium fails; true where folders cannot be flushed.
 */
bool flushFolderOf(const QString &path);

/**
 * Holds the open file for this program until it is closed. False when another program holds it, or
 * has just removed it. True where files cannot be held.
 */
bool holdFile(QFile &file);

/** What is found at the path of one of this program's hidden files. */
enum class Found {
    Nothing,
    SomethingElse, ///< a link, a file with several hard links, a folder, a pipe or a device
    Unreadable,    ///< a file that the medium or its rights do not let be opened
    Opened
};

/**
 * Opens an existing file for reading, and for writing where that is allowed, if it is a regular one
 * with this name only. Never follows a link and never waits for the other end of a pipe. The QFile
 * does not learn the name.
 */
Found openOwnFile(QFile &file, const QString &path);

/**
 * Makes a file of the QFile's name for its owner alone, opens it for reading and writing and holds
 * it. False when anything of that name is there, or the file cannot be made or held.
 */
bool createHeld(QFile &file);

/**
 * Makes a hidden file beside the path under a name that no other program chooses:
 * ".song.mid.RANDOM.suffix"; opens and holds it. The permissions are those of any new file. False
 * when no file can be made there.
 */
bool createHiddenBeside(QFile &file, const QString &path, QLatin1String suffix);

/** Looks at an open file; true when it may go. */
using MayGo = std::function<bool(QFile &file)>;

/**
 * Removes a regular file that no running program holds and that has no other name, and that may go
 * as far as the question, if there is one, can tell; it is asked while the file is held. False when
 * the file stays, also where files cannot be held.
 */
bool removeUnheld(const QString &path, const MayGo &mayGo = {});

/**
 * A file takes the place of another, or of none, in one step: the name leads to either of them at
 * any time. Both must lie in one file system. False when nothing was changed.
 */
bool renameOver(const QString &from, const QString &to);

/**
 * The same for an open file, which stays open and held where the system lets open files be renamed;
 * elsewhere it is closed.
 */
bool renameOver(QFile &file, const QString &to);

/**
 * While the returned object lives, the bytes of this file stay on the medium even when the file
 * loses its name. Otherwise a file system without a journal could reuse their place before its
 * folder leads to the new bytes. Null when it is no regular file that can be opened for reading.
 */
std::unique_ptr<QFile> keepBytesOf(const QString &path);

/**
 * Like renameOver(), and closes the file; when this is true, the new state is on the medium. The
 * bytes of from must be there already. False when nothing was changed, or when the medium does not
 * take the change: the name leads to one of the two files even then.
 *
 * The order, for FAT, where a crash may leave any part of what was not flushed:
 *  1. the rename, while the old bytes are kept;
 *  2. the folder: the name from is gone (else two names would lead to the same bytes, and a check
 *     of the file system empties one of them), the name to leads to the old bytes;
 *  3. the file: the name leads to the new bytes;
 *  4. the folder once more, for file systems that write the name only with it;
 *  5. the place of the old bytes is free.
 * Without an old file there is no step 2: the name to would lead nowhere after it.
 */
bool replaceOnMedium(QFile &from, const QString &to);

/** Makes a folder, whose parent must exist; true when it is on the medium. */
bool makeFolder(const QString &path);

/**
 * Brings everything in the file system of a folder to the medium at once, which for many files is
 * much quicker than one after the other. Failures count from when the object was made.
 */
class FileSystemFlush
{
public:
    explicit FileSystemFlush(const QString &folder);
    ~FileSystemFlush();
    Q_DISABLE_COPY_MOVE(FileSystemFlush)

    /** False when it failed or cannot be relied on; each file then has to be flushed by itself. */
    bool flush() const;

private:
    int m_handle = -1;
    bool m_works = false;
};

/**
 * The path of a hidden file beside this one that ends in the suffix: ".song.mid.suffix". A name
 * that would be too long for the file system is replaced by its digest.
 */
QString hiddenBeside(const QString &path, QLatin1String suffix);

/** True when anything has this path, even a symbolic link without a target. */
bool isTaken(const QString &path);
