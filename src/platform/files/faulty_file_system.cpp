// A file system that fails where a test says. Only the single steps are passed on: names are found
// by the resolver of this object, which is the one that all file systems share.
#include "platform/files/faulty_file_system.h"

#include <system_error>
#include <utility>

namespace wynconfig {

void FaultyFileSystem::failOn(Operation operation, std::string part, int skip, int times) {
    m_faults.push_back({operation, std::move(part), skip, times});
}

bool FaultyFileSystem::begin(Operation operation, const std::string& path) {
    ++m_counts[static_cast<std::size_t>(operation)];
    bool fails = false;
    for (Fault& fault : m_faults) {
        if (fault.operation != operation || path.find(fault.part) == std::string::npos) continue;
        if (fault.skip > 0) {
            --fault.skip;
        } else if (fault.times != 0) {
            if (fault.times > 0) --fault.times;
            fails = true;
        }
    }
    return fails;
}

void FaultyFileSystem::failSave(const std::string& path) {
    if (begin(Operation::Save, path)) {
        throw refusal("file", path, "written", std::errc::no_space_on_device);
    }
}

bool FaultyFileSystem::entriesOf(const std::string& folder, std::vector<Entry>& entries) {
    if (begin(Operation::List, folder)) {
        throw refusal("folder", folder, "read", std::errc::too_many_files_open);
    }
    return m_wrapped.entriesOf(folder, entries);
}

bool FaultyFileSystem::stampOf(const std::string& folder, Stamp& stamp) {
    return m_wrapped.stampOf(folder, stamp);
}

std::optional<FileSystem::Version> FaultyFileSystem::versionOf(const std::string& path) {
    return m_wrapped.versionOf(path);
}

bool FaultyFileSystem::isPlainFile(const std::string& path) {
    return m_wrapped.isPlainFile(path);
}

bool FaultyFileSystem::isFolder(const std::string& path) {
    return m_wrapped.isFolder(path);
}

bool FaultyFileSystem::isOther(const std::string& path) {
    return m_wrapped.isOther(path);
}

bool FaultyFileSystem::isLink(const std::string& path) {
    return m_wrapped.isLink(path);
}

std::string FaultyFileSystem::behindLinks(const std::string& path) {
    return m_wrapped.behindLinks(path);
}

std::errc FaultyFileSystem::whyNoFolder(const std::string& path) {
    return m_wrapped.whyNoFolder(path);
}

void FaultyFileSystem::createFolder(const std::string& path) {
    if (begin(Operation::MakeFolder, path)) {
        throw refusal("folder", path, "made", std::errc::no_space_on_device);
    }
    m_wrapped.createFolder(path);
}

std::string FaultyFileSystem::readFile(const std::string& path) {
    if (begin(Operation::Read, path)) {
        throw refusal("file", path, "read", std::errc::io_error);
    }
    return m_wrapped.readFile(path);
}

void FaultyFileSystem::replaceFile(const std::string& path, std::string_view content) {
    failSave(path);
    m_wrapped.replaceFile(path, content);
}

void FaultyFileSystem::removeFile(const std::string& path) {
    if (begin(Operation::Remove, path)) {
        throw refusal("file", path, "deleted", std::errc::io_error);
    }
    m_wrapped.removeFile(path);
}

void FaultyFileSystem::stageFile(const std::string& path, std::string_view content) {
    failSave(path);
    m_wrapped.stageFile(path, content);
    if (!m_stagedFolder) m_stagedFolder = ItemPath::of(path).folder;
}

std::function<void()> FaultyFileSystem::unstaging(const std::string& path) {
    return m_wrapped.unstaging(path);
}

void FaultyFileSystem::commitStaged(const MayReplace& mayReplace) {
    const std::optional<std::string> folder = std::exchange(m_stagedFolder, std::nullopt);
    if (folder && begin(Operation::Commit, *folder)) {
        m_wrapped.discardStaged();
        throw refusal("files in", *folder, "written", std::errc::no_space_on_device);
    }
    m_wrapped.commitStaged(mayReplace);
}

void FaultyFileSystem::discardStaged() noexcept {
    m_stagedFolder.reset();
    m_wrapped.discardStaged();
}

}  // namespace wynconfig
