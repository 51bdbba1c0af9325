// The tables of the history's file.
#pragma once

#include <QSqlDatabase>

namespace historyschema
{

/** What is in a file that may be anybody's. */
enum class Content {
    Nothing,    ///< an empty database
    Own,        ///< exactly the tables that this program makes
    Foreign,    ///< other tables, or no database at all
    Newer,      ///< a later version of this program made it
    Unreadable, ///< the file cannot be opened or read
};

/** Looks into the file and changes nothing. */
Content contentOf(const QSqlDatabase &file);

/** Makes the tables in an empty database; false when that failed. Belongs into a transaction. */
bool make(const QSqlDatabase &file);

} // namespace historyschema
