// The power goes at any moment of any operation. What reaches the disk of what was not synced by
// then, nobody can tell: every file's bytes may be there or not, wholly or in part, and every
// change of a name may have come before or behind any other. All of these disks are made here, in
// memory, from the calls that the operation made; on each of them every file has to be whole, and
// what was stored before has to be somewhere.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/syscall.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <iterator>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "support/store_work.h"
#include "support/temporary_folder.h"
#include "support/traced_process.h"
#include "wynconfig/store.h"

namespace wynconfig {
namespace {

namespace fs = std::filesystem;

/// A file apart from its names: its bytes as they were at first and with each write behind that. Of
/// a folder nothing is kept.
struct DiskFile {
    bool isFolder = false;
    std::vector<std::string> versions{""};
    std::size_t synced = 0;  ///< the version that is on the disk for certain

    const std::string& written() const { return versions.back(); }
};
using FileId = std::shared_ptr<DiskFile>;

/// A name: the files that it stood for, null for none, one behind the other.
struct DiskName {
    std::vector<FileId> versions;
    std::size_t synced = 0;
};

/// What may be on a disk: the names that stand for a file, and its bytes.
using Disk = std::map<std::string, std::string>;

/// The disk as the calls of a process change it, with all that may have come of what was not
/// synced.
class Replay {
  public:
    /// @param syncs  false: a disk that only claims to sync
    Replay(const StoreFiles& files, std::string root, bool syncs)
        : m_root(std::move(root)), m_syncs(syncs) {
        for (const auto& [path, text] : files) {
            const auto file = std::make_shared<DiskFile>();
            file->versions = {text};
            m_names[m_root + path] = {{file}, 0};
        }
    }

    /// @return whether it may have changed what is on the disk
    bool apply(const TracedCall& call) {
        if (call.result < 0) return false;
        const auto one = static_cast<int>(call.arguments[0]);
        switch (call.number) {
            case SYS_openat:
                return open(pathOf(one, call.path), call.arguments[2],
                            static_cast<int>(call.result));
            case SYS_close:
                m_open.erase(one);
                return false;
            case SYS_write:
                return write(one, call.bytes.substr(0, static_cast<std::size_t>(call.result)));
            case SYS_fsync:
            case SYS_fdatasync:
                return sync(one);
            case SYS_syncfs:
                return syncAll();
            case SYS_renameat:
            case SYS_renameat2:
                return rename(pathOf(one, call.path),
                              pathOf(static_cast<int>(call.arguments[2]), call.newPath));
            case SYS_mkdirat:
                return makeFolder(pathOf(one, call.path));
            case SYS_unlinkat:
                return set(pathOf(one, call.path), nullptr);
#ifdef SYS_unlink
            case SYS_unlink:
                return set(call.path, nullptr);
            case SYS_mkdir:
                return makeFolder(call.path);
            case SYS_rename:
                return rename(call.path, call.newPath);
#endif
            default:
                // A call that changes a file in another way would have to be told here.
                EXPECT_FALSE(kOtherChanges.contains(call.number)) << fileCall(call.number)->name;
                return false;
        }
    }

    /// Goes through every disk that may be there.
    /// @return how many there are
    std::size_t forEachDisk(const std::function<void(const Disk&)>& visit) const {
        std::vector<std::pair<std::string, const DiskName*>> names;
        for (const auto& [path, name] : m_names)
            names.emplace_back(path.substr(m_root.size()), &name);
        Disk disk;
        return choose(names, 0, disk, visit);
    }

    /// Whether a file is missing a part of what was written to it.
    bool isTorn(const std::string& path, const std::string& bytes) const {
        const auto name = m_names.find(m_root + path);
        return std::none_of(name->second.versions.begin(), name->second.versions.end(),
                            [&](const FileId& file) { return file && file->written() == bytes; });
    }

  private:
    static inline const std::set<long> kOtherChanges{
        SYS_writev, SYS_pwrite64, SYS_ftruncate, SYS_linkat, SYS_symlinkat,
#ifdef SYS_link
        SYS_link,   SYS_symlink,  SYS_truncate,
#endif
    };

