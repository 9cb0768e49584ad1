// Saving to the disk, one file at a time or many.
#include "platform/files/posix/disk_saves.h"

#include <new>
#include <set>

namespace wynconfig {

namespace {

/// A path cut before the file's own name; the folder keeps its separator.
struct PathParts {
    std::string_view folder;
    std::string_view name;
};

PathParts partsOf(std::string_view path) {
    const std::size_t cut = path.rfind('/') + 1;
    return {path.substr(0, cut), path.substr(cut)};
}

/// The file that a save is to replace.
struct Target {
    SaveFolder& folder;
    std::string name;
    std::optional<Ownership> old;  ///< of the file that is there, if one is
};

Ownership ownershipOf(const struct stat& info) {
    return {info.st_uid, info.st_gid, info.st_mode & 07777};
}

Ownership ownershipOf(const Descriptor& file) {
    struct stat info {};
    checked([&] { return ::fstat(file.number(), &info); });
    return ownershipOf(info);
}

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
    SaveFolder& folder = folders.at(std::string{parts.folder});
    std::string name{parts.name};
    const std::optional<struct stat> status = statusOf(folder.open(), name);
    if (!status || S_ISLNK(status->st_mode)) return {folder, std::move(name), std::nullopt};
    if (S_ISDIR(status->st_mode)) throw SystemFailure{EISDIR};
    if (!S_ISREG(status->st_mode)) throw SystemFailure{EINVAL};
    checkWritable(folder.open(), name, *status);
    return {folder, std::move(name), ownershipOf(*status)};
}

/// The mode of a new file, less what the user's mask takes away.
constexpr mode_t kNewMode = 0666;

/// The mode with which a temporary is made that has its owners still to get: as long as it bears
/// another group, that one has no rights on it.
mode_t modeUntilOwned(const std::optional<Ownership>& old) {
    return old ? old->mode & 0700 : kNewMode;
}

/// Gives a temporary the owners of the old file. An owner that only a privileged user can give is
/// given up without a word, since whoever may write the file may keep writing it by its group.
/// @param file  out: what the file has by then
/// @return why it did not get the group; 0: it did
int keepOwners(const Descriptor& temporary, Ownership& file, const Ownership& old) {
    if (file.user == old.user && file.group == old.group) return 0;
    int error = EPERM;
    if (::fchown(temporary.number(), old.user, old.group) != 0 && file.group != old.group &&
        ::fchown(temporary.number(), static_cast<uid_t>(-1), old.group) != 0) {
        error = errno;
    }
    file = ownershipOf(temporary);
    return file.group == old.group ? 0 : error;
}

/// The mode of the old file, as far as it may go to other owners: another group gets no more than
/// everybody has, and nobody gets what runs in another one's name.
mode_t modeFor(const Ownership& file, const Ownership& old) {
    mode_t mode = old.mode;
    if (file.user != old.user || file.group != old.group) mode &= 0777;
    if (file.group != old.group) mode &= 0707U | (mode & 07U) << 3;
    return mode;
}

/// Gives a temporary its mode. Raises `SystemFailure`, but not on a mount without mode bits of its
/// own, which has none to keep.
void setMode(const Descriptor& temporary, mode_t mode) {
    try {
        checked([&] { return ::fchmod(temporary.number(), mode); });
    } catch (const SystemFailure& failure) {
        if (failure.error != EPERM && failure.error != ENOTSUP && failure.error != ENOSYS) throw;
    }
}

/// Gives a temporary the owners and the mode of the old file, as far as the system allows that.
/// @param asMade  out: whether it had all of it from the start
/// Raises `SystemFailure`.
/// @return why it did not get the group; 0: it did
int keepOwnership(const Descriptor& temporary, const Ownership& old, bool& asMade) {
    Ownership file = ownershipOf(temporary);
    asMade = file == old;
    if (asMade) return 0;
    const int error = keepOwners(temporary, file, old);
    const mode_t mode = modeFor(file, old);
    if (file.mode != mode) setMode(temporary, mode);
    return error;
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
            throw SaveFailure{SaveFailure::Of::Folder, folder->path(),
                              SaveFailure::What::NotWritten, failure.error};
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
    } catch (const std::bad_alloc&) {
        // Likewise.
    }
}

SaveFolder::~SaveFolder() {
    for (const auto& staged : m_staged) m_folder.remove(staged.second.temporary);
}

