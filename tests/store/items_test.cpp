// The store by its items, on every file system.
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/files/faulty_file_system.h"
#include "store/store_change.h"
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
using Cause = StoreFault::Cause;
using Causes = std::vector<Cause>;

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

    Causes causes() {
        Causes all;
        for (const StoreFault& each : store.check()) all.push_back(each.cause);
        return all;
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

TEST_P(StoreItems, NameEachOfTheirPartFormatsOnce) {
    const auto formats = [&](const Stored& rows) { return formatsOf(*sessionOf(rows)); };
    EXPECT_EQ(formats(with(sound({"CSV", "TSV", "Csv"}), "PartFormat", "tsv")),
              (Names{"CSV", "TSV"}));
    EXPECT_EQ(formats(with(sound({"CSV"}), "PartFormat", "XML")), (Names{"CSV", "XML"}));
    EXPECT_EQ(formats(with(sound({"A", "B"}), "FormatCount", "1")), (Names{"A", "B"}));
    EXPECT_EQ(formats(sound({""})), Names{}) << "neither an empty name nor <NONE>";
    EXPECT_EQ(formats({}), Names{});
}

TEST_P(StoreItems, TellHowFarLongWorkHasCome) {
    putRecord(kFormat, "CSV", {});
    for (const std::string name : {"A", "B"}) putRecord(kSession, name, sound({"CSV"}));
    Names told;
    const StoreProgress progress = [&](std::size_t done, std::size_t all) {
        told.push_back(std::to_string(done) + " of " + std::to_string(all));
    };
    store.check(progress);
    EXPECT_EQ(told, (Names{"1 of 3", "2 of 3", "3 of 3"}));
    told.clear();
    store.sessionsWith("CSV", progress);
    EXPECT_EQ(told, (Names{"1 of 2", "2 of 2"}));
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
        Causes causes;
    } cases[] = {
        {with(sound({"CSV"}), "FormatCount", "2"),
         {"It counts \"2\" part formats and names 1."},
         {Cause::FormatCount}},
        {without(sound({"CSV"}), "FormatCount"),
         {"It counts \"\" part formats and names 1."},
         {Cause::FormatCount}},
        {without(sound({"CSV", "CSV"}), "FORMAT1"),
         {"It counts \"2\" part formats and names 1.", "It lacks the key \"FORMAT1\"."},
         {Cause::FormatCount, Cause::MissingKey}},
        {sound({"TSV"}), {"Its part format \"TSV\" is not there."}, {Cause::MissingFormat}},
        {with(sound({"CSV"}), "PartFormat", "TSV"),
         {"The part format \"TSV\" of its file is not there."},
         {Cause::MissingFormat}},
        {with(sound({"CSV"}), "ProgramPath", missing),
         {"Its program \"" + missing + "\" is not there."},
         {Cause::MissingProgram}},
    };
    for (const auto& each : cases) {
        putRecord(kSession, "A", each.rows);
        EXPECT_EQ(faultsOf(kSession, "A"), each.told);
        EXPECT_EQ(causes(), each.causes);
    }
    Stored odd = sound({"CSV"});
    odd.emplace_back("Colour", "red");
    putRecord(kSession, "A", odd);
    EXPECT_EQ(faultsOf(kSession, "A"), (Names{"It has the unknown key \"Colour\"."}));
    EXPECT_EQ(causes(), Causes{Cause::UnknownKey});
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
    EXPECT_EQ(causes(), Causes{Cause::OtherName});
    putNamed(kSession, "CSV.vla", "CSV", sound({}));
    const std::string text = textOf(store.folder(kSession), "CSV.vla");
    files->remove({store.folder(kSession), "CSV.vla"});
    put(kFormat, "CSV.vla", text);
    EXPECT_EQ(faultsOf(kFormat, "CSV").front(), "It is a record of the type \"MORAM\".");
    EXPECT_EQ(causes().front(), Cause::WrongType);
}

