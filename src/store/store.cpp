// The items of a store, by the file layer.
#include "wynconfig/store.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <map>
#include <set>
#include <utility>

#include "platform/files/file_system.h"
#include "platform/text/numbers.h"
#include "platform/text/text.h"
#include "store/item_names.h"
#include "store/session_record.h"
#include "store/session_walk.h"
#include "store/store_change.h"
#include "wynconfig/characters.h"
#include "wynconfig/error.h"
#include "wynconfig/keys.h"

namespace wynconfig {

namespace {

using Names = std::vector<std::string>;

constexpr std::array kKinds{ItemKind::Session, ItemKind::PartFormat};

const std::string& typeOf(ItemKind kind) {
    return kind == ItemKind::Session ? session::kType : partformat::kType;
}

/// Where an item lies by its spelling on disk, or would be saved.
ItemPath placeOf(const std::string& folder, const std::string& name) {
    const ItemPath path = ItemPath::item(folder, UCase(name));
    const std::string file = fileSystem().find(path);
    return file.empty() ? path : ItemPath{folder, file};
}

/// Brings a file into another folder. At no moment is it in neither.
void moveFile(const ItemPath& from, const ItemPath& to) {
    fileSystem().save(to, fileSystem().read(from));
    fileSystem().remove(from);
}

/// The value of a key; empty when the record lacks it.
std::string valueOf(const Dataset& record, const std::string& key) {
    for (const DataRow& row : record.Rows()) {
        if (row[0] == key) return row[1];
    }
    return {};
}

/// Whether a value is the name of a part format, and not empty or a text that stands for none.
bool isFormatName(const std::string& value) {
    return !value.empty() && !value.starts_with('<');
}

/// The line of a file that a description names, where the XML library has told it; else 0.
int lineToldBy(std::string_view description) {
    constexpr std::string_view kBefore = "not well-formed XML (line ";
    const std::size_t at = description.find(kBefore);
    if (at == std::string_view::npos) return 0;
    description.remove_prefix(at + kBefore.size());
    int line = 0;
    std::from_chars(description.data(), description.data() + description.size(), line);
    return line;
}

void tellOf(const StoreProgress& progress, std::size_t done, std::size_t all) {
    if (progress) progress(done, all);
}

/// A file and what it is to hold.
struct FileToSave {
    ItemPath path;
    std::string text;
};

/// The name of the item that a file holds.
std::string nameOf(const ItemPath& file) {
    constexpr std::size_t kExtension = 4;
    return file.name.substr(0, file.name.size() - kExtension);
}

void refuseBadName(const std::string& name) {
    if (isItemName(name)) return;
    throw Error(errc::InvalidCall, "An item can't have the name \"" + name +
                                       "\": a name has none of \\ / : * ? \" < > | . and reads "
                                       "as no number.");
}

/// The text of a record that may become an item.
std::string textToSave(const StoreItem& item) {
    const Dataset& record = *item.record;
    refuseBadName(record.Name());
    if (record.Type() != typeOf(item.kind))
        throw Error(errc::InvalidCall,
                    "\"" + record.Name() + "\" is a record of the type \"" + record.Type() + "\".");
    Document document;
    record.Save(document);
    return document.xml();
}

/// Looks at one item after the other, and notes down what is not as it should be.
class Checker {
  public:
    Checker(const Store& store, const StoreProgress& progress)
        : m_store(store), m_progress(progress) {}

    std::vector<StoreFault> run() {
        const Names sessions = m_store.names(ItemKind::Session);
        const Names formats = m_store.names(ItemKind::PartFormat);
        m_all = sessions.size() + formats.size();
        lookAtAll(ItemKind::Session, sessions);
        lookAtAll(ItemKind::PartFormat, formats);
        return std::move(m_faults);
    }

  private:
    using Cause = StoreFault::Cause;

