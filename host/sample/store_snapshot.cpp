// Reading a folder, and comparing two readings.
#include "sample/store_snapshot.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

namespace host {

namespace fs = std::filesystem;

std::string readFile(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::string content{std::istreambuf_iterator<char>(file), {}};
    if (!file) throw std::runtime_error(path.string() + " can't be read");
    return content;
}

Snapshot takeSnapshot(const fs::path& folder) {
    Snapshot snapshot;
    if (!fs::exists(folder)) return snapshot;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
        if (!entry.is_regular_file()) continue;
        snapshot[fs::relative(entry.path(), folder).generic_string()] = readFile(entry.path());
    }
    return snapshot;
}

std::vector<FileChange> changesBetween(const Snapshot& before, const Snapshot& after) {
    Snapshot all = before;
    all.insert(after.begin(), after.end());
    std::vector<FileChange> changes;
    for (const auto& [path, content] : all) {
        const auto was = before.find(path);
        const auto is = after.find(path);
        if (was == before.end())
            changes.push_back({FileChange::Kind::Added, path});
        else if (is == after.end())
            changes.push_back({FileChange::Kind::Deleted, path});
        else if (was->second != is->second)
            changes.push_back({FileChange::Kind::Changed, path});
    }
    return changes;
}

const char* wordFor(FileChange::Kind kind) {
    switch (kind) {
        case FileChange::Kind::Added:
            return "added";
        case FileChange::Kind::Deleted:
            return "deleted";
        default:
            return "changed";
    }
}

}  // namespace host
