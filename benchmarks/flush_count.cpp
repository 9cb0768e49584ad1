// Counts what this process asks of the disk, by standing in front of the three calls that flush it.
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>

#include "figures.h"

namespace {

std::atomic<long> flushes{0};

int flush(long call, int descriptor) {
    ++flushes;
    return static_cast<int>(syscall(call, descriptor));
}

}  // namespace

extern "C" {
int fsync(int descriptor) {
    return flush(SYS_fsync, descriptor);
}
int fdatasync(int descriptor) {
    return flush(SYS_fdatasync, descriptor);
}
int syncfs(int descriptor) noexcept {
    return flush(SYS_syncfs, descriptor);
}
}

namespace wynconfig::bench {

long flushCount() {
    return flushes;
}

}  // namespace wynconfig::bench