    void lookAtAll(ItemKind kind, const Names& names) {
        for (const std::string& name : names) {
            m_kind = kind;
            m_item = name;
            look();
            tellOf(m_progress, ++m_done, m_all);
        }
    }
    void look() {
        std::shared_ptr<Dataset> record;
        try {
            record = m_store.read(m_kind, m_item);
        } catch (const Error& error) {
            tell(Cause::Unreadable, error.description());
            m_faults.back().line = lineToldBy(m_faults.back().what);
            return;
        }
        if (record->Type() != typeOf(m_kind))
            tell(Cause::WrongType, "It is a record of the type \"" + record->Type() + "\".");
        if (UCase(record->Name()) != UCase(m_item))
            tell(Cause::OtherName, "It has the name \"" + record->Name() + "\", unlike its file.");
        const bool isSession = m_kind == ItemKind::Session;
        const auto& keys = isSession ? session::kKeys : partformat::kKeys;
        for (const DataRow& row : record->Rows()) {
            const bool format = isSession && session::isFormatKey(row[0]);
            if (!format && !keys.contains(row[0]))
                tell(Cause::UnknownKey, "It has the unknown key \"" + row[0] + "\".");
        }
        if (!isSession) return;
        lookAtFormats(*record);
        lookAtProgram(*record);
    }
    void lookAtFormats(const Dataset& record) {
        const Names formats = session::offeredFormats(record);
        const std::string count = valueOf(record, session::kFormatCount);
        if (count != std::to_string(formats.size()))
            tell(Cause::FormatCount, "It counts \"" + count + "\" part formats and names " +
                                         std::to_string(formats.size()) + ".");
        for (std::size_t number = 1; number <= formats.size(); ++number) {
            const std::string key = session::formatKey(static_cast<long>(number));
            const auto& rows = record.Rows();
            if (std::none_of(rows.begin(), rows.end(),
                             [&](const DataRow& r) { return r[0] == key; }))
                tell(Cause::MissingKey, "It lacks the key \"" + key + "\".");
        }
        for (const std::string& format : formats) {
            if (!m_store.has(ItemKind::PartFormat, format))
                tell(Cause::MissingFormat, "Its part format \"" + format + "\" is not there.");
        }
        const std::string forFile = valueOf(record, session::kPartFormat);
        if (isFormatName(forFile) && !m_store.has(ItemKind::PartFormat, forFile))
            tell(Cause::MissingFormat,
                 "The part format \"" + forFile + "\" of its file is not there.");
    }
    void lookAtProgram(const Dataset& record) {
        const bool launches = valueOf(record, session::kDisableProgramLaunch) != words::kTrue &&
                              valueOf(record, session::kWriteFileOnly) != words::kTrue;
        const std::string program = valueOf(record, session::kProgramPath);
        if (launches && !session::programExists(program))
            tell(Cause::MissingProgram, "Its program \"" + program + "\" is not there.");
    }
    void tell(Cause cause, std::string what) {
        m_faults.push_back({m_kind, m_item, std::move(what), cause});
    }

