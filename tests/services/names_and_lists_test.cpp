// The small helpers: which names are refused, what is in a list or a Collection, what is a factory
// item, and bringing a part format of the store into memory.
#include "platform/records/collection.h"
#include "platform/text/numbers.h"
#include "services/list_and_name_helpers.h"
#include "store/item_names.h"
#include "support/desk.h"
#include "support/raised.h"
#include "wynconfig/form.h"

namespace wynconfig {
namespace {

using namespace ConfigGlobalModule;

/// The number marks of a locale, for the time of a test.
class Names : public ::testing::Test {
  protected:
    void SetUp() override { setNumberLocale("en-US"); }
    void TearDown() override { setNumberLocale("en-US"); }
};

TEST_F(Names, WithAForbiddenCharacterAreRefusedByBoth) {
    for (const char each : std::string("\\/:*?\"<>|")) {
        for (const std::string& name : {std::string{each}, std::string{'A', each},
                                        std::string{each, 'B'}, std::string{'A', each, 'B'}}) {
            EXPECT_TRUE(IsInvalidName(name)) << name;
            EXPECT_TRUE(IsInvalidFileName(name)) << name;
        }
    }
}

TEST_F(Names, WithAPointAreRefusedForItemsAlone) {
    for (const std::string name : {"A.B", ".", "..", ".A", "A.", "LIST.TXT"}) {
        EXPECT_TRUE(IsInvalidName(name)) << name;
        EXPECT_FALSE(IsInvalidFileName(name)) << name;
    }
}

TEST_F(Names, ThatReadAsNumbersAreRefusedByBoth) {
    for (const std::string name : {"123", "-4", "+4", "1e5", "1E-5", "1,000", "$12", "(5)", "&HFF",
                                   "&O17", "  123  ", "0"}) {
        EXPECT_TRUE(IsInvalidName(name)) << name;
        EXPECT_TRUE(IsInvalidFileName(name)) << name;
    }
    EXPECT_TRUE(IsInvalidName("12.5"));
    EXPECT_TRUE(IsInvalidFileName("12.5"));
}

TEST_F(Names, ReadAsNumbersByTheUsersLocale) {
    EXPECT_FALSE(IsInvalidFileName("1,5 \u20AC"));
    setNumberLocale("de-DE");
    EXPECT_TRUE(IsInvalidFileName("1,5"));
    EXPECT_TRUE(IsInvalidFileName("1,5 \u20AC"));
    EXPECT_TRUE(IsInvalidFileName("1.000"));
    EXPECT_FALSE(IsInvalidFileName("$12"));
}

TEST_F(Names, OfFullWidthReadAsNumbersByTheUsersLocale) {
    for (const std::string name : {"１２３", "－５", "１．５", "１，０００"}) {
        setNumberLocale("ja-JP");
        EXPECT_TRUE(IsInvalidName(name)) << name;
        EXPECT_TRUE(IsInvalidFileName(name)) << name;
        setNumberLocale("en-US");
        EXPECT_FALSE(IsInvalidName(name)) << name;
        EXPECT_FALSE(IsInvalidFileName(name)) << name;
    }
    setNumberLocale("ja-JP");
    EXPECT_FALSE(IsInvalidName("部品１２３"));
    EXPECT_FALSE(IsInvalidName("Ａ：Ｂ"));
}

TEST_F(Names, OfOtherTextAreAllowed) {
    for (const std::string name :
         {"ABC", "12A", "A12", "1 2 A", "-", "+", "$", "A-B", "O'BRIEN", "A,B;C", "A & B", "(A)",
          "%PATH%", "部品", "É", "\t", "CON", "\xFF"}) {
        EXPECT_FALSE(IsInvalidName(name)) << name;
        EXPECT_FALSE(IsInvalidFileName(name)) << name;
    }
}

TEST_F(Names, AreTestedInTheirTrimmedForm) {
    for (const std::string name : {"", " ", "     ", "  ABC  "}) {
        EXPECT_FALSE(IsInvalidName(name)) << name;
        EXPECT_FALSE(IsInvalidFileName(name)) << name;
    }
    EXPECT_TRUE(IsInvalidName("  A.B  "));
    EXPECT_TRUE(IsInvalidName(" 5 "));
}

TEST_F(Names, OfMoreThan32767CharactersRaise) {
    const std::string most(32767, 'A');
    for (const auto test : {IsInvalidName, IsInvalidFileName}) {
        EXPECT_FALSE(test(most));
        EXPECT_FALSE(test("  " + most + "  "));
        EXPECT_EQ(raisedBy([&] { test(most + "A"); }).number(), errc::Overflow);
        EXPECT_EQ(raisedBy([&] { test("*" + most); }).number(), errc::Overflow);
    }
    std::string wide;
    for (int i = 0; i < 32767; ++i) wide += "é";
    EXPECT_FALSE(IsInvalidName(wide));
    EXPECT_EQ(raisedBy([&] { IsInvalidName(wide + "é"); }).number(), errc::Overflow);
}

TEST(ForbiddenCharacters, AreNamedInTwoShapes) {
    EXPECT_EQ(kForbiddenInNames, "         \\ / : * ? \" < > | .");
    EXPECT_EQ(kForbiddenInFileNames, "         \\ / : * ? \" < > | ");
}

/// A form with a list, whose load may be made to fail.
class ListForm : public Form {
  public:
    ListForm() : Form("ListForm") {}
    ListView list{*this, "list"};
    Button cancel{*this, "cancel"};
    bool loadFails = false;

