// A file system at whose single steps a test lets another program change the same files.
#pragma once

#include <functional>
#include <string>

#include "platform/files/faulty_file_system.h"

namespace wynconfig {

/// Passes everything on to the file system that it wraps, and runs what the test wants in between.
/// The hooks get paths as the system spells them.
class Meanwhile : public FaultyFileSystem {
  public:
    using FaultyFileSystem::FaultyFileSystem;
    std::function<void(const std::string& path)> afterRead = [](const std::string&) {};
    std::function<void()> beforeCommit = [] {};
    /// Right before a file of a batch is put in place.
    std::function<void(const std::string& path)> beforeReplacing = [](const std::string&) {};
    /// Takes all files for just changed, at one and the same time: only their texts tell them
    /// apart.
    bool clockStands = false;

  protected:
    std::optional<Version> versionOf(const std::string& path) override {
        const std::optional<Version> version = FaultyFileSystem::versionOf(path);
        return version && clockStands ? Version{{}, false} : version;
    }
    std::string readFile(const std::string& path) override {
        std::string text = FaultyFileSystem::readFile(path);
        afterRead(path);
        return text;
    }
    void commitStaged(const MayReplace& mayReplace) override {
        beforeCommit();
        FaultyFileSystem::commitStaged([&](const std::string& path) {
            beforeReplacing(path);
            return mayReplace(path);
        });
    }
};

/// Runs an action the first time that a file of this name is read or put in place.
inline std::function<void(const std::string&)> onceAt(const std::string& name,
                                                      std::function<void()> action) {
    return [name, action = std::move(action), done = false](const std::string& path) mutable {
        if (done || !path.ends_with("/" + name)) return;
        done = true;
        action();
    };
}

}  // namespace wynconfig
