// Names in the system's letters, and its causes in words.
#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

#include "platform/files/paths.h"
#include "platform/files/win32/win32.h"
#include "platform/text/text.h"

namespace wynconfig {

namespace {

// What names and paths can have at most, in the units of the system.
constexpr std::size_t kMostOfName = 255;
constexpr std::size_t kMostOfPath = 32'000;

/// The working folder, as `systemPath` spells it.
std::string workingFolder() {
    std::wstring folder(kMostOfPath, L'\0');
    const DWORD length = ::GetCurrentDirectoryW(static_cast<DWORD>(folder.size()), folder.data());
    checked(length > 0);
    folder.resize(length);
    const std::optional<std::string> text = utf8(folder);
    if (!text) throw SystemFailure{ERROR_NO_UNICODE_TRANSLATION};
    return systemPath(*text);
}

std::string absolutePath(const std::string& path) {
    const std::size_t root = rootLength(path);
    if (root > 1) return path;
    const std::string folder = workingFolder();
    const std::string from = root == 0 ? folder : folder.substr(0, rootLength(folder));
    return from + "/" + path;
}

/// The root as the system's calls take it, without a separator at its end.
std::wstring nativeRoot(std::string_view root) {
    if (!root.starts_with("//")) return L"\\\\?\\" + wide(root.substr(0, 2));
    const std::size_t slash = std::min(root.find('/', 2), root.size());
    const std::string_view server = root.substr(2, slash - 2);
    std::string_view share = root.substr(std::min(slash + 1, root.size()));
    if (share.ends_with('/')) share.remove_suffix(1);
    // Behind these names there are pipes and the like, which to open has effects.
    constexpr std::array<std::string_view, 3> kNoFiles{"PIPE", "MAILSLOT", "IPC$"};
    const bool isNoFile =
        std::find(kNoFiles.begin(), kNoFiles.end(), UCase(share)) != kNoFiles.end();
    if (!isNameOfSystem(server) || !isNameOfSystem(share) || isNoFile)
        throw SystemFailure{ERROR_BAD_PATHNAME};
    return L"\\\\?\\UNC\\" + wide(server) + L"\\" + wide(share);
}

/// The parts behind the root, without "." and "..", which no call would resolve in a long path.
std::vector<std::wstring> nativeParts(std::string_view path) {
    std::vector<std::wstring> parts;
    for (std::size_t at = 0; at < path.size();) {
        const std::size_t end = std::min(path.find('/', at), path.size());
        const std::string_view part = path.substr(at, end - at);
        at = end + 1;
        if (part.empty() || part == ".") continue;
        if (part == "..") {
            if (!parts.empty()) parts.pop_back();
            continue;
        }
        parts.push_back(nativeName(part));
    }
    return parts;
}

/// What this component says of the usual errors; null for others.
const char* usualCause(DWORD error) {
    switch (error) {
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
            return "No such file or directory";
        case ERROR_ACCESS_DENIED:
            return "Permission denied";
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
        case ERROR_USER_MAPPED_FILE:
            return "another program holds it open";
        case ERROR_WRITE_PROTECT:
            return "the disk is write-protected";
        case ERROR_FILE_READ_ONLY:
            return "it is read-only";
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL:
            return "No space left on device";
        case ERROR_INVALID_NAME:
        case ERROR_BAD_PATHNAME:
        case ERROR_NO_UNICODE_TRANSLATION:
            return "its name is not allowed";
        case ERROR_FILENAME_EXCED_RANGE:
            return "File name too long";
        case ERROR_DIRECTORY:
            return "Not a directory";
        case kErrorIsFolder:
            return "Is a directory";
        case ERROR_NOT_READY:
            return "the drive is not ready";
        case ERROR_BAD_NETPATH:
        case ERROR_BAD_NET_NAME:
        case ERROR_NETNAME_DELETED:
        case ERROR_NETWORK_UNREACHABLE:
            return "the network folder can't be reached";
        default:
            return nullptr;
    }
}

/// What the system says, without the dot and the line's end behind it; empty when it knows nothing.
std::string systemCause(DWORD error, DWORD language) {
    constexpr DWORD kHow = FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
    std::array<wchar_t, 512> text{};
    const DWORD length = ::FormatMessageW(kHow, nullptr, error, language, text.data(),
                                          static_cast<DWORD>(text.size()), nullptr);
    std::wstring_view cause{text.data(), length};
    cause = cause.substr(0, cause.find_last_not_of(L" .\r\n") + 1);
    return utf8(cause).value_or(std::string{});
}

}  // namespace

bool meansShared(DWORD error) {
    return error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION ||
           error == ERROR_USER_MAPPED_FILE;
}

bool meansSharedOrDenied(DWORD error) {
    return error == ERROR_ACCESS_DENIED || meansShared(error);
}

bool meansNotThere(DWORD error) {
    switch (error) {
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
        case ERROR_INVALID_DRIVE:
        case ERROR_DIRECTORY:
        case ERROR_INVALID_NAME:  // names that no file can have
        case ERROR_BAD_PATHNAME:
        case ERROR_NO_UNICODE_TRANSLATION:
        case ERROR_FILENAME_EXCED_RANGE:
        case ERROR_BAD_NET_NAME:
        case ERROR_CANT_RESOLVE_FILENAME:  // a link that leads to itself
            return true;
        default:
            return false;
    }
}

std::wstring wide(std::string_view text) {
    if (text.empty()) return {};
    const int size = static_cast<int>(text.size());
    std::wstring letters(text.size(), L'\0');  // no text has more units there
    const int length = ::MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text.data(), size,
                                             letters.data(), size);
    checked(length > 0);
    letters.resize(static_cast<std::size_t>(length));
    return letters;
}

