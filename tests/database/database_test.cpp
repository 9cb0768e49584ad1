// Several workstations on one database: nothing that one of them stored is ever lost.
#include <QSqlDatabase>
#include <algorithm>
#include <atomic>
#include <barrier>
#include <chrono>
#include <functional>
#include <optional>
#include <thread>
#include <vector>

#include "database/connection.h"
#include "support/database_kit.h"

namespace wynconfig {
namespace {

using Act = ItemChange::Act;

ItemChange insertion(ItemKind kind, const std::string& name, const std::string& xml) {
    return {Act::Insert, kind, name, xml};
}
ItemChange update(ItemKind kind, const StoredItem& seen, const std::string& xml) {
    return {Act::Update, kind, seen.name, xml, seen.version};
}
ItemChange deletion(ItemKind kind, const StoredItem& seen) {
    return {Act::Delete, kind, seen.name, {}, seen.version};
}

class DatabaseTest : public DatabaseDesk {
  protected:
    void SetUp() override {
        DatabaseDesk::SetUp();
        anna.emplace(address, "anna@counter");
        ben.emplace(address, "ben@office");
    }
    void TearDown() override {
        anna.reset();
        ben.reset();
    }

    StoredItem session(const std::string& name) {
        const auto found = ben->item(ItemKind::Session, name);
        return found ? *found : StoredItem{{"(none)"}, ""};
    }
    StoredItem format(const std::string& name) {
        const auto found = ben->item(ItemKind::PartFormat, name);
        return found ? *found : StoredItem{{"(none)"}, ""};
    }
    StoredItem makeSession(const std::string& name, const std::string& xml = "<first/>") {
        anna->store({insertion(ItemKind::Session, name, xml)});
        return session(name);
    }
    StoredItem makeFormat(const std::string& name, const std::string& xml = "<first/>") {
        anna->store({insertion(ItemKind::PartFormat, name, xml)});
        return format(name);
    }
    /// The conflicts on which storing fails; none when it does not.
    static std::vector<ItemConflict> refusal(SessionDatabase& who,
                                             const std::vector<ItemChange>& changes) {
        try {
            who.store(changes);
        } catch (const ConflictError& error) {
            return error.conflicts();
        }
        return {};
    }
    static std::string failure(const std::function<void()>& act) {
        try {
            act();
        } catch (const DatabaseError& error) {
            return error.what();
        }
        return {};
    }

