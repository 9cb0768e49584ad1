// The versions of the tables. `config_schema` has a row for each that the database has been brought
// to; a database without it is one of the first programs, which kept no version, or a new one.
#include "database/schema.h"

#include <QDateTime>
#include <array>
#include <cstdint>
#include <optional>

namespace wynconfig {

namespace {

/// The tables as the first programs made them, which may be there already.
void makeTables(const DatabaseConnection& database) {
    for (const ItemKind kind : {ItemKind::Session, ItemKind::PartFormat}) {
        database.run(QStringLiteral("CREATE TABLE IF NOT EXISTS %1 (name TEXT PRIMARY KEY, "
                                    "xml TEXT NOT NULL, version BIGINT NOT NULL, "
                                    "changed_by TEXT NOT NULL, changed_at TEXT NOT NULL)")
                         .arg(tableOf(kind)));
    }
    database.run(
        QStringLiteral("CREATE TABLE IF NOT EXISTS config_change "
                       "(id INTEGER PRIMARY KEY CHECK (id = 1), last BIGINT NOT NULL)"));
    database.run(QStringLiteral("INSERT INTO config_change VALUES (1, 0) ON CONFLICT DO NOTHING"));
}

/// All that a list shows, in the order in which it does, so that no text is read for it.
void makeListIndexes(const DatabaseConnection& database) {
    for (const ItemKind kind : {ItemKind::Session, ItemKind::PartFormat}) {
        database.run(QStringLiteral("CREATE INDEX %1_list ON %1 (%2, version, changed_by, "
                                    "changed_at)")
                         .arg(tableOf(kind), database.orderedName()));
    }
}

/// What brings the tables from each version to the next: the first element to version 1. A step
/// that was released stays as it is; what else is wanted is a step behind it.
constexpr std::array kSteps{makeTables, makeListIndexes};
constexpr auto kVersion = static_cast<std::int64_t>(kSteps.size());

std::optional<std::int64_t> versionOf(const DatabaseConnection& database) {
    return database.number(QStringLiteral("SELECT max(version) FROM config_schema"));
}

void refuseNewer(const DatabaseConnection& database, std::int64_t version) {
    if (version <= kVersion) return;
    throw DatabaseError("The database " + database.address().text() +
                        " is one of a newer program: its tables are of version " +
                        std::to_string(version) + ", and this program knows them up to version " +
                        std::to_string(kVersion) + ". Nothing was changed.");
}

void upgrade(const DatabaseConnection& database, const std::string& workstation) {
    DatabaseTransaction transaction(database);
    // Whoever comes at the same moment waits here, and then finds all done. (A transaction of
    // SQLite keeps all others out from its beginning.)
    constexpr qlonglong kUpgradeLock = 0x57594E434F4E4647;
    if (database.onServer())
        database.run(QStringLiteral("SELECT pg_advisory_xact_lock(%1)").arg(kUpgradeLock));
    database.run(
        QStringLiteral("CREATE TABLE IF NOT EXISTS config_schema (version INTEGER PRIMARY KEY, "
                       "made_by TEXT NOT NULL, made_at TEXT NOT NULL)"));
    const std::int64_t present = versionOf(database).value_or(0);
    refuseNewer(database, present);
    for (std::int64_t next = present + 1; next <= kVersion; ++next) {
        kSteps.at(static_cast<std::size_t>(next - 1))(database);
        database.run(QStringLiteral("INSERT INTO config_schema VALUES (?, ?, ?)"),
                     {static_cast<qlonglong>(next), toQt(workstation), utcNow()});
    }
    transaction.commit();
}

}  // namespace

QString tableOf(ItemKind kind) {
    return kind == ItemKind::Session ? QStringLiteral("config_session")
                                     : QStringLiteral("config_part_format");
}

void openTables(DatabaseConnection& database, const std::string& workstation) {
    // The version tells as well whether the connection still stands.
    std::optional<std::int64_t> version;
    if (database.isOpen()) version = versionOf(database);
    if (!version) {
        database.reopen();
        version = versionOf(database);
    }
    refuseNewer(database, version.value_or(0));
    if (version != kVersion) upgrade(database, workstation);
}

}  // namespace wynconfig
