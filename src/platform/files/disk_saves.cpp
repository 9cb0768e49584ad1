// Saving to the disk, one file at a time or many.
#include "platform/files/disk_saves.h"

#include <set>

namespace wynconfig {

namespace {

/// A path cut before the file's own name; the folder keeps its separator.
struct PathParts {
    std::string folder;
    std::string name;
};

PathParts partsOf(const std::string& path) {
    const std::size_t cut = path.rfind('/') + 1;
    return {path.substr(0, cut), path.substr(cut)};
}

/// The file that a save is to replace.
struct Target {
    SaveFolder& folder;
    std::string name;
    std::optional<mode_t> mode;  ///< mode bits of the file that is there, if one is
};

/// What lies at a name that a save is to write; nothing when nothing does.
std::optional<struct stat> statusOf(const OpenFolder& folder, const std::string& name) {
    struct stat info {};
    if (::fstatat(folder.number(), name.c_str(), &info, AT_SYMLINK_NOFOLLOW) == 0) return info;
    if (errno != ENOENT) throw SystemFailure{errno};
    return std::nullopt;
}

/// Raises `SystemFailure` when the user may not write a file. A rename asks nobody whether the old
/// file may be changed; whoever protected it means it.
void checkWritable(const OpenFolder& folder, const std::string& name, const struct stat& info) {
    const bool isOwners = info.st_uid == ::geteuid() && (info.st_mode & S_IWUSR) != 0;
    if (isOwners) return;
    checked([&] { return ::faccessat(folder.number(), name.c_str(), W_OK, AT_EACCESS); });
}

/// The file that is to be written for a path. A link is not followed: it gives way to a new file of
/// its folder, and what it led to is no concern of a save, be it writable or not.
Target targetOf(SaveFolders& folders, const std::string& path) {
    const PathParts parts = partsOf(path);
    SaveFolder& folder = folders.at(parts.folder);
    const std::optional<struct stat> status = statusOf(folder.open(), parts.name);
    if (!status || S_ISLNK(status->st_mode)) return {folder, parts.name, std::nullopt};
    if (S_ISDIR(status->st_mode)) throw SystemFailure{EISDIR};
    if (!S_ISREG(status->st_mode)) throw SystemFailure{EINVAL};
    checkWritable(folder.open(), parts.name, *status);
    return {folder, parts.name, status->st_mode & 07777};
}

/// The mode with which a temporary is made: never more open than that of the old file.
mode_t modeToMake(const std::optional<mode_t>& mode) {
    return mode ? *mode & 0777 : 0666;
}

/// Gives a temporary the mode of the old file. True when it was made with it.
bool keepMode(const Descriptor& file, mode_t mode) {
    struct stat info {};
    if (::fstat(file.number(), &info) == 0 && (info.st_mode & 07777) == mode) return true;
    // A mount without mode bits of its own refuses this, and has none to keep.
    ::fchmod(file.number(), mode);
    return false;
}

FolderIdentity identityOf(const struct stat& info) {
    return {info.st_dev, info.st_ino};
}

/// Brings all that was written in some folders to the disk. One call per file system is enough,
/// through the folder opened first: it was open before anything was written, and so it gets told of
/// every write that failed since.
void syncFileSystems(const SaveFolders& folders) {
    std::set<dev_t> done;
    for (const auto& folder : folders.all()) {
        if (folder->isEmpty()) continue;
        try {
            if (!done.insert(folder->open().status().st_dev).second) continue;
            checked([&] { return ::syncfs(folder->open().number()); });
        } catch (const SystemFailure& failure) {
            throw SaveFailure{SaveFailure::Of::Folder, folder->path(), false, failure.error};
        }
    }
}

}  // namespace

CleanFolders::Stamp CleanFolders::stampOf(const OpenFolder& folder) {
    const struct stat info = folder.status();
    return {identityOf(info),
            std::int64_t{info.st_ctim.tv_sec} * 1'000'000'000 + info.st_ctim.tv_nsec};
}

bool CleanFolders::clean(const std::string& path, const OpenFolder& folder, When when) {
    const auto held = m_clean.find(path);
    const bool same =
        when == When::Changed && held != m_clean.end() && held->second == stampOf(folder);
    return same || cleanTemporaries(folder);
}

void CleanFolders::note(const std::string& path, const OpenFolder& folder, bool isClean) {
    m_clean.erase(path);
    if (!isClean) return;
    try {
        m_clean.emplace(path, stampOf(folder));
    } catch (const SystemFailure&) {
        // Not noted, it is looked through next time; the save itself is done.
    }
}

SaveFolder::~SaveFolder() {
    for (const auto& staged : m_staged) discard(staged.second);
}

void SaveFolder::stage(const std::string& name, std::optional<mode_t> mode,
                       std::string_view content) {
    if (!m_mark) m_mark.emplace(m_folder, modeToMake(std::nullopt));
    const unsigned number = ++m_last;
    const std::string temporary = m_mark->follower(number);
    Descriptor file{checked([&] {
        return ::openat(m_folder.number(), temporary.c_str(),
                        O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, modeToMake(mode));
    })};
    try {
        if (mode && mode != m_modeAsMade && keepMode(file, *mode)) m_modeAsMade = mode;
        writeAll(file, content);
        file.close();
    } catch (...) {
        discard(number);
        throw;
    }
    const auto [staged, isNew] = m_staged.try_emplace(name, number);
    if (!isNew) discard(std::exchange(staged->second, number));
}

void SaveFolder::unstage(const std::string& name) {
    const auto staged = m_staged.find(name);
    if (staged == m_staged.end()) return;
    discard(staged->second);
    m_staged.erase(staged);
}

void SaveFolder::publish(const MayReplace& mayReplace, std::optional<SaveFailure>& first) {
    const auto keep = [&](SaveFailure::Of of, const std::string& path, bool published, int error) {
        if (!first) first = SaveFailure{of, path, published, error};
    };
    for (const auto& [name, number] : m_staged) {
        if (!mayReplace(m_path + name)) {
            discard(number);
            continue;
        }
        try {
            m_folder.rename(m_mark->follower(number), name);
        } catch (const SystemFailure& failure) {
            discard(number);
            keep(SaveFailure::Of::File, m_path + name, false, failure.error);
        }
    }
    m_staged.clear();
    m_mark.reset();
    try {
        m_folder.sync();
    } catch (const SystemFailure& failure) {
        keep(SaveFailure::Of::Folder, m_path, true, failure.error);
    }
}

void SaveFolder::discard(unsigned number) const {
    m_folder.remove(m_mark->follower(number));
}

SaveFolder& SaveFolders::at(const std::string& path) {
    if (SaveFolder* folder = known(path)) return *folder;
    OpenFolder opened{path};
    const FolderIdentity identity = identityOf(opened.status());
    for (const auto& folder : m_folders) {
        if (identityOf(folder->open().status()) == identity) {
            return *(m_byPath[path] = folder.get());
        }
    }
    const bool isClean = m_cleanFolders.clean(path, opened, m_when);
    m_folders.push_back(std::make_unique<SaveFolder>(path, std::move(opened), isClean));
    return *(m_byPath[path] = m_folders.back().get());
}

SaveFolder* SaveFolders::known(const std::string& path) const {
    const auto known = m_byPath.find(path);
    return known == m_byPath.end() ? nullptr : known->second;
}

void DiskSaves::save(const std::string& path, std::string_view content) {
    bool published = false;
    try {
        SaveFolders folders{m_cleanFolders, CleanFolders::When::Changed};
        const Target target = targetOf(folders, path);
        const OpenFolder& folder = target.folder.open();
        LockedTemporary temporary{folder, modeToMake(target.mode)};
        if (target.mode) keepMode(temporary.file(), *target.mode);
        writeAll(temporary.file(), content);
        checked([&] { return ::fsync(temporary.file().number()); });
        temporary.publish(target.name);
        published = true;
        folder.sync();
        m_cleanFolders.note(target.folder.path(), folder, target.folder.isClean());
    } catch (const SystemFailure& failure) {
        throw SaveFailure{SaveFailure::Of::File, path, published, failure.error};
    }
}

void DiskSaves::stage(const std::string& path, std::string_view content) {
    try {
        if (!m_batch) {
            m_batch = std::make_unique<SaveFolders>(m_cleanFolders, CleanFolders::When::Always);
        }
        const Target target = targetOf(*m_batch, path);
        target.folder.stage(target.name, target.mode, content);
    } catch (const SystemFailure& failure) {
        throw SaveFailure{SaveFailure::Of::File, path, false, failure.error};
    }
}

void DiskSaves::unstage(const std::string& path) {
    const PathParts parts = partsOf(path);
    SaveFolder* folder = m_batch ? m_batch->known(parts.folder) : nullptr;
    if (folder) folder->unstage(parts.name);
}

void DiskSaves::commit(const MayReplace& mayReplace) {
    const std::unique_ptr<SaveFolders> batch = std::move(m_batch);
    if (!batch) return;
    syncFileSystems(*batch);
    std::optional<SaveFailure> first;
    for (const auto& folder : batch->all()) {
        if (folder->isEmpty()) continue;
        folder->publish(mayReplace, first);
        m_cleanFolders.note(folder->path(), folder->open(), folder->isClean());
    }
    if (first) throw *first;
}

}  // namespace wynconfig
