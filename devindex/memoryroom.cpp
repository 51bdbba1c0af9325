#include "devindex/memoryroom.h"

#include <QStorageInfo>

MemoryRoom MemoryRoom::of(const QString &folder)
{
    const QStorageInfo storage(folder);
    MemoryRoom room;
    room.medium = WriteProblem::Medium::of(folder);
    if (!storage.isValid())
        return room;
    room.freeBytes = storage.bytesAvailable();
    room.totalBytes = storage.bytesTotal();
    room.clusterSize = storage.blockSize();
    return room;
}
