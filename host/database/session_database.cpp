// The tables, and how several workstations change them without losing anything.
//
// Whoever stores first raises the one number in `config_change`. That locks its row until the end
// of the transaction, so that changes are made one after another; and the number is the version of
// all that the transaction writes, so that no version comes twice.
#include "database/session_database.h"

#include <QDateTime>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QString>
#include <QUuid>
#include <map>
#include <utility>

#include "wynconfig/store.h"

namespace host {

namespace {

QString tableOf(ItemKind kind) {
    return kind == ItemKind::Session ? QStringLiteral("config_session")
                                     : QStringLiteral("config_part_format");
}

std::string wordFor(ItemKind kind) {
    return kind == ItemKind::Session ? "session" : "part format";
}

QString toQt(const std::string& text) {
    return QString::fromStdString(text);
}

std::string messageOf(const QSqlError& error) {
    const QString text = error.databaseText().isEmpty() ? error.driverText() : error.databaseText();
    return text.simplified().toStdString();
}

const QString kColumns = QStringLiteral("name, xml, version, changed_by, changed_at");

StoredItem itemFrom(const QSqlQuery& query) {
    return {query.value(0).toString().toStdString(), query.value(1).toString().toStdString(),
            query.value(2).toLongLong(), query.value(3).toString().toStdString(),
            query.value(4).toString().toStdString()};
}

std::string conflictsText(const std::vector<Conflict>& conflicts) {
    std::string text = "Nothing was stored, because another workstation was faster:";
    for (const Conflict& conflict : conflicts) text += "\n" + conflict.text();
    return text;
}

}  // namespace

std::string Conflict::text() const {
    const std::string item =
        "The " + wordFor(change.kind) + " " + wynconfig::upperName(change.name);
    const std::string changer =
        present ? " by " + present->changedBy + " at " + present->changedAt : "";
    if (change.act == Change::Act::Need)
        return item + ", which the session uses, was deleted or renamed meanwhile.";
    if (!present) return item + " was deleted or renamed meanwhile.";
    if (change.act == Change::Act::Insert) return item + " is there already, saved" + changer + ".";
    return item + " was changed meanwhile" + changer + ".";
}

ConflictError::ConflictError(std::vector<Conflict> conflicts)
    : DatabaseError(conflictsText(conflicts)), m_conflicts(std::move(conflicts)) {}

/// Takes everything back at its end, unless it was committed.
class SessionDatabase::Transaction {
  public:
    explicit Transaction(const SessionDatabase& database) : m_connection(database.connection()) {
        if (!m_connection.transaction()) fail("Nothing was stored.");
    }
    ~Transaction() {
        if (!m_committed && m_connection.isOpen()) m_connection.rollback();
    }
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void commit() {
        if (!m_connection.commit()) fail("Reload to see whether the changes were stored.");
        m_committed = true;
    }

  private:
    [[noreturn]] void fail(const std::string& advice) const {
        throw DatabaseError("The database failed: " + messageOf(m_connection.lastError()) + "\n" +
                            advice);
    }

