// The in-memory mode on a shared database: what the dialogs get, what goes back, and that an edit
// which is refused is not lost.
#include <barrier>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "database/memory_edit.h"
#include "support/database_kit.h"
#include "support/session_keys.h"
#include "wynconfig/dataset.h"
#include "wynconfig/resource_manager.h"
#include "wynconfig/scripted_view.h"

namespace wynconfig {
namespace {

using Rows = std::map<std::string, std::string>;

void fill(Dataset& record, const std::string& type, const std::string& name, const Rows& rows) {
    record.Create(type, name, "", {"Element", "Data"});
    record.SetKey("Element");
    for (const auto& [key, data] : rows) record.AddRow({key, data});
}

std::string recordText(const std::string& type, const std::string& name, const Rows& rows) {
    Dataset record;
    fill(record, type, name, rows);
    Document document;
    record.Save(document);
    return document.xml();
}

Rows rowsOf(const std::string& xml) {
    Document document;
    document.loadXML(xml);
    Dataset record;
    record.Load(document);
    Rows rows;
    for (const DataRow& row : record.Rows()) rows[row[0]] = row[1];
    return rows;
}

Rows sessionRows(const std::vector<std::string>& formats) {
    Rows rows{{"ProgramPath", "/bin/sh"}, {"CommandLineArgs", "--first"},
              {"ReverseList", "false"},   {"AutoResize", "true"},
              {"Orientation", "top"},     {"FormatCount", std::to_string(formats.size())},
              {"PartFormat", "<none>"},   {"FileName", ""},
              {"FileFolder", ""},         {"FileAction", "OverWrite"},
              {"WriteFileOnly", "false"}};
    rows.insert(kAdvancedDefaults.begin(), kAdvancedDefaults.end());
    for (std::size_t i = 0; i < formats.size(); ++i)
        rows["FORMAT" + std::to_string(i + 1)] = formats[i];
    return rows;
}

Rows formatRows(const std::string& header) {
    Rows rows{{"Header", header},     {"Record", "<Part #>"},  {"Separator", ""},
              {"Trailer", ""},        {"MaxRecords", "10"},    {"FormatPartNumber", "false"},
              {"FormatQty", "false"}, {"FormatDesc", "false"}, {"FormatVIN", "false"}};
    for (const std::string field : {"Part", "Qty", "Desc", "VIN"}) {
        rows[field + "FieldLength"] = "5";
        rows[field + "Alignment"] = "left";
        rows[field + "PadCharacter"] = "";
    }
    return rows;
}

std::string sessionXml(const std::string& name, const std::vector<std::string>& formats) {
    return recordText("MORAM", name, sessionRows(formats));
}

std::string formatXml(const std::string& name, const std::string& header = "first") {
    return recordText("PARTFORMAT", name, formatRows(header));
}

/// Anna sits at the dialogs; Ben works on the same database at the same time.
class MemorySessionsTest : public DatabaseDesk {
  protected:
    void SetUp() override {
        DatabaseDesk::SetUp();
        view = std::make_shared<ScriptedView>();
        installView(view);
        component.InitResourceManager(makeBundleResourceManager(WYNCONFIG_RESOURCES));
        makeStore(root);
        component.init(root.string() + "/");
        putFile(root, "MORAM", "COUNTER", sessionRows({"FACTORY"}));
        putFile(root, "PARTFORMAT", "FACTORY", formatRows("factory"));
        anna.emplace(address, "anna");
        ben.emplace(address, "ben");
        sessions.emplace(component, *anna, root.string() + "/");
        insert(ItemKind::Session, "NIGHT", sessionXml("NIGHT", {"LABEL"}));
        insert(ItemKind::PartFormat, "LABEL", formatXml("LABEL"));
        insert(ItemKind::PartFormat, "ORDER", formatXml("ORDER"));
    }
    void TearDown() override {
        EXPECT_NO_THROW(user().finish());
        sessions.reset();
        anna.reset();
        ben.reset();
        installView(nullptr);
    }

    User& user() { return view->user(); }

    static void makeStore(const std::filesystem::path& at) {
        std::filesystem::create_directories(at / "MORAM");
        std::filesystem::create_directories(at / "PARTFORMAT");
    }
    static void putFile(const std::filesystem::path& at, const std::string& type,
                        const std::string& name, const Rows& rows) {
        Dataset record;
        fill(record, type, name, rows);
        record.Save((at / type / (name + ".vla")).string());
    }

