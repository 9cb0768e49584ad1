// What the parts that call Windows share: names in the system's letters, handles that close
// themselves, calls that are tried again, and the system's causes in words.
#pragma once

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace wynconfig {

/// A failed call of the system. Only its caller knows the path that the user is told.
struct SystemFailure {
    DWORD error;
};

/// Raises `SystemFailure` when a call of the system has failed.
inline void checked(BOOL succeeded) {
    if (!succeeded) throw SystemFailure{::GetLastError()};
}

/// The system's ERROR_DIRECTORY_NOT_SUPPORTED, which not all of its headers know.
inline constexpr DWORD kErrorIsFolder = 336;

/// Everybody may do anything with the file meanwhile.
inline constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// An open file or folder.
class Handle {
  public:
    Handle() = default;
    /// @param handle  as `CreateFileW` gives it.
    explicit Handle(HANDLE handle) : m_handle(handle) {}
    Handle(Handle&& other) noexcept
        : m_handle(std::exchange(other.m_handle, INVALID_HANDLE_VALUE)) {}
    Handle& operator=(Handle&&) = delete;
    ~Handle() {
        if (isOpen()) ::CloseHandle(m_handle);
    }
    bool isOpen() const { return m_handle != INVALID_HANDLE_VALUE; }
    HANDLE get() const { return m_handle; }
    /// Closes it at once, and raises `SystemFailure` when that fails.
    void close() { checked(::CloseHandle(std::exchange(m_handle, INVALID_HANDLE_VALUE))); }

  private:
    HANDLE m_handle = INVALID_HANDLE_VALUE;
};

/// Tries calls again that fail since others hold the file open: indexers and virus scanners look
/// at every new file for a moment. It waits for half a second in all, and anew once a call has
/// succeeded, so that many files that are held for long are not waited for one by one.
class Patience {
  public:
    /// @param call  gives false, and tells why by the system's last error
    /// @param meansHeld  which errors may go by themselves
    /// Raises `SystemFailure`.
    template <typename Call>
    void attempt(Call call, bool (*meansHeld)(DWORD error)) {
        while (!call()) {
            const DWORD error = ::GetLastError();
            if (m_pauses == 0 || !meansHeld(error)) throw SystemFailure{error};
            --m_pauses;
            ::Sleep(kPause);
        }
        m_pauses = kMostPauses;
    }

  private:
    static constexpr int kMostPauses = 10;
    static constexpr DWORD kPause = 50;  ///< milliseconds
    int m_pauses = kMostPauses;
};

/// Whether an error says that another program's handle is in the way.
bool meansShared(DWORD error);
/// The same of a file that is to be renamed or deleted, where the system says no more than that
/// access is denied.
bool meansSharedOrDenied(DWORD error);
/// Whether by an error nothing can be there: neither a file of that name, nor a folder.
bool meansNotThere(DWORD error);

/// Text in the system's letters. Raises `SystemFailure` for what is no UTF-8.
std::wstring wide(std::string_view text);
/// Text of the system as UTF-8; nothing for what is no UTF-16, as a name on disk may be.
std::optional<std::string> utf8(std::wstring_view text);

/// A path as the system's calls take it: absolute, of any length, and read by nobody for a device
/// or otherwise than it is spelt. Raises `SystemFailure` for what no file or folder can be named.
std::wstring nativePath(const std::string& path);

/// A name in the system's letters. Raises `SystemFailure` for what no file or folder can be named.
std::wstring nativeName(std::string_view name);

/// What a failed call of the system says, for a message.
std::string causeOf(DWORD error);

/// Opens what lies at a path to be looked at alone, which disturbs nobody who has it open, nor is
/// disturbed by them. The handle is not open when that fails, and the system's last error tells
/// why.
/// @param links  FILE_FLAG_OPEN_REPARSE_POINT: a link itself; 0: what it leads to
Handle openToLook(const std::wstring& path, DWORD links);

/// What the system says of what lies at a path, a link itself being looked at. Nothing when nothing
/// is there; raises `SystemFailure` when that can't be told.
std::optional<DWORD> attributesOf(const std::wstring& path);
/// Whether what has these attributes stands for something elsewhere: a symbolic link or a junction.
/// Other marks of file systems, as on files that are fetched when they are read, make no link.
bool isLink(const std::wstring& path, DWORD attributes);
/// Whether attributes are those of a plain file, or of a link to one.
bool isPlain(DWORD attributes);

/// Which folder or file it is, by whatever path, and when it changed in any way.
struct Identity {
    std::uint64_t volume;
    std::uint64_t number;
    std::int64_t changed;  ///< in 100 ns since 1601; 0 where the file system keeps no such time
    bool operator==(const Identity&) const = default;
};
/// Raises `SystemFailure`.
Identity identityOf(const Handle& open);

}  // namespace wynconfig