    QSqlDatabase m_connection;
    bool m_committed = false;
};

SessionDatabase::SessionDatabase(const DatabaseAddress& address, std::string workstation)
    : m_address(address),
      m_workstation(std::move(workstation)),
      m_connection(QUuid::createUuid().toString().toStdString()) {
    const bool sqlite = m_address.kind == DatabaseAddress::Kind::Sqlite;
    QSqlDatabase database =
        QSqlDatabase::addDatabase(sqlite ? "QSQLITE" : "QPSQL", toQt(m_connection));
    database.setDatabaseName(toQt(m_address.name));
    database.setHostName(toQt(m_address.host));
    if (m_address.port != 0) database.setPort(m_address.port);
    database.setUserName(toQt(m_address.user));
    database.setPassword(toQt(m_address.password));
    database.setConnectOptions(toQt(m_address.options));
    try {
        connect();
    } catch (...) {
        database = {};
        QSqlDatabase::removeDatabase(toQt(m_connection));
        throw;
    }
}

SessionDatabase::~SessionDatabase() {
    connection().close();
    QSqlDatabase::removeDatabase(toQt(m_connection));
}

QSqlDatabase SessionDatabase::connection() const {
    return QSqlDatabase::database(toQt(m_connection), false);
}

bool SessionDatabase::answers() const {
    QSqlQuery query(connection());
    return query.exec(QStringLiteral("SELECT 1")) && query.next();
}

void SessionDatabase::connect() {
    QSqlDatabase database = connection();
    if (database.isOpen() && answers()) return;
    database.close();
    if (!database.open())
        throw DatabaseError("The database " + m_address.text() +
                            " can't be reached: " + messageOf(database.lastError()));
    // Another workstation may hold the tables for a moment, not for good.
    if (m_address.kind == DatabaseAddress::Kind::PostgreSql)
        run(QStringLiteral("SET lock_timeout = '10s'"));
    if (hasTables()) return;
    try {
        makeTables();
    } catch (const DatabaseError&) {
        // Another workstation may have made them at the same time.
        if (!hasTables()) throw;
    }
}

bool SessionDatabase::hasTables() const {
    QSqlQuery query(connection());
    return query.exec(QStringLiteral("SELECT last FROM config_change")) && query.next();
}

void SessionDatabase::makeTables() {
    Transaction transaction(*this);
    for (const ItemKind kind : {ItemKind::Session, ItemKind::Format}) {
        run(QStringLiteral("CREATE TABLE IF NOT EXISTS %1 (name TEXT PRIMARY KEY, "
                           "xml TEXT NOT NULL, version BIGINT NOT NULL, "
                           "changed_by TEXT NOT NULL, changed_at TEXT NOT NULL)")
                .arg(tableOf(kind)));
    }
    run(
        QStringLiteral("CREATE TABLE IF NOT EXISTS config_change "
                       "(id INTEGER PRIMARY KEY CHECK (id = 1), last BIGINT NOT NULL)"));
    run(QStringLiteral("INSERT INTO config_change VALUES (1, 0) ON CONFLICT DO NOTHING"));
    transaction.commit();
}

QSqlQuery SessionDatabase::run(const QString& statement, const QVariantList& values) const {
    QSqlQuery query(connection());
    query.setForwardOnly(true);
    // A server prepares only statements that read or write rows.
    const bool prepared = values.isEmpty() || query.prepare(statement);
    for (const QVariant& value : values) query.addBindValue(value);
    if (!prepared || !(values.isEmpty() ? query.exec(statement) : query.exec()))
        throw DatabaseError("The database " + m_address.text() +
                            " failed: " + messageOf(query.lastError()));
    return query;
}

std::vector<StoredItem> SessionDatabase::items(ItemKind kind) {
    connect();
    QSqlQuery query = run(QStringLiteral("SELECT %1 FROM %2").arg(kColumns, tableOf(kind)));
    std::map<std::string, StoredItem> sorted;
    while (query.next()) {
        StoredItem item = itemFrom(query);
        sorted[item.name] = std::move(item);
    }
    std::vector<StoredItem> all;
    for (auto& [name, item] : sorted) all.push_back(std::move(item));
    return all;
}

std::optional<StoredItem> SessionDatabase::item(ItemKind kind, const std::string& name) {
    connect();
    return find(kind, wynconfig::upperName(name));
}

std::optional<StoredItem> SessionDatabase::find(ItemKind kind, const std::string& upper) const {
    QSqlQuery query =
        run(QStringLiteral("SELECT %1 FROM %2 WHERE name = ?").arg(kColumns, tableOf(kind)),
            {toQt(upper)});
    if (!query.next()) return std::nullopt;
    return itemFrom(query);
}

std::int64_t SessionDatabase::nextVersion() const {
    run(QStringLiteral("UPDATE config_change SET last = last + 1"));
    QSqlQuery query = run(QStringLiteral("SELECT last FROM config_change"));
    if (!query.next())
        throw DatabaseError("The database " + m_address.text() + " has lost its count of changes.");
    return query.value(0).toLongLong();
}

void SessionDatabase::store(const std::vector<Change>& changes) {
    if (changes.empty()) return;
    connect();
    Transaction transaction(*this);
    try {
        makeAll(changes);
    } catch (const ConflictError&) {
        throw;
    } catch (const DatabaseError& error) {
        throw DatabaseError(std::string(error.what()) + "\nNothing was stored.");
    }
    transaction.commit();
}

void SessionDatabase::makeAll(const std::vector<Change>& changes) const {
    const std::int64_t version = nextVersion();
    std::vector<Conflict> conflicts;
    for (const Change& change : changes) {
        if (auto conflict = conflictOf(change)) conflicts.push_back(std::move(*conflict));
    }
    if (!conflicts.empty()) throw ConflictError(std::move(conflicts));
    for (const Change& change : changes) make(change, version);
}

std::optional<Conflict> SessionDatabase::conflictOf(const Change& change) const {
    std::optional<StoredItem> present = find(change.kind, wynconfig::upperName(change.name));
    const bool fits = change.act == Change::Act::Insert ? !present
                      : change.act == Change::Act::Need
                          ? present.has_value()
                          : present && present->version == change.version;
    if (fits) return std::nullopt;
    return Conflict{change, std::move(present)};
}

void SessionDatabase::make(const Change& change, std::int64_t version) const {
    if (change.act == Change::Act::Need) return;
    const QVariant name = toQt(wynconfig::upperName(change.name));
    const QVariant xml = toQt(change.xml);
    const QVariant newVersion = static_cast<qlonglong>(version);
    const QVariant oldVersion = static_cast<qlonglong>(change.version);
    const QVariant changer = toQt(m_workstation);
    const QVariant now = QDateTime::currentDateTimeUtc().toString(Qt::ISODate);
    const QString table = tableOf(change.kind);
    QSqlQuery query =
        change.act == Change::Act::Insert
            ? run(QStringLiteral("INSERT INTO %1 (%2) VALUES (?, ?, ?, ?, ?) "
                                 "ON CONFLICT DO NOTHING")
                      .arg(table, kColumns),
                  {name, xml, newVersion, changer, now})
        : change.act == Change::Act::Update
            ? run(QStringLiteral("UPDATE %1 SET xml = ?, version = ?, changed_by = ?, "
                                 "changed_at = ? WHERE name = ? AND version = ?")
                      .arg(table),
                  {xml, newVersion, changer, now, name, oldVersion})
            : run(QStringLiteral("DELETE FROM %1 WHERE name = ? AND version = ?").arg(table),
                  {name, oldVersion});
    // The number above guards the tables against hosts alone; the conditions here against all.
    if (query.numRowsAffected() != 1)
        throw ConflictError(
            {Conflict{change, find(change.kind, wynconfig::upperName(change.name))}});
}

}  // namespace host
