// What the parts that call a POSIX system share: calls that are repeated or raise, and open files
// that close themselves.
#pragma once

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <string>
#include <string_view>
#include <utility>

namespace wynconfig {

/// A failed call of the system. Only its caller knows the path that the user is told.
struct SystemFailure {
    int error;
};

/// Repeats a call of the system that a signal broke off, and raises `SystemFailure` when it fails.
template <typename Call>
auto checked(Call call) {
    for (;;) {
        const auto result = call();
        if (result >= 0) return result;
        if (errno != EINTR) throw SystemFailure{errno};
    }
}

/// The system knows the working folder by ".".
inline const char* folderName(const std::string& folder) {
    return folder.empty() ? "." : folder.c_str();
}

/// An open file or folder.
class Descriptor {
  public:
    explicit Descriptor(int number) : m_number(number) {}
    Descriptor(Descriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
    Descriptor& operator=(Descriptor&&) = delete;
    ~Descriptor() {
        if (m_number >= 0) ::close(m_number);
    }
    int number() const { return m_number; }
    /// Leaves it to the caller to close it.
    int release() { return std::exchange(m_number, -1); }

    /// Closes it at once. Some systems tell only here that a write failed. The number is free
    /// afterwards in any case, so that a broken-off call is not repeated.
    void close() {
        if (::close(release()) != 0 && errno != EINTR) throw SystemFailure{errno};
    }

  private:
    int m_number;
};

/// Opens a file if it is a plain one. Anything else is looked at and not opened: that alone may
/// have effects, at the other end of a pipe or on a device. The number is negative when it fails,
/// and `errno` tells why; EINVAL: it is no plain file.
/// @param folder  an open one, or AT_FDCWD
/// @param access  O_RDONLY or O_RDWR
/// @param links   O_NOFOLLOW: a link is no plain file either; else 0
inline Descriptor openPlainFile(int folder, const char* name, int access, int links) {
    const Descriptor place{::openat(folder, name, O_PATH | O_CLOEXEC | links)};
    struct stat info {};
    if (place.number() < 0 || ::fstat(place.number(), &info) != 0) return Descriptor{-1};
    if (!S_ISREG(info.st_mode)) {
        errno = EINVAL;
        return Descriptor{-1};
    }
    // By this way it is the file that was looked at, whatever lies at its name by now.
    const std::string way = "/proc/self/fd/" + std::to_string(place.number());
    const int file = ::open(way.c_str(), access | O_CLOEXEC);
    if (file >= 0) return Descriptor{file};
    // Where the system shows no such ways, the name has to do: without a wait for a pipe's other
    // end, and without getting a terminal to control us.
    return Descriptor{::openat(folder, name, access | O_CLOEXEC | O_NONBLOCK | O_NOCTTY | links)};
}

/// A folder in which files are changed. It is opened once, so that all steps see the same folder,
/// and no temporary name is too long where the target's is not.
class OpenFolder {
  public:
    explicit OpenFolder(const std::string& folder)
        : m_descriptor(checked(
              [&] { return ::open(folderName(folder), O_RDONLY | O_DIRECTORY | O_CLOEXEC); })) {}
    int number() const { return m_descriptor.number(); }

    struct stat status() const {
        struct stat info {};
        checked([&] { return ::fstat(number(), &info); });
        return info;
    }

    /// Puts a file in the place of another one in the same folder. Raises `SystemFailure`.
    void rename(const std::string& from, const std::string& to) const {
        checked([&] { return ::renameat(number(), from.c_str(), number(), to.c_str()); });
    }
    /// Deletes a file; false when it can't be deleted.
    bool remove(const std::string& name) const {
        try {
            checked([&] { return ::unlinkat(number(), name.c_str(), 0); });
        } catch (const SystemFailure&) {
            return false;
        }
        return true;
    }

    /// Brings the folder's names to the disk. Some file systems know no such call for folders.
    void sync() const {
        try {
            checked([&] { return ::fsync(number()); });
        } catch (const SystemFailure& failure) {
            if (failure.error != EINVAL && failure.error != ENOTSUP) throw;
        }
    }

  private:
    Descriptor m_descriptor;
};

/// Writes all of it. Raises `SystemFailure`.
inline void writeAll(const Descriptor& file, std::string_view content) {
    while (!content.empty()) {
        const auto written =
            checked([&] { return ::write(file.number(), content.data(), content.size()); });
        content.remove_prefix(static_cast<std::size_t>(written));
    }
}

}  // namespace wynconfig
