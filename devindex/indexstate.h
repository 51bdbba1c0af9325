// The state that the steps of an index operation share, and the observer that they report to.
#pragma once

#include "devindex/indexrecords.h"
#include "devindex/memorydevice.h"
#include "devindex/songinfoindex.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

/** The state of one operation on a memory's index; each step takes it from the one before. */
struct IndexState {
    /** Stands for maxLoadedId where no index was read. */
    static constexpr quint32 noIdLoaded = 0xFFFFFFFF;

    AlphaTable alphaBuffer;
    QString rootPath;  ///< without a slash at its end
    QByteArray device; ///< memoryDevice() of the root when the operation began; empty if unknown
    QByteArray expectedDevice; ///< set before an operation: it is not begun on another one
    QList<SongInfoIndex> entries;
    QList<quint16> playlistNumbers;
    QStringList unreadFolders;        ///< that the scan could not read, as paths on the memory
    quint32 maxLoadedId = noIdLoaded; ///< highest id of the index that was read, or noIdLoaded
    quint32 nextId = 0;
    quint16 nextPosidx = 0;
    quint8 restorePlaylists = 0;
    quint8 indexChanged = 0;
    quint8 askBeforeRename = 1;
    quint8 renameAccepted = 1;
    quint32 filesFound = 0;
    CountRecord counts;

    /** Where a file of this name, or path below the root, lies on the computer. */
    QString filePath(const QString &name) const { return rootPath + QLatin1Char('/') + name; }

    /**
     * False when the memory was pulled out since the operation began: what is written to its folder
     * then would lie on the system disk, or on another memory.
     */
    bool isMemoryThere() const { return device.isEmpty() || memoryDevice(rootPath) == device; }
};

/** Receives the reports of the steps of an index operation. */
class IndexObserver
{
public:
    virtual void tellError(const QString &message) = 0;

    /** A file or folder has too long a name and could not get another: it is not indexed. */
    virtual void tellLeftOut(const QString &message) { Q_UNUSED(message) }

    virtual void tellCurrentPath(const QString &path) = 0;
    virtual void tellProgress(int value) = 0;
    virtual void tellMaximum(int maximum) = 0;
    virtual void tellFilesFound(int count) = 0;

    /** Asked between songs while nothing is being written. Once true it stays so. */
    virtual bool wantsToStop() { return false; }

protected:
    IndexObserver() = default;
    ~IndexObserver() = default;
    Q_DISABLE_COPY_MOVE(IndexObserver)
};
