// Saving to the disk, one file at a time or many.
#include "platform/files/win32/disk_saves.h"

#include <algorithm>
#include <new>

namespace wynconfig {

namespace {

using Of = SaveFailure::Of;
using What = SaveFailure::What;

/// A path cut before the file's own name; the folder keeps its separator.
struct PathParts {
    std::string_view folder;
    std::string_view name;
};

PathParts partsOf(std::string_view path) {
    const std::size_t cut = path.find_last_of("/\\") + 1;
    return {path.substr(0, cut), path.substr(cut)};
}

SaveFailure failureOf(Of of, const std::string& path, What what, const SystemFailure& failure) {
    return {of, path, what, static_cast<int>(failure.error)};
}

/// The attributes that a file keeps when it is saved. It is to be archived anew.
constexpr DWORD kKept =
    FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;

/// Raises `SystemFailure` for what no file may take the place of.
void refuseTarget(DWORD attributes) {
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) throw SystemFailure{kErrorIsFolder};
    if ((attributes & FILE_ATTRIBUTE_DEVICE) != 0) throw SystemFailure{ERROR_BAD_PATHNAME};
    if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) throw SystemFailure{ERROR_FILE_READ_ONLY};
}

/// What is to give way at a name: nothing for no file, and for a link to one, which is replaced
/// whatever it leads to. Raises `SystemFailure` for what no file may take the place of.
std::optional<DWORD> oldAttributes(const std::wstring& file) {
    const std::optional<DWORD> old = attributesOf(file);
    if (!old || (isPlain(*old) && isLink(file, *old))) return std::nullopt;
    refuseTarget(*old);
    return old;
}

/// Raises `SystemFailure` when the user may not write a file. A rename asks the folder alone
/// whether the old file may go; whoever protected it means it.
void checkWritable(const std::wstring& file) {
    const Handle open{::CreateFileW(file.c_str(), FILE_WRITE_DATA, kShareAll, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_OPEN_REPARSE_POINT, nullptr)};
    if (!open.isOpen() && ::GetLastError() == ERROR_ACCESS_DENIED)
        throw SystemFailure{ERROR_ACCESS_DENIED};
}

/// Looks at what a save is to replace, and raises `SystemFailure` when it may not.
/// @return the attributes that the new file is to have of the old one.
DWORD checkTarget(const std::wstring& file) {
    const std::optional<DWORD> old = oldAttributes(file);
    if (!old) return 0;
    checkWritable(file);
    return *old & kKept;
}

void writeAll(const Handle& file, std::string_view content) {
    constexpr std::size_t kMost = std::size_t{1} << 24;
    while (!content.empty()) {
        DWORD written = 0;
        const auto part = static_cast<DWORD>(std::min(content.size(), kMost));
        checked(::WriteFile(file.get(), content.data(), part, &written, nullptr));
        content.remove_prefix(written);
    }
}

void addAttributes(const Handle& file, DWORD kept) {
    FILE_BASIC_INFO info{};  // a time of 0 stays as it is
    info.FileAttributes = FILE_ATTRIBUTE_ARCHIVE | kept;
    checked(::SetFileInformationByHandle(file.get(), FileBasicInfo, &info, sizeof info));
}

/// Whether a file can't be deleted for no other reason than that somebody has it open.
bool isHeldOpen(const std::wstring& file) {
    const Handle open{::CreateFileW(file.c_str(), DELETE, kShareAll, nullptr, OPEN_EXISTING,
                                    FILE_FLAG_OPEN_REPARSE_POINT, nullptr)};
    return !open.isOpen() && meansShared(::GetLastError());
}

}  // namespace

bool CleanFolders::clean(const std::wstring& folder, When when) {
    const auto held = m_clean.find(folder);
    if (when == When::Changed && held != m_clean.end()) {
        const Handle open = openToLook(folder, 0);
        if (open.isOpen() && held->second == identityOf(open)) return true;
    }
    return cleanTemporaries(folder);
}

void CleanFolders::note(const std::wstring& folder, bool isClean) {
    m_clean.erase(folder);
    if (!isClean) return;
    try {
        const Handle open = openToLook(folder, 0);
        checked(open.isOpen());
        const Identity identity = identityOf(open);
        if (identity.changed != 0) m_clean.emplace(folder, identity);
    } catch (const SystemFailure&) {
        // Not noted, it is looked through next time; the save itself is done.
    } catch (const std::bad_alloc&) {
        // Likewise.
    }
}

SaveFolder::~SaveFolder() {
    for (const auto& staged : m_staged) discard(staged.second);
}

void SaveFolder::stage(const std::string& name, std::string_view content, Flush when) {
    const DWORD kept = checkTarget(fileAt(name));
    if (!m_mark) m_mark.emplace(m_native);
    const unsigned number = ++m_last;
    try {
        write(m_mark->follower(number), content, kept, when);
        const auto [former, isNew] = m_staged.try_emplace(name, number);
        // From here on nothing fails.
        if (!isNew) discard(std::exchange(former->second, number));
    } catch (...) {
        discard(number);
        throw;
    }
}

void SaveFolder::write(const std::wstring& temporary, std::string_view content, DWORD kept,
                       Flush when) {
    Handle file{::CreateFileW(temporary.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                              FILE_ATTRIBUTE_NORMAL, nullptr)};
    checked(file.isOpen());
    writeAll(file, content);
    if (kept != 0) addAttributes(file, kept);
    if (when == Flush::Each) {
        wynconfig::flush(file);
    } else {
        flushToDevice(file);
    }
    file.close();
}

