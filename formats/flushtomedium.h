// Brings what was written to the medium itself, so that it outlives a power cut or a pulled stick.
#pragma once

#include <QFile>
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