TEST_P(StoreItems, ThatCantBeReadAreToldByTheirLine) {
    const struct {
        std::string text;
        int line;
    } cases[] = {{"<no record", 1}, {"<dataset>\n<row key='a'>\n</dataset>", 3}, {"<other/>", 0}};
    for (const auto& each : cases) {
        put(kFormat, "CSV.vla", each.text);
        const auto faults = store.check();
        ASSERT_EQ(faults.size(), 1U) << each.text;
        EXPECT_EQ(faults[0].cause, Cause::Unreadable);
        EXPECT_EQ(faults[0].line, each.line) << faults[0].what;
        EXPECT_NE(faults[0].what.find("CSV.vla holds no record"), std::string::npos);
    }
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

/// Reports a batch as failed that is in place, as when the disk fails at its very end.
class LateFailure : public FaultyFileSystem {
  public:
    using FaultyFileSystem::FaultyFileSystem;

  protected:
    void commitStaged(const MayReplace& mayReplace) override {
        FaultyFileSystem::commitStaged(mayReplace);
        throw refusal("folder", "MORAM", "written", "the disk is gone");
    }
};

/// Puts a batch in place, and tells then that a file is no more in its group.
class LostGroup : public FaultyFileSystem {
  public:
    using FaultyFileSystem::FaultyFileSystem;

  protected:
    void commitStaged(const MayReplace& mayReplace) override {
        FaultyFileSystem::commitStaged(mayReplace);
        throw GroupLost(refusal("file", "A", "kept in its group", "who knows"));
    }
};

class StoreChanges : public StoreItems {
  protected:
    static std::shared_ptr<Dataset> recordOf(ItemKind kind, const std::string& name,
                                             const Stored& rows) {
        auto record = std::make_shared<Dataset>();
        record->Create(kind == kSession ? "MORAM" : "PARTFORMAT", name, "", session::kColumns);
        for (const auto& [key, data] : rows) record->AddRow({key, data});
        return record;
    }
    /// The text of every item by kind, "/" and file.
    std::map<std::string, std::string> everything() {
        std::map<std::string, std::string> all;
        for (const ItemKind kind : {kSession, kFormat}) {
            for (const std::string& file : files->listItems(store.folder(kind)))
                all[(kind == kSession ? "s/" : "f/") + file] = textOf(store.folder(kind), file);
        }
        return all;
    }
    Names formatsIn(const std::string& session) {
        return formatsOf(*store.read(kSession, session));
    }
    /// What an action raises, which leaves everything as it was.
    long refused(const std::function<void()>& action) {
        const auto before = everything();
        const long number = raisedBy(action).number();
        disk.failNowhere();
        EXPECT_EQ(everything(), before);
        return number;
    }
};
ON_EVERY_FILE_SYSTEM(StoreChanges);

TEST_P(StoreChanges, SaveRecordsUnderTheirNames) {
    putNamed(kFormat, "Csv.vla", "CSV", {{"MaxRecords", "1"}});
    store.save({{kSession, recordOf(kSession, "Desk", sound({"CSV"}))},
                {kFormat, recordOf(kFormat, "CSV", {{"MaxRecords", "2"}})}});
    EXPECT_EQ(store.names(kSession), Names{"DESK"});
    EXPECT_EQ(store.names(kFormat), Names{"Csv"});
    EXPECT_EQ(rowsOf(*store.read(kSession, "DESK")), sound({"CSV"}));
    EXPECT_EQ(rowsOf(*store.read(kFormat, "CSV")), (Stored{{"MaxRecords", "2"}}));
    store.save({});
}

TEST_P(StoreChanges, SaveManyNewRecordsWithoutReadingTheFolderForEach) {
    std::vector<StoreItem> items;
    for (int i = 0; i < 300; ++i)
        items.push_back({kSession, recordOf(kSession, "NEW " + std::to_string(i), {})});
    disk.resetCounts();
    StoreChange change;
    for (const StoreItem& item : items)
        change.save(store.path(kSession, item.record->Name()), xmlOf(*item.record));
    EXPECT_LE(disk.count(Operation::List), 2U);
    change.commit(nullptr);
    EXPECT_EQ(store.names(kSession).size(), 300U);
}

TEST_P(StoreChanges, RefuseRecordsThatCantBeItems) {
    const auto good = recordOf(kSession, "GOOD", {});
    for (const std::string name : {"", " ", "../OUT", "..\\OUT", "a.b", "12", "a:b"}) {
        EXPECT_FALSE(isItemName(name)) << name;
        EXPECT_EQ(refused([&] {
                      store.save({{kSession, good}, {kSession, recordOf(kSession, name, {})}});
                  }),
                  errc::InvalidCall)
            << name;
    }
    EXPECT_TRUE(isItemName("Ärger 12"));
    EXPECT_FALSE(isItemName(std::string(40000, 'A')));
    EXPECT_EQ(refused([&] { store.save({{kFormat, good}}); }), errc::InvalidCall);
    EXPECT_EQ(refused([&] {
                  store.save({{kSession, good}, {kSession, recordOf(kSession, "good", {})}});
              }),
              errc::InvalidCall);
}

TEST_P(StoreChanges, SaveAllRecordsOrNone) {
    putRecord(kSession, "B", sound({}));
    const std::vector<StoreItem> items{{kSession, recordOf(kSession, "A", {})},
                                       {kSession, recordOf(kSession, "B", {})},
                                       {kFormat, recordOf(kFormat, "CSV", {})}};
    const auto save = [&] { store.save(items); };
    disk.failOn(Operation::Save, "B.vla");
    EXPECT_EQ(refused(save), errc::FileAccess);
    disk.failOn(Operation::Commit);
    EXPECT_EQ(refused(save), errc::FileAccess);
    files->makeFolder(store.folder(kSession) + "A.vla");
    EXPECT_EQ(refused(save), errc::FileAccess);
    LateFailure late(*files);
    setFileSystem(&late);
    const std::vector<StoreItem> others{{kSession, recordOf(kSession, "B", {})},
                                        {kFormat, recordOf(kFormat, "CSV", {})}};
    EXPECT_EQ(refused([&] { store.save(others); }), errc::FileAccess);
}

TEST_P(StoreChanges, TellWhatCouldNotBePutBack) {
    putRecord(kSession, "B", sound({}));
    LateFailure late(*files);
    setFileSystem(&late);
    late.failOn(Operation::Save, "B.vla", 1);
    const Error raised = raisedBy([&] { store.save({{kSession, recordOf(kSession, "B", {})}}); });
    EXPECT_TRUE(holds(raised.description(), "the disk is gone")) << raised.description();
    EXPECT_TRUE(holds(raised.description(), "B.vla.")) << raised.description();
}

TEST_P(StoreChanges, RenameAPartFormatEverywhere) {
    putNamed(kFormat, "Csv.vla", "CSV", {{"MaxRecords", "7"}});
    putRecord(kSession, "A", sound({"TSV", "csv", "CSV"}));
    putRecord(kSession, "B", with(sound({"TSV"}), "PartFormat", "Csv"));
    putRecord(kSession, "C", with(sound({"CSV"}), "FormatCount", "many"));
    putRecord(kSession, "D", sound({"TSV"}));
    const std::string untouched = textOf(store.folder(kSession), "D.vla");
    disk.resetCounts();
    EXPECT_EQ(store.rename("csv", "Ärger 1"), (Names{"A", "B", "C"}));
    EXPECT_EQ(disk.count(Operation::Commit), 1U);
    EXPECT_EQ(disk.count(Operation::Save), 4U) << "D is not written";
    EXPECT_EQ(store.names(kFormat), Names{"ÄRGER 1"});
    EXPECT_EQ(store.read(kFormat, "ÄRGER 1")->Name(), "ÄRGER 1");
    EXPECT_EQ(rowsOf(*store.read(kFormat, "ÄRGER 1")), (Stored{{"MaxRecords", "7"}}));
    EXPECT_EQ(rowsOf(*store.read(kSession, "A")), sound({"TSV", "ÄRGER 1", "ÄRGER 1"}));
    EXPECT_EQ(formatsIn("B"), (Names{"TSV", "ÄRGER 1"}));
    EXPECT_EQ(formatsIn("C"), Names{"ÄRGER 1"});
    EXPECT_EQ(textOf(store.folder(kSession), "D.vla"), untouched);
}

TEST_P(StoreChanges, RenameNothingToANameThatIsTakenOrNoName) {
    putRecord(kFormat, "CSV", {});
    putRecord(kFormat, "TSV", {});
    putRecord(kSession, "A", sound({"CSV"}));
    for (const std::string name : {"tsv", "CSV", "csv"})
        EXPECT_EQ(refused([&] { store.rename("CSV", name); }), errc::DuplicateKey) << name;
    for (const std::string name : {"../OUT", "a/b", "", "1"})
        EXPECT_EQ(refused([&] { store.rename("CSV", name); }), errc::InvalidCall) << name;
    for (const std::string name : {"NONE", "../CSV"})
        EXPECT_EQ(refused([&] { store.rename(name, "NEW"); }), errc::FileNotFound) << name;
    put(kSession, "B.vla", "no record");
    EXPECT_EQ(refused([&] { store.rename("CSV", "NEW"); }), errc::BadRecord);
}

TEST_P(StoreChanges, RenameEverywhereOrNowhere) {
    putRecord(kFormat, "CSV", {});
    for (const std::string name : {"A", "B", "C"}) putRecord(kSession, name, sound({"CSV"}));
    const auto rename = [&] { store.rename("CSV", "NEW"); };
    disk.failOn(Operation::Save, "B.vla");
    EXPECT_EQ(refused(rename), errc::FileAccess);
    disk.failOn(Operation::Read, "C.vla");
    EXPECT_EQ(refused(rename), errc::FileAccess);
    disk.failOn(Operation::Commit);
    EXPECT_EQ(refused(rename), errc::FileAccess);
    disk.failOn(Operation::Remove, "CSV.vla");
    EXPECT_EQ(refused(rename), errc::FileAccess);
    disk.failOn(Operation::List, "MORAM");
    EXPECT_EQ(refused(rename), errc::FileAccess);
    LateFailure late(*files);
    setFileSystem(&late);
    EXPECT_EQ(refused(rename), errc::FileAccess);
    setFileSystem(&disk);
    int calls = 0;
    EXPECT_EQ(refused([&] {
                  store.rename("CSV", "NEW", [&](std::size_t done, std::size_t all) {
                      EXPECT_EQ(all, 3U);
                      ++calls;
                      if (done == 2) throw Error(errc::InvalidCall, "enough");
                  });
              }),
              errc::InvalidCall);
    EXPECT_EQ(calls, 2);
}

TEST_P(StoreChanges, ComeToTheirEndWhereAFileLosesItsGroup) {
    putRecord(kFormat, "CSV", {});
    putRecord(kSession, "A", sound({"CSV"}));
    LostGroup lost(*files);
    setFileSystem(&lost);
    const Error raised = raisedBy([&] { store.rename("CSV", "NEW"); });
    EXPECT_EQ(raised.description(), "The file A can't be kept in its group: who knows.");
    EXPECT_EQ(store.names(kFormat), Names{"NEW"});
    EXPECT_EQ(formatsIn("A"), Names{"NEW"});
}

TEST(UpperName, IsThatOfItsItem) {
    EXPECT_EQ(upperName("straße ärger ﬁ ı"), "STRAßE ÄRGER ﬁ ı");
}

}  // namespace
}  // namespace wynconfig
