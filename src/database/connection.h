// One connection to a database, by Qt's drivers.
#pragma once

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QVariantList>
#include <cstdint>
#include <optional>
#include <string>

#include "wynconfig/database.h"

namespace wynconfig {

QString toQt(const std::string& text);

/// Date and time in UTC, such as 2025-11-30T14:05:09Z.
QString utcNow();

/// To be used on the thread that made it. Every call raises `DatabaseError`.
class DatabaseConnection {
  public:
    explicit DatabaseConnection(DatabaseAddress address);
    ~DatabaseConnection();
    DatabaseConnection(const DatabaseConnection&) = delete;
    DatabaseConnection& operator=(const DatabaseConnection&) = delete;

    const DatabaseAddress& address() const { return m_address; }
    bool onServer() const { return m_address.kind == DatabaseAddress::Kind::PostgreSql; }

    /// The column `name` as a sort key that puts upper-cased names into the order of their
    /// characters' numbers, whatever the server's language.
    QString orderedName() const;

    /// A condition that is true when a column holds the text of the next question mark.
    QString holds(const QString& column) const;

    bool isOpen() const { return database().isOpen(); }
    /// Connects, anew if there was a connection.
    void reopen();
    /// @param values  for the question marks of the statement, in their order
    QSqlQuery run(const QString& statement, const QVariantList& values = {}) const;
    /// Goes to the next row, false behind the last one. Fails when the connection is lost on the
    /// way: rows that did not come are not taken for none.
    bool next(QSqlQuery& query) const;
    /// The number that a query gives; none when it gives none, or fails.
    std::optional<std::int64_t> number(const QString& query) const;

  private:
    friend class DatabaseTransaction;
    QSqlDatabase database() const;
    [[noreturn]] void fail(const QSqlQuery& query) const;

    DatabaseAddress m_address;
    QString m_name;  ///< Qt's for the connection
};

/// Keeps other workstations from changing anything meanwhile, on SQLite; takes everything back at
/// its end, unless it was committed.
class DatabaseTransaction {
  public:
    explicit DatabaseTransaction(const DatabaseConnection& connection);
    ~DatabaseTransaction();
    DatabaseTransaction(const DatabaseTransaction&) = delete;
    DatabaseTransaction& operator=(const DatabaseTransaction&) = delete;

    void commit();

  private:
    const DatabaseConnection& m_connection;
    bool m_committed = false;
};

}  // namespace wynconfig