  protected:
    void Form_Load() override {
        if (loadFails) throw Error(errc::InvalidCall, "no load");
    }
    FormLayout declareLayout() override {
        return {layout::column({layout::single(list), layout::single(cancel)}), &cancel, &cancel};
    }
};

class NamesAndLists : public Desk {
  protected:
    /// The format record that is held under a key.
    static std::string heldHeader(const std::string& key) {
        return g_PartFormats.Item(key)->GetRow("Header")[1];
    }
};
ON_EVERY_VIEW(NamesAndLists);

TEST_P(NamesAndLists, AListIsSearchedByItsKeysWithRegardToCase) {
    ListForm form;
    EXPECT_FALSE(IsItemInUniListView(form.list, "CSV"));
    form.list.add("CSV", "text of it");
    form.list.add("", "empty");
    EXPECT_TRUE(IsItemInUniListView(form.list, "CSV"));
    EXPECT_TRUE(IsItemInUniListView(form.list, ""));
    for (const std::string other : {"csv", "CSV ", "text of it", "CS"})
        EXPECT_FALSE(IsItemInUniListView(form.list, other)) << other;
    EXPECT_EQ(form.list.count(), 2U);
}

TEST_P(NamesAndLists, AListThatFailsMakesABoxAndHoldsNothing) {
    ListForm form;
    form.loadFails = true;
    user().onBox([](const SeenBox& box) {
        EXPECT_EQ(box.text, failureText("ConfigGlobalModule:IsItemInUniListView", "no load"));
        return answer::Ok;
    });
    EXPECT_FALSE(IsItemInUniListView(form.list, "CSV"));
}

TEST_P(NamesAndLists, ANameTooLongIsRefusedByTheDialogsHandler) {
    user().onForm("frmAddMORAMConfig", [](User& u) {
        u.type("txtName", std::string(32768, 'A'));
        u.onBox([](const SeenBox& box) {
            EXPECT_TRUE(isFailureOf(box.text, "frmAddMORAMConfig:btnOk_Click")) << box.text;
            return answer::Ok;
        });
        // The test failed, and so its true branch runs.
        u.onBox([](const SeenBox& box) {
            EXPECT_EQ(box.text, "{MORAM_CONFIG_MSG_INVALID_CHARS}\r\n" + kForbiddenInNames);
            return answer::Ok;
        });
        u.click("btnOK");
        u.click("btnCancel");
    });
    std::string name;
    EXPECT_EQ(component.showAddMORAMConfigDlg(name), 1);
    EXPECT_TRUE(sessionFiles().empty());
}

TEST_P(NamesAndLists, ItemsAreListedByName) {
    putSession("b", {});
    putSession("A", {});
    putSession("", {});
    memory->save({sessionFolder, "C.VLA"}, "");
    memory->save({sessionFolder, "D.txt"}, "");
    memory->makeFolder("/store/MORAM/E.vla");
    EXPECT_EQ(listItemNames(g_SessionFolder), (std::vector<std::string>{"", "A", "b", "C"}));
    EXPECT_TRUE(listItemNames("/nowhere\\").empty());
}

TEST_P(NamesAndLists, AFactoryItemIsOneWithAFile) {
    putSession("MINE", {});
    memory->save(ItemPath::item(formatFolder, "CSV"), "no record");
    EXPECT_TRUE(IsFactorySession("MINE"));
    EXPECT_TRUE(IsFactorySession("mine"));
    EXPECT_TRUE(IsFactoryPartFormat("CSV"));
    EXPECT_TRUE(IsFactoryPartFormat("csv"));
    EXPECT_FALSE(IsFactorySession("CSV"));
    EXPECT_FALSE(IsFactoryPartFormat("MINE"));
    EXPECT_FALSE(IsFactorySession("MORAM"));
    EXPECT_FALSE(IsFactoryPartFormat("PARTFORMAT"));
    EXPECT_FALSE(IsFactorySession(""));
    EXPECT_FALSE(IsFactorySession("MINE "));
}

TEST_P(NamesAndLists, AFactoryItemIsFoundWithoutBeingRead) {
    putSession("MINE", {});
    disk.failOn(FaultyFileSystem::Operation::Read);
    disk.resetCounts();
    EXPECT_TRUE(IsFactorySession("mine"));
    EXPECT_EQ(disk.count(FaultyFileSystem::Operation::Read), 0U);
}

TEST_P(NamesAndLists, AFactoryItemIsAPlainFileOfItsFolder) {
    memory->makeFolder("/store/MORAM/FOLDER.vla");
    putFormat("CSV");
    EXPECT_FALSE(IsFactorySession("FOLDER"));
    EXPECT_FALSE(IsFactorySession("..\\PARTFORMAT\\CSV"));
    EXPECT_FALSE(IsFactorySession("../PARTFORMAT/CSV"));
    EXPECT_FALSE(IsFactorySession("/store/PARTFORMAT/CSV"));
    EXPECT_FALSE(IsFactoryPartFormat("*"));
    EXPECT_FALSE(IsFactoryPartFormat("CS?"));
    ConfigGlobalModule::reset();
    EXPECT_FALSE(IsFactoryPartFormat("CSV"));
}

TEST_P(NamesAndLists, AFormatOfTheStoreIsBroughtIntoMemory) {
    putFormat("CSV", {{"Header", "of the file"}});
    EXPECT_TRUE(AddFDToConfigPartFormats("csv"));
    ASSERT_EQ(g_PartFormats.Count(), 1U);
    EXPECT_EQ(g_PartFormats.Item("CSV")->Name(), "CSV");
    EXPECT_EQ(heldHeader("csv"), "of the file");
}

TEST_P(NamesAndLists, AFormatThatIsNotThereChangesNothing) {
    EXPECT_FALSE(AddFDToConfigPartFormats("CSV"));
    EXPECT_EQ(g_PartFormats.Count(), 0U);
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(NamesAndLists, AFormatBroughtTwiceIsThereOnceAsReadLast) {
    putFormat("CSV", {{"Header", "first"}});
    putFormat("TAB", {{"Header", "tab"}});
    EXPECT_TRUE(AddFDToConfigPartFormats("CSV"));
    EXPECT_TRUE(AddFDToConfigPartFormats("TAB"));
    putFormat("CSV", {{"Header", "second"}});
    EXPECT_TRUE(AddFDToConfigPartFormats("csv"));
    ASSERT_EQ(g_PartFormats.Count(), 2U);
    EXPECT_EQ(heldHeader("CSV"), "second");
    EXPECT_EQ(g_PartFormats.Item(std::size_t{1})->Name(), "TAB");
    EXPECT_EQ(g_PartFormats.Item(std::size_t{2})->Name(), "CSV");
}

TEST_P(NamesAndLists, AFormatThatCanNotBeReadLeavesTheOneInMemory) {
    putFormat("CSV", {{"Header", "held"}});
    EXPECT_TRUE(AddFDToConfigPartFormats("CSV"));
    disk.failOn(FaultyFileSystem::Operation::Read);
    user().onBox([](const SeenBox& box) {
        EXPECT_TRUE(isFailureOf(box.text, "ConfigGlobalModule:AddFDToConfigPartFormats"));
        return answer::Ok;
    });
    EXPECT_FALSE(AddFDToConfigPartFormats("CSV"));
    EXPECT_EQ(g_PartFormats.Count(), 1U);
    EXPECT_EQ(heldHeader("CSV"), "held");
}

/// A Collection of three records.
class RecordCollection : public ::testing::Test {
  protected:
    void SetUp() override {
        for (const std::string key : {"One", "TWO", "Éé"}) {
            auto record = std::make_shared<Dataset>();
            record->setName(key);
            items.Add(record, key);
        }
    }
    std::vector<std::string> names() const {
        std::vector<std::string> all;
        for (const auto& [key, item] : items) all.push_back(item->Name());
        return all;
    }
    Collection<Dataset> items;
};

TEST_F(RecordCollection, KeepsTheOrderOfAdding) {
    EXPECT_EQ(items.Count(), 3U);
    EXPECT_EQ(names(), (std::vector<std::string>{"One", "TWO", "Éé"}));
    EXPECT_EQ(items.Item(std::size_t{1})->Name(), "One");
    EXPECT_EQ(items.Item(std::size_t{3})->Name(), "Éé");
}

TEST_F(RecordCollection, ComparesKeysWithoutRegardToCase) {
    EXPECT_EQ(items.Item("one")->Name(), "One");
    EXPECT_EQ(items.Item("two")->Name(), "TWO");
    EXPECT_EQ(items.Item("ÉÉ")->Name(), "Éé");
    EXPECT_TRUE(items.HasKey("oNE"));
    EXPECT_FALSE(items.HasKey("one "));
    EXPECT_FALSE(items.HasKey("Ee"));
}

TEST_F(RecordCollection, RefusesAPresentKey) {
    const Error error = raisedBy([&] { items.Add(std::make_shared<Dataset>(), "ONE"); });
    EXPECT_EQ(error.number(), errc::DuplicateKey);
    EXPECT_EQ(error.description(), "The key \"ONE\" is there already.");
    EXPECT_EQ(names(), (std::vector<std::string>{"One", "TWO", "Éé"}));
}

TEST_F(RecordCollection, RemovesByKeyOrIndex) {
    items.Remove("two");
    EXPECT_EQ(names(), (std::vector<std::string>{"One", "Éé"}));
    items.Remove(std::size_t{1});
    EXPECT_EQ(names(), (std::vector<std::string>{"Éé"}));
    items.Add(std::make_shared<Dataset>(), "ONE");
    EXPECT_EQ(items.Count(), 2U);
    EXPECT_EQ(items.Item("one")->Name(), "");
}

TEST_F(RecordCollection, RaisesForWhatIsNotThere) {
    EXPECT_EQ(raisedBy([&] { items.Item("three"); }).number(), errc::NoSuchKey);
    EXPECT_EQ(raisedBy([&] { items.Remove("three"); }).number(), errc::NoSuchKey);
    EXPECT_EQ(raisedBy([&] { items.Item(std::size_t{0}); }).number(), errc::SubscriptRange);
    EXPECT_EQ(raisedBy([&] { items.Item(std::size_t{4}); }).number(), errc::SubscriptRange);
    EXPECT_EQ(raisedBy([&] { items.Remove(std::size_t{4}); }).number(), errc::SubscriptRange);
    EXPECT_EQ(items.Count(), 3U);
}

TEST_F(RecordCollection, SharesItsObjects) {
    const std::shared_ptr<Dataset> held = items.Item("one");
    held->AddRow({"a", "b"});
    EXPECT_EQ(items.Item("One")->GetRow("a")[1], "b");
    items.Remove("One");
    EXPECT_EQ(held->GetRow("a")[1], "b");
    EXPECT_EQ(held.use_count(), 1);
}

TEST_F(RecordCollection, IsSearchedWithoutRegardToCaseAndStaysAsItWas) {
    EXPECT_TRUE(IsItemInCollection(items, "one"));
    EXPECT_TRUE(IsItemInCollection(items, "TWO"));
    EXPECT_FALSE(IsItemInCollection(items, "three"));
    EXPECT_FALSE(IsItemInCollection(items, ""));
    EXPECT_EQ(names(), (std::vector<std::string>{"One", "TWO", "Éé"}));
    Collection<Dataset> empty;
    EXPECT_FALSE(IsItemInCollection(empty, "one"));
    EXPECT_EQ(empty.Count(), 0U);
}

}  // namespace
}  // namespace wynconfig
