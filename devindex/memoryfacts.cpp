#include "devindex/memoryfacts.h"

#include "devindex/mountedvolumes.h"

#include <QDir>
#include <QFileInfo>
#include <QStorageInfo>

MemoryFacts MemoryFacts::of(const QString &folder)
{
    MemoryFacts facts;
    const QString path = QFileInfo(folder).canonicalFilePath();
    facts.name = QFileInfo(folder).fileName();
    if (path.isEmpty())
        return facts;
    if (facts.name.isEmpty())
        facts.name = QDir::toNativeSeparators(path);
    facts.isOnMemory = !MountedVolumes().isSystemDisk(folder);
    const QStorageInfo storage(path);
    if (!storage.isValid())
        return facts;
    facts.fileSystem = QString::fromUtf8(storage.fileSystemType());
    facts.totalBytes = storage.bytesTotal();
    facts.freeBytes = storage.bytesAvailable();
    facts.isMounted = storage.rootPath() == path && path != QDir::rootPath();
    facts.isWritable = !storage.isReadOnly() && QFileInfo(path).isWritable();
    return facts;
}