std::optional<std::string> utf8(std::wstring_view text) {
    if (text.empty()) return std::string{};
    std::string bytes(3 * text.size(), '\0');
    const int length = ::WideCharToMultiByte(CP_UTF8, WC_ERR_INVALID_CHARS, text.data(),
                                             static_cast<int>(text.size()), bytes.data(),
                                             static_cast<int>(bytes.size()), nullptr, nullptr);
    if (length == 0) return std::nullopt;
    bytes.resize(static_cast<std::size_t>(length));
    return bytes;
}

std::wstring nativeName(std::string_view name) {
    if (!isNameOfSystem(name)) throw SystemFailure{ERROR_INVALID_NAME};
    std::wstring native = wide(name);
    if (native.size() > kMostOfName) throw SystemFailure{ERROR_FILENAME_EXCED_RANGE};
    return native;
}

std::wstring nativePath(const std::string& path) {
    const std::string absolute = absolutePath(systemPath(path));
    const std::size_t root = rootLength(absolute);
    std::wstring native = nativeRoot(std::string_view{absolute}.substr(0, root));
    const std::vector<std::wstring> parts = nativeParts(std::string_view{absolute}.substr(root));
    for (const std::wstring& part : parts) native += L"\\" + part;
    if (parts.empty()) native += L'\\';
    if (native.size() > kMostOfPath) throw SystemFailure{ERROR_FILENAME_EXCED_RANGE};
    return native;
}

std::string causeOf(DWORD error) {
    if (const char* const usual = usualCause(error)) return usual;
    std::string cause = systemCause(error, MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US));
    if (cause.empty()) cause = systemCause(error, 0);
    return cause.empty() ? "error " + std::to_string(error) : cause;
}

Handle openToLook(const std::wstring& path, DWORD links) {
    // Without the first of these flags no folder can be opened; the last ones let nobody at the
    // other end act in this user's name.
    constexpr DWORD kHow = FILE_FLAG_BACKUP_SEMANTICS | SECURITY_SQOS_PRESENT | SECURITY_ANONYMOUS;
    return Handle{::CreateFileW(path.c_str(), FILE_READ_ATTRIBUTES, kShareAll, nullptr,
                                OPEN_EXISTING, kHow | links, nullptr)};
}

std::optional<DWORD> attributesOf(const std::wstring& path) {
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES) return attributes;
    const DWORD error = ::GetLastError();
    if (!meansNotThere(error)) throw SystemFailure{error};
    return std::nullopt;
}

bool isLink(const std::wstring& path, DWORD attributes) {
    if ((attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) return false;
    WIN32_FIND_DATAW entry{};
    const HANDLE listing = ::FindFirstFileW(path.c_str(), &entry);
    if (listing == INVALID_HANDLE_VALUE) return true;
    ::FindClose(listing);
    return IsReparseTagNameSurrogate(entry.dwReserved0);
}

bool isPlain(DWORD attributes) {
    return (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_DEVICE)) == 0;
}

Identity identityOf(const Handle& open) {
    BY_HANDLE_FILE_INFORMATION info{};
    checked(::GetFileInformationByHandle(open.get(), &info));
    FILE_BASIC_INFO basic{};
    checked(::GetFileInformationByHandleEx(open.get(), FileBasicInfo, &basic, sizeof basic));
    return {info.dwVolumeSerialNumber,
            std::uint64_t{info.nFileIndexHigh} << 32 | info.nFileIndexLow,
            basic.ChangeTime.QuadPart};
}

}  // namespace wynconfig
