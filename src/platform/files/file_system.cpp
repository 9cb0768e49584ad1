// What every kind of file system has in common: item paths, the one resolver behind all operations,
// and the folder indexes that spare it a scan per look-up.
#include "platform/files/file_system.h"

#include <algorithm>
#include <new>
#include <utility>

#include "platform/files/paths.h"
#include "platform/text/text.h"
#include "wynconfig/save_file.h"

namespace wynconfig {

namespace {

constexpr std::string_view kItemExtension = ".vla";

bool isSeparator(char c) {
    return c == '/' || c == '\\';
}

/// Behind a NUL the system would not see the rest of a path.
bool holdsNul(std::string_view path) {
    return path.find('\0') != std::string_view::npos;
}

/// True when a name stands for one file of its folder; one with a separator could lead out of it.
bool isUsableName(std::string_view name) {
    return !name.empty() && name != "." && name != ".." && !holdsNul(name) &&
           std::none_of(name.begin(), name.end(), isSeparator) && isNameOfSystem(name);
}

bool isItemName(std::string_view name) {
    return name.size() >= kItemExtension.size() &&
           UCase(name.substr(name.size() - kItemExtension.size())) == UCase(kItemExtension);
}

/// What is said of a cause. The C libraries do not all say the same of a long name.
std::string wordsOf(std::errc cause) {
    if (cause == std::errc::filename_too_long) return "File name too long";
    return std::make_error_code(cause).message();
}

/// A path as a message shows it: well-formed, and no longer than a box can hold.
std::string shown(std::string_view path) {
    constexpr std::size_t kMost = 300;
    constexpr std::size_t kPart = 140;
    std::string text{path};
    if (!isUtf8(text)) {
        std::replace_if(
            text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) > 0x7F; },
            '?');
    }
    std::replace(text.begin(), text.end(), '\0', '?');
    const std::size_t length = charCount(text);
    if (length <= kMost) return text;
    return text.substr(0, byteOffset(text, kPart)) + "\u2026" +
           text.substr(byteOffset(text, length - kPart));
}

}  // namespace

ItemPath ItemPath::item(std::string_view folder, std::string_view item) {
    return {std::string{folder}, std::string{item} + std::string{kItemExtension}};
}

ItemPath ItemPath::of(std::string_view path) {
    const std::size_t cut = path.find_last_of("/\\") + 1;
    return {std::string{path.substr(0, cut)}, std::string{path.substr(cut)}};
}

std::vector<std::string> FileSystem::listItems(const std::string& folder) {
    std::vector<Entry> entries;
    if (holdsNul(folder) || !entriesOf(resolveFolder(folder), entries)) return {};

    std::vector<std::pair<std::string, std::string>> items;
    for (Entry& entry : entries) {
        if (!entry.plainFile || !isItemName(entry.name) || !isUsableName(entry.name)) continue;
        std::string key = UCase(entry.name);
        items.emplace_back(std::move(key), std::move(entry.name));
    }
    std::sort(items.begin(), items.end());

    std::vector<std::string> names;
    names.reserve(items.size());
    for (auto& item : items) names.push_back(std::move(item.second));
    return names;
}

std::string FileSystem::find(const ItemPath& path) {
    const auto place = placeOf(path);
    if (!place) return {};
    return nameToRead(*place);
}

bool FileSystem::existsExactly(const std::string& path) {
    if (path.empty() || isSeparator(path.back()) || holdsNul(path)) {
        return false;
    }
    return isPlainFile(systemPath(path));
}

bool FileSystem::isNoPlainFile(const std::string& path) {
    return !path.empty() && !holdsNul(path) && isOther(systemPath(path));
}

bool FileSystem::folderExists(const std::string& folder) {
    return !holdsNul(folder) && isFolder(resolveFolder(folder));
}

