// Reading a folder, and comparing two readings.
#include "sample/store_snapshot.h"

#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "texts/phrase.h"
#include "texts/system_words.h"

namespace host {

namespace fs = std::filesystem;

namespace {

[[noreturn]] void fail(const fs::path& path, const std::string& why) {
    throw std::runtime_error(phrase("FILE_CANT_READ", {path.string(), why}));
}

}  // namespace

std::string readFile(const fs::path& path) {
    // Opening a pipe or a device would wait for another program.
    std::error_code failure;
    if (!fs::is_regular_file(path, failure))
        fail(path, failure ? systemWords(failure) : phrase("REASON_NOT_PLAIN"));
    std::ifstream file(path, std::ios::binary);
    std::string content{std::istreambuf_iterator<char>(file), {}};
    if (!file) fail(path, phrase("REASON_UNREADABLE"));
    return content;
}

Snapshot takeSnapshot(const fs::path& folder) {
    Snapshot snapshot;
    std::error_code failure;
    fs::recursive_directory_iterator entry(folder, fs::directory_options::skip_permission_denied,
                                           failure);
    for (; !failure && entry != fs::recursive_directory_iterator(); entry.increment(failure)) {
        std::error_code unknown;
        if (!entry->is_regular_file(unknown)) continue;
        std::ifstream file(entry->path(), std::ios::binary);
        std::string content{std::istreambuf_iterator<char>(file), {}};
        if (!file) continue;
        snapshot[entry->path().lexically_relative(folder).generic_string()] = std::move(content);
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
