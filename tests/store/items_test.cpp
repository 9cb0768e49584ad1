// The store by its items, on every file system.
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/files/faulty_file_system.h"
#include "support/file_system_kit.h"
#include "support/format_rows.h"
#include "support/raised.h"
#include "support/rows.h"
#include "support/session_keys.h"
#include "wynconfig/keys.h"
#include "wynconfig/store.h"

namespace wynconfig {
namespace {

constexpr ItemKind kSession = ItemKind::Session;
constexpr ItemKind kFormat = ItemKind::PartFormat;

class StoreItems : public OnEveryFileSystem {
  protected:
    StoreItems() {
        setFileSystem(&disk);
        files->makeFolder(root + "MORAM");
        files->makeFolder(root + "PARTFORMAT");
        files->save({root, "parts.exe"}, "a program");
    }
    ~StoreItems() override { setFileSystem(nullptr); }

    /// Writes an item file as it stands.
    void put(ItemKind kind, const std::string& file, const std::string& text) {
        files->save({store.folder(kind), file}, text);
    }
    void putRecord(ItemKind kind, const std::string& name, const Stored& rows) {
        putNamed(kind, name + ".vla", name, rows);
    }
    void putNamed(ItemKind kind, const std::string& file, const std::string& name,
                  const Stored& rows) {
        Dataset record;
        record.Create(kind == kSession ? "MORAM" : "PARTFORMAT", name, "", session::kColumns);
        for (const auto& [key, data] : rows) record.AddRow({key, data});
        put(kind, file, xmlOf(record));
    }
    /// The rows of a session that is as it should be, once its part formats are there.
    Stored sound(const Names& formats) const {
        Stored rows{{"ProgramPath", root + "parts.exe"},
                    {"FormatCount", std::to_string(formats.size())}};
        for (std::size_t i = 0; i < formats.size(); ++i)
            rows.emplace_back("FORMAT" + std::to_string(i + 1), formats[i]);
        rows.emplace_back("PartFormat", "<NONE>");
        return rows;
    }
    std::string textOf(const std::string& in, const std::string& file) {
        return files->read({in, file});
    }
    /// What the check tells of the one item that is not as it should be.
    Names faultsOf(ItemKind kind, const std::string& item) {
        Names what;
        for (const StoreFault& each : store.check()) {
            EXPECT_EQ(each.kind, kind);
            EXPECT_EQ(each.item, item);
            what.push_back(each.what);
        }
        return what;
    }

