// Marks, the flush of files, and the look for the temporaries of the dead.
#include "platform/files/win32/temporary.h"

#include <cstring>
#include <map>
#include <utility>
#include <vector>

#include "platform/files/temporary_names.h"

namespace wynconfig {

namespace {

/// Flushes a file without a wait for the disk itself, as Windows has it from its version 8 on.
using FlushFile = LONG(NTAPI*)(HANDLE file, ULONG flags, void* parameters, ULONG size,
                               void* status);
constexpr ULONG kNoSync = 2;

FlushFile flushWithoutSync() {
    static const FlushFile call = [] {
        const FARPROC found =
            ::GetProcAddress(::GetModuleHandleW(L"ntdll.dll"), "NtFlushBuffersFileEx");
        FlushFile named = nullptr;
        static_assert(sizeof named == sizeof found);
        std::memcpy(&named, &found, sizeof named);
        return named;
    }();
    return call;
}

/// Deletes a plain file. True when it is gone, by whatever hand.
bool removePlain(const std::wstring& path) {
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return ::GetLastError() == ERROR_FILE_NOT_FOUND;
    if (!isPlain(attributes) || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) return false;
    return ::DeleteFileW(path.c_str()) || ::GetLastError() == ERROR_FILE_NOT_FOUND;
}

/// The names of others' temporaries in a folder. False when the folder can't be read to its end.
bool listTemporaries(const std::wstring& folder, std::vector<std::string>& names) {
    const std::wstring pattern = folder + wide(kTemporaryPrefix) + L"*";
    WIN32_FIND_DATAW entry{};
    const HANDLE listing =
        ::FindFirstFileExW(pattern.c_str(), FindExInfoBasic, &entry, FindExSearchNameMatch, nullptr,
                           FIND_FIRST_EX_LARGE_FETCH);
    if (listing == INVALID_HANDLE_VALUE) return ::GetLastError() == ERROR_FILE_NOT_FOUND;
    const std::string own = temporariesOf(::GetCurrentProcessId());
    do {
        const std::optional<std::string> name = utf8(entry.cFileName);
        if (name && !name->starts_with(own) && leaderOf(*name)) names.push_back(*name);
    } while (::FindNextFileW(listing, &entry));
    const bool whole = ::GetLastError() == ERROR_NO_MORE_FILES;
    ::FindClose(listing);
    return whole;
}

}  // namespace

Mark::Mark(std::wstring folder) : m_folder(std::move(folder)), m_file(create()) {}

Handle Mark::create() {
    constexpr int kMostNames = 1000;
    for (int names = 1;; ++names) {
        m_name = newTemporaryName(::GetCurrentProcessId());
        // Who shares no deleting can't be deleted by others. The system deletes it.
        Handle file{::CreateFileW((m_folder + wide(m_name)).c_str(), GENERIC_WRITE | DELETE,
                                  FILE_SHARE_READ, nullptr, CREATE_NEW,
                                  FILE_ATTRIBUTE_NORMAL | FILE_FLAG_DELETE_ON_CLOSE, nullptr)};
        if (file.isOpen()) return file;
        const DWORD error = ::GetLastError();
        if (error != ERROR_FILE_EXISTS || names == kMostNames) throw SystemFailure{error};
    }
}

std::wstring Mark::follower(unsigned number) const {
    return m_folder + wide(followerOf(m_name, number));
}

void Mark::flushDisk() const {
    if (!flushWithoutSync()) return;  // all files have been flushed by themselves
    // A file without news might not be worth a flush to the system.
    DWORD written = 0;
    checked(::WriteFile(m_file.get(), "!", 1, &written, nullptr));
    flush(m_file);
}

void flush(const Handle& file) {
    if (::FlushFileBuffers(file.get())) return;
    const DWORD error = ::GetLastError();
    if (error != ERROR_INVALID_FUNCTION && error != ERROR_NOT_SUPPORTED) throw SystemFailure{error};
}

void flushToDevice(const Handle& file) {
    const FlushFile call = flushWithoutSync();
    std::uintptr_t status[2] = {};  // what the call says of itself, as its result does
    if (!call || call(file.get(), kNoSync, nullptr, 0, status) < 0) flush(file);
}

bool cleanTemporaries(const std::wstring& folder) {
    std::vector<std::string> names;
    bool clean = listTemporaries(folder, names);
    std::map<std::string, bool> gone;  // by the leader's name
    for (const std::string& name : names) {
        const std::string leader = *leaderOf(name);
        const auto [asked, isNew] = gone.try_emplace(leader, false);
        if (isNew) asked->second = removePlain(folder + wide(leader));
        if (!asked->second) {
            clean = false;
        } else if (name != leader) {
            removePlain(folder + wide(name));
        }
    }
    return clean;
}

}  // namespace wynconfig
