// The entries of a folder on a memory, as a scan for songs needs them.
#pragma once

#include "devindex/filestamp.h"
#include "storage/folderid.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

struct FolderItem {
    QString name;
    bool isFolder = false;          ///< or a link to one
    bool isLink = false;            ///< a symbolic one
    bool isSong = false;            ///< a regular file, or a link to one, named like a song
    std::optional<FileStamp> stamp; ///< of a song, when it was asked for
    qint64 size = 0;                ///< of a song whose time was asked for, in bytes
};

/** Whether a listing tells when the songs were changed, which costs a system call for each. */
enum class SongTimes { Ask, Leave };

struct FolderListing {
    FolderId id; ///< empty when the folder cannot be read

    /** There is a folder but it, or something in it, cannot be read: songs may be missing here. */
    bool isUnreadable = false;

    /**
     * Songs and folders that no program finds under their names, which are no valid UTF-8; each
     * such byte stands as "\\x" and two hexadecimal digits.
     */
    QStringList unusableNames;

    /** Names of files that a killed program may have left. */
    QStringList leftovers;

    /**
     * All entries but hidden ones, those whose names are no valid UTF-8, broken links, and pipes,
     * sockets and devices; by name without regard to case. The ids of new songs follow this order.
     */
    QList<FolderItem> items;

    /** Reads the folder. */
    static FolderListing of(const QString &path, SongTimes times = SongTimes::Ask);
};