void FileSystem::makeFolder(const std::string& folder) {
    if (holdsNul(folder)) throw refusal("folder", folder, "made", "its name is not allowed");
    const std::string system = systemPath(folder);
    const ItemPath path = ItemPath::of(system);
    const std::string parent = resolveFolder(path.folder);
    if (path.name.empty() ||
        !nameOnDisk(parent, path.name, &FileSystem::isThere, Trust::Settled).empty()) {
        throw refusal("folder", system, "made", "something of that name is there already");
    }
    if (!isNameOfSystem(path.name))
        throw refusal("folder", system, "made", "its name is not allowed");
    const std::string resolved = join(parent, path.name);
    if (!isFolder(parent)) {
        throw refusal("folder", resolved, "made",
                      causeOfNoFolder(parent, "the folder above it is not there"));
    }
    const bool current = hasCurrentIndex(parent);
    createFolder(resolved);
    if (current) updateIndex(parent, path.name, true);
}

void FileSystem::refuseLink(const std::string& folder) {
    if (holdsNul(folder)) return;
    const std::string resolved = resolveFolder(folder);
    if (isLink(resolved)) throw refusal("folder", resolved, "used", "it is a link");
}

std::string FileSystem::read(const ItemPath& path) {
    const auto place = placeOf(path);
    if (!place) throw notFound(path.text());
    const std::string name = nameToRead(*place);
    if (name.empty()) throw notFound(join(place->folder, place->name));
    const std::string file = join(place->folder, name);
    return m_inBatch ? readInBatch(path, file) : readFile(file);
}

void FileSystem::save(const ItemPath& path, std::string_view content) {
    const auto place = placeOf(path);
    if (!place) throw refusal("file", path.text(), "written", "its name is not allowed");
    const auto [name, isOnDisk] = nameToWrite(*place);
    const std::string target = join(place->folder, name);
    if (content.size() > kMaxItemSize) throw refusal("file", target, "written", "it is too large");

    if (m_inBatch) {
        std::set<std::array<std::string, 3>> made;
        if (!isOnDisk) made.insert({place->folder, UCase(name), name});
        stageFile(target, content);
        m_newFiles.merge(made);  // takes no memory: what is prepared is known
        return;
    }
    const bool current = hasCurrentIndex(place->folder);
    replaceFile(target, content);
    if (current) updateIndex(place->folder, name, true);
}

void FileSystem::saveExactly(const std::string& path, std::string_view content) {
    if (path.empty() || isSystemSeparator(path.back()) || holdsNul(path))
        throw refusal("file", path, "written", "its name is not allowed");
    replaceFile(behindLinks(exactPath(path)), content);
}

void FileSystem::remove(const ItemPath& path) {
    const auto place = placeOf(path);
    if (!place) throw notFound(path.text());
    std::string name =
        nameOnDisk(place->folder, place->name, &FileSystem::isPlainFile, Trust::Settled);
    const bool isOnDisk = !name.empty();
    if (!isOnDisk) name = newFileName(*place);
    if (name.empty()) throw notFound(join(place->folder, place->name));
    const std::string file = join(place->folder, name);
    const std::array<std::string, 3> newFile{place->folder, UCase(name), name};
    const std::function<void()> unstage = unstaging(file);
    const bool current = isOnDisk && hasCurrentIndex(place->folder);
    if (isOnDisk) removeFile(file);
    // From here on nothing fails.
    unstage();
    m_newFiles.erase(newFile);
    if (current) updateIndex(place->folder, name, false);
}

SaveBatch::SaveBatch(FileSystem& files) : m_files(files), m_leads(!files.m_inBatch) {
    if (m_leads) files.beginBatch();
}

SaveBatch::~SaveBatch() {
    if (!m_leads) return;
    m_files.endBatch();
    m_files.discardStaged();
}

