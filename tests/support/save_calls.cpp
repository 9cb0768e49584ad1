// Stands before the C library's own calls, and makes them after a test's wishes.
#include "support/save_calls.h"

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <ctime>
#include <string>
#include <string_view>

namespace wynconfig {
namespace {

int syncCounted(const char* kind, long call, int file) {
    saveCalls.log.emplace_back(kind);
    saveCalls.beforeSync();
    if (++saveCalls.syncs == saveCalls.failingSync) {
        errno = ENOSPC;
        return -1;
    }
    return saveCalls.skipSync ? 0 : static_cast<int>(syscall(call, file));
}

}  // namespace
}  // namespace wynconfig

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

extern "C" dirent* readdir(DIR* folder) {
    static const auto next = reinterpret_cast<dirent* (*)(DIR*)>(dlsym(RTLD_NEXT, "readdir"));
    dirent* const entry = next(folder);
    if (entry || !wynconfig::saveCalls.failingListing) return entry;
    errno = EIO;
    return nullptr;
}

extern "C" ssize_t write(int file, const void* bytes, size_t size) {
    wynconfig::SaveCalls& calls = wynconfig::saveCalls;
    ++calls.writes;
    calls.written = file;
    calls.beforeWrite();
    if (!calls.breakUpWrites) return syscall(SYS_write, file, bytes, size);
    if (calls.writes % 2 == 1) {
        errno = EINTR;
        return -1;
    }
    return syscall(SYS_write, file, bytes, std::min<size_t>(size, 7));
}

extern "C" int close(int file) {
    wynconfig::SaveCalls& calls = wynconfig::saveCalls;
    const int result = static_cast<int>(syscall(SYS_close, file));
    if (result != 0 && errno == EBADF) ++calls.closesOfNothing;
    if (file != calls.written) return result;
    calls.written = -1;
    if (calls.closeError == 0) return result;
    errno = calls.closeError;
    return -1;
}

extern "C" int openat(int folder, const char* name, int flags, ...) {
    mode_t mode = 0;
    if ((flags & O_CREAT) != 0) {
        va_list more;
        va_start(more, flags);
        mode = va_arg(more, mode_t);
        va_end(more);
        if (wynconfig::saveCalls.makeError != 0) {
            errno = wynconfig::saveCalls.makeError;
            return -1;
        }
    }
    return static_cast<int>(syscall(SYS_openat, folder, name, flags, mode));
}

extern "C" int flock(int file, int operation) noexcept {
    wynconfig::SaveCalls& calls = wynconfig::saveCalls;
    ++calls.locks;
    calls.beforeLock();
    if (calls.lockError != 0) {
        errno = calls.lockError;
        return -1;
    }
    return static_cast<int>(syscall(SYS_flock, file, operation));
}

extern "C" int fchown(int file, uid_t user, gid_t group) noexcept {
    struct stat info {};
    fstat(file, &info);
    wynconfig::SaveCalls& calls = wynconfig::saveCalls;
    calls.modesBeforeOwners.push_back(info.st_mode & 07777);
    if (calls.ownerError != 0) {
        errno = calls.ownerError;
        return -1;
    }
    return static_cast<int>(syscall(SYS_fchown, file, user, group));
}

extern "C" int fchmod(int file, mode_t mode) noexcept {
    if (wynconfig::saveCalls.modeError != 0) {
        errno = wynconfig::saveCalls.modeError;
        return -1;
    }
    return static_cast<int>(syscall(SYS_fchmod, file, mode));
}

extern "C" int fstatat(int folder, const char* name, struct stat* info, int flags) noexcept {
    const std::string& part = wynconfig::saveCalls.unseenName;
    if (!part.empty() && std::string_view{name}.find(part) != std::string_view::npos) {
        errno = EIO;
        return -1;
    }
    return static_cast<int>(syscall(SYS_newfstatat, folder, name, info, flags));
}

extern "C" int stat(const char* path, struct stat* info) noexcept {
    const int result = static_cast<int>(syscall(SYS_newfstatat, AT_FDCWD, path, info, 0));
    if (result == 0 && wynconfig::saveCalls.changed) info->st_ctim = *wynconfig::saveCalls.changed;
    return result;
}

extern "C" int fstat(int file, struct stat* info) noexcept {
    const int result = static_cast<int>(syscall(SYS_fstat, file, info));
    if (result == 0 && wynconfig::saveCalls.claimNoLength) info->st_size = 0;
    return result;
}

extern "C" int clock_gettime(clockid_t clock, timespec* time) noexcept {
    if (clock == CLOCK_REALTIME && wynconfig::saveCalls.now) {
        *time = *wynconfig::saveCalls.now;
        return 0;
    }
    return static_cast<int>(syscall(SYS_clock_gettime, clock, time));
}
