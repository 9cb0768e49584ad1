// Listing and searching, also where there are very many sessions.
#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "support/database_kit.h"
#include "wynconfig/dataset.h"
#include "wynconfig/keys.h"

namespace wynconfig {
namespace {

using Names = std::vector<std::string>;

class ListTest : public DatabaseDesk {
  protected:
    void SetUp() override {
        DatabaseDesk::SetUp();
        anna.emplace(address, "anna");
    }
    void TearDown() override { anna.reset(); }

    void put(const std::string& name, const std::string& xml = "<a/>") {
        anna->store({{ItemChange::Act::Insert, ItemKind::Session, name, xml}});
    }
    void putSession(const std::string& name, const std::string& arguments) {
        Dataset record;
        record.Create(session::kType, name, "", session::kColumns);
        record.AddRow({session::kCommandLineArgs, arguments});
        Document document;
        record.Save(document);
        put(name, document.xml());
    }
    Names names(const ItemSearch& search = {}) {
        Names found;
        for (const ListedItem& item : anna->list(ItemKind::Session, search))
            found.push_back(item.name);
        return found;
    }

    std::optional<SessionDatabase> anna;
};

TEST_P(ListTest, TellsAllButTheText) {
    put("night");
    const auto listed = anna->list(ItemKind::Session);
    ASSERT_EQ(listed.size(), 1U);
    const StoredItem stored = *anna->item(ItemKind::Session, "NIGHT");
    EXPECT_EQ(listed[0].name, "NIGHT");
    EXPECT_EQ(listed[0].version, stored.version);
    EXPECT_EQ(listed[0].changedBy, "anna");
    EXPECT_EQ(listed[0].changedAt, stored.changedAt);
    EXPECT_TRUE(anna->list(ItemKind::PartFormat).empty());
}

TEST_P(ListTest, GoesByTheNumbersOfTheCharacters) {
    const Names wanted{"A B",  "A-B", "A.B", "AA",     "A_",        "B",
                       "ÄHRE", "ОСТ", "漢",  "\uFF21", "\U0001F527"};
    for (auto each = wanted.rbegin(); each != wanted.rend(); ++each) put(*each);
    EXPECT_EQ(names(), wanted);
}

TEST_P(ListTest, FindsAPartOfTheNameInAnyCase) {
    for (const char* name : {"NIGHT DESK", "DAY DESK", "50% OFF", "50X OFF", "ÄHRE_1"}) put(name);
    EXPECT_EQ(names({.name = "desk"}), (Names{"DAY DESK", "NIGHT DESK"}));
    EXPECT_EQ(names({.name = "ähre_"}), Names{"ÄHRE_1"});
    EXPECT_EQ(names({.name = "0% o"}), Names{"50% OFF"});  // no pattern
    EXPECT_EQ(names({.name = "\\"}), Names{});
    EXPECT_EQ(names({.name = "'; DROP TABLE config_session; --"}), Names{});
}

TEST_P(ListTest, FindsAPartOfAValueAsThePersonReadsIt) {
    putSession("PLAIN", "--order 12");
    putSession("MARKS", "if a < b && c > \"d\" _x0041_\r\n\tend");
    putSession("OTHER", "--ORDER 12");
    EXPECT_EQ(names({.value = "--order"}), Names{"PLAIN"});
    EXPECT_EQ(names({.value = "a < b && c > \"d\""}), Names{"MARKS"});
    EXPECT_EQ(names({.value = "_x0041_\r\n\t"}), Names{"MARKS"});
    EXPECT_EQ(names({.value = "&amp;"}), Names{});
    EXPECT_EQ(names({.value = "12"}), (Names{"OTHER", "PLAIN"}));
    EXPECT_EQ(names({.name = "o", .value = "12"}), Names{"OTHER"});
}

TEST_P(ListTest, GoesPageByPage) {
    for (const char* name : {"A", "B", "C", "D", "E"}) put(name);
    EXPECT_EQ(names({.most = 2}), (Names{"A", "B"}));
    EXPECT_EQ(names({.after = "b", .most = 2}), (Names{"C", "D"}));
    EXPECT_EQ(names({.after = "D", .most = 2}), Names{"E"});
    EXPECT_EQ(names({.after = "BA"}), (Names{"C", "D", "E"}));  // need not be there
}

TEST_P(ListTest, ReadsNoText) {
    QSqlDatabase raw = openRaw(address);
    QSqlQuery query(raw);
    // A table of a few rows is read as it lies, if that is not forbidden.
    if (!onSqlite()) execute(raw, "SET enable_seqscan = off");
    const QString list = onSqlite()
                             ? "EXPLAIN QUERY PLAN SELECT name, version, changed_by, changed_at "
                               "FROM config_session WHERE 1 = 1 ORDER BY name"
                             : "EXPLAIN SELECT name, version, changed_by, changed_at "
                               "FROM config_session WHERE 1 = 1 ORDER BY name COLLATE \"C\"";
    ASSERT_TRUE(query.exec(list));
    ASSERT_TRUE(query.next());
    QString plan;
    do plan += query.value(onSqlite() ? 3 : 0).toString() + '\n';
    while (query.next());
    query = QSqlQuery();
    closeRaw(raw);
    const char* const wanted = onSqlite() ? "USING COVERING INDEX config_session_list"
                                          : "Index Only Scan using config_session_list";
    EXPECT_TRUE(plan.contains(wanted)) << plan.toStdString();
    EXPECT_FALSE(plan.contains("Sort")) << plan.toStdString();
    EXPECT_FALSE(plan.contains("TEMP B-TREE")) << plan.toStdString();
}

ON_EVERY_DATABASE(ListTest);

/// A hundred thousand sessions, with texts of some hundred characters.
class LongListTest : public ListTest {
  protected:
    void SetUp() override {
        ListTest::SetUp();
        QSqlDatabase raw = openRaw(address);
        execute(raw,
                onSqlite()
                    ? "WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n "
                      "WHERE i < 99999) INSERT INTO config_session (name, xml, version, "
                      "changed_by, changed_at) SELECT printf('DESK %05d', i), "
                      "printf('<row key=\"CommandLineArgs\">order %d.</row>%.*c', i, 400, ' '), "
                      "i, 'carl', '2025-11-30T14:05:09Z' FROM n"
                    : "INSERT INTO config_session (name, xml, version, changed_by, "
                      "changed_at) SELECT 'DESK ' || lpad(i::text, 5, '0'), "
                      "'<row key=\"CommandLineArgs\">order ' || i || '.</row>' || "
                      "repeat(' ', 400), i, 'carl', '2025-11-30T14:05:09Z' "
                      "FROM generate_series(0, 99999) AS i");
        closeRaw(raw);
    }
};

TEST_P(LongListTest, IsListedSearchedAndPaged) {
    const Names all = names();
    EXPECT_EQ(all.size(), 100'000U);
    EXPECT_TRUE(std::is_sorted(all.begin(), all.end()));
    EXPECT_EQ(all.front(), "DESK 00000");
    EXPECT_EQ(all.back(), "DESK 99999");
    EXPECT_EQ(names({.name = "k 0123"}),
              Names({"DESK 01230", "DESK 01231", "DESK 01232", "DESK 01233", "DESK 01234",
                     "DESK 01235", "DESK 01236", "DESK 01237", "DESK 01238", "DESK 01239"}));
    EXPECT_EQ(names({.value = "order 777."}), Names{"DESK 00777"});
    EXPECT_EQ(names({.after = "desk 50000", .most = 2}), (Names{"DESK 50001", "DESK 50002"}));
}

ON_EVERY_DATABASE(LongListTest);

}  // namespace
}  // namespace wynconfig