void SaveBatch::commit(const Again& again, const std::function<void()>& placing) {
    if (!m_leads) return;
    constexpr int kMostRounds = 50;
    std::optional<Error> first;
    std::optional<GroupLost> lost;
    for (int round = 1;; ++round) {
        std::vector<ItemPath> overtaken;
        try {
            auto unsaved =
                m_files.commitBatch(again && round < kMostRounds ? &overtaken : nullptr, placing);
            m_unsaved.merge(unsaved);
        } catch (const GroupLost& failure) {
            if (!lost) lost = failure;
        } catch (const Error& failure) {
            if (!first) first = failure;
        }
        if (overtaken.empty()) break;
        m_files.beginBatch();
        again(overtaken);
    }
    m_leads = false;
    if (first) throw *first;
    if (lost) throw *lost;
}

void SaveBatch::settle(const Again& again, const std::function<void()>& placing) {
    m_isSettled = m_leads;
    commit(again, placing);
}

void SaveBatch::goOn() {
    if (!std::exchange(m_isSettled, false)) return;
    m_files.beginBatch();
    m_files.m_read = std::exchange(m_unsaved, {});
    m_leads = true;
}

void FileSystem::beginBatch() {
    m_inBatch = true;
    for (auto& index : m_indexes) index.second.seenInBatch = false;
}

void FileSystem::endBatch() {
    m_inBatch = false;
    m_newFiles.clear();
    m_batchFolders.clear();
    m_read.clear();
}

/// Ends the batch and puts its files in place.
/// @param overtaken  out, unless null: files that are left as they are, since somebody else changed
/// them; filled also when a failure of another file is raised.
/// @return what was read of files that were not to be put in place
std::map<std::string, FileSystem::FileRead> FileSystem::commitBatch(
    std::vector<ItemPath>* overtaken, const std::function<void()>& placing) {
    std::map<std::string, FileRead> read = std::move(m_read);
    endBatch();
    commitStaged([&](const std::string& file) {
        if (placing) placing();
        const auto found = read.find(file);
        if (found == read.end()) return true;
        found->second.isSaved = true;
        if (!overtaken || isAsRead(file, found->second)) return true;
        overtaken->push_back(found->second.path);
        return false;
    });
    std::erase_if(read, [](const auto& each) { return each.second.isSaved; });
    return read;
}

/// Reads a file, and notes how it was, so that the commit can tell whether it still is.
std::string FileSystem::readInBatch(const ItemPath& path, const std::string& file) {
    // The version is taken before the text: a change between the two makes the versions differ.
    const std::optional<Version> version = versionOf(file);
    std::string text = readFile(file);
    if (version) {
        m_read.try_emplace(file, FileRead{path, *version, version->settled ? std::string() : text});
    }
    return text;
}

/// Whether nobody changed a file since it was read. One that went with its whole folder is not
/// taken for changed: to put it in place fails, and tells so.
bool FileSystem::isAsRead(const std::string& file, const FileRead& read) {
    try {
        const std::optional<Version> version = versionOf(file);
        if (!version) return !isFolder(ItemPath::of(file).folder);
        if (version->value != read.version.value) return false;
        return read.version.settled || readFile(file) == read.text;
    } catch (const Error&) {
        return false;  // whoever reads it once more is told
    }
}

std::string FileSystem::join(const std::string& folder, std::string_view name) {
    std::string path = folder;
    if (!path.empty() && path.back() != '/') path += '/';
    path += name;
    return path;
}

Error FileSystem::notFound(std::string_view path) {
    return {errc::FileNotFound, "The file " + shown(path) + " was not found."};
}

Error FileSystem::refusal(std::string_view kind, std::string_view path, std::string_view verb,
                          std::string_view cause) {
    std::string text = "The ";
    text.append(kind).append(" ").append(shown(path)).append(" can't be ").append(verb);
    text.append(": ").append(cause).append(".");
    return {errc::FileAccess, text};
}

Error FileSystem::refusal(std::string_view kind, std::string_view path, std::string_view verb,
                          std::errc cause) {
    return refusal(kind, path, verb, wordsOf(cause));
}

