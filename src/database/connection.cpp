// Opening a connection, and turning what a driver says into failures.
#include "database/connection.h"

#include <QDateTime>
#include <QSqlError>
#include <QStringList>
#include <QUuid>
#include <utility>

#include "wynconfig/save_file.h"

namespace wynconfig {

namespace {

std::string messageOf(const QSqlError& error) {
    const QString text = error.databaseText().isEmpty() ? error.driverText() : error.databaseText();
    return text.simplified().toStdString();
}

/// The options as a server's driver reads them. Unquoted, a blank or a quote in a value would make
/// the driver complain of the rest of it, in its own words.
QString serverOptions(const QString& options) {
    QStringList quoted;
    for (const QString& option : options.split(';', Qt::SkipEmptyParts)) {
        QString value = option.section('=', 1);
        value.replace('\\', QStringLiteral("\\\\")).replace('\'', QStringLiteral("\\'"));
        quoted << option.section('=', 0, 0) + QStringLiteral("='") + value + '\'';
    }
    return quoted.join(' ');
}

}  // namespace

QString toQt(const std::string& text) {
    return QString::fromStdString(text);
}

QString utcNow() {
    return QDateTime::currentDateTimeUtc().toString(Qt::ISODate);
}

DatabaseConnection::DatabaseConnection(DatabaseAddress address)
    : m_address(std::move(address)), m_name(QUuid::createUuid().toString()) {
    QSqlDatabase database = QSqlDatabase::addDatabase(onServer() ? "QPSQL" : "QSQLITE", m_name);
    database.setDatabaseName(toQt(m_address.name));
    database.setHostName(toQt(m_address.host));
    if (m_address.port != 0) database.setPort(m_address.port);
    database.setUserName(toQt(m_address.user));
    database.setPassword(toQt(m_address.password));
    database.setConnectOptions(onServer() ? serverOptions(toQt(m_address.options))
                                          : toQt(m_address.options));
}

DatabaseConnection::~DatabaseConnection() {
    database().close();
    QSqlDatabase::removeDatabase(m_name);
}

QSqlDatabase DatabaseConnection::database() const {
    return QSqlDatabase::database(m_name, false);
}

QString DatabaseConnection::orderedName() const {
    return onServer() ? QStringLiteral("name COLLATE \"C\"") : QStringLiteral("name");
}

QString DatabaseConnection::holds(const QString& column) const {
    return (onServer() ? QStringLiteral("strpos(%1, ?) > 0") : QStringLiteral("instr(%1, ?) > 0"))
        .arg(column);
}

void DatabaseConnection::reopen() {
    QSqlDatabase database = this->database();
    database.close();
    // Opening a pipe, a device or a socket would wait for another program, or do who knows what.
    if (!onServer() && isNoPlainFile(m_address.name))
        throw DatabaseError("The database " + m_address.text() +
                            " can't be reached: it is no plain file");
    if (!database.open())
        throw DatabaseError("The database " + m_address.text() +
                            " can't be reached: " + messageOf(database.lastError()));
    if (!onServer()) return;
    // Another workstation may hold the tables for a moment, not for good.
    run(QStringLiteral("SET lock_timeout = '10s'"));
    // Else the driver writes notices into the output of the host.
    run(QStringLiteral("SET client_min_messages = warning"));
}

std::optional<std::int64_t> DatabaseConnection::number(const QString& query) const {
    QSqlQuery asked(database());
    if (!asked.exec(query) || !asked.next() || asked.isNull(0)) return std::nullopt;
    return asked.value(0).toLongLong();
}

QSqlQuery DatabaseConnection::run(const QString& statement, const QVariantList& values) const {
    QSqlQuery query(database());
    query.setForwardOnly(true);
    // A server prepares only statements that read or write rows.
    const bool prepared = values.isEmpty() || query.prepare(statement);
    for (const QVariant& value : values) query.addBindValue(value);
    if (!prepared || !(values.isEmpty() ? query.exec(statement) : query.exec())) fail(query);
    return query;
}

bool DatabaseConnection::next(QSqlQuery& query) const {
    const bool found = query.next();
    if (!found && query.lastError().isValid()) fail(query);
    return found;
}

void DatabaseConnection::fail(const QSqlQuery& query) const {
    throw DatabaseError("The database " + m_address.text() +
                        " failed: " + messageOf(query.lastError()));
}

DatabaseTransaction::DatabaseTransaction(const DatabaseConnection& connection)
    : m_connection(connection) {
    // SQLite would otherwise take the lock with the first change only; a server may be set to a
    // level on which waiting for another workstation ends in a failure.
    try {
        connection.run(connection.onServer()
                           ? QStringLiteral("BEGIN ISOLATION LEVEL READ COMMITTED")
                           : QStringLiteral("BEGIN IMMEDIATE"));
    } catch (const DatabaseError& error) {
        throw DatabaseError(std::string(error.what()) + "\nNothing was stored.");
    }
}

DatabaseTransaction::~DatabaseTransaction() {
    QSqlDatabase database = m_connection.database();
    if (!m_committed && database.isOpen()) database.rollback();
}

void DatabaseTransaction::commit() {
    QSqlDatabase database = m_connection.database();
    if (!database.commit())
        throw DatabaseError("The database " + m_connection.address().text() +
                            " failed: " + messageOf(database.lastError()) +
                            "\nReload to see whether the changes were stored.");
    m_committed = true;
}

}  // namespace wynconfig
