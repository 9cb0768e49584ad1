// Opening a connection, and turning what a driver says into failures.
#include "database/connection.h"

#include <QSqlError>
#include <QUuid>
#include <utility>

namespace wynconfig {

namespace {

std::string messageOf(const QSqlError& error) {
    const QString text = error.databaseText().isEmpty() ? error.driverText() : error.databaseText();
    return text.simplified().toStdString();
}

}  // namespace

QString toQt(const std::string& text) {
    return QString::fromStdString(text);
}

DatabaseConnection::DatabaseConnection(DatabaseAddress address)
    : m_address(std::move(address)), m_name(QUuid::createUuid().toString()) {
    QSqlDatabase database = QSqlDatabase::addDatabase(onServer() ? "QPSQL" : "QSQLITE", m_name);
    database.setDatabaseName(toQt(m_address.name));
    database.setHostName(toQt(m_address.host));
    if (m_address.port != 0) database.setPort(m_address.port);
    database.setUserName(toQt(m_address.user));
    database.setPassword(toQt(m_address.password));
    database.setConnectOptions(toQt(m_address.options));
}

DatabaseConnection::~DatabaseConnection() {
    database().close();
    QSqlDatabase::removeDatabase(m_name);
}

QSqlDatabase DatabaseConnection::database() const {
    return QSqlDatabase::database(m_name, false);
}

bool DatabaseConnection::open() {
    QSqlDatabase database = this->database();
    if (database.isOpen() && gives(QStringLiteral("SELECT 1"))) return false;
    database.close();
    if (!database.open())
        throw DatabaseError("The database " + m_address.text() +
                            " can't be reached: " + messageOf(database.lastError()));
    // Another workstation may hold the tables for a moment, not for good.
    if (onServer()) run(QStringLiteral("SET lock_timeout = '10s'"));
    return true;
}

bool DatabaseConnection::gives(const QString& query) const {
    QSqlQuery asked(database());
    return asked.exec(query) && asked.next();
}

QSqlQuery DatabaseConnection::run(const QString& statement, const QVariantList& values) const {
    QSqlQuery query(database());
    query.setForwardOnly(true);
    // A server prepares only statements that read or write rows.
    const bool prepared = values.isEmpty() || query.prepare(statement);
    for (const QVariant& value : values) query.addBindValue(value);
    if (!prepared || !(values.isEmpty() ? query.exec(statement) : query.exec()))
        throw DatabaseError("The database " + m_address.text() +
                            " failed: " + messageOf(query.lastError()));
    return query;
}

DatabaseTransaction::DatabaseTransaction(const DatabaseConnection& connection)
    : m_database(connection.database()) {
    if (!m_database.transaction()) fail("Nothing was stored.");
}

DatabaseTransaction::~DatabaseTransaction() {
    if (!m_committed && m_database.isOpen()) m_database.rollback();
}

void DatabaseTransaction::commit() {
    if (!m_database.commit()) fail("Reload to see whether the changes were stored.");
    m_committed = true;
}

void DatabaseTransaction::fail(const std::string& advice) const {
    throw DatabaseError("The database failed: " + messageOf(m_database.lastError()) + "\n" +
                        advice);
}

}  // namespace wynconfig
