// A song that a scan has found on a memory.
#pragma once

#include "devindex/filestamp.h"

#include <QString>

#include <optional>

struct FoundSong {
    QString path;                   ///< absolute
    std::optional<FileStamp> stamp; ///< when the scan has asked for it
};
