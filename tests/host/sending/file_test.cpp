// How the sample host writes the file of a session.
#include <gtest/gtest.h>

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

TEST_F(ListFileTest, StaysAsItWasWhenTheNewOneCantBeWritten) {
    writeListFile({at("list.txt")}, "old");
    fs::create_directory(at("list.txt.new"));
    const std::string failure = raisedBy({at("list.txt")});
    EXPECT_NE(failure.find(at("list.txt").string() + " can't be written"), std::string::npos)
        << failure;
    EXPECT_EQ(content(at("list.txt")), "old");
    EXPECT_TRUE(fs::is_directory(at("list.txt.new")));
}

TEST_F(ListFileTest, StaysAsItWasWhenTheDiskIsFull) {
    writeListFile({at("list.txt")}, "old");
    if (!fs::exists("/dev/full")) FAIL() << "this system has no /dev/full";
    fs::create_symlink("/dev/full", at("list.txt.new"));
    const std::string failure = raisedBy({at("list.txt")});
    EXPECT_NE(failure.find("No space left"), std::string::npos) << failure;
    EXPECT_EQ(content(at("list.txt")), "old");
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