    // What Ben does.
    void insert(ItemKind kind, const std::string& name, const std::string& xml) {
        ben->store({{ItemChange::Act::Insert, kind, name, xml}});
    }
    void change(ItemKind kind, const std::string& name, const std::string& xml) {
        ben->store({{ItemChange::Act::Update, kind, name, xml, ben->item(kind, name)->version}});
    }
    void remove(ItemKind kind, const std::string& name) {
        ben->store({{ItemChange::Act::Delete, kind, name, {}, ben->item(kind, name)->version}});
    }

    Rows stored(ItemKind kind, const std::string& name) {
        const auto item = ben->item(kind, name);
        return item ? rowsOf(item->xml) : Rows{};
    }
    Rows storedSession(const std::string& name) { return stored(ItemKind::Session, name); }
    Rows storedFormat(const std::string& name) { return stored(ItemKind::PartFormat, name); }
    std::vector<std::string> names(ItemKind kind) {
        std::vector<std::string> all;
        for (const StoredItem& item : ben->items(kind)) all.push_back(item.name);
        return all;
    }
    std::map<std::string, std::int64_t> versions() {
        std::map<std::string, std::int64_t> all;
        for (const ItemKind kind : {ItemKind::Session, ItemKind::PartFormat})
            for (const StoredItem& item : ben->items(kind)) all[item.name] = item.version;
        return all;
    }

    // What Anna does.
    void inSession(const std::function<void(User&)>& act) { user().onForm("frmMORAMConfig", act); }
    /// Configures NIGHT, where anything may happen before OK.
    MemoryResult configure(const std::function<void(User&)>& act) {
        inSession([act](User& u) {
            act(u);
            u.click("btnOK");
        });
        return sessions->configure("NIGHT");
    }
    std::optional<RefusedEdit> refusedConfigure(const std::function<void(User&)>& act) {
        try {
            configure(act);
        } catch (const RefusedEdit& refused) {
            return refused;
        }
        return std::nullopt;
    }
    static void onFormats(User& u, const std::string& format, const char* button) {
        u.changeTab("SSTab2", 1);
        u.pick("lstAvailableFormats", format);
        u.click(button);
    }
    static void editHeader(User& u, const std::string& format, const std::string& header) {
        u.onForm("frmPartNumberFormat", [header](User& editor) {
            editor.type("txtHeader", header);
            editor.click("btnOk");
        });
        onFormats(u, format, "btnEdit");
    }
    static void deleteFormat(User& u, const std::string& format) {
        u.onBox(answer::Yes);
        onFormats(u, format, "btnDelete");
    }

