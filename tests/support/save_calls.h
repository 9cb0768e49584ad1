// The system calls of a save, so that a test program counts them, lets them fail or does something
// at one of them. To be included by the one source file of a test program: what is defined here
// stands before the C library's own calls.
#pragma once

#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <functional>
#include <string>
#include <vector>

namespace wynconfig {

/// The calls that have been made, and what they do besides their work.
struct SaveCalls {
    bool skipSync = false;    ///< a sync returns at once, for tests of many saves
    int failingSync = 0;      ///< the sync of this number, from 1, fails; 0: none
    std::string failingName;  ///< a rename to this name fails
    int syncs = 0;
    int renames = 0;
    int writes = 0;
    std::vector<std::string> log;  ///< the calls that order a save
    std::function<void()> beforeLock = [] {};
    std::function<void()> beforeSync = [] {};
    std::function<void()> beforeRename = [] {};
    std::function<void()> beforeWrite = [] {};
};
inline SaveCalls saveCalls;

inline int syncCounted(const char* kind, long call, int file) {
    saveCalls.log.emplace_back(kind);
    saveCalls.beforeSync();
    if (++saveCalls.syncs == saveCalls.failingSync) {
        errno = ENOSPC;
        return -1;
    }
    return saveCalls.skipSync ? 0 : static_cast<int>(syscall(call, file));
}

}  // namespace wynconfig

// NOLINTBEGIN(misc-definitions-in-headers): one source file includes this, as told above.

extern "C" int fsync(int file) {
    struct stat info {};
    fstat(file, &info);
    const char* kind = S_ISDIR(info.st_mode) ? "sync folder" : "sync file";
    return wynconfig::syncCounted(kind, SYS_fsync, file);
}

extern "C" int fdatasync(int file) {
    return wynconfig::syncCounted("sync data", SYS_fdatasync, file);
}

extern "C" int syncfs(int file) noexcept {
    return wynconfig::syncCounted("sync all", SYS_syncfs, file);
}

extern "C" int renameat(int fromFolder, const char* from, int toFolder, const char* to) noexcept {
    wynconfig::SaveCalls& calls = wynconfig::saveCalls;
    if (calls.log.empty() || calls.log.back() != "rename") calls.log.emplace_back("rename");
    ++calls.renames;
    calls.beforeRename();
    if (calls.failingName == to) {
        errno = EIO;
        return -1;
    }
    return static_cast<int>(syscall(SYS_renameat, fromFolder, from, toFolder, to));
}

extern "C" ssize_t write(int file, const void* bytes, size_t size) {
    ++wynconfig::saveCalls.writes;
    wynconfig::saveCalls.beforeWrite();
    return syscall(SYS_write, file, bytes, size);
}

extern "C" int flock(int file, int operation) noexcept {
    wynconfig::saveCalls.beforeLock();
    return static_cast<int>(syscall(SYS_flock, file, operation));
}

// NOLINTEND(misc-definitions-in-headers)
