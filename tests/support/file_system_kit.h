// What the tests of the file layer share: a folder of their own on the disk, every file system to
// run on, and another program's hand on the files.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <set>
#include <string>
#include <system_error>
#include <vector>

#include "platform/files/faulty_file_system.h"
#include "platform/files/file_system.h"
#include "support/raised.h"
#include "support/save_calls.h"
#include "support/short_names.h"
#include "support/temporary_folder.h"

namespace wynconfig {

/// Another program at work on the same files: it sees no case, no index, just paths.
class Stranger : public FaultyFileSystem {
  public:
    using FaultyFileSystem::FaultyFileSystem;
    void write(const std::string& path, const std::string& content) { replaceFile(path, content); }
    void makeExactly(const std::string& path) { createFolder(path); }
    void erase(const std::string& path) { removeFile(path); }
    std::string readExactly(const std::string& path) { return readFile(path); }
    bool canList(const std::string& folder) {
        std::vector<Entry> entries;
        return entriesOf(folder, entries);
    }
    bool isStamped(const std::string& folder) {
        Stamp stamp;
        return stampOf(folder, stamp);
    }
    bool hasVersion(const std::string& path) { return versionOf(path).has_value(); }
    std::errc whyNot(const std::string& folder) { return whyNoFolder(folder); }
    bool isSettled(const std::string& folder) {
        Stamp stamp;
        EXPECT_TRUE(stampOf(folder, stamp));
        return stamp.settled;
    }
    std::vector<std::string> names(const std::string& folder) {
        std::vector<Entry> entries;
        EXPECT_TRUE(entriesOf(folder, entries));
        std::vector<std::string> names;
        names.reserve(entries.size());
        for (const Entry& entry : entries) names.push_back(entry.name);
        std::sort(names.begin(), names.end());
        return names;
    }
};

/// The file systems on which every rule is tested.
enum class FilesOn { Disk, Memory };

#ifdef _WIN32
inline constexpr bool kOnWindows = true;
#else
inline constexpr bool kOnWindows = false;
#endif

/// The fixture of rules that hold on all of them: an empty folder, and a stranger in it.
class OnEveryFileSystem : public testing::TestWithParam<FilesOn> {
  protected:
    OnEveryFileSystem() {
        if (GetParam() == FilesOn::Disk) {
            files = makeRealFileSystem();
            root = folder.path() + "/";
        } else {
            files = makeMemoryFileSystem();
            root = "/store/";
            files->makeFolder(root);
        }
        stranger = std::make_unique<Stranger>(*files);
    }

    ItemPath at(const std::string& name) const { return {root, name}; }
    /// Whether two names that differ in case alone can stand side by side.
    static bool tellsCase() { return !kOnWindows || GetParam() == FilesOn::Memory; }

    TemporaryFolder folder;
    std::string root;
    std::unique_ptr<FileSystem> files;
    std::unique_ptr<Stranger> stranger;
};

/// Runs the tests of a fixture on every file system.
#define ON_EVERY_FILE_SYSTEM(Fixture)                                    \
    INSTANTIATE_TEST_SUITE_P(                                            \
        Kinds, Fixture, testing::Values(FilesOn::Disk, FilesOn::Memory), \
        [](const auto& kind) { return kind.param == FilesOn::Disk ? "Disk" : "Memory"; })

/// The fixture of what is only so on the disk: an empty folder there, and short ways to its files
/// that go past the file layer.
class OnTheDisk : public testing::Test {
  protected:
    OnTheDisk() { saveCalls = SaveCalls{}; }
    ~OnTheDisk() override { saveCalls = SaveCalls{}; }

    ItemPath at(const std::string& name) const { return {root, name}; }
    void put(const std::string& name, const std::string& content) const {
        std::ofstream{root + name, std::ios::binary} << content;
    }
    std::string contentOf(const std::string& name) const {
        std::ifstream file{root + name, std::ios::binary};
        return {std::istreambuf_iterator<char>{file}, {}};
    }
    std::set<std::string> names() const {
        std::set<std::string> all;
        for (const auto& entry : std::filesystem::directory_iterator(root)) {
            all.insert(entry.path().filename().string());
        }
        return all;
    }
    unsigned modeOf(const std::string& name) const {
        return static_cast<unsigned>(std::filesystem::symlink_status(root + name).permissions());
    }

    TemporaryFolder folder;
    std::string root = folder.path() + "/";
    std::unique_ptr<FileSystem> files = makeRealFileSystem();
};

inline bool holds(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

}  // namespace wynconfig
