// Files and folders in memory, for tests and for records that are not to last. It refuses what a
// disk would refuse.
#include <algorithm>
#include <cstddef>
#include <system_error>

#include "platform/files/file_system.h"
#include "platform/files/paths.h"

namespace wynconfig {

namespace {

// The limits that a disk has, in bytes.
constexpr std::size_t kMaxName = 255;
constexpr std::size_t kMaxPath = 4095;

/// The one spelling under which a path is kept: without ".", without ".." where it can be resolved,
/// and "" for the working folder.
std::string keyOf(const std::string& path) {
    const std::size_t root = rootLength(path);
    std::vector<std::string> parts;
    for (std::size_t at = root; at < path.size();) {
        const std::size_t end = std::min(path.find('/', at), path.size());
        std::string part = path.substr(at, end - at);
        at = end + 1;
        if (part.empty() || part == ".") continue;
        const bool isUp = part == "..";
        if (isUp && !parts.empty() && parts.back() != "..") {
            parts.pop_back();
        } else if (!isUp || root == 0) {
            parts.push_back(std::move(part));
        }
    }
    std::string key = path.substr(0, root);
    for (const std::string& part : parts) {
        if (!key.empty() && key.back() != '/') key += '/';
        key += part;
    }
    return key;
}

/// A file's or folder's own name and the key of the folder it lies in.
struct Location {
    std::string folder;
    std::string name;
};

Location locationOf(const std::string& path) {
    const std::string key = keyOf(path);
    const std::size_t slash = key.rfind('/');
    if (slash == std::string::npos) return {"", key};
    return {key.substr(0, slash == 0 ? 1 : slash), key.substr(slash + 1)};
}

bool isTooLong(const std::string& path, const Location& location) {
    return path.size() > kMaxPath || location.name.size() > kMaxName;
}

class MemoryFileSystem : public FileSystem {
  protected:
    bool entriesOf(const std::string& folder, std::vector<Entry>& entries) override {
        const Folder* listed = folderAt(folder);
        if (!listed) return false;
        for (const auto& file : listed->files) entries.push_back({file.first, true});
        for (const auto& name : listed->folders) entries.push_back({name, false});
        return true;
    }

    bool stampOf(const std::string& folder, Stamp& stamp) override {
        const Folder* asked = folderAt(folder);
        if (!asked) return false;
        stamp.value = asked->changes;
        stamp.settled = true;
        return true;
    }

    std::optional<Version> versionOf(const std::string& path) override {
        const File* const file = fileAt(path);
        if (!file) return std::nullopt;
        return Version{{file->change}};
    }

    bool isPlainFile(const std::string& path) override { return fileAt(path) != nullptr; }

    bool isFolder(const std::string& path) override { return folderAt(path) != nullptr; }

    bool isOther(const std::string& path) override { return isFolder(path); }

    bool isLink(const std::string&) override { return false; }

    std::string behindLinks(const std::string& path) override { return path; }

    std::errc whyNoFolder(const std::string& path) override {
        for (std::string above = keyOf(path); !above.empty() && above != "/";
             above = locationOf(above).folder) {
            if (isPlainFile(above)) return std::errc::not_a_directory;
        }
        return std::errc::no_such_file_or_directory;
    }

    void createFolder(const std::string& path) override {
        const Location location = locationOf(path);
        Folder* parent = folderAt(location.folder);
        const auto refuse = [&](std::errc error) { throw refusal("folder", path, "made", error); };
        if (isTooLong(path, location)) refuse(std::errc::filename_too_long);
        if (!parent) refuse(std::errc::no_such_file_or_directory);
        if (isFolder(path) || isPlainFile(path)) refuse(std::errc::file_exists);
        std::set<std::string> made{location.name};
        m_folders[keyOf(path)];
        parent->folders.merge(made);  // takes no memory: a folder is made wholly or not at all
        ++parent->changes;
    }

    std::string readFile(const std::string& path) override {
        const File* const file = fileAt(path);
        if (!file) throw notFound(path);
        return file->text;
    }

    void replaceFile(const std::string& path, std::string_view content) override {
        Folder& folder = folderToWrite(path);
        folder.files.insert_or_assign(locationOf(path).name, File{std::string{content}, ++m_saves});
        ++folder.changes;
    }

    void removeFile(const std::string& path) override {
        const Location location = locationOf(path);
        Folder* folder = folderAt(location.folder);
        if (!folder || folder->files.erase(location.name) == 0) throw notFound(path);
        ++folder->changes;
    }

    void stageFile(const std::string& path, std::string_view content) override {
        folderToWrite(path);
        m_staged.insert_or_assign(keyOf(path), std::string{content});
    }

    std::function<void()> unstaging(const std::string& path) override {
        return [this, key = keyOf(path)] { m_staged.erase(key); };
    }

    void commitStaged(const MayReplace& mayReplace) override {
        std::optional<Error> first;
        for (const auto& [path, content] : std::exchange(m_staged, {})) {
            try {
                if (mayReplace(path)) replaceFile(path, content);
            } catch (const Error& failure) {
                if (!first) first = failure;
            }
        }
        if (first) throw *first;
    }

    void discardStaged() noexcept override { m_staged.clear(); }

  private:
    struct File {
        std::string text;
        std::int64_t change;  ///< number of the save that wrote it
    };
    struct Folder {
        std::map<std::string, File> files;  ///< by name
        std::set<std::string> folders;
        std::int64_t changes = 0;
    };

    /// The folder of that path, null when there is none.
    Folder* folderAt(const std::string& path) {
        const auto folder = m_folders.find(keyOf(path));
        return folder == m_folders.end() ? nullptr : &folder->second;
    }

    /// The file of that path, null when there is none.
    const File* fileAt(const std::string& path) {
        const Location location = locationOf(path);
        const Folder* folder = folderAt(location.folder);
        if (!folder) return nullptr;
        const auto file = folder->files.find(location.name);
        return file == folder->files.end() ? nullptr : &file->second;
    }

    /// The folder of a file that may be written.
    Folder& folderToWrite(const std::string& path) {
        const Location location = locationOf(path);
        Folder* folder = folderAt(location.folder);
        const auto refuse = [&](std::errc error) { throw refusal("file", path, "written", error); };
        if (isTooLong(path, location)) refuse(std::errc::filename_too_long);
        if (!folder) refuse(std::errc::no_such_file_or_directory);
        if (isFolder(path)) refuse(std::errc::is_a_directory);
        return *folder;
    }

    std::map<std::string, Folder> m_folders{{"", {}}, {"/", {}}};
    std::map<std::string, std::string> m_staged;  ///< content by the file's key
    std::int64_t m_saves = 0;
};

}  // namespace

std::unique_ptr<FileSystem> makeMemoryFileSystem() {
    return std::make_unique<MemoryFileSystem>();
}

}  // namespace wynconfig
