// A named SQLite connection that lives as long as its object.
#pragma once

#include <QSqlDatabase>
#include <QSqlError>
#include <QString>
#include <QtGlobal>

/**
 * Adds the connection when it is made; closes and removes it when it is destroyed. Queries and
 * models on the connection must be destroyed before it.
 */
class SqlConnection
{
public:
    /** False when this computer's Qt came without SQLite: no connection can be opened then. */
    static bool hasDriver();

    explicit SqlConnection(const QString &name);
    ~SqlConnection();
    Q_DISABLE_COPY_MOVE(SqlConnection)

    /**
     * Opens the database file, or a database in memory for ":memory:". Options are those of the
     * QSQLITE driver. SQLite looks into a file only when it is first queried, so true does not
     * mean that the file is a database.
     */
    bool open(const QString &databaseName, const QString &options = QString());

    /** True when another program kept the file for itself for as long as was waited. */
    static bool isInUse(const QSqlError &error);

    /** The handle for queries and models. */
    QSqlDatabase database() const;

private:
    const QString m_name;
};