    const Store& m_store;
    const StoreProgress& m_progress;
    std::size_t m_all = 0;
    std::size_t m_done = 0;
    ItemKind m_kind = ItemKind::Session;
    std::string m_item;
    std::vector<StoreFault> m_faults;
};

}  // namespace

std::string upperName(std::string_view name) {
    return UCase(name);
}

bool isItemName(const std::string& name) {
    constexpr std::size_t kMost = 32767;
    const std::string trimmed = Trim(name);
    return !trimmed.empty() && charCount(trimmed) <= kMost && !isRefusedName(name, kNotInNames);
}

std::vector<std::string> formatsOf(const Dataset& session) {
    Names named = session::offeredFormats(session);
    named.push_back(valueOf(session, session::kPartFormat));
    Names once;
    std::set<std::string> seen;
    for (std::string& each : named) {
        if (isFormatName(each) && seen.insert(UCase(each)).second) once.push_back(std::move(each));
    }
    return once;
}

Store::Store(std::string root) : m_root(std::move(root)) {}

std::string Store::folder(ItemKind kind) const {
    return m_root + typeOf(kind) + "\\";
}

bool Store::isMade() const {
    return std::ranges::all_of(kKinds, [&](ItemKind kind) {
        return !fileSystem().find({folder(kind), typeOf(kind) + ".vls"}).empty();
    });
}

std::vector<std::string> Store::names(ItemKind kind) const {
    return listItemNames(folder(kind));
}

bool Store::has(ItemKind kind, const std::string& name) const {
    return !fileSystem().find(ItemPath::item(folder(kind), UCase(name))).empty();
}

ItemPath Store::path(ItemKind kind, const std::string& name) const {
    return placeOf(folder(kind), name);
}

std::shared_ptr<Dataset> Store::read(ItemKind kind, const std::string& name) const {
    auto record = std::make_shared<Dataset>();
    record->Load(path(kind, name));
    return record;
}

std::vector<std::string> Store::sessionsWith(const std::string& format,
                                             const StoreProgress& progress) const {
    const std::string wanted = UCase(format);
    const Names sessions = names(ItemKind::Session);
    Names found;
    std::size_t done = 0;
    for (const std::string& name : sessions) {
        const Names named = formatsOf(*read(ItemKind::Session, name));
        if (std::ranges::any_of(named,
                                [&](const std::string& each) { return UCase(each) == wanted; }))
            found.push_back(name);
        tellOf(progress, ++done, sessions.size());
    }
    return found;
}

std::vector<StoreFault> Store::check(const StoreProgress& progress) const {
    return Checker(*this, progress).run();
}

void Store::save(const std::vector<StoreItem>& items, const StoreProgress& progress) const {
    std::vector<FileToSave> files;
    for (const ItemKind kind : {ItemKind::PartFormat, ItemKind::Session}) {
        Names taken;
        for (const StoreItem& item : items) {
            if (item.kind != kind) continue;
            files.push_back({path(kind, item.record->Name()), textToSave(item)});
            taken.push_back(UCase(item.record->Name()));
        }
        std::ranges::sort(taken);
        const auto twice = std::ranges::adjacent_find(taken);
        if (twice != taken.end())
            throw Error(errc::InvalidCall, "Two records have the name \"" + *twice + "\".");
    }
    StoreChange change;
    std::size_t done = 0;
    std::map<std::string, const FileToSave*> byPath;
    for (const FileToSave& file : files) {
        change.save(file.path, file.text);
        byPath.emplace(file.path.text(), &file);
        tellOf(progress, ++done, files.size());
    }
    change.commit([&](const std::vector<ItemPath>& overtaken) {
        for (const ItemPath& path : overtaken) change.save(path, byPath.at(path.text())->text);
    });
}

std::vector<std::string> Store::rename(const std::string& format, const std::string& newName,
                                       const StoreProgress& progress) const {
    refuseBadName(newName);
    const std::string name = UCase(newName);
    const ItemPath newFile = path(ItemKind::PartFormat, name);
    if (has(ItemKind::PartFormat, name))
        throw Error(errc::DuplicateKey, "The part format \"" + name + "\" is there already.");
    const auto record = read(ItemKind::PartFormat, format);
    record->setName(name);
    Document document;
    record->Save(document);

    StoreChange change;
    // The new file stands before any session names it, and the old one as long as one does.
    change.save(newFile, document.xml());
    change.remove(path(ItemKind::PartFormat, format));
    const std::vector<ItemPath> sessions = sessionFiles(folder(ItemKind::Session));
    std::size_t done = 0;
    std::set<std::string> renamed;  // the names
    Dataset reused;
    const auto raising = [](const auto& statement) { statement(); };
    const auto carry = [&](const std::vector<ItemPath>& some) {
        for (const ItemPath& file : some) renamed.erase(nameOf(file));
        walkSessions(some, reused, raising, [&](const ItemPath& file, Dataset& session) {
            // A session that is walked through once more is not counted again.
            if (done < sessions.size()) tellOf(progress, ++done, sessions.size());
            if (!session::renameFormat(session, format, name)) return;
            session.Save(document);
            change.save(file, document.xml());
            renamed.insert(nameOf(file));
        });
    };
    carry(sessions);
    change.commit(carry);
    Names inOrder;
    for (const ItemPath& file : sessions) {
        if (renamed.contains(nameOf(file))) inOrder.push_back(nameOf(file));
    }
    return inOrder;
}

std::vector<std::string> Store::deletedNames(ItemKind kind) const {
    return listItemNames(deletedFolder(folder(kind)));
}

void Store::moveToDeleted(ItemKind kind, const std::string& name) const {
    const std::string deleted = deletedFolder(folder(kind));
    const ItemPath from = path(kind, name);
    if (!has(kind, name)) fileSystem().read(from);  // raises that it is not there
    if (!fileSystem().folderExists(deleted)) fileSystem().makeFolder(deleted);
    moveFile(from, placeOf(deleted, name));
}

void Store::restore(ItemKind kind, const std::string& name) const {
    const ItemPath from = placeOf(deletedFolder(folder(kind)), name);
    if (has(kind, name))
        throw Error(errc::DuplicateKey,
                    "The file " + path(kind, name).text() + " is there already.");
    moveFile(from, {folder(kind), from.name});
}

}  // namespace wynconfig
