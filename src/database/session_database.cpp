// How several workstations change the tables without losing anything.
//
// Whoever stores first raises the one number in `config_change`. That locks its row until the end
// of the transaction, so that changes are made one after another; and the number is the version of
// all that the transaction writes, so that no version comes twice.
#include "wynconfig/database.h"

#include <QSqlQuery>
#include <QString>
#include <QStringList>
#include <utility>

#include "database/connection.h"
#include "database/schema.h"
#include "wynconfig/dataset.h"
#include "wynconfig/keys.h"

namespace wynconfig {

namespace {

std::string wordFor(ItemKind kind) {
    return kind == ItemKind::Session ? "session" : "part format";
}

const QString kListed = QStringLiteral("name, version, changed_by, changed_at");
const QString kColumns = kListed + QStringLiteral(", xml");

std::string textIn(const QSqlQuery& query, int column) {
    return query.value(column).toString().toStdString();
}

ListedItem listedFrom(const QSqlQuery& query) {
    return {textIn(query, 0), query.value(1).toLongLong(), textIn(query, 2), textIn(query, 3)};
}

StoredItem itemFrom(const QSqlQuery& query) {
    return {listedFrom(query), textIn(query, 4)};
}

/// A value as the text of a record spells it.
std::string asStored(const std::string& value) {
    const std::string head = "<row key=\"X\">";
    Dataset record;
    record.Create(session::kType, "X", "", session::kColumns);
    record.AddRow({"X", value});
    Document document;
    record.Save(document);
    const std::string xml = document.xml();
    const std::size_t from = xml.find(head) + head.size();
    return xml.substr(from, xml.rfind("</row>") - from);
}

std::string conflictsText(const std::vector<ItemConflict>& conflicts) {
    std::string text = "Nothing was stored, because another workstation was faster:";
    for (const ItemConflict& conflict : conflicts) text += "\n" + conflict.text();
    return text;
}

/// What all rows of a query are read as.
template <class T>
std::vector<T> all(const DatabaseConnection& database, const QString& query,
                   const QVariantList& values, T (*read)(const QSqlQuery&)) {
    QSqlQuery found = database.run(query, values);
    std::vector<T> rows;
    while (database.next(found)) rows.push_back(read(found));
    return rows;
}

std::optional<StoredItem> find(const DatabaseConnection& database, ItemKind kind,
                               const std::string& upper) {
    QSqlQuery query = database.run(
        QStringLiteral("SELECT %1 FROM %2 WHERE name = ?").arg(kColumns, tableOf(kind)),
        {toQt(upper)});
    if (!database.next(query)) return std::nullopt;
    return itemFrom(query);
}

std::int64_t nextVersion(const DatabaseConnection& database) {
    database.run(QStringLiteral("UPDATE config_change SET last = last + 1"));
    QSqlQuery query = database.run(QStringLiteral("SELECT last FROM config_change"));
    if (!database.next(query))
        throw DatabaseError("The database " + database.address().text() +
                            " has lost its count of changes.");
    return query.value(0).toLongLong();
}

std::optional<ItemConflict> conflictOf(const DatabaseConnection& database,
                                       const ItemChange& change) {
    std::optional<StoredItem> present = find(database, change.kind, upperName(change.name));
    const bool fits = change.act == ItemChange::Act::Insert ? !present
                      : change.act == ItemChange::Act::Need
                          ? present.has_value()
                          : present && present->version == change.version;
    if (fits) return std::nullopt;
    return ItemConflict{change, std::move(present)};
}

void make(const DatabaseConnection& database, const ItemChange& change, std::int64_t version,
          const std::string& workstation) {
    if (change.act == ItemChange::Act::Need) return;
    const QVariant name = toQt(upperName(change.name));
    const QVariant xml = toQt(change.xml);
    const QVariant newVersion = static_cast<qlonglong>(version);
    const QVariant oldVersion = static_cast<qlonglong>(change.version);
    const QVariant changer = toQt(workstation);
    const QVariant now = utcNow();
    const QString table = tableOf(change.kind);
    QSqlQuery query =
        change.act == ItemChange::Act::Insert
            ? database.run(QStringLiteral("INSERT INTO %1 (%2) VALUES (?, ?, ?, ?, ?) "
                                          "ON CONFLICT DO NOTHING")
                               .arg(table, kColumns),
                           {name, newVersion, changer, now, xml})
        : change.act == ItemChange::Act::Update
            ? database.run(QStringLiteral("UPDATE %1 SET xml = ?, version = ?, changed_by = ?, "
                                          "changed_at = ? WHERE name = ? AND version = ?")
                               .arg(table),
                           {xml, newVersion, changer, now, name, oldVersion})
            : database.run(
                  QStringLiteral("DELETE FROM %1 WHERE name = ? AND version = ?").arg(table),
                  {name, oldVersion});
    // The number above guards the tables against hosts alone; the conditions here against all.
    if (query.numRowsAffected() != 1)
        throw ConflictError(
            {ItemConflict{change, find(database, change.kind, upperName(change.name))}});
}

void makeAll(const DatabaseConnection& database, const std::vector<ItemChange>& changes,
             const std::string& workstation) {
    const std::int64_t version = nextVersion(database);
    std::vector<ItemConflict> conflicts;
    for (const ItemChange& change : changes) {
        if (auto conflict = conflictOf(database, change)) conflicts.push_back(std::move(*conflict));
    }
    if (!conflicts.empty()) throw ConflictError(std::move(conflicts));
    for (const ItemChange& change : changes) make(database, change, version, workstation);
}

}  // namespace

std::string ItemConflict::text() const {
    const std::string item = "The " + wordFor(change.kind) + " " + upperName(change.name);
    const std::string changer =
        present ? " by " + present->changedBy + " at " + present->changedAt : "";
    if (change.act == ItemChange::Act::Need)
        return item + ", which the session uses, was deleted or renamed meanwhile.";
    if (!present) return item + " was deleted or renamed meanwhile.";
    if (change.act == ItemChange::Act::Insert)
        return item + " is there already, saved" + changer + ".";
    return item + " was changed meanwhile" + changer + ".";
}

ConflictError::ConflictError(std::vector<ItemConflict> conflicts)
    : DatabaseError(conflictsText(conflicts)), m_conflicts(std::move(conflicts)) {}

SessionDatabase::SessionDatabase(const DatabaseAddress& address, std::string workstation)
    : m_workstation(std::move(workstation)),
      m_connection(std::make_unique<DatabaseConnection>(address)) {
    openTables(*m_connection, m_workstation);
}

SessionDatabase::~SessionDatabase() = default;

const DatabaseAddress& SessionDatabase::address() const {
    return m_connection->address();
}

std::vector<ListedItem> SessionDatabase::list(ItemKind kind, const ItemSearch& search) {
    openTables(*m_connection, m_workstation);
    QStringList conditions{QStringLiteral("1 = 1")};
    QVariantList values;
    const auto add = [&](const QString& condition, const std::string& value) {
        conditions << condition;
        values << toQt(value);
    };
    if (!search.name.empty())
        add(m_connection->holds(QStringLiteral("name")), upperName(search.name));
    if (!search.value.empty())
        add(m_connection->holds(QStringLiteral("xml")), asStored(search.value));
    const QString order = m_connection->orderedName();
    if (!search.after.empty()) add(order + QStringLiteral(" > ?"), upperName(search.after));
    QString query = QStringLiteral("SELECT %1 FROM %2 WHERE %3 ORDER BY %4")
                        .arg(kListed, tableOf(kind), conditions.join(" AND "), order);
    if (search.most != 0) query += QStringLiteral(" LIMIT %1").arg(search.most);
    return all<ListedItem>(*m_connection, query, values, listedFrom);
}

std::vector<StoredItem> SessionDatabase::items(ItemKind kind) {
    openTables(*m_connection, m_workstation);
    const QString query = QStringLiteral("SELECT %1 FROM %2 ORDER BY %3")
                              .arg(kColumns, tableOf(kind), m_connection->orderedName());
    return all<StoredItem>(*m_connection, query, {}, itemFrom);
}

std::optional<StoredItem> SessionDatabase::item(ItemKind kind, const std::string& name) {
    openTables(*m_connection, m_workstation);
    return find(*m_connection, kind, upperName(name));
}

void SessionDatabase::store(const std::vector<ItemChange>& changes) {
    if (changes.empty()) return;
    openTables(*m_connection, m_workstation);
    DatabaseTransaction transaction(*m_connection);
    try {
        makeAll(*m_connection, changes, m_workstation);
    } catch (const ConflictError&) {
        throw;
    } catch (const DatabaseError& error) {
        throw DatabaseError(std::string(error.what()) + "\nNothing was stored.");
    }
    transaction.commit();
}

}  // namespace wynconfig
