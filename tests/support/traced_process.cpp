// The tracer, by ptrace.
#include "support/traced_process.h"

#include <elf.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <csignal>
#include <filesystem>
#include <map>
#include <system_error>

namespace wynconfig {
namespace {

/// Calls that have to do with memory, time, signals, pipes and the process itself. They do not fail
/// here.
const std::set<long> kOtherCalls{SYS_brk,
                                 SYS_mmap,
                                 SYS_munmap,
                                 SYS_mprotect,
                                 SYS_mremap,
                                 SYS_madvise,
                                 SYS_futex,
                                 SYS_rt_sigaction,
                                 SYS_rt_sigprocmask,
                                 SYS_rt_sigreturn,
                                 SYS_sigaltstack,
                                 SYS_clock_gettime,
                                 SYS_clock_nanosleep,
                                 SYS_getpid,
                                 SYS_gettid,
                                 SYS_getppid,
                                 SYS_getuid,
                                 SYS_geteuid,
                                 SYS_getgid,
                                 SYS_getegid,
                                 SYS_getgroups,
                                 SYS_getrandom,
                                 SYS_sched_yield,
                                 SYS_tgkill,
                                 SYS_kill,
                                 SYS_prctl,
                                 SYS_uname,
                                 SYS_restart_syscall,
                                 SYS_sched_getaffinity,
                                 SYS_capget,
                                 SYS_pipe2};

const std::vector<int> kLooking{EIO, EACCES, ENOMEM};
const std::vector<int> kOpening{EIO, EACCES, EMFILE, EINTR, ENOSPC, EROFS, ENAMETOOLONG};
const std::vector<int> kChanging{EIO, ENOSPC, EROFS, ENAMETOOLONG};
const std::vector<int> kRemoving{EIO, EACCES, EROFS};
const std::vector<int> kWriting{EIO, ENOSPC, EINTR};

bool isSync(long number) {
    return number == SYS_fsync || number == SYS_fdatasync || number == SYS_syncfs;
}

/// Stops the process for its tracer.
void stop() {
    static_cast<void>(::raise(SIGSTOP));
}

/// An address in the traced process.
void* there(std::uint64_t address) {
    return reinterpret_cast<void*>(address);  // NOLINT(performance-no-int-to-ptr)
}

/// A text in the traced process, up to its end.
std::string textAt(pid_t process, std::uint64_t address) {
    std::string text;
    while (address != 0 && text.size() < PATH_MAX) {
        // Not beyond the page: the next one may not be there.
        const std::size_t room = 4096 - address % 4096;
        std::string part(room, '\0');
        const iovec here{part.data(), room};
        const iovec remote{there(address), room};
        const ssize_t got = ::process_vm_readv(process, &here, 1, &remote, 1, 0);
        if (got <= 0) break;
        part.resize(static_cast<std::size_t>(got));
        const std::size_t end = part.find('\0');
        text.append(part, 0, end);
        if (end != std::string::npos) break;
        address += static_cast<std::uint64_t>(got);
    }
    return text;
}

std::string bytesAt(pid_t process, std::uint64_t address, std::size_t size) {
    std::string bytes(size, '\0');
    const iovec here{bytes.data(), size};
    const iovec remote{there(address), size};
    const ssize_t got = ::process_vm_readv(process, &here, 1, &remote, 1, 0);
    bytes.resize(got < 0 ? 0 : static_cast<std::size_t>(got));
    return bytes;
}

#if defined(__x86_64__)
void setCall(pid_t process, long number) {
    user_regs_struct registers{};
    ::ptrace(PTRACE_GETREGS, process, nullptr, &registers);
    registers.orig_rax = static_cast<unsigned long long>(number);
    ::ptrace(PTRACE_SETREGS, process, nullptr, &registers);
}
void setResult(pid_t process, long result) {
    user_regs_struct registers{};
    ::ptrace(PTRACE_GETREGS, process, nullptr, &registers);
    registers.rax = static_cast<unsigned long long>(result);
    ::ptrace(PTRACE_SETREGS, process, nullptr, &registers);
}
#elif defined(__aarch64__)
void setCall(pid_t process, long number) {
    int call = static_cast<int>(number);
    iovec value{&call, sizeof call};
    ::ptrace(PTRACE_SETREGSET, process, reinterpret_cast<void*>(NT_ARM_SYSTEM_CALL), &value);
}
void setResult(pid_t process, long result) {
    user_regs_struct registers{};
    iovec value{&registers, sizeof registers};
    ::ptrace(PTRACE_GETREGSET, process, reinterpret_cast<void*>(NT_PRSTATUS), &value);
    registers.regs[0] = static_cast<unsigned long long>(result);
    ::ptrace(PTRACE_SETREGSET, process, reinterpret_cast<void*>(NT_PRSTATUS), &value);
}
#else
#error "Say how the number and the result of a system call are set on this processor."
#endif

/// Which of a call's arguments are paths, -1 for none.
struct PathArguments {
    int path = -1;
    int newPath = -1;
};

PathArguments pathsOf(long number) {
    static const std::map<long, PathArguments> known{
        {SYS_openat, {1, -1}},     {SYS_newfstatat, {1, -1}}, {SYS_statx, {1, -1}},
        {SYS_unlinkat, {1, -1}},   {SYS_mkdirat, {1, -1}},    {SYS_faccessat, {1, -1}},
        {SYS_faccessat2, {1, -1}}, {SYS_readlinkat, {1, -1}}, {SYS_fchmodat, {1, -1}},
        {SYS_fchownat, {1, -1}},   {SYS_renameat2, {1, 3}},   {SYS_renameat, {1, 3}},
        {SYS_linkat, {1, 3}},
#ifdef SYS_open
        {SYS_open, {0, -1}},       {SYS_stat, {0, -1}},       {SYS_lstat, {0, -1}},
        {SYS_access, {0, -1}},     {SYS_mkdir, {0, -1}},      {SYS_unlink, {0, -1}},
        {SYS_readlink, {0, -1}},   {SYS_rename, {0, 1}},
#endif
    };
    const auto found = known.find(number);
    return found == known.end() ? PathArguments{} : found->second;
}

/// One child under trace, from its first stop to the one behind its work.
class Tracer {
  public:
    Tracer(pid_t process, std::optional<CallFault> fault, TracedRun& run)
        : m_process(process), m_fault(fault), m_run(run) {}