/// Where a file lies, or nothing for a name that no file can have. Folder and name are glued as
/// they are, so what stands behind the folder's last separator belongs to the name.
std::optional<FileSystem::Place> FileSystem::placeOf(const ItemPath& path) {
    const ItemPath folder = ItemPath::of(path.folder);
    if (!isUsableName(path.name) || holdsNul(path.folder)) return std::nullopt;
    return Place{folderOf(folder.folder), folder.name + path.name};
}

/// The resolved folder of an item. While a batch is open it stays the one that was found first.
std::string FileSystem::folderOf(const std::string& folder) {
    if (!m_inBatch) return resolveFolder(folder);
    const auto found = m_batchFolders.find(folder);
    if (found != m_batchFolders.end()) return found->second;
    std::string resolved = resolveFolder(folder);
    if (isFolder(resolved)) m_batchFolders.emplace(folder, resolved);
    return resolved;
}

/// The folder as it is spelt on disk, without a separator at its end. From the first part that is
/// not there on, everything stays as given.
std::string FileSystem::resolveFolder(std::string_view folder) {
    std::string system = systemPath(folder);
    // A folder that is there as it is typed needs no walk: all its parts are exact.
    if (isFolder(system)) return system;

    std::size_t at = rootLength(system);
    std::string resolved = system.substr(0, at);
    while (at < system.size()) {
        const std::size_t end = std::min(system.find('/', at), system.size());
        const std::string part = system.substr(at, end - at);
        const std::string found = nameOnDisk(resolved, part, &FileSystem::isFolder, Trust::Settled);
        resolved = join(resolved, found.empty() ? part : found);
        at = end + 1;
    }
    return resolved;
}

/// The name, as it is spelt on disk, of what is looked for in a resolved folder, or the empty
/// string. What it is gets asked of the disk, never of the index: a link's target can change while
/// its folder does not.
std::string FileSystem::nameOnDisk(const std::string& folder, const std::string& name,
                                   Question isWanted, Trust trust) {
    if ((this->*isWanted)(join(folder, name))) return name;
    const Index* index = indexOf(folder, trust);
    if (!index) return {};
    const std::string key = UCase(name);
    for (auto it = index->names.lower_bound({key, {}});
         it != index->names.end() && it->first == key; ++it) {
        if ((this->*isWanted)(join(folder, it->second))) return it->second;
    }
    return {};
}

/// The name of the file that a path means, or the empty string. An open batch goes by the names
/// that it knows where the exact one is not there: its own temporaries make the folder look changed
/// each time, and to read it for each of many new files would take for ever.
std::string FileSystem::nameToRead(const Place& place) {
    return nameOnDisk(place.folder, place.name, &FileSystem::isPlainFile,
                      m_inBatch ? Trust::SameStamp : Trust::Settled);
}

/// The name under which a file is to be written: an existing file's, else that of a file which the
/// open batch is to make, else the one given. A file that others made a moment ago may go unseen
/// here; otherwise many saves in a row would read the folder each time. An open batch reads it once
/// at most: its own temporaries change the folder's stamp all the time.
FileSystem::NameToWrite FileSystem::nameToWrite(const Place& place) {
    std::string existing =
        nameOnDisk(place.folder, place.name, &FileSystem::isPlainFile, Trust::SameStamp);
    if (!existing.empty()) return {std::move(existing), true};
    std::string staged = newFileName(place);
    if (!staged.empty()) return {std::move(staged), false};

    const std::string target = join(place.folder, place.name);
    if (!isFolder(place.folder)) {
        throw refusal("file", target, "written",
                      causeOfNoFolder(place.folder, "its folder is not there"));
    }
    if (!nameOnDisk(place.folder, place.name, &FileSystem::isFolder, Trust::SameStamp).empty()) {
        throw refusal("file", target, "written", "a folder of that name is there");
    }
    return {place.name, false};
}

/// Why nothing can be put into what is no folder, in the usual words when nothing is there.
std::string FileSystem::causeOfNoFolder(const std::string& folder, const char* usual) {
    const std::errc cause = whyNoFolder(folder);
    if (cause == std::errc::no_such_file_or_directory) return usual;
    return wordsOf(cause);
}

