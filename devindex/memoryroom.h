// What a memory says about its room.
#pragma once

#include "storage/writeproblem.h"

#include <QString>
#include <QtGlobal>

struct MemoryRoom {
    qint64 freeBytes = -1; ///< negative when unknown
    qint64 totalBytes = -1;
    qint64 clusterSize = 0;
    WriteProblem::Medium medium; ///< by which names are judged

    static MemoryRoom of(const QString &folder);
};
