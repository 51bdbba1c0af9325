// Catalogues for tests whose rows are given field by field, faulty values included.
#pragma once

#include "support/debugcatalogue.h"

#include <QList>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QVariant>

namespace catalogue
{

/** The file in the working directory that replaces the built-in catalogue. */
inline const QString overrideFile = QStringLiteral("songsdb_debug");

struct Row {
    QString filename;
    QString title;
    QString artist;
    QString altartist;
    QString genre;
    QString author;
    QVariant length; ///< a number as a rule; a faulty catalogue may hold anything
    QVariant bpm;
    QString key;
    QVariant markers;
};

/** Creates the SQLite file with its table and these rows; false when anything fails. */
inline bool write(const QString &path, const QList<Row> &rows)
{
    const QString connection = QStringLiteral("catalogue_writer");
    bool written = false;
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection);
        database.setDatabaseName(path);
        database.open();
        QSqlQuery query(database);
        written = query.exec(debugcatalogue::createTable) && database.transaction() &&
                  query.prepare(QStringLiteral("insert into Songs values (?,?,?,?,?,?,?,?,?,?)"));
        for (const Row &row : rows) {
            const QVariantList values = {row.title,   row.artist,   row.genre, row.author,
                                         row.length,  row.bpm,      row.key,   row.filename,
                                         row.markers, row.altartist};
            for (int i = 0; i < values.size(); ++i)
                query.bindValue(i, values.at(i));
            written = written && query.exec();
        }
        written = written && database.commit();
    }
    QSqlDatabase::removeDatabase(connection);
    return written;
}

} // namespace catalogue
