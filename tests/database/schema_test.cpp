// The versions of the tables: made, upgraded once, or refused and left alone.
#include <QFile>
#include <barrier>
#include <string>
#include <thread>
#include <vector>

#include "support/database_kit.h"

namespace wynconfig {
namespace {

class SchemaTest : public DatabaseDesk {
  protected:
    /// The tables as the first programs made them, with a session in them.
    void makeFirstTables() {
        change(
            {"CREATE TABLE config_session (name TEXT PRIMARY KEY, xml TEXT NOT NULL, "
             "version BIGINT NOT NULL, changed_by TEXT NOT NULL, changed_at TEXT NOT NULL)",
             "CREATE TABLE config_part_format (name TEXT PRIMARY KEY, xml TEXT NOT NULL, "
             "version BIGINT NOT NULL, changed_by TEXT NOT NULL, changed_at TEXT NOT NULL)",
             "CREATE TABLE config_change (id INTEGER PRIMARY KEY CHECK (id = 1), "
             "last BIGINT NOT NULL)",
             "INSERT INTO config_change VALUES (1, 7)",
             "INSERT INTO config_session VALUES "
             "('NIGHT', '<night/>', 7, 'carl@desk', '2025-11-30T14:05:09Z')"});
    }
    /// What another program does to the database.
    void change(const std::vector<const char*>& statements) {
        QSqlDatabase raw = openRaw(address);
        for (const char* statement : statements) execute(raw, statement);
        closeRaw(raw);
    }
    /// The first column of what a query gives.
    std::vector<std::string> column(const char* text) {
        QSqlDatabase raw = openRaw(address);
        QSqlQuery query(raw);
        std::vector<std::string> all;
        EXPECT_TRUE(query.exec(text)) << query.lastError().text().toStdString();
        while (query.next()) all.push_back(query.value(0).toString().toStdString());
        query = QSqlQuery();
        closeRaw(raw);
        return all;
    }
    std::vector<std::string> versions() {
        return column("SELECT version FROM config_schema ORDER BY version");
    }
    /// The names of all tables and indexes that are not the database's own.
    std::vector<std::string> things() {
        return column(onSqlite() ? "SELECT name FROM sqlite_master ORDER BY name"
                                 : "SELECT relname FROM pg_class WHERE relnamespace = "
                                   "'public'::regnamespace ORDER BY relname");
    }
    std::string failureToOpen() {
        try {
            const SessionDatabase none(address, "anna");
        } catch (const DatabaseError& error) {
            return error.what();
        }
        return {};
    }
};

const std::vector<std::string> kVersions{"1", "2"};

TEST_P(SchemaTest, ANewDatabaseHasTheTablesOfThisProgram) {
    const SessionDatabase anna(address, "anna");
    EXPECT_EQ(versions(), kVersions);
}

TEST_P(SchemaTest, TheTablesOfTheFirstProgramsAreUpgradedAndKeepWhatIsInThem) {
    const SessionDatabase fresh(address, "anna");
    const std::vector<std::string> wanted = things();
    makeEmptyDatabase();
    makeFirstTables();
    SessionDatabase anna(address, "anna");
    EXPECT_EQ(versions(), kVersions);
    EXPECT_EQ(things(), wanted);
    const auto night = anna.item(ItemKind::Session, "night");
    ASSERT_TRUE(night);
    EXPECT_EQ(night->xml, "<night/>");
    EXPECT_EQ(night->version, 7);
    EXPECT_EQ(night->changedBy, "carl@desk");
    anna.store({{ItemChange::Act::Update, ItemKind::Session, "NIGHT", "<late/>", 7}});
    EXPECT_EQ(anna.item(ItemKind::Session, "NIGHT")->version, 8);
}

TEST_P(SchemaTest, TheyAreUpgradedOnceHoweverManyOpenThemAtTheSameMoment) {
    constexpr int workstations = 6;
    makeFirstTables();
    std::barrier start(workstations);
    std::vector<std::string> failures(workstations);
    std::vector<std::thread> all;
    for (std::size_t i = 0; i < workstations; ++i) {
        all.emplace_back([&, i] {
            start.arrive_and_wait();
            try {
                SessionDatabase mine(address, "number " + std::to_string(i));
                if (!mine.item(ItemKind::Session, "NIGHT")) failures[i] = "the session is gone";
            } catch (const DatabaseError& error) {
                failures[i] = error.what();
            }
        });
    }
    for (std::thread& each : all) each.join();
    EXPECT_EQ(failures, std::vector<std::string>(workstations));
    EXPECT_EQ(versions(), kVersions);
    EXPECT_EQ(column("SELECT DISTINCT made_by FROM config_schema").size(), 1U);
}

TEST_P(SchemaTest, AnUpgradeThatFailsLeavesAllAsItWas) {
    makeFirstTables();
    change({"CREATE TABLE config_part_format_list (id INTEGER)"});
    const auto before = things();
    const std::string text = failureToOpen();
    EXPECT_NE(text.find("config_part_format_list"), std::string::npos) << text;
    EXPECT_EQ(things(), before);
    change({"DROP TABLE config_part_format_list"});
    EXPECT_EQ(failureToOpen(), "");
    EXPECT_EQ(versions(), kVersions);
}

TEST_P(SchemaTest, TheTablesOfANewerProgramAreRefusedAndLeftAsTheyAre) {
    makeFirstTables();
    // As far as anyone can tell: of the rest nothing is known here.
    change({"CREATE TABLE config_schema (version INTEGER PRIMARY KEY, tomorrow TEXT)",
            "INSERT INTO config_schema VALUES (3, 'x')", "DROP TABLE config_part_format"});
    const auto before = things();
    QFile file(QString::fromStdString(address.name));
    QByteArray bytes;
    if (onSqlite() && file.open(QIODevice::ReadOnly)) bytes = file.readAll();
    EXPECT_EQ(failureToOpen(),
              "The database " + address.text() +
                  " is one of a newer program: its tables are of version 3, and this program knows "
                  "them up to version 2. Nothing was changed.");
    EXPECT_EQ(things(), before);
    EXPECT_EQ(versions(), std::vector<std::string>{"3"});
    if (onSqlite()) {
        file.seek(0);
        EXPECT_TRUE(bytes == file.readAll());
    }
}

TEST_P(SchemaTest, WhoIsConnectedNoticesThatTheTablesBecomeThoseOfANewerProgram) {
    SessionDatabase anna(address, "anna");
    change({"INSERT INTO config_schema VALUES (3, 'ben', '2025-11-30T14:05:09Z')"});
    EXPECT_THROW(anna.store({{ItemChange::Act::Insert, ItemKind::Session, "NIGHT", "<late/>"}}),
                 DatabaseError);
    EXPECT_THROW(anna.items(ItemKind::Session), DatabaseError);
    EXPECT_EQ(column("SELECT name FROM config_session").size(), 0U);
}

ON_EVERY_DATABASE(SchemaTest);

}  // namespace
}  // namespace wynconfig