    WYNConfig component;
    std::shared_ptr<ScriptedView> view;
    const std::filesystem::path root = folder / "store";
    std::optional<SessionDatabase> anna;
    std::optional<SessionDatabase> ben;
    std::optional<MemorySessions> sessions;
};

TEST_P(MemorySessionsTest, TheDialogOffersTheUsersFormatsBesideTheFactoryOnes) {
    configure([](User& u) {
        u.changeTab("SSTab2", 1);
        EXPECT_EQ(u.see("lstAvailableFormats").rowTexts(),
                  (std::vector<std::string>{"FACTORY", "LABEL", "ORDER"}));
        EXPECT_EQ(u.see("lstSelectedFormats2").rowTexts(), std::vector<std::string>{"LABEL"});
    });
}

TEST_P(MemorySessionsTest, AConfirmedSessionIsStoredAndTheFormatsStay) {
    const auto before = versions();
    const MemoryResult outcome =
        configure([](User& u) { u.type("txtCommandLineArgs", "--second"); });
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(outcome.name, "NIGHT");
    EXPECT_EQ(storedSession("NIGHT").at("CommandLineArgs"), "--second");
    EXPECT_EQ(ben->item(ItemKind::Session, "NIGHT")->changedBy, "anna");
    auto after = versions();
    EXPECT_GT(after["NIGHT"], before.at("NIGHT"));
    after["NIGHT"] = before.at("NIGHT");
    EXPECT_EQ(after, before);
    EXPECT_FALSE(std::filesystem::exists(root / "MORAM" / "NIGHT.vla"));
}

TEST_P(MemorySessionsTest, ConfirmingWithoutAChangeChangesNothing) {
    const auto before = versions();
    EXPECT_EQ(configure([](User&) {}).result, 0);
    EXPECT_EQ(versions(), before);
}

TEST_P(MemorySessionsTest, CancellingStoresNothingNotEvenADeletedFormat) {
    const auto before = versions();
    inSession([](User& u) {
        u.type("txtCommandLineArgs", "--second");
        deleteFormat(u, "ORDER");
        u.click("btnCancel");
    });
    EXPECT_EQ(sessions->configure("NIGHT").result, 1);
    EXPECT_EQ(versions(), before);
}

TEST_P(MemorySessionsTest, NewChangedAndDeletedFormatsGoIntoTheDatabase) {
    configure([](User& u) {
        onFormats(u, "LABEL", "btnCopy");
        editHeader(u, "LABEL", "second");
        deleteFormat(u, "ORDER");
    });
    EXPECT_EQ(names(ItemKind::PartFormat), (std::vector<std::string>{"COPY OF LABEL", "LABEL"}));
    EXPECT_EQ(storedFormat("LABEL").at("Header"), "second");
    EXPECT_EQ(storedFormat("COPY OF LABEL").at("Header"), "first");
    EXPECT_FALSE(std::filesystem::exists(root / "PARTFORMAT" / "deleted"));
}

TEST_P(MemorySessionsTest, ARenamedSessionLeavesItsOldName) {
    const MemoryResult outcome = configure([](User& u) { u.type("txtDisplayName", "late"); });
    EXPECT_EQ(outcome.name, "LATE");
    EXPECT_EQ(names(ItemKind::Session), std::vector<std::string>{"LATE"});
    EXPECT_EQ(readItem(ben->item(ItemKind::Session, "LATE")->xml, "MORAM").name, "LATE");
}

TEST_P(MemorySessionsTest, ARenamedFormatLeavesItsOldNameAndTheSessionFollows) {
    configure([](User& u) {
        u.onForm("dlgSingleEntry", [](User& prompt) {
            prompt.type("txtTextBox", "tag");
            prompt.click("OKButton");
        });
        onFormats(u, "LABEL", "btnRename");
    });
    EXPECT_EQ(names(ItemKind::PartFormat), (std::vector<std::string>{"ORDER", "TAG"}));
    EXPECT_EQ(storedSession("NIGHT").at("FORMAT1"), "TAG");
}

TEST_P(MemorySessionsTest, ASelectedFactoryFormatIsNotStored) {
    configure([](User& u) { onFormats(u, "FACTORY", "btnAdd"); });
    EXPECT_EQ(storedSession("NIGHT").at("FORMAT2"), "FACTORY");
    EXPECT_EQ(names(ItemKind::PartFormat), (std::vector<std::string>{"LABEL", "ORDER"}));
}

TEST_P(MemorySessionsTest, AFormatThatThisStoreHasTooStaysInTheDatabase) {
    insert(ItemKind::PartFormat, "FACTORY", formatXml("FACTORY", "of another workstation"));
    configure([](User& u) { onFormats(u, "FACTORY", "btnAdd"); });
    EXPECT_EQ(storedFormat("FACTORY").at("Header"), "of another workstation");
}

TEST_P(MemorySessionsTest, ADamagedFormatIsLeftOutAndStaysInTheDatabase) {
    insert(ItemKind::PartFormat, "BROKEN", "<half");
    insert(ItemKind::PartFormat, "OTHER", formatXml("ANOTHER NAME"));
    const MemoryResult outcome = configure([](User& u) {
        u.changeTab("SSTab2", 1);
        EXPECT_EQ(u.see("lstAvailableFormats").rows.size(), 3U);
    });
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(outcome.leftOut, (std::vector<std::string>{"BROKEN", "OTHER"}));
    EXPECT_EQ(names(ItemKind::PartFormat),
              (std::vector<std::string>{"BROKEN", "LABEL", "ORDER", "OTHER"}));
}

TEST_P(MemorySessionsTest, ASessionThatIsGoneOrDamagedIsTold) {
    insert(ItemKind::Session, "BROKEN", "<half");
    EXPECT_THROW(sessions->configure("BROKEN"), DatabaseError);
    EXPECT_THROW(sessions->configure("GONE"), DatabaseError);
    EXPECT_TRUE(user().forms().empty());
}

TEST_P(MemorySessionsTest, WhenAnotherChangesTheSessionMeanwhileBothTextsAreKept) {
    const auto refused = refusedConfigure([this](User& u) {
        u.type("txtCommandLineArgs", "--of-anna");
        Rows rows = sessionRows({"LABEL"});
        rows["CommandLineArgs"] = "--of-ben";
        change(ItemKind::Session, "NIGHT", recordText("MORAM", "NIGHT", rows));
    });
    ASSERT_TRUE(refused);
    EXPECT_EQ(storedSession("NIGHT").at("CommandLineArgs"), "--of-ben");
    EXPECT_EQ(rowsOf(refused->edit().session.xml).at("CommandLineArgs"), "--of-anna");

    const MemoryResult outcome = sessions->storeUnderAnotherName(*refused, "night of anna");
    EXPECT_EQ(outcome.name, "NIGHT OF ANNA");
    EXPECT_EQ(storedSession("NIGHT").at("CommandLineArgs"), "--of-ben");
    EXPECT_EQ(storedSession("NIGHT OF ANNA").at("CommandLineArgs"), "--of-anna");
    EXPECT_EQ(readItem(ben->item(ItemKind::Session, "NIGHT OF ANNA")->xml, "MORAM").name,
              "NIGHT OF ANNA");
}

TEST_P(MemorySessionsTest, WhenAnotherChangesAFormatMeanwhileNothingOfTheSetIsStored) {
    const auto refused = refusedConfigure([this](User& u) {
        editHeader(u, "LABEL", "of anna");
        onFormats(u, "ORDER", "btnCopy");
        onFormats(u, "ORDER", "btnAdd");
        change(ItemKind::PartFormat, "LABEL", formatXml("LABEL", "of ben"));
    });
    ASSERT_TRUE(refused);
    ASSERT_EQ(refused->conflicts().size(), 1U);
    EXPECT_EQ(storedFormat("LABEL").at("Header"), "of ben");
    EXPECT_EQ(storedSession("NIGHT"), sessionRows({"LABEL"}));
    EXPECT_EQ(names(ItemKind::PartFormat), (std::vector<std::string>{"LABEL", "ORDER"}));

    insert(ItemKind::PartFormat, "LABEL 2", formatXml("LABEL 2", "in the way"));
    sessions->storeUnderAnotherName(*refused, "NIGHT 2");
    EXPECT_EQ(storedFormat("LABEL").at("Header"), "of ben");
    EXPECT_EQ(storedFormat("LABEL 3").at("Header"), "of anna");
    EXPECT_EQ(storedFormat("COPY OF ORDER").at("Header"), "first");
    EXPECT_EQ(storedSession("NIGHT"), sessionRows({"LABEL"}));
    EXPECT_EQ(storedSession("NIGHT 2"), sessionRows({"LABEL 3", "ORDER"}));
}

TEST_P(MemorySessionsTest, AFormatThatTheSessionUsesComesBackUnderAnotherNameOfTheSession) {
    const auto refused = refusedConfigure([this](User&) { remove(ItemKind::PartFormat, "LABEL"); });
    ASSERT_TRUE(refused);
    sessions->storeUnderAnotherName(*refused, "NIGHT 2");
    EXPECT_EQ(storedFormat("LABEL").at("Header"), "first");
    EXPECT_EQ(storedSession("NIGHT 2"), sessionRows({"LABEL"}));
}

TEST_P(MemorySessionsTest, WhatAnotherChangedMeanwhileIsNotDeleted) {
    const auto refused = refusedConfigure([this](User& u) {
        u.type("txtCommandLineArgs", "--of-anna");
        deleteFormat(u, "ORDER");
        change(ItemKind::PartFormat, "ORDER", formatXml("ORDER", "of ben"));
    });
    ASSERT_TRUE(refused);
    EXPECT_EQ(storedSession("NIGHT").at("CommandLineArgs"), "--first");
    sessions->storeUnderAnotherName(*refused, "NIGHT 2");
    EXPECT_EQ(storedFormat("ORDER").at("Header"), "of ben");
    EXPECT_EQ(storedSession("NIGHT 2").at("CommandLineArgs"), "--of-anna");
}

TEST_P(MemorySessionsTest, WhenAnotherDeletesOrRenamesTheSessionMeanwhileTheEditIsKept) {
    const auto refused = refusedConfigure([this](User& u) {
        u.type("txtCommandLineArgs", "--of-anna");
        remove(ItemKind::Session, "NIGHT");
    });
    ASSERT_TRUE(refused);
    EXPECT_TRUE(names(ItemKind::Session).empty());
    sessions->storeUnderAnotherName(*refused, "NIGHT");
    EXPECT_EQ(storedSession("NIGHT").at("CommandLineArgs"), "--of-anna");
}

TEST_P(MemorySessionsTest, AnotherNameThatWontDoIsRefusedAndTheEditKept) {
    insert(ItemKind::Session, "DAY", sessionXml("DAY", {"LABEL"}));
    const auto first = refusedConfigure([this](User& u) {
        u.type("txtCommandLineArgs", "--of-anna");
        change(ItemKind::Session, "NIGHT", sessionXml("NIGHT", {"ORDER"}));
    });
    ASSERT_TRUE(first);
    for (const std::string name : {"", "a.b", "a/b", "day", "counter"}) {
        try {
            sessions->storeUnderAnotherName(*first, name);
            ADD_FAILURE() << name;
        } catch (const RefusedEdit& refused) {
            EXPECT_EQ(rowsOf(refused.edit().session.xml).at("CommandLineArgs"), "--of-anna");
        }
    }
    EXPECT_EQ(storedSession("DAY"), sessionRows({"LABEL"}));
    EXPECT_EQ(names(ItemKind::Session), (std::vector<std::string>{"DAY", "NIGHT"}));
}

TEST_P(MemorySessionsTest, AnEditThatFailedOnTheDatabaseCanBeStoredOnceMore) {
    QSqlDatabase raw = openRaw(address);
    const auto refused = refusedConfigure([&raw](User& u) {
        u.type("txtCommandLineArgs", "--second");
        execute(raw, "ALTER TABLE config_session RENAME TO away");
    });
    ASSERT_TRUE(refused);
    EXPECT_TRUE(refused->conflicts().empty());
    EXPECT_NE(std::string(refused->what()).find("Nothing was stored."), std::string::npos);
    execute(raw, "ALTER TABLE away RENAME TO config_session");
    closeRaw(raw);
    sessions->store(refused->edit());
    EXPECT_EQ(storedSession("NIGHT").at("CommandLineArgs"), "--second");
}

void addNewSession(User& u, const std::string& name) {
    u.onForm("frmAddMORAMConfig", [name](User& adding) {
        adding.type("txtName", name);
        adding.choose("cboConfigs", "COUNTER");
        adding.click("btnOK");
    });
}

TEST_P(MemorySessionsTest, ANewSessionIsStoredAndNoFormatIsTakenForDeleted) {
    addNewSession(user(), "day");
    inSession([](User& u) {
        onFormats(u, "FACTORY", "btnCopy");
        u.click("btnOK");
    });
    const MemoryResult outcome = sessions->add();
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(outcome.name, "DAY");
    EXPECT_EQ(storedSession("DAY").at("FORMAT1"), "FACTORY");
    EXPECT_EQ(names(ItemKind::Session), (std::vector<std::string>{"DAY", "NIGHT"}));
    EXPECT_EQ(names(ItemKind::PartFormat),
              (std::vector<std::string>{"COPY OF FACTORY", "LABEL", "ORDER"}));
}

TEST_P(MemorySessionsTest, ANewSessionThatIsCancelledIsNotStored) {
    addNewSession(user(), "day");
    inSession([](User& u) { u.click("btnCancel"); });
    EXPECT_EQ(sessions->add().result, 1);
    EXPECT_EQ(names(ItemKind::Session), std::vector<std::string>{"NIGHT"});
}

TEST_P(MemorySessionsTest, ANewSessionWithANameOfTheDatabaseIsRefusedAndKept) {
    addNewSession(user(), "night");
    inSession([](User& u) { u.click("btnOK"); });
    std::optional<RefusedEdit> refused;
    try {
        sessions->add();
    } catch (const RefusedEdit& error) {
        refused = error;
    }
    ASSERT_TRUE(refused);
    EXPECT_EQ(storedSession("NIGHT"), sessionRows({"LABEL"}));
    sessions->storeUnderAnotherName(*refused, "day");
    EXPECT_EQ(storedSession("DAY"), sessionRows({"FACTORY"}));
}

/// Another store, from which a session is taken over.
class TakeOver : public MemorySessionsTest {
  protected:
    void SetUp() override {
        MemorySessionsTest::SetUp();
        makeStore(other);
        putFile(other, "MORAM", "OLD DESK", sessionRows({"TAG", "FACTORY"}));
        putFile(other, "PARTFORMAT", "TAG", formatRows("of the other store"));
        putFile(other, "PARTFORMAT", "FACTORY", formatRows("of the other store"));
    }
    const std::filesystem::path other = folder / "other";
};

TEST_P(TakeOver, TheSessionAndItsFormatsAreKept) {
    const MemoryResult outcome = sessions->takeOver(other.string() + "/", "OLD DESK", "old desk");
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(outcome.name, "OLD DESK");
    EXPECT_EQ(storedSession("OLD DESK"), sessionRows({"TAG", "FACTORY"}));
    EXPECT_EQ(storedFormat("TAG").at("Header"), "of the other store");
    EXPECT_EQ(names(ItemKind::PartFormat), (std::vector<std::string>{"LABEL", "ORDER", "TAG"}));
}

TEST_P(TakeOver, ItCanGetAnotherNameAndCanBeConfiguredAfterwards) {
    EXPECT_EQ(sessions->takeOver(other.string() + "/", "OLD DESK", "new desk").name, "NEW DESK");
    inSession([](User& u) {
        EXPECT_EQ(u.see("txtDisplayName").text, "NEW DESK");
        u.type("txtCommandLineArgs", "--second");
        u.click("btnOK");
    });
    EXPECT_EQ(sessions->configure("NEW DESK").name, "NEW DESK");
    EXPECT_EQ(storedSession("NEW DESK").at("CommandLineArgs"), "--second");
}

TEST_P(TakeOver, ASecondSessionWithTheSameFormatIsNoConflict) {
    sessions->takeOver(other.string() + "/", "OLD DESK", "FIRST");
    sessions->takeOver(other.string() + "/", "OLD DESK", "SECOND");
    EXPECT_EQ(names(ItemKind::Session), (std::vector<std::string>{"FIRST", "NIGHT", "SECOND"}));
}

TEST_P(TakeOver, AFormatThatTheDatabaseHasOtherwiseIsRefusedAndCanGetAnotherName) {
    insert(ItemKind::PartFormat, "TAG", formatXml("TAG", "of ben"));
    std::optional<RefusedEdit> refused;
    try {
        sessions->takeOver(other.string() + "/", "OLD DESK", "OLD DESK");
    } catch (const RefusedEdit& error) {
        refused = error;
    }
    ASSERT_TRUE(refused);
    EXPECT_EQ(names(ItemKind::Session), std::vector<std::string>{"NIGHT"});
    sessions->storeUnderAnotherName(*refused, "OLD DESK");
    EXPECT_EQ(storedFormat("TAG").at("Header"), "of ben");
    EXPECT_EQ(storedFormat("TAG 2").at("Header"), "of the other store");
    EXPECT_EQ(storedSession("OLD DESK"), sessionRows({"TAG 2", "FACTORY"}));
}

TEST_P(TakeOver, WhatCantBeReadIsNotKept) {
    putFile(other, "MORAM", "BAD", sessionRows({"TAG", "GONE"}));
    for (const char* name : {"BAD", "NOBODY"}) {
        const MemoryResult outcome = sessions->takeOver(other.string() + "/", name, name);
        EXPECT_EQ(outcome.result, 1);
        EXPECT_EQ(outcome.name, "");
    }
    EXPECT_EQ(sessions->takeOver((folder / "gone/").string(), "OLD DESK", "X").result, 1);
    EXPECT_EQ(names(ItemKind::Session), std::vector<std::string>{"NIGHT"});
    EXPECT_EQ(names(ItemKind::PartFormat), (std::vector<std::string>{"LABEL", "ORDER"}));
}

TEST_P(MemorySessionsTest, WhatWasSeenIsDeletedUnlessItChangedMeanwhile) {
    const StoredItem seen = *anna->item(ItemKind::Session, "NIGHT");
    change(ItemKind::Session, "NIGHT", sessionXml("NIGHT", {"ORDER"}));
    EXPECT_THROW(sessions->remove(ItemKind::Session, seen), ConflictError);
    EXPECT_EQ(storedSession("NIGHT"), sessionRows({"ORDER"}));
    sessions->remove(ItemKind::Session, *anna->item(ItemKind::Session, "NIGHT"));
    EXPECT_TRUE(names(ItemKind::Session).empty());
}

/// A host on a thread of its own, with view, component and connection.
struct OtherHost {
    /// Lets its user configure NIGHT: writes these arguments and presses OK when all are that far.
    void configure(const DatabaseAddress& address, const std::filesystem::path& root,
                   const std::string& mine, std::barrier<>& allAreThere) {
        const auto screen = std::make_shared<ScriptedView>();
        installView(screen);
        WYNConfig config;
        config.InitResourceManager(makeBundleResourceManager(WYNCONFIG_RESOURCES));
        config.init(root.string() + "/");
        SessionDatabase database(address, mine);
        MemorySessions sessions(config, database, root.string() + "/");
        screen->user().onForm("frmMORAMConfig", [&](User& u) {
            u.type("txtCommandLineArgs", mine);
            allAreThere.arrive_and_wait();
            u.click("btnOK");
        });
        try {
            sessions.configure("NIGHT");
        } catch (const RefusedEdit& error) {
            refused = error;
        }
        screen->user().finish();
        installView(nullptr);
    }

