// What a user wants to know of a memory as a whole.
#pragma once

#include <QString>

struct MemoryFacts {
    QString name;
    QString fileSystem;     ///< such as "vfat"; empty when the system does not tell
    qint64 totalBytes = -1; ///< negative when it is not known
    qint64 freeBytes = -1;
    bool isMounted = false; ///< the folder is where a file system of its own begins
    bool isWritable = false;
    bool isOnMemory = false; ///< in a mount directory, where the player's memories are

    /** Of the file system that holds the folder. */
    static MemoryFacts of(const QString &folder);
};
