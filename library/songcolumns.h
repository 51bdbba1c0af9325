// The columns of the user's list of songs.
#pragma once

#include <QLatin1String>

/**
 * The table of the user's songs, its model and the list on the screen all take the columns and
 * their order from here. The names of the fields are also the keys under which the widths of the
 * columns are kept in the settings.
 */
namespace songcolumns
{

enum Column : int {
    Id, ///< the songs' numbers, in the order of their import
    Type,
    Title,
    Artist,
    Genre,
    Author,
    Length,
    UserBpm,
    Key,
    FileName, ///< the full path
    ShortName,
    Status,
};

struct Field {
    QLatin1String name;
    QLatin1String sqlType;
};

/** One field a column, in the order of the columns. */
inline constexpr Field fields[] = {
    {QLatin1String("id"), QLatin1String("integer primary key")},
    {QLatin1String("type"), QLatin1String("varchar")},
    {QLatin1String("title"), QLatin1String("varchar")},
    {QLatin1String("artist"), QLatin1String("varchar")},
    {QLatin1String("genre"), QLatin1String("varchar")},
    {QLatin1String("author"), QLatin1String("varchar")},
    {QLatin1String("length"), QLatin1String("varchar")},
    {QLatin1String("userbpm"), QLatin1String("int")},
    {QLatin1String("key"), QLatin1String("varchar")},
    {QLatin1String("filename"), QLatin1String("varchar")},
    {QLatin1String("shortname"), QLatin1String("varchar")},
    {QLatin1String("status"), QLatin1String("int")},
};

inline constexpr int count = Status + 1;
static_assert(sizeof(fields) / sizeof(fields[0]) == count, "one field a column");

/** What the list calls its column of folders, which stands behind the fields and is no field. */
inline constexpr QLatin1String folderName("folder");

/** The field that the column shows. */
constexpr const Field &field(Column column)
{
    return fields[column];
}

} // namespace songcolumns
