// Catalogues for tests: the file "songsdb_debug" in the working directory, which the program takes
// in place of its own.
#pragma once

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QStringList>
#include <QVariantList>
#include <QtDebug>

namespace debugcatalogue
{

inline const QString createTable = QStringLiteral(
    "create table Songs (title varchar, artist varchar, genre varchar, author varchar, "
    "length integer, bpm integer, key varchar, filename varchar primary key, markers varchar, "
    "altartist varchar)");

/** Runs the statements on "songsdb_debug", which they create; false when one of them fails. */
inline bool run(const QStringList &statements)
{
    const QString name = QStringLiteral("debugcatalogue");
    bool succeeded = true;
    {
        QSqlDatabase file = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
        file.setDatabaseName(QStringLiteral("songsdb_debug"));
        succeeded = file.open();
        QSqlQuery query(file);
        for (const QString &statement : statements) {
            if (succeeded && !query.exec(statement)) {
                qWarning() << statement << query.lastError();
                succeeded = false;
            }
        }
    }
    QSqlDatabase::removeDatabase(name);
    return succeeded;
}

/** Makes a catalogue of rows, each written as the values of an SQL insert. */
inline bool create(const QStringList &rows)
{
    QStringList statements{createTable};
    for (const QString &row : rows)
        statements.append(QStringLiteral("insert into Songs values (%1)").arg(row));
    return run(statements);
}

/** Makes a catalogue of count rows: titles "SONG TITLE 7", file names "SNG00007". */
inline bool createMany(int count)
{
    return run(
        {createTable,
         QStringLiteral(
             "with recursive n(i) as (select 0 union all select i + 1 from n where i + 1 < %1) "
             "insert into Songs select 'SONG TITLE ' || i, 'SURNAME ' || (i %% 700), 'POP', "
             "'COMPOSER - LYRICIST', 200, 120, 'C', printf('SNG%05d', i), "
             "'1;Intro;19;Verse1;27;Chorus;', 'GIVEN ' || (i %% 700) from n")
             .arg(count)
             .replace(QStringLiteral("%%"), QStringLiteral("%"))});
}

} // namespace debugcatalogue