void SaveFolder::unstage(std::string_view name) noexcept {
    const auto staged = m_staged.find(name);
    if (staged == m_staged.end()) return;
    discard(staged->second);
    m_staged.erase(staged);
}

void SaveFolder::flush() const {
    if (m_mark) m_mark->flushDisk();
}

void SaveFolder::publish(const MayReplace& mayReplace, std::optional<SaveFailure>& first) {
    Patience patience;
    for (const auto& [name, number] : m_staged) {
        try {
            if (mayReplace(m_path + name)) {
                replace(name, number, patience);
            } else {
                discard(number);
            }
        } catch (const SystemFailure& failure) {
            discard(number);
            keepFirst(first, failureOf(Of::File, m_path + name, What::NotWritten, failure));
        }
    }
    const bool inOneGo = m_staged.size() == 1;
    m_staged.clear();
    m_mark.reset();
    if (!inOneGo) flushNames(first);
}

/// Puts a temporary in place. A file that is put there alone has its new name on the disk by then.
void SaveFolder::replace(const std::string& name, unsigned number, Patience& patience) const {
    const std::wstring target = fileAt(name);
    const std::wstring temporary = m_mark->follower(number);
    const DWORD how =
        MOVEFILE_REPLACE_EXISTING | (m_staged.size() == 1 ? DWORD{MOVEFILE_WRITE_THROUGH} : 0);
    const auto rename = [&] {
        oldAttributes(target);  // not every system refuses by itself what has come up meanwhile
        return ::MoveFileExW(temporary.c_str(), target.c_str(), how);
    };
    try {
        patience.attempt(rename, meansSharedOrDenied);
    } catch (const SystemFailure& failure) {
        if (failure.error == ERROR_ACCESS_DENIED && isHeldOpen(target))
            throw SystemFailure{ERROR_SHARING_VIOLATION};
        throw;
    }
}

/// Brings the names of a folder to the disk. Not everybody may, and not every disk can: then they
/// are there when the system has written its log.
void SaveFolder::flushNames(std::optional<SaveFailure>& first) const {
    const Handle folder{::CreateFileW(m_native.c_str(), GENERIC_WRITE, kShareAll, nullptr,
                                      OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr)};
    if (!folder.isOpen()) return;
    try {
        wynconfig::flush(folder);
    } catch (const SystemFailure& failure) {
        if (failure.error == ERROR_ACCESS_DENIED) return;
        keepFirst(first, failureOf(Of::Folder, m_path, What::NotConfirmed, failure));
    }
}

void SaveFolder::discard(unsigned number) const noexcept {
    try {
        const std::wstring temporary = m_mark->follower(number);
        Patience patience;
        patience.attempt([&] { return ::DeleteFileW(temporary.c_str()); }, meansSharedOrDenied);
    } catch (const SystemFailure&) {
        // It is cleaned away by a later save.
    } catch (const std::bad_alloc&) {
        // Likewise.
    }
}

SaveFolder& SaveFolders::at(const std::string& path) {
    if (SaveFolder* folder = known(path)) return *folder;
    std::wstring native = nativePath(path);
    if (native.back() != L'\\') native += L'\\';
    const Handle open = openToLook(native, 0);
    checked(open.isOpen());
    const Identity identity = identityOf(open);
    for (const auto& folder : m_folders) {
        if (folder->isSame(identity)) return *(m_byPath[path] = folder.get());
    }
    const bool isClean = m_cleanFolders.clean(native, m_when);
    m_folders.push_back(std::make_unique<SaveFolder>(path, std::move(native), identity, isClean));
    return *(m_byPath[path] = m_folders.back().get());
}

SaveFolder* SaveFolders::known(std::string_view path) const noexcept {
    const auto known = m_byPath.find(path);
    return known == m_byPath.end() ? nullptr : known->second;
}

void DiskSaves::publish(SaveFolder& folder, const MayReplace& mayReplace,
                        std::optional<SaveFailure>& first) {
    folder.publish(mayReplace, first);
    m_cleanFolders.note(folder.native(), folder.isClean());
}

void DiskSaves::save(const std::string& path, std::string_view content) {
    std::optional<SaveFailure> first;
    try {
        SaveFolders folders{m_cleanFolders, CleanFolders::When::Changed};
        const PathParts parts = partsOf(path);
        SaveFolder& folder = folders.at(std::string{parts.folder});
        folder.stage(std::string{parts.name}, content, SaveFolder::Flush::Each);
        publish(
            folder, [](const std::string&) { return true; }, first);
    } catch (const SystemFailure& failure) {
        throw failureOf(Of::File, path, What::NotWritten, failure);
    }
    if (first) throw *first;
}

void DiskSaves::stage(const std::string& path, std::string_view content) {
    try {
        if (!m_batch) {
            m_batch = std::make_unique<SaveFolders>(m_cleanFolders, CleanFolders::When::Always);
        }
        const PathParts parts = partsOf(path);
        m_batch->at(std::string{parts.folder})
            .stage(std::string{parts.name}, content, SaveFolder::Flush::Together);
    } catch (const SystemFailure& failure) {
        throw failureOf(Of::File, path, What::NotWritten, failure);
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
    for (const auto& folder : batch->all()) {
        try {
            if (!folder->isEmpty()) folder->flush();
        } catch (const SystemFailure& failure) {
            throw failureOf(Of::Folder, folder->path(), What::NotWritten, failure);
        }
    }
    std::optional<SaveFailure> first;
    for (const auto& folder : batch->all()) {
        if (!folder->isEmpty()) publish(*folder, mayReplace, first);
    }
    if (first) throw *first;
}

}  // namespace wynconfig
