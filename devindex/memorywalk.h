// The song files on a memory, as the player could be shown them.
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
 * All files that are named as songs, outside the player's own folders and hidden ones. A folder
 * that links lead back into is not entered again.
 */
QList<File> songs(const QString &root);

} // namespace memorywalk
