// When a song file was last changed, as the index notes it.
#pragma once

#include <QString>

#include <ctime>
#include <optional>

struct FileStamp {
    quint32 date = 0; ///< year * 10000 + month * 100 + day
    quint32 time = 0; ///< hour * 10000 + minute * 100 + second

    /** The last modification of a regular file in local time; nothing when there is no such file.
     */
    static std::optional<FileStamp> of(const QString &path);

    /** This moment in local time; zeros for a year that the index cannot hold. */
    static FileStamp at(std::time_t moment);
};
