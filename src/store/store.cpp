// The items of a store, by the file layer.
#include "wynconfig/store.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/files/file_system.h"
#include "platform/text/numbers.h"
#include "platform/text/text.h"
#include "store/item_names.h"
#include "store/session_record.h"
#include "wynconfig/error.h"
#include "wynconfig/keys.h"

namespace wynconfig {

namespace {

using Names = std::vector<std::string>;

const std::string kDeleted = "deleted\\";
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

/// The part formats of a session in the order of their rows, whatever it says of their number.
Names formatsOf(const Dataset& record) {
    Names names;
    for (const DataRow& row : record.Rows()) {
        const std::string& key = row[0];
        if (key.starts_with(session::kFormatPrefix) && key != session::kFormatCount)
            names.push_back(row[1]);
    }
    return names;
}

/// Looks at one item after the other, and notes down what is not as it should be.
class Checker {
  public:
    explicit Checker(const Store& store) : m_store(store) {}

    std::vector<StoreFault> run() {
        for (const ItemKind kind : kKinds) {
            for (const std::string& name : m_store.names(kind)) {
                m_item = {kind, name, {}};
                look();
            }
        }
        return std::move(m_faults);
    }

  private:
    void look() {
        std::shared_ptr<Dataset> record;
        try {
            record = m_store.read(m_item.kind, m_item.item);
        } catch (const Error& error) {
            return tell(error.description());
        }
        if (record->Type() != typeOf(m_item.kind))
            tell("It is a record of the type \"" + record->Type() + "\".");
        if (UCase(record->Name()) != UCase(m_item.item))
            tell("It has the name \"" + record->Name() + "\", unlike its file.");
        const bool isSession = m_item.kind == ItemKind::Session;
        const auto& keys = isSession ? session::kKeys : partformat::kKeys;
        for (const DataRow& row : record->Rows()) {
            const bool format = isSession && row[0].starts_with(session::kFormatPrefix);
            if (!format && !keys.contains(row[0]))
                tell("It has the unknown key \"" + row[0] + "\".");
        }
        if (!isSession) return;
        lookAtFormats(*record);
        lookAtProgram(*record);
    }
    void lookAtFormats(const Dataset& record) {
        const Names formats = formatsOf(record);
        const std::string count = valueOf(record, session::kFormatCount);
        if (count != std::to_string(formats.size()))
            tell("It counts \"" + count + "\" part formats and names " +
                 std::to_string(formats.size()) + ".");
        for (std::size_t number = 1; number <= formats.size(); ++number) {
            const std::string key = session::formatKey(static_cast<long>(number));
            const auto& rows = record.Rows();
            if (std::none_of(rows.begin(), rows.end(),
                             [&](const DataRow& r) { return r[0] == key; }))
                tell("It lacks the key \"" + key + "\".");
        }
        for (const std::string& format : formats) {
            if (!m_store.has(ItemKind::PartFormat, format))
                tell("Its part format \"" + format + "\" is not there.");
        }
        // Text in angle brackets stands for none.
        const std::string forFile = valueOf(record, session::kPartFormat);
        if (!forFile.empty() && !forFile.starts_with('<') &&
            !m_store.has(ItemKind::PartFormat, forFile))
            tell("The part format \"" + forFile + "\" of its file is not there.");
    }
    void lookAtProgram(const Dataset& record) {
        const bool launches = valueOf(record, session::kDisableProgramLaunch) != words::kTrue &&
                              valueOf(record, session::kWriteFileOnly) != words::kTrue;
        const std::string program = valueOf(record, session::kProgramPath);
        if (launches && !session::programExists(program))
            tell("Its program \"" + program + "\" is not there.");
    }
    void tell(std::string what) {
        m_item.what = std::move(what);
        m_faults.push_back(m_item);
    }

    const Store& m_store;
    StoreFault m_item;
    std::vector<StoreFault> m_faults;
};

}  // namespace

std::string upperName(std::string_view name) {
    return UCase(name);
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

std::vector<std::string> Store::sessionsWith(const std::string& format) const {
    const std::string wanted = UCase(format);
    Names found;
    for (const std::string& name : names(ItemKind::Session)) {
        const auto record = read(ItemKind::Session, name);
        Names named = formatsOf(*record);
        named.push_back(valueOf(*record, session::kPartFormat));
        if (std::any_of(named.begin(), named.end(),
                        [&](const std::string& each) { return UCase(each) == wanted; }))
            found.push_back(name);
    }
    return found;
}

std::vector<StoreFault> Store::check() const {
    return Checker(*this).run();
}

std::vector<std::string> Store::deletedNames(ItemKind kind) const {
    return listItemNames(folder(kind) + kDeleted);
}

void Store::moveToDeleted(ItemKind kind, const std::string& name) const {
    const std::string deleted = folder(kind) + kDeleted;
    const ItemPath from = path(kind, name);
    if (!has(kind, name)) fileSystem().read(from);  // raises that it is not there
    if (!fileSystem().folderExists(deleted)) fileSystem().makeFolder(deleted);
    moveFile(from, placeOf(deleted, name));
}

void Store::restore(ItemKind kind, const std::string& name) const {
    const ItemPath from = placeOf(folder(kind) + kDeleted, name);
    if (has(kind, name))
        throw Error(errc::DuplicateKey,
                    "The file " + path(kind, name).text() + " is there already.");
    moveFile(from, {folder(kind), from.name});
}

}  // namespace wynconfig