    /// False when the child came to an end in between.
    bool follow() {
        if (!waitForStop()) return false;
        ::ptrace(PTRACE_SETOPTIONS, m_process, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
        int signal = 0;
        for (;;) {
            ::ptrace(isOver() ? PTRACE_CONT : PTRACE_SYSCALL, m_process, nullptr, signal);
            if (!waitForStop()) return false;
            signal = 0;
            if (m_run.calls.size() > kMostCalls) ::kill(m_process, SIGKILL);
            if (m_signal == (SIGTRAP | 0x80))
                call();
            else if (m_signal == SIGSTOP)
                return ::ptrace(PTRACE_DETACH, m_process, nullptr, 0) == 0;
            else
                signal = m_signal;
        }
    }

  private:
    /// Whoever makes more than these goes round in circles.
    static constexpr std::size_t kMostCalls = 20000;

    /// Behind a single fault nothing is left to be done with the calls.
    bool isOver() const {
        return m_fault && !m_fault->forGood && m_ofTheKind > m_fault->nth && !m_isFileCall;
    }

    bool isMet(std::size_t number) const {
        return m_fault->forGood ? number >= m_fault->nth : number == m_fault->nth;
    }

    bool waitForStop() {
        int status = 0;
        while (::waitpid(m_process, &status, 0) < 0)
            if (errno != EINTR) return false;
        if (!WIFSTOPPED(status)) return false;
        m_signal = WSTOPSIG(status);
        return true;
    }

    void call() {
        __ptrace_syscall_info info{};
        ::ptrace(PTRACE_GET_SYSCALL_INFO, m_process, sizeof info, &info);
        if (info.op == PTRACE_SYSCALL_INFO_ENTRY)
            enter(info);
        else if (info.op == PTRACE_SYSCALL_INFO_EXIT)
            leave(info.exit.rval);
    }

    void enter(const __ptrace_syscall_info& info) {
        m_isFileCall = m_replaces = false;
        const auto number = static_cast<long>(info.entry.nr);
        if (!fileCall(number)) {
            if (!kOtherCalls.contains(number)) m_run.unknown.insert(number);
            return;
        }
        if (isOnPipe(number, info.entry.args[0])) return;
        m_isFileCall = true;
        record(number, info);
        const bool fails = m_fault && m_fault->number == number && isMet(m_ofTheKind++);
        m_replaces = fails || isSync(number);
        m_result = fails ? -m_fault->error : 0;
        // A file is closed even by a call that tells a failure.
        if (m_replaces && number != SYS_close) setCall(m_process, -1);
    }

    /// A sanitizer tries by a pipe of its own which memory can be read.
    bool isOnPipe(long number, std::uint64_t file) const {
        if (number != SYS_read && number != SYS_write && number != SYS_close) return false;
        const std::string link =
            "/proc/" + std::to_string(m_process) + "/fd/" + std::to_string(file);
        std::error_code none;
        return std::filesystem::read_symlink(link, none).string().starts_with("pipe:");
    }

    void record(long number, const __ptrace_syscall_info& info) {
        TracedCall& call = m_run.calls.emplace_back();
        call.number = number;
        std::copy_n(info.entry.args, call.arguments.size(), call.arguments.begin());
        const auto text = [&](int argument) {
            return textAt(m_process, call.arguments[static_cast<std::size_t>(argument)]);
        };
        const PathArguments paths = pathsOf(number);
        if (paths.path >= 0) call.path = text(paths.path);
        if (paths.newPath >= 0) call.newPath = text(paths.newPath);
        if (number == SYS_write)
            call.bytes = bytesAt(m_process, call.arguments[1], call.arguments[2]);
    }

    void leave(std::int64_t result) {
        if (!m_isFileCall) return;
        if (m_replaces) setResult(m_process, m_result);
        m_run.calls.back().result = m_replaces ? m_result : result;
        m_isFileCall = false;
    }

    pid_t m_process;
    std::optional<CallFault> m_fault;
    TracedRun& m_run;
    int m_signal = 0;
    bool m_isFileCall = false;  ///< the call that the process is in
    bool m_replaces = false;    ///< and whether its result is ours
    long m_result = 0;
    std::size_t m_ofTheKind = 0;  ///< calls so far of the kind that is to fail
};

/// Writes all of it, whatever the test has done to the calls of the library.
void hand(int pipe, const std::string& text) {
    for (std::size_t at = 0; at < text.size();) {
        const long written = ::syscall(SYS_write, pipe, text.data() + at, text.size() - at);
        if (written <= 0) ::_exit(3);
        at += static_cast<std::size_t>(written);
    }
}

std::string taken(int pipe) {
    std::string text;
    std::array<char, 65536> part{};
    for (ssize_t got = 0; (got = ::read(pipe, part.data(), part.size())) > 0;)
        text.append(part.data(), static_cast<std::size_t>(got));
    return text;
}

}  // namespace

const std::vector<FileCall>& fileCalls() {
    static const std::vector<FileCall> calls{
        {SYS_openat, "openat", kOpening},
        {SYS_read, "read", {EIO, EINTR}},
        {SYS_pread64, "pread", {EIO, EINTR}},
        {SYS_write, "write", kWriting},
        {SYS_pwrite64, "pwrite", kWriting},
        {SYS_writev, "writev", kWriting},
        {SYS_close, "close", {EIO, EINTR}},
        {SYS_lseek, "lseek", {EIO}},
        {SYS_getdents64, "getdents", {EIO, ENOMEM}},
        {SYS_fstat, "fstat", kLooking},
        {SYS_newfstatat, "fstatat", kLooking},
        {SYS_statx, "statx", kLooking},
        {SYS_faccessat, "faccessat", kLooking},
        {SYS_faccessat2, "faccessat2", kLooking},
        {SYS_readlinkat, "readlinkat", kLooking},
        {SYS_statfs, "statfs", kLooking},
        {SYS_fstatfs, "fstatfs", kLooking},
        {SYS_getcwd, "getcwd", {ENOMEM}},
        {SYS_fcntl, "fcntl", {EIO}},
        {SYS_ioctl, "ioctl", {EIO}},
        {SYS_flock, "flock", {ENOLCK, EWOULDBLOCK, EINTR}},
        {SYS_fsync, "fsync", kWriting},
        {SYS_fdatasync, "fdatasync", kWriting},
        {SYS_syncfs, "syncfs", kWriting},
        {SYS_renameat, "renameat", kChanging},
        {SYS_renameat2, "renameat2", kChanging},
        {SYS_linkat, "linkat", kChanging},
        {SYS_unlinkat, "unlinkat", kRemoving},
        {SYS_mkdirat, "mkdirat", kChanging},
        {SYS_fchmod, "fchmod", {EIO, EPERM}},
        {SYS_fchmodat, "fchmodat", {EIO, EPERM}},
        {SYS_fchown, "fchown", {EIO, EPERM}},
        {SYS_fchownat, "fchownat", {EIO, EPERM}},
        {SYS_ftruncate, "ftruncate", kRemoving},
        {SYS_utimensat, "utimensat", {EIO, EPERM}},
        {SYS_dup, "dup", {EMFILE}},
        {SYS_umask, "umask", {}},
#ifdef SYS_open
        {SYS_open, "open", kOpening},
        {SYS_stat, "stat", kLooking},
        {SYS_lstat, "lstat", kLooking},
        {SYS_access, "access", kLooking},
        {SYS_readlink, "readlink", kLooking},
        {SYS_rename, "rename", kChanging},
        {SYS_unlink, "unlink", kRemoving},
        {SYS_mkdir, "mkdir", kChanging},
#endif
    };
    return calls;
}

const FileCall* fileCall(long number) {
    const auto& all = fileCalls();
    const auto found = std::find_if(all.begin(), all.end(),
                                    [&](const FileCall& call) { return call.number == number; });
    return found == all.end() ? nullptr : &*found;
}

std::vector<int> errorsOf(const TracedCall& call) {
    const FileCall* const kind = fileCall(call.number);
    std::vector<int> errors = kind ? kind->errors : std::vector<int>();
    const bool opens = kind && kind->errors == kOpening;
    const std::size_t flags = std::string(kind ? kind->name : "") == "open" ? 1 : 2;
    if (opens && (call.arguments[flags] & O_CREAT) == 0)
        std::erase_if(errors, [](int error) {
            return error == ENOSPC || error == EROFS || error == ENAMETOOLONG;
        });
    return errors;
}

TracedRun traced(const std::function<void()>& prepare, const std::function<void()>& work,
                 const std::function<std::string()>& tell, std::optional<CallFault> fault) {
    TracedRun run;
    int ends[2] = {-1, -1};
    EXPECT_EQ(::pipe(ends), 0);
    const pid_t process = ::fork();
    EXPECT_GE(process, 0);
    if (process == 0) {
        ::close(ends[0]);
        prepare();
        ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
        stop();
        work();
        stop();
        hand(ends[1], tell());
        ::_exit(0);
    }
    ::close(ends[1]);
    const bool detached = Tracer(process, fault, run).follow();
    run.report = taken(ends[0]);
    ::close(ends[0]);
    if (!detached) return run;
    int status = 0;
    run.ended =
        ::waitpid(process, &status, 0) == process && WIFEXITED(status) && WEXITSTATUS(status) == 0;
    return run;
}

}  // namespace wynconfig
