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

bool SqlConnection::isInUse(const QSqlError &error)
{
    constexpr int primaryCode = 0xff; // the bits above say more precisely why
    constexpr int busy = 5;
    constexpr int locked = 6;
    const int code = error.nativeErrorCode().toInt() & primaryCode;
    return code == busy || code == locked;
}

QSqlDatabase SqlConnection::database() const
{
    return QSqlDatabase::database(m_name, false);
}
