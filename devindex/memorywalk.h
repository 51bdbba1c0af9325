// The song files on a memory that an index has to list.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace memorywalk
{

struct File {
    QString path;     ///< on the memory, beginning with "/"
    QByteArray stamp; ///< when it was changed, in local time: YYYYMMDDhhmmss
};

/**
 * All files with the suffix of a song, outside the player's own folders and hidden ones. A folder
 * that is being walked already is not entered again through a link.
 */
QList<File> songs(const QString &root);

} // namespace memorywalk
