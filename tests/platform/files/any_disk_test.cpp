// What holds on the disk of every system: changes by other programs are seen, and large files are
// not read.
#include <gtest/gtest.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <thread>

#include "platform/files/faulty_file_system.h"
#include "platform/files/file_system.h"
#include "support/file_system_kit.h"
#include "support/save_calls.h"

namespace wynconfig {
namespace {

namespace fs = std::filesystem;

class AnyDisk : public OnTheDisk {};

TEST_F(AnyDisk, refusesFilesThatAreTooLarge) {
    put("MOST.vla", "");
    fs::resize_file(root + "MOST.vla", std::uintmax_t{64} << 20);
    EXPECT_EQ(files->read(at("MOST.vla")).size(), std::size_t{64} << 20);
    fs::resize_file(root + "MOST.vla", (std::uintmax_t{64} << 20) + 1);
    const Error error = raisedBy([&] { files->read(at("MOST.vla")); });
    EXPECT_EQ(error.number(), errc::FileAccess);
    EXPECT_TRUE(holds(error.description(), root + "MOST.vla can't be read: it is too large"))
        << error.description();
}

TEST_F(AnyDisk, seesChangesByOthersAtOnce) {
    for (int i = 0; i < 200; ++i) {
        const std::string number = std::to_string(i);
        files->save(at("OWN" + number + ".vla"), "own");
        // This look-up reads the folder within the clock tick in which it changes next.
        EXPECT_EQ(files->find(at("FOREIGN" + number + ".VLA")), "");
        put("foreign" + number + ".vla", number);
        EXPECT_EQ(files->find(at("FOREIGN" + number + ".VLA")), "foreign" + number + ".vla");
        EXPECT_EQ(files->read(at("Foreign" + number + ".vla")), number);
        fs::remove(root + "foreign" + number + ".vla");
        EXPECT_EQ(files->find(at("FOREIGN" + number + ".VLA")), "");
        EXPECT_EQ(files->find(at("foreign" + number + ".vla")), "");
        fs::rename(root + "OWN" + number + ".vla", root + "renamed" + number + ".vla");
        EXPECT_EQ(files->find(at("own" + number + ".vla")), "");
        files->remove(at("RENAMED" + number + ".VLA"));
    }
    EXPECT_TRUE(names().empty());
}

TEST_F(AnyDisk, seesChangesByOthersInAFolderWhoseTimeWasSetBack) {
    if (kOnWindows) GTEST_SKIP() << "there the standard library can't set the time of a folder";
    put("one.vla", "x");
    std::this_thread::sleep_for(std::chrono::milliseconds(60));
    const auto before = fs::last_write_time(folder.path());
    EXPECT_EQ(files->find(at("TWO.VLA")), "");
    put("two.vla", "x");
    fs::last_write_time(folder.path(), before);
    EXPECT_EQ(files->find(at("TWO.VLA")), "two.vla");
}

TEST_F(AnyDisk, waitsUntilTheClockHasMovedOn) {
    Stranger stranger{*files};
    // On a busy machine the first looks may come too late.
    bool unsettled = false;
    for (int i = 0; i < 50 && !unsettled; ++i) {
        put(std::to_string(i), "x");
        unsettled = !stranger.isSettled(folder.path());
    }
    EXPECT_TRUE(unsettled);
    std::this_thread::sleep_for(std::chrono::milliseconds(60));
    EXPECT_TRUE(stranger.isSettled(folder.path()));
}

TEST_F(AnyDisk, seesAFolderMadeAnew) {
    fs::create_directory(root + "sub");
    put("sub/a.vla", "x");
    std::this_thread::sleep_for(std::chrono::milliseconds(60));
    EXPECT_EQ(files->find({root + "SUB\\", "A.VLA"}), "a.vla");
    fs::remove_all(root + "sub");
    EXPECT_EQ(files->find({root + "SUB\\", "A.VLA"}), "");
    fs::create_directory(root + "Sub");
    put("Sub/b.vla", "x");
    EXPECT_EQ(files->find({root + "SUB\\", "B.VLA"}), "b.vla");
    EXPECT_EQ(files->find({root + "SUB\\", "A.VLA"}), "");
}

/// Saves many new files, and a catalogue over and over in between.
void expectFewListings(FileSystem& files, const std::string& root, int many) {
    const auto at = [&](const std::string& name) { return ItemPath{root, name}; };
    const auto all = static_cast<std::size_t>(many);
    FaultyFileSystem counted{files};
    for (int i = 0; i < many; ++i) {
        counted.save(at("Item " + std::to_string(i) + ".vla"), "x");
        if (i % 10 == 0) counted.save(at("CATALOGUE.vls"), std::to_string(i));
    }
    EXPECT_LE(counted.count(Operation::List), 3U);
    EXPECT_EQ(counted.count(Operation::Save), all + all / 10);
    EXPECT_EQ(counted.find(at("ITEM 199.VLA")), "Item 199.vla");
    EXPECT_EQ(counted.find(at("ITEM 0.VLA")), "Item 0.vla");
    EXPECT_EQ(counted.listItems(root).size(), all);
    // What the saves entered themselves is known to the saves behind them.
    counted.resetCounts();
    for (int i = 0; i < many / 10; ++i) counted.save(at("ITEM " + std::to_string(i) + ".VLA"), "y");
    EXPECT_LE(counted.count(Operation::List), 1U);
    EXPECT_EQ(counted.listItems(root).size(), all);
}

TEST_F(AnyDisk, readsAFolderAFewTimesForThousandsOfNewFiles) {
    saveCalls.skipSync = true;
    expectFewListings(*files, root, kOnWindows ? 200 : 5000);  // no sync can be skipped there
}

TEST(Memory, readsAFolderAFewTimesForThousandsOfNewFiles) {
    const auto memory = makeMemoryFileSystem();
    expectFewListings(*memory, "", 5000);
}

}  // namespace
}  // namespace wynconfig
