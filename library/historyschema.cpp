#include "library/historyschema.h"

#include "library/sqlconnection.h"

#include <QLatin1String>
#include <QSqlError>
#include <QSqlQuery>
#include <QString>
#include <QVariant>

namespace
{

constexpr int layoutVersion = 1;

struct SchemaItem {
    const char *name;
    const char *statement; ///< as SQLite keeps it
};

constexpr SchemaItem schema[] = {
    {"jobs", "CREATE TABLE jobs (number INTEGER PRIMARY KEY AUTOINCREMENT, time INTEGER NOT NULL, "
             "kind INTEGER NOT NULL, takes_back INTEGER, is_undone INTEGER NOT NULL DEFAULT 0)"},
    // By themselves: a change of a row writes the whole row anew.
    {"kept", "CREATE TABLE kept (song INTEGER PRIMARY KEY REFERENCES songs (id) ON DELETE CASCADE, "
             "bytes BLOB NOT NULL)"},
    {"songs", "CREATE TABLE songs (id INTEGER PRIMARY KEY AUTOINCREMENT, "
              "job INTEGER NOT NULL REFERENCES jobs (number) ON DELETE CASCADE, "
              "path TEXT NOT NULL, new_path TEXT NOT NULL, is_tag INTEGER NOT NULL, "
              "old_size INTEGER NOT NULL, old_digest BLOB NOT NULL, new_size INTEGER, "
              "new_digest BLOB, before TEXT, after TEXT)"},
    {"songs_of_job", "CREATE INDEX songs_of_job ON songs (job)"},
};

/** Exactly the tables that this program makes: a stranger's triggers could do anything. */
bool hasOwnTables(QSqlQuery &items)
{
    for (const SchemaItem &item : schema) {
        if (!items.next() || items.value(0).toString() != QLatin1String(item.name) ||
            items.value(1).toString() != QLatin1String(item.statement))
            return false;
    }
    return !items.next();
}

/** SQLite's own tables do not count. */
bool selectItems(QSqlQuery &items)
{
    return items.exec(QStringLiteral(
        "SELECT name, sql FROM sqlite_schema WHERE name NOT LIKE 'sqlite_%' ORDER BY name"));
}

} // namespace

historyschema::Content historyschema::contentOf(const QSqlDatabase &file)
{
    QSqlQuery query(file);
    query.setForwardOnly(true);
    // Looks into the file for the first time.
    if (!query.exec(QStringLiteral("PRAGMA user_version")) || !query.next()) {
        constexpr int notADatabase = 26;
        constexpr int corrupt = 11;
        const int error = query.lastError().nativeErrorCode().toInt();
        return error == notADatabase || error == corrupt ? Content::Foreign : Content::Unreadable;
    }
    const int version = query.value(0).toInt();
    query.finish();
    if (version > layoutVersion)
        return Content::Newer;
    if (!selectItems(query))
        return SqlConnection::isInUse(query.lastError()) ? Content::Unreadable : Content::Foreign;
    if (version == layoutVersion)
        return hasOwnTables(query) ? Content::Own : Content::Foreign;
    return version == 0 && !query.next() ? Content::Nothing : Content::Foreign;
}

bool historyschema::make(const QSqlDatabase &file)
{
    QSqlQuery query(file);
    bool made = true;
    for (const SchemaItem &item : schema)
        made = made && query.exec(QLatin1String(item.statement));
    return made && query.exec(QStringLiteral("PRAGMA user_version = %1").arg(layoutVersion));
}
