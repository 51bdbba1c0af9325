#include "library/sqlconnection.h"

namespace
{
const QString driver = QStringLiteral("QSQLITE");
} // namespace

bool SqlConnection::hasDriver()
{
    return QSqlDatabase::isDriverAvailable(driver);
}

SqlConnection::SqlConnection(const QString &name)
    : m_name(name)
{
    QSqlDatabase::addDatabase(driver, m_name);
}

SqlConnection::~SqlConnection()
{
    database().close();
    QSqlDatabase::removeDatabase(m_name);
}

bool SqlConnection::open(const QString &databaseName, const QString &options)
{
    QSqlDatabase connection = database();
    connection.setDatabaseName(databaseName);
    connection.setConnectOptions(options);
    return connection.open();
}

QSqlDatabase SqlConnection::database() const
{
    return QSqlDatabase::database(m_name, false);
}
