// What lies in a folder at one moment, to tell afterwards which files changed.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace host {

/// Content of each file below a folder, by its path from there (with `/`).
using Snapshot = std::map<std::string, std::string>;

/// Reads all plain files below a folder, but for what can't be read; a folder that is not there is
/// empty.
Snapshot takeSnapshot(const std::filesystem::path& folder);

/// A file that differs between two snapshots.
struct FileChange {
    enum class Kind { Added, Changed, Deleted };
    Kind kind = Kind::Changed;
    std::string path;
    bool operator==(const FileChange&) const = default;
};

/// All differences by content, in the order of the paths.
std::vector<FileChange> changesBetween(const Snapshot& before, const Snapshot& after);

/// The word for a kind of change, such as "changed".
const char* wordFor(FileChange::Kind kind);

/// The whole content of a plain file. Raises `std::runtime_error` when it can't be read, or is
/// something else.
std::string readFile(const std::filesystem::path& path);

}  // namespace host
