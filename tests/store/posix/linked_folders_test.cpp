// A store whose folders are symbolic links: its own two may be, the one for deleted items may not.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "support/file_system_kit.h"
#include "wynconfig/store.h"

namespace wynconfig {
namespace {

namespace fs = std::filesystem;
constexpr ItemKind kKind = ItemKind::Session;

class LinkedFolders : public OnTheDisk {
  protected:
    LinkedFolders() {
        for (const char* name : {"outside", "sessions", "PARTFORMAT"})
            fs::create_directory(root + name);
        fs::create_directory_symlink("sessions", root + "MORAM");
        setFileSystem(files.get());
        for (const char* name : {"A", "B"})
            files->save(ItemPath::item(store.folder(kKind), name), "kept");
    }
    ~LinkedFolders() override { setFileSystem(nullptr); }

    Store store{root};
};

TEST_F(LinkedFolders, ServeAsTheStoresOwn) {
    store.moveToDeleted(kKind, "A");
    EXPECT_EQ(store.names(kKind), Names{"B"});
    EXPECT_EQ(store.deletedNames(kKind), Names{"A"});
    EXPECT_EQ(contentOf("sessions/deleted/A.vla"), "kept");
    store.restore(kKind, "A");
    EXPECT_EQ(store.names(kKind), (Names{"A", "B"}));
    EXPECT_TRUE(fs::is_symlink(root + "MORAM"));
}

TEST_F(LinkedFolders, AreRefusedForDeletedItems) {
    fs::create_directory_symlink("../outside", root + "sessions/Deleted");
    put("outside/C.vla", "not the store's");
    const std::string refused = "The folder " + root + "MORAM/Deleted can't be used: it is a link.";
    EXPECT_EQ(raisedBy([&] { store.moveToDeleted(kKind, "A"); }).description(), refused);
    EXPECT_EQ(raisedBy([&] { store.restore(kKind, "C"); }).description(), refused);
    EXPECT_EQ(raisedBy([&] { store.deletedNames(kKind); }).description(), refused);
    EXPECT_EQ(store.names(kKind), (Names{"A", "B"}));
    EXPECT_FALSE(fs::exists(root + "outside/A.vla"));
    EXPECT_EQ(contentOf("outside/C.vla"), "not the store's");
}

}  // namespace
}  // namespace wynconfig