    std::optional<RefusedEdit> refused;
};

TEST_P(MemorySessionsTest, OfTwoHostsThatEditOneSessionAtOnceTheSecondIsRefused) {
    std::barrier allAreThere(2);
    OtherHost hosts[2];
    const std::string arguments[] = {"--of-carl", "--of-dora"};
    std::vector<std::thread> all;
    for (std::size_t i = 0; i < 2; ++i)
        all.emplace_back([&, i] { hosts[i].configure(address, root, arguments[i], allAreThere); });
    for (std::thread& each : all) each.join();

    ASSERT_NE(hosts[0].refused.has_value(), hosts[1].refused.has_value());
    const std::size_t loser = hosts[0].refused ? 0 : 1;
    const RefusedEdit& refused = *hosts[loser].refused;
    EXPECT_EQ(storedSession("NIGHT").at("CommandLineArgs"), arguments[1 - loser]);
    ASSERT_EQ(refused.conflicts().size(), 1U);
    EXPECT_EQ(refused.conflicts()[0].present->changedBy, arguments[1 - loser]);
    EXPECT_EQ(rowsOf(refused.edit().session.xml).at("CommandLineArgs"), arguments[loser]);
    sessions->storeUnderAnotherName(refused, "NIGHT 2");
    EXPECT_EQ(storedSession("NIGHT 2").at("CommandLineArgs"), arguments[loser]);
    EXPECT_EQ(storedSession("NIGHT").at("CommandLineArgs"), arguments[1 - loser]);
}

ON_EVERY_DATABASE(MemorySessionsTest);
ON_EVERY_DATABASE(TakeOver);

/// A server that goes away and comes back.
class ServerAway : public MemorySessionsTest {};

TEST_P(ServerAway, AnEditGoesOnWhenTheServerWasStartedAnewWhileTheDialogIsOpen) {
    configure([](User& u) {
        u.type("txtCommandLineArgs", "--second");
        PostgresServer::stop();
        PostgresServer::start();
    });
    EXPECT_EQ(storedSession("NIGHT").at("CommandLineArgs"), "--second");
}

TEST_P(ServerAway, AnEditIsKeptUntilTheServerIsBack) {
    const auto refused = refusedConfigure([](User& u) {
        u.type("txtCommandLineArgs", "--second");
        PostgresServer::stop();
    });
    ASSERT_TRUE(refused);
    EXPECT_TRUE(refused->conflicts().empty());
    EXPECT_THROW(sessions->store(refused->edit()), RefusedEdit);
    PostgresServer::start();
    EXPECT_EQ(storedSession("NIGHT").at("CommandLineArgs"), "--first");
    sessions->store(refused->edit());
    EXPECT_EQ(storedSession("NIGHT").at("CommandLineArgs"), "--second");
}

INSTANTIATE_TEST_SUITE_P(PostgreSQL, ServerAway, ::testing::Values("PostgreSQL"));

}  // namespace
}  // namespace wynconfig
