// The song files on a memory that an index has to list.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

namespace memorywalk
{

struct File {
    QString path;     ///< on the memory, beginning with "/"
    QByteArray stamp; ///< when it was changed, in local time: YYYYMMDDhhmmss
};

struct Found {
    QList<File> songs;
    QStringList unreadFolders; ///< that cannot be read, or not wholly, as paths on the memory
    QStringList unusable;      ///< paths of songs and folders whose names are no valid UTF-8
};

/**
 * All files with the suffix of a song, outside the player's own folders and hidden ones. A folder
 * that is being walked already is not entered again through a link. Ends early when it is stopped.
 */
Found songs(const QString &root, const std::function<bool()> &isStopped = {});

} // namespace memorywalk