/// The name under which the open batch is to make a new file, in whatever case it is asked for, or
/// the empty string.
std::string FileSystem::newFileName(const Place& place) const {
    if (m_newFiles.empty()) return {};
    const std::string key = UCase(place.name);
    const auto staged = m_newFiles.lower_bound({place.folder, key, {}});
    const bool found =
        staged != m_newFiles.end() && (*staged)[0] == place.folder && (*staged)[1] == key;
    return found ? (*staged)[2] : std::string{};
}

bool FileSystem::isThere(const std::string& path) {
    return isPlainFile(path) || isFolder(path);
}

/// The index of a folder, read anew when the one at hand is not to be trusted; null when the folder
/// is not there. Raises when it can't be read.
const FileSystem::Index* FileSystem::indexOf(const std::string& folder, Trust trust) {
    const auto held = m_indexes.find(folder);
    const bool inBatch = m_inBatch && trust == Trust::SameStamp;
    if (inBatch && held != m_indexes.end() && held->second.seenInBatch) return &held->second;
    // The stamp is taken before the names: a change while they are read makes the stamps differ,
    // or else finds the stamp unsettled.
    Stamp now;
    const bool stamped = stampOf(folder, now);
    if (stamped && held != m_indexes.end()) {
        const Stamp& stamp = held->second.stamp;
        const bool trusted = stamp.settled || trust == Trust::SameStamp;
        if (stamp.value == now.value && trusted) {
            held->second.seenInBatch = m_inBatch;
            return &held->second;
        }
    }

    if (held != m_indexes.end()) m_indexes.erase(held);
    std::vector<Entry> entries;
    if (!entriesOf(folder, entries)) return nullptr;
    Index index;
    index.stamp = stamped ? now : Stamp{0, false};
    index.seenInBatch = m_inBatch;
    for (Entry& entry : entries) {
        std::string key = UCase(entry.name);
        index.names.emplace(std::move(key), std::move(entry.name));
    }
    return &m_indexes.insert_or_assign(folder, std::move(index)).first->second;
}

/// True when the index at hand bears the folder's stamp, so that a change of ours may be entered.
bool FileSystem::hasCurrentIndex(const std::string& folder) {
    const auto held = m_indexes.find(folder);
    Stamp now;
    return held != m_indexes.end() && stampOf(folder, now) && held->second.stamp.value == now.value;
}

/// Enters a change of ours. The stamp counts as unsettled from here on: what others changed along
/// with us may hide behind it. Never raises, since the change is done: an index that can't have it
/// is given up.
void FileSystem::updateIndex(const std::string& folder, const std::string& name,
                             bool present) noexcept {
    const auto held = m_indexes.find(folder);
    if (held == m_indexes.end()) return;
    Index& index = held->second;
    try {
        if (present)
            index.names.emplace(UCase(name), name);
        else
            index.names.erase({UCase(name), name});
        index.stamp.settled = false;
        Stamp now;
        if (stampOf(folder, now)) {
            index.stamp.value = now.value;
            return;
        }
    } catch (const std::bad_alloc&) {
        // Without the memory to tell what it holds, it is read anew.
    }
    m_indexes.erase(held);
}

namespace {

// Each thread has its own.
thread_local FileSystem* replacementDisk = nullptr;
thread_local std::unique_ptr<FileSystem> realDisk;

}  // namespace

FileSystem& fileSystem() {
    if (replacementDisk) return *replacementDisk;
    if (!realDisk) realDisk = makeRealFileSystem();
    return *realDisk;
}

void setFileSystem(FileSystem* replacement) {
    replacementDisk = replacement;
}

void saveFile(const std::string& path, std::string_view content) {
    fileSystem().saveExactly(path, content);
}

bool isNoPlainFile(const std::string& path) {
    return fileSystem().isNoPlainFile(path);
}

}  // namespace wynconfig
