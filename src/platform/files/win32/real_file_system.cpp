// The disk, by the calls of Windows.
#include <algorithm>
#include <cstddef>
#include <memory>
#include <system_error>

#include "platform/files/file_system.h"
#include "platform/files/paths.h"
#include "platform/files/win32/disk_saves.h"
#include "platform/files/win32/win32.h"

namespace wynconfig {

namespace {

/// What lies at a path, behind all links.
struct Look {
    enum class Kind { File, Folder, Other };
    Kind kind;
    Handle open;  ///< none for what can't even be looked at by a handle
};

Look::Kind kindOf(const Handle& open) {
    BY_HANDLE_FILE_INFORMATION info{};
    if (::GetFileType(open.get()) != FILE_TYPE_DISK) return Look::Kind::Other;
    checked(::GetFileInformationByHandle(open.get(), &info));
    if ((info.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return Look::Kind::Folder;
    return isPlain(info.dwFileAttributes) ? Look::Kind::File : Look::Kind::Other;
}

/// Nothing when nothing is there; raises `SystemFailure` when that can't be told.
std::optional<Look> lookAt(const std::wstring& native) {
    Handle open = openToLook(native, 0);
    if (open.isOpen()) {
        const Look::Kind kind = kindOf(open);
        return Look{kind, std::move(open)};
    }
    const DWORD error = ::GetLastError();
    // Sockets and the like, which other systems keep on this disk.
    if (error == ERROR_CANT_ACCESS_FILE) return Look{Look::Kind::Other, Handle{}};
    if (!meansNotThere(error)) throw SystemFailure{error};
    return std::nullopt;
}

/// Finds no one either where no such name can be.
std::optional<Look> lookAt(const std::string& path) {
    try {
        return lookAt(nativePath(path));
    } catch (const SystemFailure& failure) {
        if (!meansNotThere(failure.error)) throw;
        return std::nullopt;
    }
}

/// The path of what is open as the disk spells it, behind all links; empty when it is not told.
std::wstring finalPath(const Handle& open) {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = ::GetFinalPathNameByHandleW(
            open.get(), path.data(), static_cast<DWORD>(path.size()), FILE_NAME_NORMALIZED);
        if (length < path.size()) return path.substr(0, length);
        path.resize(length);  // by now with room for its end
    }
}

/// How much of a native path is its root: a drive, or a network folder.
std::size_t rootOf(const std::wstring& native) {
    constexpr std::wstring_view kNetwork = L"\\\\?\\UNC\\";
    if (!native.starts_with(kNetwork)) return std::wstring_view{L"\\\\?\\C:\\"}.size();
    const std::size_t share = native.find(L'\\', kNetwork.size());
    return std::min(native.find(L'\\', share + 1), native.size() - 1) + 1;
}

/// Whether a name is spelt so on the disk. Where the names of its folder may not be read it is.
bool isNameSpelt(const std::wstring& native, std::size_t end) {
    WIN32_FIND_DATAW entry{};
    const HANDLE listing = ::FindFirstFileExW(native.substr(0, end).c_str(), FindExInfoBasic,
                                              &entry, FindExSearchNameMatch, nullptr, 0);
    if (listing == INVALID_HANDLE_VALUE) return ::GetLastError() == ERROR_ACCESS_DENIED;
    ::FindClose(listing);
    const std::size_t begin = native.rfind(L'\\', end - 1) + 1;
    return native.compare(begin, end - begin, entry.cFileName) == 0;
}

/// Whether all names of a path are spelt so on the disk, which finds them in any case. The root
/// has no spelling of its own.
bool isSpelt(const std::wstring& native, const Handle& open) {
    const std::size_t root = rootOf(native);
    const std::wstring final = finalPath(open);
    if (final.size() == native.size() && final.compare(root, final.npos, native, root) == 0 &&
        rootOf(final) == root) {
        return true;
    }
    // By way of a link, or of a drive that stands for a folder, the final path is another one.
    for (std::size_t at = root; at < native.size();) {
        const std::size_t end = std::min(native.find(L'\\', at), native.size());
        if (!isNameSpelt(native, end)) return false;
        at = end + 1;
    }
    return true;
}

/// Reads an open file to its end, whatever length it claims, up to one byte beyond `most`.
std::string readToEnd(const Handle& file, std::size_t claimed, std::size_t most) {
    std::string content(std::min(claimed, most) + 1, '\0');
    std::size_t have = 0;
    for (;;) {
        DWORD got = 0;
        checked(::ReadFile(file.get(), content.data() + have,
                           static_cast<DWORD>(content.size() - have), &got, nullptr));
        have += got;
        if (got == 0 || have > most) break;
        if (have == content.size()) content.resize(std::min(2 * have, most + 1));
    }
    content.resize(have);
    return content;
}

/// Opens a file for reading if it is a plain one; anything else is looked at and not opened. Raises
/// `SystemFailure`, ERROR_BAD_FILE_TYPE for what is no plain file.
Handle openPlainFile(const std::wstring& native) {
    const std::optional<Look> look = lookAt(native);
    if (!look) throw SystemFailure{ERROR_FILE_NOT_FOUND};
    if (look->kind != Look::Kind::File) throw SystemFailure{ERROR_BAD_FILE_TYPE};
    HANDLE opened = INVALID_HANDLE_VALUE;
    const auto open = [&] {
        constexpr DWORD kHow =
            FILE_FLAG_SEQUENTIAL_SCAN | SECURITY_SQOS_PRESENT | SECURITY_ANONYMOUS;
        opened = ::CreateFileW(native.c_str(), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING,
                               kHow, nullptr);
        return opened != INVALID_HANDLE_VALUE;
    };
    Patience{}.attempt(open, meansShared);
    Handle file{opened};
    if (::GetFileType(file.get()) != FILE_TYPE_DISK) throw SystemFailure{ERROR_BAD_FILE_TYPE};
    return file;
}

class RealFileSystem : public FileSystem {
  protected:
    bool entriesOf(const std::string& folder, std::vector<Entry>& entries) override {
        return asked("folder", folder, "read", [&] {
            std::wstring pattern = nativePath(folder);
            pattern += pattern.back() == L'\\' ? L"*" : L"\\*";
            WIN32_FIND_DATAW entry{};
            const HANDLE listing =
                ::FindFirstFileExW(pattern.c_str(), FindExInfoBasic, &entry, FindExSearchNameMatch,
                                   nullptr, FIND_FIRST_EX_LARGE_FETCH);
            if (listing == INVALID_HANDLE_VALUE) {
                const DWORD error = ::GetLastError();
                // The root of an empty drive lists nothing, not even itself.
                if (error == ERROR_FILE_NOT_FOUND) return isFolder(folder);
                throw SystemFailure{error};
            }
            const std::unique_ptr<void, BOOL(WINAPI*)(HANDLE)> closing{listing, ::FindClose};
            do {
                addEntry(folder, entry, entries);
            } while (::FindNextFileW(listing, &entry));
            if (::GetLastError() != ERROR_NO_MORE_FILES) throw SystemFailure{::GetLastError()};
            return true;
        });
    }

    bool stampOf(const std::string& folder, Stamp& stamp) override {
        const std::optional<Look> look = lookQuietly(folder, Look::Kind::Folder);
        return look && changeOf(look->open, stamp);
    }

    std::optional<Version> versionOf(const std::string& path) override {
        const std::optional<Look> look = lookQuietly(path, Look::Kind::File);
        LARGE_INTEGER size{};
        Stamp change;
        if (!look || !::GetFileSizeEx(look->open.get(), &size)) return std::nullopt;
        if (!changeOf(look->open, change)) change.settled = false;
        const Identity identity = identityOf(look->open);
        return Version{{static_cast<std::int64_t>(identity.volume),
                        static_cast<std::int64_t>(identity.number), size.QuadPart, change.value},
                       change.settled};
    }

    bool isPlainFile(const std::string& path) override {
        return asked("file", path, "looked at", [&] { return isSpeltAs(path, Look::Kind::File); });
    }

    bool isFolder(const std::string& path) override {
        return asked("folder", path, "looked at",
                     [&] { return isSpeltAs(path, Look::Kind::Folder); });
    }

    bool isOther(const std::string& path) override {
        return asked("file", path, "looked at", [&] {
            const std::optional<Look> look = lookAt(path);
            return look && look->kind != Look::Kind::File;
        });
    }

    bool isLink(const std::string& path) override {
        return asked("file", path, "looked at", [&] {
            const std::wstring native = nativePath(path);
            const std::optional<DWORD> attributes = attributesOf(native);
            return attributes && wynconfig::isLink(native, *attributes);
        });
    }

    std::string behindLinks(const std::string& path) override {
        if (!isLink(path)) return path;
        try {
            const std::optional<Look> look = lookAt(path);
            const std::wstring final = look ? finalPath(look->open) : std::wstring{};
            const std::optional<std::string> place = utf8(final);
            return place && !place->empty() ? systemPath(*place) : path;
        } catch (const SystemFailure& failure) {
            throw refusal("file", path, "written", causeOf(failure.error));
        }
    }

    std::errc whyNoFolder(const std::string& path) override {
        try {
            const std::wstring native = nativePath(path);
            // The system says of a file in a folder's place only that the rest is not there.
            const std::size_t root = rootOf(native);
            for (std::size_t end = native.size(); end != native.npos && end > root;
                 end = native.rfind(L'\\', end - 1)) {
                const std::optional<Look> look = lookAt(native.substr(0, end));
                if (look && look->kind != Look::Kind::Folder) return std::errc::not_a_directory;
            }
        } catch (const SystemFailure& failure) {
            if (failure.error == ERROR_FILENAME_EXCED_RANGE) return std::errc::filename_too_long;
            if (failure.error == ERROR_ACCESS_DENIED) return std::errc::permission_denied;
        }
        return std::errc::no_such_file_or_directory;
    }

    void createFolder(const std::string& path) override {
        try {
            checked(::CreateDirectoryW(nativePath(path).c_str(), nullptr));
        } catch (const SystemFailure& failure) {
            throw refusal("folder", path, "made", causeOf(failure.error));
        }
    }

    std::string readFile(const std::string& path) override {
        try {
            const Handle file = openPlainFile(nativePath(path));
            LARGE_INTEGER size{};
            checked(::GetFileSizeEx(file.get(), &size));
            const auto claimed = static_cast<std::uint64_t>(size.QuadPart);
            const std::string tooLarge = "it is too large";
            if (claimed > kMaxItemSize) throw refusal("file", path, "read", tooLarge);
            std::string content = readToEnd(file, static_cast<std::size_t>(claimed), kMaxItemSize);
            if (content.size() > kMaxItemSize) throw refusal("file", path, "read", tooLarge);
            return content;
        } catch (const SystemFailure& failure) {
            if (meansNotThere(failure.error)) throw notFound(path);
            if (failure.error == ERROR_BAD_FILE_TYPE)
                throw refusal("file", path, "read", "it is no plain file");
            throw refusal("file", path, "read", causeOf(failure.error));
        }
    }

    void replaceFile(const std::string& path, std::string_view content) override {
        told([&] { m_saves.save(path, content); });
    }

    void removeFile(const std::string& path) override {
        try {
            const std::wstring native = nativePath(path);
            const std::optional<DWORD> attributes = attributesOf(native);
            if (attributes && (*attributes & FILE_ATTRIBUTE_READONLY) != 0)
                throw SystemFailure{ERROR_FILE_READ_ONLY};
            if (attributes && !isPlain(*attributes)) throw SystemFailure{kErrorIsFolder};
            Patience{}.attempt([&] { return ::DeleteFileW(native.c_str()); }, meansSharedOrDenied);
        } catch (const SystemFailure& failure) {
            if (meansNotThere(failure.error)) throw notFound(path);
            throw refusal("file", path, "deleted", causeOf(failure.error));
        }
    }

    void stageFile(const std::string& path, std::string_view content) override {
        told([&] { m_saves.stage(path, content); });
    }
    std::function<void()> unstaging(const std::string& path) override {
        return [this, path] { m_saves.unstage(path); };
    }
    void commitStaged(const MayReplace& mayReplace) override {
        told([&] { m_saves.commit(mayReplace); });
    }
    void discardStaged() noexcept override { m_saves.discard(); }

  private:
    /// Answers a question about a path: false when by its failure nothing is there, while another
    /// failure is told.
    template <typename Question>
    static bool asked(const char* kind, const std::string& path, const char* verb,
                      Question question) {
        try {
            return question();
        } catch (const SystemFailure& failure) {
            if (meansNotThere(failure.error)) return false;
            throw refusal(kind, path.empty() ? "." : path, verb, causeOf(failure.error));
        }
    }

    static bool isSpeltAs(const std::string& path, Look::Kind kind) {
        const std::wstring native = nativePath(path);
        const std::optional<Look> look = lookAt(native);
        return look && look->kind == kind && isSpelt(native, look->open);
    }

    /// What of a kind lies at a path; nothing also when it can't be told.
    static std::optional<Look> lookQuietly(const std::string& path, Look::Kind kind) {
        try {
            std::optional<Look> look = lookAt(path);
            if (look && look->kind == kind) return look;
        } catch (const SystemFailure&) {
            // Nobody needs to know why.
        }
        return std::nullopt;
    }

    /// A name that is no text can't be asked for. A link that leads where nobody may look is a
    /// plain file to nobody, and hides no other name.
    static void addEntry(const std::string& folder, const WIN32_FIND_DATAW& entry,
                         std::vector<Entry>& entries) {
        const std::optional<std::string> name = utf8(entry.cFileName);
        if (!name || *name == "." || *name == "..") return;
        const bool isLink = (entry.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
                            IsReparseTagNameSurrogate(entry.dwReserved0);
        const bool plain = isLink ? lookQuietly(join(folder, *name), Look::Kind::File).has_value()
                                  : isPlain(entry.dwFileAttributes);
        entries.push_back({*name, plain});
    }

    /// Saves, and says in words why that fails.
    template <typename Save>
    static void told(Save save) {
        try {
            save();
        } catch (const SaveFailure& failure) {
            const SaveFailureWords words = wordsOf(failure);
            throw refusal(words.kind, failure.path, words.verb,
                          causeOf(static_cast<DWORD>(failure.error)));
        }
    }

    /// The time of the last change of any kind, since anybody may set the other one back. The clock
    /// moves in steps of some milliseconds, or of seconds where no part of one is kept. False where
    /// the file system keeps no such time.
    static bool changeOf(const Handle& open, Stamp& stamp) {
        constexpr std::int64_t kMillisecond = 10'000;
        constexpr std::int64_t kSecond = 1'000 * kMillisecond;
        try {
            const std::int64_t changed = identityOf(open).changed;
            FILETIME now{};
            ::GetSystemTimeAsFileTime(&now);
            const auto time = static_cast<std::int64_t>(std::uint64_t{now.dwHighDateTime} << 32 |
                                                        now.dwLowDateTime);
            const bool isCoarse = changed % kSecond == 0;
            const std::int64_t step = isCoarse ? 2'020 * kMillisecond : 40 * kMillisecond;
            stamp = {changed, time - changed >= step};
            return changed != 0;
        } catch (const SystemFailure&) {
            return false;
        }
    }

    DiskSaves m_saves;
};

}  // namespace

std::unique_ptr<FileSystem> makeRealFileSystem() {
    return std::make_unique<RealFileSystem>();
}

}  // namespace wynconfig
