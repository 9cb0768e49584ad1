// Setting up the store: the two folders and their catalogues, what stays untouched, the failures,
// and the state that outlasts the calls.
#include "dialogs/session/frmMORAMMaintenance.h"
#include "support/desk.h"

namespace wynconfig {
namespace {

using namespace ConfigGlobalModule;

const std::string kTag = "Class_Initialize: WYN config folders not available";

class StoreInit : public Desk {
  protected:
    /// The next box must tell a failure of `init` about this file.
    void onFailureBox(const std::string& description) {
        user().onBox([description](const SeenBox& box) {
            EXPECT_EQ(box.text, failureText(kTag, description));
            EXPECT_EQ(box.style, 4112);
            EXPECT_EQ(box.title, "{GLOBAL_MOD_UNEXPECTED}");
            EXPECT_EQ(box.okCaption, "{BUTTON_OK}");
            return answer::Ok;
        });
    }
    std::string catalogueText(const std::string& root, const std::string& type) {
        return memory->read({root + type + "\\", type + ".vls"});
    }
    bool hasCatalogue(const std::string& root, const std::string& type) {
        return !memory->find({root + type + "\\", type + ".vls"}).empty();
    }
    void expectCatalogue(const std::string& root, const std::string& type) {
        SCOPED_TRACE(root + type);
        ASSERT_TRUE(hasCatalogue(root, type));
        Dataset catalogue;
        catalogue.Load(ItemPath{root + type + "\\", type + ".vls"}, 0);
        EXPECT_EQ(catalogue.Type(), type);
        EXPECT_EQ(catalogue.Name(), type);
        EXPECT_TRUE(catalogue.Rows().empty());
        Dataset likewise;
        likewise.Create(type, type, root + type + "\\", {"Element", "Data"});
        likewise.SetKey("Element", 3);
        Document document;
        likewise.Save(document);
        EXPECT_EQ(catalogueText(root, type), document.xml());
    }
    /// What the add dialog offers as base sessions, behind its entry for none.
    std::vector<std::string> offeredSessions() {
        std::vector<std::string> offered;
        user().onForm("frmAddMORAMConfig", [&](User& u) {
            offered = u.see("cboConfigs").rowTexts();
            u.click("btnCancel");
        });
        std::string name;
        EXPECT_EQ(component.showAddMORAMConfigDlg(name), 1);
        EXPECT_FALSE(offered.empty());
        if (!offered.empty()) offered.erase(offered.begin());
        return offered;
    }
};
ON_EVERY_VIEW(StoreInit);

TEST_P(StoreInit, MakesBothFoldersAndTheirCatalogues) {
    memory->makeFolder("/new");
    component.init("/new/");
    EXPECT_TRUE(memory->folderExists("/new/MORAM"));
    EXPECT_TRUE(memory->folderExists("/new/PARTFORMAT"));
    expectCatalogue("/new/", "MORAM");
    expectCatalogue("/new/", "PARTFORMAT");
    EXPECT_FALSE(memory->folderExists("/new/MORAM/deleted"));
    EXPECT_FALSE(memory->folderExists("/new/PARTFORMAT/deleted"));
}

TEST_P(StoreInit, SetsTheFoldersWithTheirTrailingBackslash) {
    EXPECT_EQ(g_SessionFolder, "/store/MORAM\\");
    EXPECT_EQ(g_PartFormatFolder, "/store/PARTFORMAT\\");
}

TEST_P(StoreInit, TakesABackslashBehindTheRootAsWell) {
    memory->makeFolder("/new");
    component.init("\\new\\");
    EXPECT_EQ(g_SessionFolder, "\\new\\MORAM\\");
    expectCatalogue("/new/", "MORAM");
    expectCatalogue("/new/", "PARTFORMAT");
}

TEST_P(StoreInit, ASecondTimeWritesNothing) {
    putSession("MINE", {{"ReverseList", "true"}});
    const std::string session = sessionText("MINE");
    const std::string catalogue = catalogueText("/store/", "MORAM");
    disk.resetCounts();
    component.init("/store/");
    EXPECT_EQ(disk.count(Operation::Save), 0U);
    EXPECT_EQ(disk.count(Operation::MakeFolder), 0U);
    EXPECT_EQ(disk.count(Operation::Remove), 0U);
    EXPECT_EQ(sessionText("MINE"), session);
    EXPECT_EQ(catalogueText("/store/", "MORAM"), catalogue);
}

TEST_P(StoreInit, WithoutASeparatorGluesTheFolderToTheLastPart) {
    memory->makeFolder("/new");
    component.init("/new/root");
    EXPECT_EQ(g_SessionFolder, "/new/rootMORAM\\");
    EXPECT_EQ(g_PartFormatFolder, "/new/rootPARTFORMAT\\");
    EXPECT_FALSE(memory->folderExists("/new/root"));
    expectCatalogue("/new/root", "MORAM");
    expectCatalogue("/new/root", "PARTFORMAT");
}

TEST_P(StoreInit, WithAnEmptyRootUsesTheWorkingFolder) {
    component.init("");
    EXPECT_EQ(g_SessionFolder, "MORAM\\");
    EXPECT_TRUE(memory->folderExists("MORAM"));
    expectCatalogue("", "MORAM");
    expectCatalogue("", "PARTFORMAT");
}

TEST_P(StoreInit, OnItemsWithoutCataloguesWritesThoseAndTouchesNoItem) {
    putSession("MINE", {{"ReverseList", "true"}});
    putFormat("CSV");
    memory->save(ItemPath::item(sessionFolder, "BROKEN"), "no record");
    memory->remove({sessionFolder, "MORAM.vls"});
    memory->remove({formatFolder, "PARTFORMAT.vls"});
    const std::string session = sessionText("MINE");
    disk.resetCounts();
    component.init("/store/");
    EXPECT_EQ(disk.count(Operation::Save), 2U);
    expectCatalogue("/store/", "MORAM");
    expectCatalogue("/store/", "PARTFORMAT");
    EXPECT_EQ(sessionText("MINE"), session);
    EXPECT_EQ(sessionText("BROKEN"), "no record");
    EXPECT_EQ(formatFiles(), (std::vector<std::string>{"CSV.vla"}));
}

TEST_P(StoreInit, ADeletedCatalogueChangesNoDialogAndReturns) {
    putFullSession("MINE", {"CSV"});
    memory->remove({sessionFolder, "MORAM.vls"});
    memory->remove({formatFolder, "PARTFORMAT.vls"});
    EXPECT_EQ(offeredSessions(), (std::vector<std::string>{"MINE"}));
    user().onForm("frmMORAMConfig", [](User& u) {
        EXPECT_EQ(u.see("txtProgramPath").text, "/programs/parts.exe");
        u.click("btnCancel");
    });
    std::string name = "MINE";
    EXPECT_EQ(component.showMORAMConfigDlg(name), 1);
    EXPECT_FALSE(hasCatalogue("/store/", "MORAM"));
    component.init("/store/");
    expectCatalogue("/store/", "MORAM");
    expectCatalogue("/store/", "PARTFORMAT");
}

TEST_P(StoreInit, ACatalogueIsNeverReadNorListed) {
    memory->save({sessionFolder, "MORAM.vls"}, "no record at all");
    putSession("MINE", {});
    component.init("/store/");
    EXPECT_EQ(catalogueText("/store/", "MORAM"), "no record at all");
    EXPECT_EQ(sessionFiles(), (std::vector<std::string>{"MINE.vla"}));
    EXPECT_EQ(offeredSessions(), (std::vector<std::string>{"MINE"}));
    frmMORAMMaintenance form;
    EXPECT_EQ(form.lstAvailableMORAMs2.count(), 1U);
    form.Unload();
}

TEST_P(StoreInit, FindsACatalogueInAnyCase) {
    memory->makeFolder("/new");
    memory->makeFolder("/new/moram");
    memory->save({"/new/moram/", "Moram.VLS"}, "as it was");
    component.init("/new/");
    EXPECT_EQ(memory->read({"/new/moram/", "Moram.VLS"}), "as it was");
    EXPECT_FALSE(memory->existsExactly("/new/moram/MORAM.vls"));
    EXPECT_FALSE(memory->existsExactly("/new/MORAM/MORAM.vls"));
    expectCatalogue("/new/", "PARTFORMAT");
}

TEST_P(StoreInit, WithoutTheRootMakesABoxForEachCatalogueAndNoFolder) {
    onFailureBox("The file /nowhere/MORAM/MORAM.vls can't be written: its folder is not there.");
    onFailureBox(
        "The file /nowhere/PARTFORMAT/PARTFORMAT.vls can't be written: its folder is not there.");
    EXPECT_NO_THROW(component.init("/nowhere/"));
    EXPECT_EQ(user().boxes().size(), 2U);
    EXPECT_FALSE(memory->folderExists("/nowhere"));
    EXPECT_EQ(g_SessionFolder, "/nowhere/MORAM\\");
    EXPECT_EQ(g_PartFormatFolder, "/nowhere/PARTFORMAT\\");
    EXPECT_TRUE(offeredSessions().empty());
}

TEST_P(StoreInit, FailedFoldersMakeNoBoxOfTheirOwn) {
    memory->makeFolder("/new");
    disk.failOn(Operation::MakeFolder);
    onFailureBox("The file /new/MORAM/MORAM.vls can't be written: its folder is not there.");
    onFailureBox(
        "The file /new/PARTFORMAT/PARTFORMAT.vls can't be written: its folder is not there.");
    component.init("/new/");
    EXPECT_EQ(user().boxes().size(), 2U);
}

TEST_P(StoreInit, AFailedFolderDoesNotKeepTheOtherFromBeingMade) {
    memory->makeFolder("/new");
    disk.failOn(Operation::MakeFolder, "MORAM", 0, 1);
    onFailureBox("The file /new/MORAM/MORAM.vls can't be written: its folder is not there.");
    component.init("/new/");
    EXPECT_FALSE(memory->folderExists("/new/MORAM"));
    expectCatalogue("/new/", "PARTFORMAT");
}

TEST_P(StoreInit, AFailedCatalogueDoesNotKeepTheOtherFromBeingWritten) {
    memory->makeFolder("/new");
    disk.failOn(Operation::Save, "MORAM.vls");
    onFailureBox("The file /new/MORAM/MORAM.vls can't be written: No space left on device.");
    component.init("/new/");
    EXPECT_FALSE(hasCatalogue("/new/", "MORAM"));
    expectCatalogue("/new/", "PARTFORMAT");
    disk.failNowhere();
    component.init("/new/");
    expectCatalogue("/new/", "MORAM");
}

TEST_P(StoreInit, AFolderInTheCataloguesPlaceMakesABox) {
    memory->makeFolder("/new");
    memory->makeFolder("/new/MORAM");
    memory->makeFolder("/new/MORAM/MORAM.vls");
    onFailureBox("The file /new/MORAM/MORAM.vls can't be written: a folder of that name is there.");
    component.init("/new/");
    expectCatalogue("/new/", "PARTFORMAT");
}

TEST_P(StoreInit, AFileInTheFoldersPlaceMakesABox) {
    memory->makeFolder("/new");
    memory->save({"/new/", "MORAM"}, "a file");
    onFailureBox("The file /new/MORAM/MORAM.vls can't be written: Not a directory.");
    component.init("/new/");
    EXPECT_EQ(memory->read({"/new/", "MORAM"}), "a file");
    expectCatalogue("/new/", "PARTFORMAT");
}

TEST_P(StoreInit, WithoutAManagerTellsAFailureByAnEmptyBox) {
    component.InitResourceManager(nullptr);
    for (int i = 0; i < 2; ++i) {
        user().onBox([](const SeenBox& box) {
            EXPECT_EQ(box.text, "");
            EXPECT_EQ(box.title, "");
            EXPECT_EQ(box.okCaption, "");
            EXPECT_EQ(box.style, 4112);
            return answer::Ok;
        });
    }
    component.init("/nowhere/");
    EXPECT_EQ(user().boxes().size(), 2U);
}

TEST_P(StoreInit, WithAnotherRootChangesTheFoldersAndKeepsTheRest) {
    g_Session->setName("HELD");
    g_PartFormats.Add(std::make_shared<Dataset>(), "CSV");
    g_TallyvanePartFormat = "CSV";
    g_DatasetMode = true;
    const auto session = g_Session;
    putSession("MINE", {});
    memory->makeFolder("/new");
    component.init("/new/");
    EXPECT_EQ(g_SessionFolder, "/new/MORAM\\");
    EXPECT_EQ(g_PartFormatFolder, "/new/PARTFORMAT\\");
    EXPECT_EQ(g_Session, session);
    EXPECT_EQ(g_Session->Name(), "HELD");
    EXPECT_EQ(g_PartFormats.Count(), 1U);
    EXPECT_EQ(g_TallyvanePartFormat, "CSV");
    EXPECT_TRUE(g_DatasetMode);
    EXPECT_TRUE(memory->existsExactly("/store/MORAM/MINE.vla"));
}

TEST_P(StoreInit, IsSharedByAllInstances) {
    memory->makeFolder("/new");
    WYNConfig other;
    other.init("/new/");
    EXPECT_TRUE(offeredSessions().empty());
    EXPECT_EQ(g_SessionFolder, "/new/MORAM\\");
    other.InitResourceManager(nullptr);
    EXPECT_EQ(g_ResMgr, nullptr);
}

TEST_P(StoreInit, TheManagerIsKeptAndReplacedByALaterCall) {
    EXPECT_EQ(g_ResMgr, texts);
    const auto later = std::make_shared<TestTexts>();
    component.InitResourceManager(later);
    EXPECT_EQ(g_ResMgr, later);
    component.InitResourceManager(nullptr);
    EXPECT_EQ(g_ResMgr, nullptr);
}

TEST_P(StoreInit, BeforeItTheStateIsBare) {
    ConfigGlobalModule::reset();
    EXPECT_EQ(g_SessionFolder, "");
    EXPECT_EQ(g_PartFormatFolder, "");
    EXPECT_EQ(g_ResMgr, nullptr);
    EXPECT_FALSE(g_DatasetMode);
    EXPECT_EQ(g_TallyvanePartFormat, "");
    ASSERT_NE(g_Session, nullptr);
    EXPECT_TRUE(g_Session->Rows().empty());
    EXPECT_EQ(g_PartFormats.Count(), 0U);
}

TEST_P(StoreInit, TheSessionDialogLeavesTheModeOfWorkingAndTheAddDialogClearsIt) {
    g_DatasetMode = true;
    user().onForm("frmMORAMConfig", [](User& u) { u.click("btnCancel"); });
    std::string name;
    component.showMORAMConfigDlg(name);
    EXPECT_TRUE(g_DatasetMode);
    offeredSessions();
    EXPECT_FALSE(g_DatasetMode);
}

}  // namespace
}  // namespace wynconfig
