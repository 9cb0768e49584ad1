// How the sample host writes the file of a session.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

#include "sending/list_file.h"
#include "support/file_system_kit.h"

namespace host {
namespace {

namespace fs = std::filesystem;

class ListFileTest : public testing::Test {
  protected:
    fs::path at(const std::string& name) const { return fs::path(m_folder.path()) / name; }

    static std::string content(const fs::path& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    std::size_t filesInFolder() const {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(m_folder.path()), fs::directory_iterator()));
    }

    static std::string raisedBy(const ListFile& file) {
        try {
            writeListFile(file, "new");
        } catch (const std::runtime_error& failure) {
            return failure.what();
        }
        return {};
    }

  private:
    wynconfig::TemporaryFolder m_folder;
};

TEST_F(ListFileTest, IsWrittenByteByByte) {
    const std::string bytes("a\r\nb\n\0\x1B\xFF", 8);
    writeListFile({at("list.txt")}, bytes);
    EXPECT_EQ(content(at("list.txt")), bytes);
    EXPECT_EQ(filesInFolder(), 1U);
}

TEST_F(ListFileTest, ReplacesWhatWasThere) {
    writeListFile({at("list.txt")}, "a long old list");
    writeListFile({at("list.txt")}, "new");
    EXPECT_EQ(content(at("list.txt")), "new");
    EXPECT_EQ(filesInFolder(), 1U);
}

TEST_F(ListFileTest, IsAppendedToWhatWasThere) {
    writeListFile({at("list.txt"), true}, "one\r\n");
    writeListFile({at("list.txt"), true}, "two");
    EXPECT_EQ(content(at("list.txt")), "one\r\ntwo");
}

TEST_F(ListFileTest, MayBeEmpty) {
    writeListFile({at("list.txt")}, "");
    EXPECT_TRUE(fs::exists(at("list.txt")));
    EXPECT_EQ(content(at("list.txt")), "");
}

TEST_F(ListFileTest, ThatIsReplacedKeepsItsPermissions) {
    writeListFile({at("list.txt")}, "old");
    fs::permissions(at("list.txt"), fs::perms::owner_read | fs::perms::owner_write);
    writeListFile({at("list.txt")}, "new");
    EXPECT_EQ(fs::status(at("list.txt")).permissions(),
              fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(ListFileTest, BehindALinkIsReplacedWithoutTheLink) {
    fs::create_directory(at("there"));
    writeListFile({at("there/list.txt")}, "old");
    fs::create_symlink(at("there/list.txt"), at("link.txt"));
    writeListFile({at("link.txt")}, "new");
    EXPECT_TRUE(fs::is_symlink(at("link.txt")));
    EXPECT_EQ(content(at("there/list.txt")), "new");
}

TEST_F(ListFileTest, TellsThatItsFolderIsNotThere) {
    for (const bool append : {false, true}) {
        EXPECT_EQ(raisedBy({at("gone/list.txt"), append}),
                  "The file " + at("gone/list.txt").string() +
                      " can't be written: its folder is not there.");
    }
}

TEST_F(ListFileTest, TellsThatAFolderStandsInItsPlace) {
    fs::create_directory(at("list.txt"));
    for (const bool append : {false, true}) {
        EXPECT_EQ(raisedBy({at("list.txt"), append}),
                  "The file " + at("list.txt").string() + " can't be written: it is a folder.");
    }
}

TEST_F(ListFileTest, BehindALinkIsMadeWhereTheLinkLeads) {
    fs::create_directories(at("there/far"));
    fs::create_symlink("there/link.txt", at("link.txt"));
    fs::create_symlink("far/list.txt", at("there/link.txt"));
    for (const bool append : {false, true}) {
        writeListFile({at("link.txt"), append}, "new");
        EXPECT_TRUE(fs::is_symlink(at("link.txt")));
        EXPECT_TRUE(fs::is_symlink(at("there/link.txt")));
    }
    EXPECT_EQ(content(at("there/far/list.txt")), "newnew");
}

TEST_F(ListFileTest, TellsThatALinkLeadsRoundInACircle) {
    fs::create_symlink("b.txt", at("a.txt"));
    fs::create_symlink("a.txt", at("b.txt"));
    for (const bool append : {false, true}) {
        EXPECT_EQ(raisedBy({at("a.txt"), append}),
                  "The file " + at("a.txt").string() +
                      " can't be written: its link leads round in a circle.");
    }
    EXPECT_TRUE(fs::is_symlink(at("a.txt")));
}

TEST_F(ListFileTest, IsNoPipeAndNoDeviceNorBehindALink) {
    ASSERT_EQ(mkfifo(at("pipe").c_str(), 0600), 0);
    fs::create_symlink("/dev/null", at("device"));
    fs::create_symlink("pipe", at("link"));
    for (const char* name : {"pipe", "device", "link"}) {
        for (const bool append : {false, true}) {
            EXPECT_EQ(raisedBy({at(name), append}),
                      "The file " + at(name).string() +
                          " can't be written: it is no plain file, but a pipe, a device or a "
                          "socket.");
        }
    }
    EXPECT_TRUE(fs::is_fifo(at("pipe")));
    EXPECT_EQ(filesInFolder(), 3U);
}

TEST_F(ListFileTest, LeavesTheFilesBesideItAlone) {
    for (const char* other : {"list.txt.new", "list.txt.part", "list.txt~"})
        std::ofstream(at(other)) << "the user's own";
    writeListFile({at("list.txt")}, "old");
    writeListFile({at("list.txt"), true}, "new");
    EXPECT_EQ(content(at("list.txt")), "oldnew");
    for (const char* other : {"list.txt.new", "list.txt.part", "list.txt~"})
        EXPECT_EQ(content(at(other)), "the user's own") << other;
    EXPECT_EQ(filesInFolder(), 4U);
}

TEST_F(ListFileTest, IsWrittenAnewAsAWholeAlsoWhenItIsAppended) {
    writeListFile({at("list.txt")}, "one");
    fs::create_hard_link(at("list.txt"), at("as it was"));
    writeListFile({at("list.txt"), true}, "two");
    EXPECT_EQ(content(at("list.txt")), "onetwo");
    EXPECT_EQ(content(at("as it was")), "one");
}

TEST_F(ListFileTest, StaysAsItWasWhenTheDiskIsFull) {
    writeListFile({at("list.txt")}, "old");
    const auto disk = wynconfig::makeRealFileSystem();
    wynconfig::FaultyFileSystem full(*disk);
    full.failOn(wynconfig::FaultyFileSystem::Operation::Save);
    wynconfig::setFileSystem(&full);
    for (const bool append : {false, true}) {
        EXPECT_EQ(raisedBy({at("list.txt"), append}),
                  "The file " + at("list.txt").string() +
                      " can't be written: there is no space left on the disk.");
        EXPECT_EQ(content(at("list.txt")), "old");
    }
    EXPECT_EQ(full.count(wynconfig::FaultyFileSystem::Operation::Save), 2U);
    wynconfig::setFileSystem(nullptr);
    EXPECT_EQ(filesInFolder(), 1U);
}

TEST(ListFilePath, IsTheNameInTheFolder) {
    EXPECT_EQ(listFilePath("/lists", "stock.txt"), fs::path("/lists/stock.txt"));
    EXPECT_EQ(listFilePath("/lists/", "stock.txt"), fs::path("/lists/stock.txt"));
    EXPECT_EQ(listFilePath("/lists", "größe €.txt"), fs::path("/lists/größe €.txt"));
}

TEST(ListFilePath, NeverLeadsOutOfTheFolder) {
    for (const std::string name : {"", ".", "..", "../stock.txt", "/stock.txt", "a/b", "a\\b"})
        EXPECT_THROW(listFilePath("/lists", name), std::runtime_error) << name;
}

}  // namespace
}  // namespace host