    FaultyFileSystem disk{*files};
    Store store{root};
};
ON_EVERY_FILE_SYSTEM(StoreItems);

TEST_P(StoreItems, ListNamesAsTheirFilesAreSpelt) {
    for (const char* file : {"b.vla", "A.VLA", "C.vla", "MORAM.vls", "note.txt"})
        put(kSession, file, "x");
    EXPECT_EQ(store.names(kSession), (Names{"A", "b", "C"}));
    EXPECT_EQ(store.names(kFormat), Names{});
    EXPECT_EQ(Store(root + "none/").names(kSession), Names{});
}

TEST_P(StoreItems, AreFoundInAnyCase) {
    putNamed(kSession, "Desk.vla", "DESK", {});
    EXPECT_TRUE(store.has(kSession, "dEsK"));
    EXPECT_FALSE(store.has(kFormat, "DESK"));
    EXPECT_EQ(store.path(kSession, "desk").text(), store.folder(kSession) + "Desk.vla");
    EXPECT_EQ(store.path(kSession, "new").text(), store.folder(kSession) + "NEW.vla");
    EXPECT_EQ(store.read(kSession, "desk")->Name(), "DESK");
    EXPECT_EQ(raisedBy([&] { store.read(kSession, "none"); }).number(), errc::FileNotFound);
    put(kSession, "BAD.vla", "no record");
    EXPECT_EQ(raisedBy([&] { store.read(kSession, "bad"); }).number(), errc::BadRecord);
}

TEST_P(StoreItems, NeverLieOutsideTheirFolder) {
    files->save({root, "OUT.vla"}, "x");
    for (const std::string name : {"..\\OUT", "../OUT", "..\\..\\OUT"}) {
        EXPECT_FALSE(store.has(kSession, name)) << name;
        EXPECT_THROW(store.read(kSession, name), Error) << name;
        EXPECT_THROW(store.moveToDeleted(kSession, name), Error) << name;
        EXPECT_THROW(store.restore(kSession, name), Error) << name;
    }
    EXPECT_EQ(textOf(root, "OUT.vla"), "x");
}

TEST_P(StoreItems, AreThereOnceTheStoreIsMade) {
    EXPECT_FALSE(store.isMade());
    put(kSession, "MORAM.vls", "x");
    EXPECT_FALSE(store.isMade());
    put(kFormat, "PARTFORMAT.vls", "x");
    EXPECT_TRUE(store.isMade());
}

TEST_P(StoreItems, TellTheSessionsWithAPartFormat) {
    putRecord(kSession, "A", sound({"CSV", "TSV"}));
    putRecord(kSession, "B", with(sound({"TSV"}), "PartFormat", "Csv"));
    putRecord(kSession, "C", sound({"TSV"}));
    EXPECT_EQ(store.sessionsWith("csv"), (Names{"A", "B"}));
    EXPECT_EQ(store.sessionsWith("NONE"), Names{});
    put(kSession, "D.vla", "no record");
    EXPECT_EQ(raisedBy([&] { store.sessionsWith("csv"); }).number(), errc::BadRecord);
}

TEST_P(StoreItems, PassTheCheckAsTheDialogsMakeThem) {
    putRecord(kFormat, "CSV", kFirstFormat);
    Stored rows;
    for (const std::string& key : kSessionKeys) rows.emplace_back(key, "");
    for (const auto& [key, data] : sound({"CSV"})) rows = with(rows, key, data);
    putRecord(kSession, "A", rows);
    EXPECT_EQ(store.check(), std::vector<StoreFault>{});
}

TEST_P(StoreItems, AreCheckedInEachOfTheirParts) {
    putRecord(kFormat, "CSV", {});
    const std::string missing = root + "gone.exe";
    const struct {
        Stored rows;
        Names told;
    } cases[] = {
        {with(sound({"CSV"}), "FormatCount", "2"), {"It counts \"2\" part formats and names 1."}},
        {without(sound({"CSV"}), "FormatCount"), {"It counts \"\" part formats and names 1."}},
        {without(sound({"CSV", "CSV"}), "FORMAT1"),
         {"It counts \"2\" part formats and names 1.", "It lacks the key \"FORMAT1\"."}},
        {sound({"TSV"}), {"Its part format \"TSV\" is not there."}},
        {with(sound({"CSV"}), "PartFormat", "TSV"),
         {"The part format \"TSV\" of its file is not there."}},
        {with(sound({"CSV"}), "ProgramPath", missing),
         {"Its program \"" + missing + "\" is not there."}},
    };
    for (const auto& each : cases) {
        putRecord(kSession, "A", each.rows);
        EXPECT_EQ(faultsOf(kSession, "A"), each.told);
    }
    Stored odd = sound({"CSV"});
    odd.emplace_back("Colour", "red");
    putRecord(kSession, "A", odd);
    EXPECT_EQ(faultsOf(kSession, "A"), (Names{"It has the unknown key \"Colour\"."}));
    for (const std::string key : {"DisableProgramLaunch", "WriteFileOnly"}) {
        Stored rows = with(sound({"CSV"}), "ProgramPath", missing);
        rows.emplace_back(key, "true");
        putRecord(kSession, "A", rows);
        EXPECT_EQ(faultsOf(kSession, "A"), Names{}) << "nothing is launched";
    }
}

TEST_P(StoreItems, AreCheckedAgainstTheirFiles) {
    putNamed(kFormat, "CSV.vla", "TSV", {});
    EXPECT_EQ(faultsOf(kFormat, "CSV"), (Names{"It has the name \"TSV\", unlike its file."}));
    putNamed(kSession, "CSV.vla", "CSV", sound({}));
    const std::string text = textOf(store.folder(kSession), "CSV.vla");
    files->remove({store.folder(kSession), "CSV.vla"});
    put(kFormat, "CSV.vla", text);
    EXPECT_EQ(faultsOf(kFormat, "CSV").front(), "It is a record of the type \"MORAM\".");
    put(kFormat, "CSV.vla", "<no record");
    const Names told = faultsOf(kFormat, "CSV");
    ASSERT_EQ(told.size(), 1U);
    EXPECT_NE(told[0].find("line 1"), std::string::npos) << told[0];
}

TEST_P(StoreItems, AreKeptAsTheyAreWhenTheyAreDeleted) {
    const std::string deleted = store.folder(kSession) + "deleted\\";
    put(kSession, "Desk.vla", "no record, and kept");
    store.moveToDeleted(kSession, "DESK");
    EXPECT_FALSE(store.has(kSession, "DESK"));
    EXPECT_EQ(store.deletedNames(kSession), Names{"DESK"});
    EXPECT_EQ(textOf(deleted, "DESK.vla"), "no record, and kept");
    put(kSession, "DESK.vla", "newer");
    store.moveToDeleted(kSession, "desk");
    EXPECT_EQ(textOf(deleted, "DESK.vla"), "newer");
    EXPECT_EQ(raisedBy([&] { store.moveToDeleted(kSession, "desk"); }).number(),
              errc::FileNotFound);
    EXPECT_EQ(store.deletedNames(kFormat), Names{});
}

TEST_P(StoreItems, ComeBack) {
    put(kSession, "DESK.vla", "the first");
    store.moveToDeleted(kSession, "DESK");
    put(kSession, "desk.vla", "the second");
    const Error refused = raisedBy([&] { store.restore(kSession, "DESK"); });
    EXPECT_EQ(refused.number(), errc::DuplicateKey);
    EXPECT_NE(refused.description().find("desk.vla is there already"), std::string::npos)
        << refused.description();
    files->remove({store.folder(kSession), "desk.vla"});
    store.restore(kSession, "Desk");
    EXPECT_EQ(textOf(store.folder(kSession), "DESK.vla"), "the first");
    EXPECT_EQ(store.deletedNames(kSession), Names{});
    EXPECT_EQ(raisedBy([&] { store.restore(kSession, "None"); }).number(), errc::FileNotFound);
}

TEST_P(StoreItems, StayWhereTheyAreWhenTheDiskFails) {
    put(kSession, "DESK.vla", "kept");
    put(kSession, "DONE.vla", "kept as well");
    store.moveToDeleted(kSession, "DONE");
    for (const Operation operation : {Operation::Save, Operation::Read}) {
        disk.failOn(operation);
        EXPECT_EQ(raisedBy([&] { store.moveToDeleted(kSession, "DESK"); }).number(),
                  errc::FileAccess);
        EXPECT_EQ(raisedBy([&] { store.restore(kSession, "DONE"); }).number(), errc::FileAccess);
        disk.failNowhere();
        EXPECT_EQ(store.names(kSession), Names{"DESK"});
        EXPECT_EQ(store.deletedNames(kSession), Names{"DONE"});
    }
    disk.failOn(Operation::List);
    EXPECT_EQ(raisedBy([&] { store.names(kSession); }).number(), errc::FileAccess);
    EXPECT_EQ(raisedBy([&] { store.check(); }).number(), errc::FileAccess);
}

TEST(UpperName, IsThatOfItsItem) {
    EXPECT_EQ(upperName("straße ärger ﬁ ı"), "STRAßE ÄRGER ﬁ ı");
}

}  // namespace
}  // namespace wynconfig