/// Whether a new file of the folder has the owners of an old one, and may be made with its mode.
bool SaveFolder::isWrittenAsNew(const Ownership& old) const {
    return m_new->user == old.user && m_new->group == old.group;
}

void SaveFolder::stage(const std::string& name, const std::optional<Ownership>& old,
                       std::string_view content) {
    if (!m_mark) m_mark.emplace(m_folder, kNewMode);
    if (!m_new) m_new = ownershipOf(m_mark->file());
    std::string temporary = m_mark->follower(++m_last);
    const mode_t mode = old && isWrittenAsNew(*old) ? old->mode & 0777 : modeUntilOwned(old);
    Descriptor file{checked([&] {
        return ::openat(m_folder.number(), temporary.c_str(),
                        O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    })};
    int groupError = 0;
    try {
        if (old && old != m_asMade) {
            bool asMade = false;
            groupError = keepOwnership(file, *old, asMade);
            if (asMade) m_asMade = old;
        }
        writeAll(file, content);
        file.close();
        const auto staged = m_staged.try_emplace(name).first;
        // From here on nothing fails.
        const Staged former = std::exchange(staged->second, {std::move(temporary), groupError});
        if (!former.temporary.empty()) m_folder.remove(former.temporary);
    } catch (...) {
        m_folder.remove(temporary);
        throw;
    }
}

void SaveFolder::unstage(std::string_view name) noexcept {
    const auto staged = m_staged.find(name);
    if (staged == m_staged.end()) return;
    m_folder.remove(staged->second.temporary);
    m_staged.erase(staged);
}

void SaveFolder::publish(const MayReplace& mayReplace, std::optional<SaveFailure>& first) {
    using Of = SaveFailure::Of;
    using What = SaveFailure::What;
    for (const auto& [name, staged] : m_staged) {
        if (!mayReplace(m_path + name)) {
            m_folder.remove(staged.temporary);
            continue;
        }
        try {
            m_folder.rename(staged.temporary, name);
            if (staged.groupError != 0)
                keepFirst(first, {Of::File, m_path + name, What::GroupLost, staged.groupError});
        } catch (const SystemFailure& failure) {
            m_folder.remove(staged.temporary);
            keepFirst(first, {Of::File, m_path + name, What::NotWritten, failure.error});
        }
    }
    m_staged.clear();
    m_mark.reset();
    try {
        m_folder.sync();
    } catch (const SystemFailure& failure) {
        keepFirst(first, {Of::Folder, m_path, What::NotConfirmed, failure.error});
    }
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

SaveFolder* SaveFolders::known(std::string_view path) const noexcept {
    const auto known = m_byPath.find(path);
    return known == m_byPath.end() ? nullptr : known->second;
}

void DiskSaves::save(const std::string& path, std::string_view content) {
    SaveFailure failed{SaveFailure::Of::File, path, SaveFailure::What::NotWritten, 0};
    try {
        SaveFolders folders{m_cleanFolders, CleanFolders::When::Changed};
        const Target target = targetOf(folders, path);
        const OpenFolder& folder = target.folder.open();
        LockedTemporary temporary{folder, modeUntilOwned(target.old)};
        bool asMade = false;
        const int groupError =
            target.old ? keepOwnership(temporary.file(), *target.old, asMade) : 0;
        writeAll(temporary.file(), content);
        checked([&] { return ::fsync(temporary.file().number()); });
        temporary.publish(target.name);
        failed.what = SaveFailure::What::NotConfirmed;
        folder.sync();
        m_cleanFolders.note(target.folder.path(), folder, target.folder.isClean());
        failed.what = SaveFailure::What::GroupLost;
        if (groupError != 0) throw SystemFailure{groupError};
    } catch (const SystemFailure& failure) {
        failed.error = failure.error;
        throw failed;
    }
}

void DiskSaves::stage(const std::string& path, std::string_view content) {
    try {
        if (!m_batch) {
            m_batch = std::make_unique<SaveFolders>(m_cleanFolders, CleanFolders::When::Always);
        }
        const Target target = targetOf(*m_batch, path);
        target.folder.stage(target.name, target.old, content);
    } catch (const SystemFailure& failure) {
        throw SaveFailure{SaveFailure::Of::File, path, SaveFailure::What::NotWritten,
                          failure.error};
    }
}

void DiskSaves::unstage(std::string_view path) noexcept {
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