    std::string pathOf(int folder, const std::string& path) const {
        if (path.starts_with('/')) return path;
        const auto open = m_folders.find(folder);
        return open == m_folders.end() ? path : open->second + "/" + path;
    }

    bool open(const std::string& path, std::uint64_t flags, int number) {
        m_open.erase(number);
        m_folders.erase(number);
        if ((flags & O_DIRECTORY) != 0) {
            m_folders[number] = path.ends_with('/') ? path.substr(0, path.size() - 1) : path;
            return false;
        }
        EXPECT_EQ(flags & O_TRUNC, 0U) << path << " is emptied";
        const bool isMade = (flags & O_CREAT) != 0 && !current(path);
        if (isMade) set(path, std::make_shared<DiskFile>());
        if (FileId file = current(path)) m_open[number] = file;
        return isMade;
    }

    bool write(int number, const std::string& bytes) {
        const auto file = m_open.find(number);
        if (file == m_open.end()) return false;
        file->second->versions.push_back(file->second->written() + bytes);
        return true;
    }

    bool sync(int number) {
        if (!m_syncs) return true;
        if (const auto file = m_open.find(number); file != m_open.end())
            file->second->synced = file->second->versions.size() - 1;
        const auto folder = m_folders.find(number);
        if (folder == m_folders.end()) return true;
        for (auto& [path, name] : m_names) {
            if (fs::path(path).parent_path() == folder->second)
                name.synced = name.versions.size() - 1;
        }
        return true;
    }

    bool syncAll() {
        if (!m_syncs) return true;
        for (auto& each : m_names) {
            DiskName& name = each.second;
            name.synced = name.versions.size() - 1;
            for (const FileId& file : name.versions)
                if (file) file->synced = file->versions.size() - 1;
        }
        return true;
    }

    bool makeFolder(const std::string& path) {
        const auto folder = std::make_shared<DiskFile>();
        folder->isFolder = true;
        return set(path, folder);
    }

    bool rename(const std::string& from, const std::string& to) {
        set(to, current(from));
        return set(from, nullptr);
    }

    /// A name under the root stands for another file from here on.
    bool set(const std::string& path, FileId file) {
        if (!path.starts_with(m_root)) return false;
        DiskName& name = m_names[path];
        if (name.versions.empty()) name.versions.push_back(nullptr);
        name.versions.push_back(std::move(file));
        return true;
    }
    FileId current(const std::string& path) const {
        const auto name = m_names.find(path);
        return name == m_names.end() ? nullptr : name->second.versions.back();
    }

    std::size_t choose(const std::vector<std::pair<std::string, const DiskName*>>& names,
                       std::size_t at, Disk& disk,
                       const std::function<void(const Disk&)>& visit) const {
        if (at == names.size()) {
            visit(disk);
            return 1;
        }
        // A folder comes before what lies in it.
        const std::string parent = fs::path(names[at].first).parent_path();
        if (m_names.contains(m_root + parent) && !disk.contains(parent))
            return choose(names, at + 1, disk, visit);
        const auto& [path, name] = names[at];
        std::size_t disks = 0;
        for (std::size_t version = name->synced; version < name->versions.size(); ++version) {
            const FileId& file = name->versions[version];
            if (!file) {
                disk.erase(path);
                disks += choose(names, at + 1, disk, visit);
                continue;
            }
            for (const std::string& bytes : bytesOf(*file)) {
                disk[path] = bytes;
                disks += choose(names, at + 1, disk, visit);
            }
        }
        disk.erase(path);
        return disks;
    }

    /// What may be on the disk of a file: what was synced, all of it, or a half of what came
    /// behind.
    static std::set<std::string> bytesOf(const DiskFile& file) {
        const std::string& sure = file.versions[file.synced];
        const std::string& all = file.written();
        return {sure, all, all.substr(0, (sure.size() + all.size()) / 2)};
    }

