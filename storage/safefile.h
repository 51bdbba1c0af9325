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

/**
 * A file takes the place of another, or of none, in one step: the name leads to either of them at
 * any time. Both must lie in one file system. False when nothing was changed.
 */
bool renameOver(const QString &from, const QString &to);

/**
 * The path of a hidden file beside this one that ends in the suffix: ".song.mid.suffix". A name
 * that would be too long for the file system is replaced by its digest.
 */
QString hiddenBeside(const QString &path, QLatin1String suffix);

/** Something lies at the path, be it only a link that leads nowhere. */
bool isTaken(const QString &path);
