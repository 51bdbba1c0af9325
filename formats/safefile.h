// The steps that a file is replaced by so that nothing is lost: by a crash, by a power cut, or when
// a stick is pulled.
#pragma once

#include <QFile>
#include <QLatin1String>
#include <QString>

/**
 * Brings everything that was written to the open file to the medium. A disk that turns out to be
 * full or broken only now makes this false. True on file systems that cannot flush single files.
 */
bool flushToMedium(QFile &file);

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

/** What lies at the path of a hidden file of ours. */
enum class Found {
    Nothing,
    SomethingElse, ///< a link, a file with further names, a folder, a pipe or a device
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
 * Makes a hidden file of ours beside the path under a name that no other program chooses:
 * ".song.mid.RANDOM.suffix"; opens and holds it. The permissions are those of any new file. False
 * when no file can be made there.
 */
bool createHiddenBeside(QFile &file, const QString &path, QLatin1String suffix);

/**
 * Removes a regular file that no running program holds and that has no other name. False when it
 * stays, also where files cannot be held.
 */
bool removeUnheld(const QString &path);

/**
 * A file takes the place of another, or of none, in one step: the name leads to either of them at
 * any time. Both must lie in one file system. False when nothing was changed.
 */
bool renameOver(const QString &from, const QString &to);

/**
 * The same for an open file, which is closed afterwards. It stays held up to its new name where the
 * system lets open files be renamed.
 */
bool renameOver(QFile &file, const QString &to);

/**
 * The path of a hidden file beside this one that ends in the suffix: ".song.mid.suffix". A name
 * that would be too long for the file system is replaced by its digest.
 */
QString hiddenBeside(const QString &path, QLatin1String suffix);

/** Something lies at the path, be it only a link that leads nowhere. */
bool isTaken(const QString &path);
