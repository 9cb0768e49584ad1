// Temporaries that are locked, and the look for those of the dead.
#include "platform/files/posix/temporary.h"

#include <dirent.h>
#include <sys/file.h>

#include <map>
#include <memory>
#include <vector>

#include "platform/files/temporary_names.h"

namespace wynconfig {

namespace {

unsigned long ownProcess() {
    return static_cast<unsigned long>(::getpid());
}

/// False only when another program holds the lock. Where files can't be locked nobody takes a
/// temporary for a dead program's either.
bool lockUnlessHeld(const Descriptor& file) {
    try {
        checked([&] { return ::flock(file.number(), LOCK_EX | LOCK_NB); });
    } catch (const SystemFailure& failure) {
        return failure.error != EWOULDBLOCK;
    }
    return true;
}

/// True when a plain file of that name is there, and is the open one if one is given. Raises
/// `SystemFailure` when it can't be told.
bool leadsToFile(const OpenFolder& folder, const std::string& name,
                 const struct stat* open = nullptr) {
    struct stat info {};
    if (::fstatat(folder.number(), name.c_str(), &info, AT_SYMLINK_NOFOLLOW) != 0) {
        if (errno == ENOENT) return false;
        throw SystemFailure{errno};
    }
    return S_ISREG(info.st_mode) &&
           (!open || (info.st_ino == open->st_ino && info.st_dev == open->st_dev));
}

/// Opens a temporary for its lock alone; a negative number when that fails. On a file server only
/// what is open for writing can be locked, here a reader can, too.
Descriptor openToLock(const OpenFolder& folder, const std::string& name) {
    Descriptor file = openPlainFile(folder.number(), name.c_str(), O_RDWR, O_NOFOLLOW);
    if (file.number() >= 0 || errno != EACCES) return file;
    return openPlainFile(folder.number(), name.c_str(), O_RDONLY, O_NOFOLLOW);
}

/// Deletes a locked temporary whose writer is dead. True when it is gone, by whatever hand.
bool removeDeadLeader(const OpenFolder& folder, const std::string& name) {
    const Descriptor file = openToLock(folder, name);
    if (file.number() < 0) return errno == ENOENT;
    struct stat info {};
    if (::fstat(file.number(), &info) != 0) return false;
    if (::flock(file.number(), LOCK_EX | LOCK_NB) != 0) return false;
    // Its writer may have put it in place, and let go of it, since it was opened. From here on it
    // can't: nobody but the one who holds the lock moves or deletes it.
    if (!leadsToFile(folder, name, &info)) return false;
    return folder.remove(name);
}

/// The names of others' temporaries in a folder. False when the folder can't be read to its end.
bool listTemporaries(const OpenFolder& folder, std::vector<std::string>& names) {
    Descriptor own{::openat(folder.number(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC)};
    if (own.number() < 0) return false;
    const std::unique_ptr<DIR, int (*)(DIR*)> listing{::fdopendir(own.number()), ::closedir};
    if (!listing) return false;
    own.release();

    const std::string prefix = temporariesOf(ownProcess());
    for (;;) {
        errno = 0;
        const dirent* entry = ::readdir(listing.get());
        if (!entry) return errno == 0;
        const std::string_view name = entry->d_name;
        if (name.starts_with(kTemporaryPrefix) && !name.starts_with(prefix) && leaderOf(name)) {
            names.emplace_back(name);
        }
    }
}

}  // namespace

LockedTemporary::LockedTemporary(const OpenFolder& folder, mode_t mode)
    : m_folder(folder), m_file(create(mode)) {}

LockedTemporary::~LockedTemporary() {
    if (!m_published) m_folder.remove(m_name);
}

int LockedTemporary::create(mode_t mode) {
    constexpr int kMostTries = 20;
    for (int tries = 1;; ++tries) {
        Descriptor file = createUnderNewName(mode);
        // Before the lock was ours another program may have taken the file for a dead program's,
        // and deletes it, or did so.
        const bool isOurs = lockUnlessHeld(file) && isStillThere();
        // Where every lock is held there is none to be had, and nobody can take the file for a dead
        // program's: it will do without.
        if (isOurs || (tries == kMostTries && isStillThere())) return file.release();
        m_folder.remove(m_name);
        if (tries == kMostTries) throw SystemFailure{EAGAIN};
    }
}

/// Makes the file, and gives it a name that nobody has.
Descriptor LockedTemporary::createUnderNewName(mode_t mode) {
    constexpr int kMostNames = 1000;
    for (int names = 1;; ++names) {
        m_name = newTemporaryName(ownProcess());
        try {
            return Descriptor{checked([&] {
                return ::openat(m_folder.number(), m_name.c_str(),
                                O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
            })};
        } catch (const SystemFailure& failure) {
            if (failure.error != EEXIST || names == kMostNames) throw;
        }
    }
}

/// Whether the file has its name still. Takes the file away, and raises, when that can't be told.
bool LockedTemporary::isStillThere() const {
    try {
        return leadsToFile(m_folder, m_name);
    } catch (const SystemFailure&) {
        m_folder.remove(m_name);
        throw;
    }
}

void LockedTemporary::publish(const std::string& target) {
    m_folder.rename(m_name, target);
    m_published = true;
}

std::string LockedTemporary::follower(unsigned number) const {
    return followerOf(m_name, number);
}

bool cleanTemporaries(const OpenFolder& folder) {
    std::vector<std::string> names;
    bool clean = listTemporaries(folder, names);
    std::map<std::string, bool> gone;  // by the leader's name
    for (const std::string& name : names) {
        const std::string leader = *leaderOf(name);
        const auto [asked, isNew] = gone.try_emplace(leader, false);
        try {
            if (isNew) asked->second = removeDeadLeader(folder, leader);
            if (!asked->second) {
                clean = false;
            } else if (name != leader && leadsToFile(folder, name)) {
                folder.remove(name);
            }
        } catch (const SystemFailure&) {
            clean = false;
        }
    }
    return clean;
}

}  // namespace wynconfig