    std::optional<SessionDatabase> anna;
    std::optional<SessionDatabase> ben;
};

TEST_P(DatabaseTest, ANewDatabaseIsEmpty) {
    EXPECT_TRUE(anna->items(ItemKind::Session).empty());
    EXPECT_TRUE(anna->items(ItemKind::PartFormat).empty());
    EXPECT_FALSE(anna->item(ItemKind::Session, "NIGHT"));
}

TEST_P(DatabaseTest, WhatOneStoresTheOtherReadsWithItsMaker) {
    anna->store({insertion(ItemKind::Session, "NIGHT", "<night/>"),
                 insertion(ItemKind::PartFormat, "LABEL", "<label/>")});
    const StoredItem night = session("NIGHT");
    EXPECT_EQ(night.xml, "<night/>");
    EXPECT_EQ(night.changedBy, "anna@counter");
    EXPECT_EQ(night.changedAt.size(), std::string("2025-11-30T14:05:09Z").size());
    EXPECT_EQ(format("LABEL").xml, "<label/>");
    EXPECT_EQ(session("LABEL").name, "(none)");
}

TEST_P(DatabaseTest, AnyTextComesBackAsItWas) {
    const std::string text =
        " it's \"quoted\" \\back\\slash\\ %1 ?,:name $1\r\n\t<a b='c'>]]></a> ä Ж 漢 \U0001F527 ";
    makeSession("O'BRIEN; -- \\", text);
    EXPECT_EQ(session("o'brien; -- \\").xml, text);
}

TEST_P(DatabaseTest, NamesCompareWithoutRegardToCase) {
    makeSession("Zürich Ост");
    EXPECT_EQ(session("zÜRICH ост").name, "ZÜRICH ОСТ");
    const auto conflicts = refusal(*ben, {insertion(ItemKind::Session, "zürich ост", "<other/>")});
    ASSERT_EQ(conflicts.size(), 1U);
    EXPECT_EQ(session("ZÜRICH ОСТ").xml, "<first/>");
}

TEST_P(DatabaseTest, TheItemsComeByTheirNames) {
    for (const char* name : {"B", "A B", "C", "A-A", "AA"}) makeSession(name);
    std::vector<std::string> names;
    for (const StoredItem& item : ben->items(ItemKind::Session)) names.push_back(item.name);
    EXPECT_EQ(names, (std::vector<std::string>{"A B", "A-A", "AA", "B", "C"}));
}

TEST_P(DatabaseTest, AnUpdateOnTheVersionThatWasReadSucceedsAndGivesANewOne) {
    const StoredItem first = makeSession("NIGHT");
    ben->store({update(ItemKind::Session, first, "<second/>")});
    const StoredItem second = session("NIGHT");
    EXPECT_EQ(second.xml, "<second/>");
    EXPECT_EQ(second.changedBy, "ben@office");
    EXPECT_GT(second.version, first.version);
}

TEST_P(DatabaseTest, OfTwoChangesToOneSessionTheSecondIsRefusedWhoeverMakesIt) {
    for (auto [fast, slow] : {std::pair{&*anna, &*ben}, std::pair{&*ben, &*anna}}) {
        const StoredItem seen =
            session("NIGHT").name == "NIGHT" ? session("NIGHT") : makeSession("NIGHT");
        fast->store({update(ItemKind::Session, seen, "<of the fast one/>")});
        const auto conflicts =
            refusal(*slow, {update(ItemKind::Session, seen, "<of the slow one/>")});
        ASSERT_EQ(conflicts.size(), 1U);
        EXPECT_EQ(conflicts[0].change.name, "NIGHT");
        ASSERT_TRUE(conflicts[0].present);
        EXPECT_EQ(conflicts[0].present->xml, "<of the fast one/>");
        EXPECT_EQ(session("NIGHT").xml, "<of the fast one/>");
    }
}

TEST_P(DatabaseTest, ARefusalSaysWhatHappenedAndWho) {
    const StoredItem seen = makeFormat("LABEL");
    ben->store({update(ItemKind::PartFormat, seen, "<of ben/>")});
    const std::string text =
        failure([&] { anna->store({update(ItemKind::PartFormat, seen, "<of anna/>")}); });
    EXPECT_EQ(text,
              "Nothing was stored, because another workstation was faster:\n"
              "The part format LABEL was changed meanwhile by ben@office at " +
                  format("LABEL").changedAt + ".");
}

TEST_P(DatabaseTest, WhatWasDeletedMeanwhileIsNotChangedNorDeletedAgain) {
    const StoredItem seen = makeSession("NIGHT");
    ben->store({deletion(ItemKind::Session, seen)});
    for (const ItemChange& change :
         {update(ItemKind::Session, seen, "<late/>"), deletion(ItemKind::Session, seen)}) {
        const auto conflicts = refusal(*anna, {change});
        ASSERT_EQ(conflicts.size(), 1U);
        EXPECT_FALSE(conflicts[0].present);
        EXPECT_EQ(conflicts[0].text(), "The session NIGHT was deleted or renamed meanwhile.");
    }
    EXPECT_TRUE(ben->items(ItemKind::Session).empty());
}

TEST_P(DatabaseTest, WhatWasChangedMeanwhileIsNotDeleted) {
    const StoredItem seen = makeFormat("LABEL");
    ben->store({update(ItemKind::PartFormat, seen, "<of ben/>")});
    EXPECT_EQ(refusal(*anna, {deletion(ItemKind::PartFormat, seen)}).size(), 1U);
    EXPECT_EQ(format("LABEL").xml, "<of ben/>");
}

TEST_P(DatabaseTest, WhatWasDeletedAndMadeAgainIsNotTakenForTheOldOne) {
    const StoredItem seen = makeSession("NIGHT");
    ben->store({deletion(ItemKind::Session, seen)});
    ben->store({insertion(ItemKind::Session, "NIGHT", "<made again/>")});
    EXPECT_EQ(refusal(*anna, {update(ItemKind::Session, seen, "<late/>")}).size(), 1U);
    EXPECT_EQ(refusal(*anna, {deletion(ItemKind::Session, seen)}).size(), 1U);
    EXPECT_EQ(session("NIGHT").xml, "<made again/>");
}

TEST_P(DatabaseTest, OfTwoThatMakeTheSameNameTheSecondIsRefused) {
    ben->store({insertion(ItemKind::Session, "NIGHT", "<of ben/>")});
    const auto conflicts = refusal(*anna, {insertion(ItemKind::Session, "Night", "<of anna/>")});
    ASSERT_EQ(conflicts.size(), 1U);
    EXPECT_EQ(conflicts[0].text(), "The session NIGHT is there already, saved by ben@office at " +
                                       session("NIGHT").changedAt + ".");
    EXPECT_EQ(session("NIGHT").xml, "<of ben/>");
}

TEST_P(DatabaseTest, ARenamedItemIsGoneForTheOthers) {
    const StoredItem seen = makeSession("NIGHT");
    ben->store({deletion(ItemKind::Session, seen), insertion(ItemKind::Session, "LATE", "<l/>")});
    EXPECT_EQ(refusal(*anna, {update(ItemKind::Session, seen, "<of anna/>")}).size(), 1U);
    // Nor can it be renamed to another name.
    const auto conflicts = refusal(
        *anna, {deletion(ItemKind::Session, seen), insertion(ItemKind::Session, "EARLY", "<e/>")});
    EXPECT_EQ(conflicts.size(), 1U);
    ASSERT_EQ(ben->items(ItemKind::Session).size(), 1U);
    EXPECT_EQ(session("LATE").xml, "<l/>");
}

TEST_P(DatabaseTest, TwoCantRenameToTheSameName) {
    const StoredItem night = makeSession("NIGHT");
    const StoredItem day = makeSession("DAY");
    ben->store({deletion(ItemKind::Session, night), insertion(ItemKind::Session, "X", "<ben/>")});
    const auto conflicts = refusal(
        *anna, {deletion(ItemKind::Session, day), insertion(ItemKind::Session, "X", "<anna/>")});
    ASSERT_EQ(conflicts.size(), 1U);
    EXPECT_EQ(conflicts[0].change.name, "X");
    EXPECT_EQ(session("X").xml, "<ben/>");
    EXPECT_EQ(session("DAY").xml, "<first/>");
}

TEST_P(DatabaseTest, WhenOnePartFormatConflictsNothingOfTheSetIsStored) {
    const StoredItem night = makeSession("NIGHT");
    const StoredItem label = makeFormat("LABEL");
    const StoredItem order = makeFormat("ORDER");
    const StoredItem old = makeFormat("OLD");
    ben->store({update(ItemKind::PartFormat, order, "<of ben/>")});
    const auto conflicts = refusal(*anna, {update(ItemKind::Session, night, "<of anna/>"),
                                           insertion(ItemKind::PartFormat, "NEW", "<of anna/>"),
                                           update(ItemKind::PartFormat, label, "<of anna/>"),
                                           deletion(ItemKind::PartFormat, old),
                                           update(ItemKind::PartFormat, order, "<of anna/>")});
    ASSERT_EQ(conflicts.size(), 1U);
    EXPECT_EQ(conflicts[0].change.name, "ORDER");
    EXPECT_EQ(session("NIGHT").xml, "<first/>");
    EXPECT_EQ(session("NIGHT").version, night.version);
    EXPECT_EQ(format("NEW").name, "(none)");
    EXPECT_EQ(format("LABEL").xml, "<first/>");
    EXPECT_EQ(format("OLD").xml, "<first/>");
    EXPECT_EQ(format("ORDER").xml, "<of ben/>");
}

TEST_P(DatabaseTest, AllConflictsAreToldAtOnce) {
    const StoredItem label = makeFormat("LABEL");
    const StoredItem order = makeFormat("ORDER");
    ben->store(
        {update(ItemKind::PartFormat, order, "<of ben/>"), deletion(ItemKind::PartFormat, label)});
    const auto conflicts = refusal(*anna, {update(ItemKind::PartFormat, label, "<a/>"),
                                           insertion(ItemKind::Session, "FREE", "<a/>"),
                                           update(ItemKind::PartFormat, order, "<a/>")});
    ASSERT_EQ(conflicts.size(), 2U);
    EXPECT_EQ(conflicts[0].change.name, "LABEL");
    EXPECT_EQ(conflicts[1].change.name, "ORDER");
}

TEST_P(DatabaseTest, AnItemThatIsNeededHasToBeThereInWhateverVersion) {
    const StoredItem label = makeFormat("LABEL");
    const std::vector<ItemChange> changes = {insertion(ItemKind::Session, "NIGHT", "<n/>"),
                                             {Act::Need, ItemKind::PartFormat, "LABEL"}};
    ben->store({update(ItemKind::PartFormat, label, "<of ben/>")});
    anna->store(changes);
    EXPECT_EQ(format("LABEL").changedBy, "ben@office");

    anna->store({deletion(ItemKind::Session, session("NIGHT"))});
    ben->store({deletion(ItemKind::PartFormat, format("LABEL"))});
    const auto conflicts = refusal(*anna, changes);
    ASSERT_EQ(conflicts.size(), 1U);
    EXPECT_EQ(conflicts[0].text(),
              "The part format LABEL, which the session uses, was deleted or renamed meanwhile.");
    EXPECT_EQ(session("NIGHT").name, "(none)");
}

TEST_P(DatabaseTest, NoUpdateIsLostWhenManyWorkstationsCountAtOnce) {
    constexpr int workstations = 4;
    constexpr int steps = 15;
    makeSession("COUNT", "0");
    std::atomic<int> refusals = 0;
    std::barrier allHaveRead(workstations);
    const auto countUp = [&] {
        SessionDatabase mine(address, "many");
        for (int done = 0, tries = 0; done < steps; ++tries) {
            const StoredItem seen = *mine.item(ItemKind::Session, "COUNT");
            if (tries == 0) allHaveRead.arrive_and_wait();
            const std::string next = std::to_string(std::stoi(seen.xml) + 1);
            const bool stored = refusal(mine, {update(ItemKind::Session, seen, next)}).empty();
            if (stored)
                ++done;
            else
                ++refusals;
        }
    };
    std::vector<std::thread> all;
    for (int i = 0; i < workstations; ++i) all.emplace_back(countUp);
    for (std::thread& each : all) each.join();
    EXPECT_EQ(session("COUNT").xml, std::to_string(workstations * steps));
    EXPECT_GE(refusals, workstations - 1);
}

TEST_P(DatabaseTest, OfManyThatMakeTheSameNameAtOnceOneSucceeds) {
    constexpr int workstations = 4;
    std::atomic<int> made = 0;
    const auto makeIt = [&] {
        SessionDatabase mine(address, "many");
        if (refusal(mine, {insertion(ItemKind::Session, "ONE", "<one/>")}).empty()) ++made;
    };
    std::vector<std::thread> all;
    for (int i = 0; i < workstations; ++i) all.emplace_back(makeIt);
    for (std::thread& each : all) each.join();
    EXPECT_EQ(made, 1);
}

TEST_P(DatabaseTest, ManyMayMakeTheTablesAtOnce) {
    anna.reset();
    ben.reset();
    makeEmptyDatabase();
    std::vector<std::thread> all;
    std::atomic<int> connected = 0;
    for (int i = 0; i < 4; ++i) {
        all.emplace_back([&] {
            const SessionDatabase mine(address, "many");
            ++connected;
        });
    }
    for (std::thread& each : all) each.join();
    EXPECT_EQ(connected, 4);
}

TEST_P(DatabaseTest, AnotherProgramThatChangesARowIsNoticedByItsVersion) {
    const StoredItem seen = makeSession("NIGHT");
    QSqlDatabase raw = openRaw(address);
    execute(raw, "UPDATE config_session SET version = version + 1000");
    closeRaw(raw);
    EXPECT_EQ(refusal(*anna, {update(ItemKind::Session, seen, "<late/>")}).size(), 1U);
}

TEST_P(DatabaseTest, AFailureInTheMiddleTakesAllBack) {
    const StoredItem night = makeSession("NIGHT");
    QSqlDatabase raw = openRaw(address);
    execute(raw, onSqlite() ? "CREATE TRIGGER full BEFORE INSERT ON config_part_format "
                              "BEGIN SELECT RAISE(ABORT, 'the shelf is full'); END"
                            : "ALTER TABLE config_part_format "
                              "ADD CONSTRAINT \"the shelf is full\" CHECK (name = '')");
    closeRaw(raw);
    const std::string text = failure([&] {
        anna->store({update(ItemKind::Session, night, "<of anna/>"),
                     insertion(ItemKind::PartFormat, "NEW", "<of anna/>")});
    });
    EXPECT_NE(text.find("the shelf is full"), std::string::npos) << text;
    EXPECT_NE(text.find("Nothing was stored."), std::string::npos) << text;
    EXPECT_EQ(session("NIGHT").version, night.version);
}

ON_EVERY_DATABASE(DatabaseTest);

/// What only a server can do to its clients.
class DatabaseServer : public DatabaseTest {
  protected:
    static void endOtherConnections(QSqlDatabase& raw) {
        execute(raw,
                "SELECT pg_terminate_backend(pid) FROM pg_stat_activity "
                "WHERE pid <> pg_backend_pid() AND datname = current_database()");
    }
    /// Stores from a connection that is held up by what another one does, cuts it off there, and
    /// looks at what came of it. The same connection can then store it after all.
    void cutOff(const std::vector<const char*>& holdUp, const std::vector<ItemChange>& changes,
                const std::function<void(const std::string& text)>& look) {
        QSqlDatabase raw = openRaw(address);
        for (const char* statement : holdUp) execute(raw, statement);
        std::string text;
        std::string textOfSecond;
        std::barrier isCutOff(2);
        std::barrier isLookedAt(2);
        std::thread storing([&] {
            SessionDatabase mine(address, "cut off");
            text = failure([&] { mine.store(changes); });
            isCutOff.arrive_and_wait();
            isLookedAt.arrive_and_wait();
            textOfSecond = failure([&] { mine.store(changes); });
        });
        QSqlQuery waiting(raw);
        const auto isHeldUp = [&] {
            return waiting.exec("SELECT 1 FROM pg_locks WHERE NOT granted") && waiting.next();
        };
        while (!isHeldUp()) std::this_thread::sleep_for(std::chrono::milliseconds(20));
        endOtherConnections(raw);
        isCutOff.arrive_and_wait();
        execute(raw, "ROLLBACK");
        waiting = QSqlQuery();
        closeRaw(raw);
        look(text);
        isLookedAt.arrive_and_wait();
        storing.join();
        EXPECT_EQ(textOfSecond, "");
        EXPECT_EQ(session("NIGHT").xml, "<whole/>");
    }
};

TEST_P(DatabaseServer, AConnectionLostBetweenTwoCallsIsMadeAgain) {
    makeSession("NIGHT");
    QSqlDatabase raw = openRaw(address);
    endOtherConnections(raw);
    closeRaw(raw);
    EXPECT_EQ(anna->items(ItemKind::Session).size(), 1U);
    ben->store({update(ItemKind::Session, session("NIGHT"), "<of ben/>")});
    EXPECT_EQ(session("NIGHT").xml, "<of ben/>");
}

TEST_P(DatabaseServer, AConnectionLostInTheMiddleSaysSoAndStoresNothing) {
    const StoredItem night = makeSession("NIGHT");
    const std::vector<ItemChange> changes{update(ItemKind::Session, night, "<whole/>"),
                                          insertion(ItemKind::PartFormat, "NEW", "<whole/>")};
    // Is held up when the session is written and the part format is not yet.
    cutOff({"BEGIN", "LOCK TABLE config_part_format IN SHARE MODE"}, changes,
           [&](const std::string& text) {
               EXPECT_NE(text.find("failed: "), std::string::npos) << text;
               EXPECT_NE(text.find("Nothing was stored."), std::string::npos) << text;
               EXPECT_EQ(session("NIGHT").version, night.version);
               EXPECT_EQ(format("NEW").name, "(none)");
           });
    EXPECT_EQ(format("NEW").xml, "<whole/>");
}

TEST_P(DatabaseServer, AConnectionLostAtTheVeryEndSaysThatNobodyKnows) {
    const StoredItem night = makeSession("NIGHT");
    QSqlDatabase raw = openRaw(address);
    execute(raw,
            "CREATE FUNCTION wait_at_the_end() RETURNS trigger LANGUAGE plpgsql AS "
            "'BEGIN PERFORM pg_advisory_xact_lock(1); RETURN NULL; END'");
    execute(raw,
            "CREATE CONSTRAINT TRIGGER at_the_end AFTER UPDATE ON config_session "
            "DEFERRABLE INITIALLY DEFERRED FOR EACH ROW EXECUTE FUNCTION wait_at_the_end()");
    closeRaw(raw);
    cutOff({"BEGIN", "SELECT pg_advisory_xact_lock(1)"},
           {update(ItemKind::Session, night, "<whole/>")}, [&](const std::string& text) {
               EXPECT_NE(text.find("Reload to see whether the changes were stored."),
                         std::string::npos)
                   << text;
               EXPECT_EQ(text.find("Nothing was stored."), std::string::npos) << text;
               EXPECT_EQ(session("NIGHT").version, night.version);
           });
}

TEST_P(DatabaseServer, AConnectionLostWhileRowsComeIsNotTakenForTheEndOfThem) {
    DatabaseConnection mine(address);
    mine.reopen();
    constexpr int all = 20'000;
    QSqlQuery rows =
        mine.run(QStringLiteral("SELECT repeat('x', 1000) FROM generate_series(1, %1)").arg(all));
    ASSERT_TRUE(mine.next(rows));
    QSqlDatabase raw = openRaw(address);
    endOtherConnections(raw);
    closeRaw(raw);
    int count = 1;
    EXPECT_NE(failure([&] {
                  while (mine.next(rows)) ++count;
              }).find("failed: "),
              std::string::npos);
    EXPECT_LT(count, all);
}

TEST_P(DatabaseServer, WhileTheServerIsAwayThatIsToldAndAllGoesOnWhenItIsBack) {
    const StoredItem night = makeSession("NIGHT");
    PostgresServer::stop();
    for (int i = 0; i < 2; ++i) {
        const std::string text =
            failure([&] { anna->store({update(ItemKind::Session, night, "<of anna/>")}); });
        EXPECT_NE(text.find("can't be reached"), std::string::npos) << text;
    }
    EXPECT_NE(failure([&] { ben->list(ItemKind::Session); }), "");
    PostgresServer::start();
    EXPECT_EQ(session("NIGHT").version, night.version);
    anna->store({update(ItemKind::Session, night, "<of anna/>")});
    EXPECT_EQ(session("NIGHT").xml, "<of anna/>");
}

TEST_P(DatabaseServer, AServerThatWasStartedAnewMeanwhileIsNotNoticed) {
    const StoredItem night = makeSession("NIGHT");
    PostgresServer::stop();
    PostgresServer::start();
    anna->store({update(ItemKind::Session, night, "<of anna/>")});
    EXPECT_EQ(session("NIGHT").xml, "<of anna/>");
}

TEST_P(DatabaseServer, WrongAddressesAreToldClearly) {
    DatabaseAddress wrong = address;
    wrong.name = "nowhere";
    std::string text = failure([&] { const SessionDatabase none(wrong, "x"); });
    EXPECT_NE(text.find("The database postgresql://tester@"), std::string::npos) << text;
    EXPECT_NE(text.find("can't be reached"), std::string::npos) << text;
    EXPECT_NE(text.find("\"nowhere\" does not exist"), std::string::npos) << text;

    wrong.host = folder.path();
    text = failure([&] { const SessionDatabase none(wrong, "x"); });
    EXPECT_NE(text.find("can't be reached"), std::string::npos) << text;
}

INSTANTIATE_TEST_SUITE_P(PostgreSQL, DatabaseServer, ::testing::Values("PostgreSQL"));

/// What only a file can suffer.
class DatabaseFile : public DatabaseTest {};

TEST_P(DatabaseFile, AFileThatAnotherHoldsLockedIsToldAndNothingStored) {
    const StoredItem night = makeSession("NIGHT");
    anna.reset();
    address.options = "QSQLITE_BUSY_TIMEOUT=50";
    anna.emplace(address, "anna@counter");
    QSqlDatabase raw = openRaw(address);
    execute(raw, "BEGIN IMMEDIATE");
    const std::string text =
        failure([&] { anna->store({update(ItemKind::Session, night, "<of anna/>")}); });
    execute(raw, "ROLLBACK");
    closeRaw(raw);
    EXPECT_NE(text.find("locked"), std::string::npos) << text;
    EXPECT_NE(text.find("Nothing was stored."), std::string::npos) << text;
    EXPECT_EQ(session("NIGHT").version, night.version);
    anna->store({update(ItemKind::Session, night, "<of anna/>")});
    EXPECT_EQ(session("NIGHT").xml, "<of anna/>");
}

TEST_P(DatabaseFile, WrongAddressesAreToldClearly) {
    const std::string path = (folder / "gone" / "test.sqlite").string();
    std::string text =
        failure([&] { const SessionDatabase none(DatabaseAddress::file(path), "x"); });
    EXPECT_EQ(text.find("The database " + path + " can't be reached: "), 0U) << text;

    const std::string noDatabase = WYNCONFIG_SOURCE "/README.md";
    text = failure([&] { const SessionDatabase none(DatabaseAddress::file(noDatabase), "x"); });
    EXPECT_NE(text.find("not a database"), std::string::npos) << text;
}

INSTANTIATE_TEST_SUITE_P(SQLite, DatabaseFile, ::testing::Values("SQLite"));

}  // namespace
}  // namespace wynconfig
