// Moving an item into the folder "deleted": the order of its steps, what each failure leaves, and
// what becomes of the handling of failures around it.
#include "services/deleted_items.h"

#include <filesystem>
#include <string>

#include "support/session_list_desk.h"
#include "support/temporary_folder.h"

namespace wynconfig {
namespace {

const std::string kTag = "some form:some procedure";

class DeletedItems : public SessionListDesk {
  protected:
    void move(const std::string& session) { moveToDeleted(on, sessionFolder, session); }
    /// The descriptions of the failure boxes that came up, for which as many are announced.
    void expectBoxes(const Names& descriptions) {
        ASSERT_EQ(user().boxes().size(), descriptions.size());
        for (std::size_t i = 0; i < descriptions.size(); ++i)
            EXPECT_EQ(user().boxes()[i].text, failureText(kTag, descriptions[i]));
    }
    void announceBoxes(int count) {
        for (int i = 0; i < count; ++i) user().onBox();
    }

    OnError on{kTag};
};
INSTANTIATE_TEST_SUITE_P(Views, DeletedItems, ::testing::Values("Scripted"));

TEST_P(DeletedItems, TheFileMovesAndTheRecordHoldsIt) {
    const std::string before = sessionText("B");
    move("B");
    EXPECT_EQ(sessionFiles(), (Names{"A.vla", "C.vla"}));
    EXPECT_EQ(textKeptAside("B"), before);
    Dataset kept;
    kept.Load(ItemPath::item(deletedFolder, "B"));
    EXPECT_EQ(kept.Name(), "B");
}

TEST_P(DeletedItems, PartFormatsHaveAFolderOfTheirOwn) {
    moveToDeleted(on, formatFolder, "CSV");
    EXPECT_TRUE(formatFiles().empty());
    EXPECT_EQ(memory->listItems(formatFolder + "deleted\\"), (Names{"CSV.vla"}));
    EXPECT_FALSE(memory->folderExists(deletedFolder));
}

TEST_P(DeletedItems, TheFolderIsMadeOnceAndFoundInAnyCase) {
    memory->makeFolder(sessionFolder + "Deleted");
    move("A");
    move("B");
    EXPECT_EQ(memory->listItems("/store/MORAM/Deleted/"), (Names{"A.vla", "B.vla"}));
    EXPECT_EQ(disk.count(Operation::MakeFolder), 2U) << "the store's own two";
}

TEST_P(DeletedItems, OnlyMakingTheFolderFailsInSilence) {
    disk.failOn(Operation::MakeFolder);
    announceBoxes(1);
    move("B");
    expectBoxes({"The file /store/MORAM/deleted/B.vla can't be written: its folder is not there."});
    EXPECT_FALSE(sessionExists("B"));
}

TEST_P(DeletedItems, EachStepThatFailsIsToldAndTheNextOneRuns) {
    disk.failOn(Operation::Read);
    disk.failOn(Operation::Save);
    disk.failOn(Operation::Remove);
    announceBoxes(3);
    move("B");
    ASSERT_EQ(user().boxes().size(), 3U);
    Names files;
    for (const SeenBox& box : user().boxes()) {
        EXPECT_TRUE(isFailureOf(box.text, kTag));
        const std::size_t start = box.text.find("/store/");
        files.push_back(box.text.substr(start, box.text.find(':', start) - start));
    }
    EXPECT_EQ(files, (Names{"/store/MORAM/B.vla can't be read",
                            "/store/MORAM/deleted/B.vla can't be written",
                            "/store/MORAM/B.vla can't be deleted"}));
    EXPECT_TRUE(sessionExists("B"));
}

TEST_P(DeletedItems, AnItemThatCannotBeLoadedIsKeptAsAnEmptyRecordWhateverWentBefore) {
    move("A");
    spoilSession("B");
    announceBoxes(1);
    move("B");
    Dataset kept;
    kept.Load(ItemPath::item(deletedFolder, "B"));
    EXPECT_EQ(kept.Name(), "");
    EXPECT_TRUE(kept.Rows().empty());
}

#ifndef _WIN32  // where links are made otherwise
TEST_P(DeletedItems, AFolderThatIsALinkIsRefusedAndNothingLeavesTheStore) {
    const TemporaryFolder store;
    const TemporaryFolder outside;
    const auto real = makeRealFileSystem();
    setFileSystem(real.get());
    const std::string folder = store.path() + "/";
    real->save(ItemPath::item(folder, "B"), sessionText("B"));
    std::filesystem::create_directory_symlink(outside.path(), folder + "deleted");
    announceBoxes(1);
    moveToDeleted(on, folder, "B");
    expectBoxes({"The folder " + folder + "deleted can't be used: it is a link."});
    EXPECT_TRUE(std::filesystem::is_empty(outside.path()));
    EXPECT_TRUE(real->listItems(folder).empty()) << "as whenever a record can't be kept aside";
    setFileSystem(&disk);
}
#endif

TEST_P(DeletedItems, FailuresAreToldAgainBehindIt) {
    on.resumeNext();
    move("B");
    announceBoxes(1);
    on([] { throw Error(errc::InvalidCall, "the statement behind it"); });
    expectBoxes({"the statement behind it"});
}

TEST_P(DeletedItems, ANameLeadsToNoOtherFolder) {
    announceBoxes(3);
    move("..\\PARTFORMAT\\CSV");
    EXPECT_EQ(user().boxes().size(), 3U);
    EXPECT_EQ(formatFiles(), (Names{"CSV.vla"}));
    EXPECT_TRUE(memory->listItems(deletedFolder).empty());
}

}  // namespace
}  // namespace wynconfig
