// Tells whether two paths lead to the same folder.
#pragma once

#include <QByteArray>
#include <QString>

/** Equal for two paths exactly when both lead to the same folder at this moment. */
using FolderId = QByteArray;

/**
 * The identity of a folder, links followed; empty when there is none at the path. One look at the
 * path, however deep it is.
 */
FolderId folderIdOf(const QString &path);

#ifdef Q_OS_UNIX
/** The same for an open folder. */
FolderId folderIdOf(int handle);
#endif
