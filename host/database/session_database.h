// The database of sessions and part formats that many workstations share: SQLite or PostgreSQL.
#pragma once

#include <QVariantList>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "database/address.h"
#include "database/database_error.h"

class QSqlDatabase;
class QSqlQuery;

namespace host {

enum class ItemKind { Session, Format };

/// A session or part format, as it is in the database.
struct StoredItem {
    std::string name;  ///< in upper case
    std::string xml;
    /// Of its last change. No version comes twice, also when an item is deleted and made again.
    std::int64_t version = 0;
    std::string changedBy;
    std::string changedAt;  ///< date and time in UTC, such as 2025-11-30T14:05:09Z
};

/// One change that a workstation wants to make.
struct Change {
    enum class Act {
        Insert,  ///< no item of this name may be there
        Update,  ///< the item must be there in this version
        Delete,  ///< the item must be there in this version
        Need     ///< changes nothing, but an item of this name must be there
    };
    Act act = Act::Insert;
    ItemKind kind = ItemKind::Session;
    std::string name;  ///< in any case
    std::string xml = {};
    std::int64_t version = 0;  ///< on which an update or deletion builds
};

/// A change that can't be made because another workstation was faster.
struct Conflict {
    Change change;
    std::optional<StoredItem> present;  ///< what the database holds under the name by now

    /// One sentence for the user.
    std::string text() const;
};

/// Some changes were refused, and so none of the set was made.
class ConflictError : public DatabaseError {
  public:
    explicit ConflictError(std::vector<Conflict> conflicts);
    const std::vector<Conflict>& conflicts() const { return m_conflicts; }

  private:
    std::vector<Conflict> m_conflicts;
};

/// A workstation's connection to the database. To be used on the thread that made it. A connection
/// that was lost is made again by the next call. Every call raises `DatabaseError`.
class SessionDatabase {
  public:
    /// Connects, and makes the tables when they are not there.
    /// @param workstation  who changes things here, such as "anna@counter-2"
    SessionDatabase(const DatabaseAddress& address, std::string workstation);
    ~SessionDatabase();
    SessionDatabase(const SessionDatabase&) = delete;
    SessionDatabase& operator=(const SessionDatabase&) = delete;

    const DatabaseAddress& address() const { return m_address; }

    /// All items of a kind, by their names.
    std::vector<StoredItem> items(ItemKind kind);
    /// @param name  in any case
    std::optional<StoredItem> item(ItemKind kind, const std::string& name);

    /// Makes all changes or none.
    /// Raises `ConflictError`, with all conflicts, when another workstation was faster.
    void store(const std::vector<Change>& changes);

  private:
    class Transaction;
    QSqlDatabase connection() const;
    void connect();
    bool answers() const;
    bool hasTables() const;
    void makeTables();
    QSqlQuery run(const QString& statement, const QVariantList& values = {}) const;
    std::optional<StoredItem> find(ItemKind kind, const std::string& upper) const;
    std::int64_t nextVersion() const;
    void makeAll(const std::vector<Change>& changes) const;
    std::optional<Conflict> conflictOf(const Change& change) const;
    void make(const Change& change, std::int64_t version) const;

    DatabaseAddress m_address;
    std::string m_workstation;
    std::string m_connection;  ///< Qt's name for it
};

}  // namespace host
