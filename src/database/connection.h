// One connection to a database, by Qt's drivers.
#pragma once

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QVariantList>
#include <string>

#include "wynconfig/database.h"

namespace wynconfig {

QString toQt(const std::string& text);

/// To be used on the thread that made it. Every call raises `DatabaseError`.
class DatabaseConnection {
  public:
    explicit DatabaseConnection(DatabaseAddress address);
    ~DatabaseConnection();
    DatabaseConnection(const DatabaseConnection&) = delete;
    DatabaseConnection& operator=(const DatabaseConnection&) = delete;

    const DatabaseAddress& address() const { return m_address; }
    bool onServer() const { return m_address.kind == DatabaseAddress::Kind::PostgreSql; }

    /// Connects when there is no connection, or none that answers any more.
    /// @return whether the connection is a new one
    bool open();
    /// @param values  for the question marks of the statement, in their order
    QSqlQuery run(const QString& statement, const QVariantList& values = {}) const;
    /// Whether a query gives a row; false also when it fails.
    bool gives(const QString& query) const;

  private:
    friend class DatabaseTransaction;
    QSqlDatabase database() const;

    DatabaseAddress m_address;
    QString m_name;  ///< Qt's for the connection
};

/// Takes everything back at its end, unless it was committed.
class DatabaseTransaction {
  public:
    explicit DatabaseTransaction(const DatabaseConnection& connection);
    ~DatabaseTransaction();
    DatabaseTransaction(const DatabaseTransaction&) = delete;
    DatabaseTransaction& operator=(const DatabaseTransaction&) = delete;

    void commit();

  private:
    [[noreturn]] void fail(const std::string& advice) const;

    QSqlDatabase m_database;
    bool m_committed = false;
};

}  // namespace wynconfig
