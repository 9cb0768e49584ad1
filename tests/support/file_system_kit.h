// What the tests of the file layer share: a folder of their own on the disk, another
// program's hand on the files, and a look at what a call raises.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "platform/files/faulty_file_system.h"
#include "support/temporary_folder.h"
#include "wynconfig/error.h"

namespace wynconfig {

/// The file systems on which every rule is tested.
enum class FilesOn { Disk, Memory };

/// Another program at work on the same files: it sees no case, no index, just paths.
class Stranger : public FaultyFileSystem {
  public:
    using FaultyFileSystem::FaultyFileSystem;
    void write(const std::string& path, const std::string& content) { replaceFile(path, content); }
    void makeExactly(const std::string& path) { createFolder(path); }
    void erase(const std::string& path) { removeFile(path); }
    std::string readExactly(const std::string& path) { return readFile(path); }
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

/// Runs a call that must fail, and gives back what it raises.
inline Error failureOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const Error& error) {
        return error;
    }
    ADD_FAILURE() << "nothing was raised";
    return {0, "nothing"};
}

inline bool holds(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

}  // namespace wynconfig
