// A song that a scan has found on a memory.
#pragma once

#include "devindex/filestamp.h"

#include <QString>

struct FoundSong {
    QString path; ///< absolute
    FileStamp stamp;
};
