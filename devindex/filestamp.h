// When a song file was last changed, as the index notes it.
#pragma once

#include <QtGlobal>

class QFileInfo;

struct FileStamp {
    quint32 date = 0; ///< year * 10000 + month * 100 + day
    quint32 time = 0; ///< hour * 10000 + minute * 100 + second

    /** The file's last modification in local time; zeros when it is not known. */
    static FileStamp of(const QFileInfo &file);
};