    std::string m_root;
    bool m_syncs;
    std::map<std::string, DiskName> m_names;  ///< by path
    std::map<int, FileId> m_open;
    std::map<int, std::string> m_folders;
};

bool isTemporary(const std::string& path) {
    return path.ends_with(".tmp");
}

class PowerCut : public testing::TestWithParam<StoreWork> {
  protected:
    /// The calls of the work, with what was there before and behind it.
    void record() {
        const StoreWork& work = GetParam();
        StoreWorker worker(m_folder.path());
        worker.putStore(work.onFreshRoot);
        before = filesOf(worker);
        run = traced([&] { worker.begin(work); }, [&] { worker.run(work); },
                     [&] { return written(worker.outcome()); });
        ASSERT_TRUE(run.ended);
        after = readOutcome(run.report).files;
        ASSERT_NE(after, before);
    }

    std::string root() const { return StoreWorker(m_folder.path()).root(); }
    static StoreFiles filesOf(const StoreWorker& worker) {
        StoreFiles files;
        for (const auto& entry : fs::recursive_directory_iterator(worker.root())) {
            if (!entry.is_regular_file()) continue;
            std::ifstream file(entry.path(), std::ios::binary);
            files[fs::relative(entry.path(), worker.root()).string()] =
                std::string(std::istreambuf_iterator<char>(file), {});
        }
        return files;
    }

    /// Says what is wrong with a disk; empty when nothing is.
    std::string complaint(const Replay& replay, const Disk& disk, bool done) const {
        for (const auto& [path, bytes] : disk) {
            if (!isTemporary(path) && replay.isTorn(path, bytes)) return path + " is not whole";
        }
        for (const auto& [path, text] : before) {
            const bool stays = after.contains(path) || done;
            if (stays && after.contains(path) && !disk.contains(path)) return path + " is lost";
            if (!stays && !isSomewhere(path, disk)) return path + " is nowhere";
        }
        if (!done) return {};
        for (const auto& [path, text] : after) {
            const auto found = disk.find(path);
            if (found == disk.end() || found->second != text) return path + " does not last";
        }
        return {};
    }

    /// What is wrong with any of the disks, and behind which call that is so first.
    std::map<std::string, std::size_t> complaintsOf(bool syncs, std::size_t& disks) const {
        Replay replay(before, root(), syncs);
        std::map<std::string, std::size_t> complaints;
        for (std::size_t at = 0; at <= run.calls.size(); ++at) {
            const bool done = at == run.calls.size();
            if (!done && !replay.apply(run.calls[at])) continue;
            disks += replay.forEachDisk([&](const Disk& disk) {
                if (const std::string told = complaint(replay, disk, done); !told.empty())
                    complaints.emplace(told, at);
            });
        }
        return complaints;
    }

    /// Whether a file that is to go is there still, or one that was not there before has come.
    bool isSomewhere(const std::string& path, const Disk& disk) const {
        if (disk.contains(path)) return true;
        return std::any_of(after.begin(), after.end(), [&](const auto& file) {
            return !before.contains(file.first) && disk.contains(file.first);
        });
    }

    StoreFiles before;
    StoreFiles after;
    TracedRun run;

  private:
    TemporaryFolder m_folder;
};

TEST_P(PowerCut, LeavesEveryFileWhole) {
    record();
    std::size_t disks = 0;
    for (const auto& [told, at] : complaintsOf(true, disks))
        ADD_FAILURE() << told << ", first behind call " << at << " of " << run.calls.size();
    EXPECT_GT(disks, 10U);
    RecordProperty("disks", static_cast<int>(disks));
}

INSTANTIATE_TEST_SUITE_P(Works, PowerCut, testing::ValuesIn(storeWorks()),
                         [](const auto& each) { return each.param.name; });

/// The replay sees what a sync is for.
class PowerCutUnsynced : public PowerCut {};
TEST_P(PowerCutUnsynced, TearsFiles) {
    record();
    std::size_t disks = 0;
    const auto complaints = complaintsOf(false, disks);
    EXPECT_TRUE(complaints.contains("PARTFORMAT/COPY OF CSV.vla is not whole"));
    EXPECT_TRUE(complaints.contains("PARTFORMAT/COPY OF CSV.vla does not last"));
}
INSTANTIATE_TEST_SUITE_P(Works, PowerCutUnsynced, testing::Values(storeWork("CopiesAFormat")),
                         [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace wynconfig
