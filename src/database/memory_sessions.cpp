// From the database into the dialogs and back.
#include "wynconfig/memory_sessions.h"

#include <algorithm>
#include <utility>

#include "database/memory_edit.h"
#include "wynconfig/dataset.h"
#include "wynconfig/keys.h"
#include "wynconfig/store.h"

namespace wynconfig {

namespace {

constexpr const char* kForbidden = "\\/:*?\"<>|.";

/// Whether an item of the database is the record that its name promises.
bool isWhole(const StoredItem& item, const std::string& type) {
    try {
        return readItem(item.xml, type).name == item.name;
    } catch (const DatabaseError&) {
        return false;
    }
}

}  // namespace

RefusedEdit::RefusedEdit(const std::string& reason, MemoryEdit edit,
                         std::vector<ItemConflict> conflicts)
    : DatabaseError(reason), m_edit(std::move(edit)), m_conflicts(std::move(conflicts)) {}

MemorySessions::MemorySessions(WYNConfig& component, SessionDatabase& database,
                               std::string storeRoot)
    : m_component(component), m_database(database), m_store(std::move(storeRoot)) {}

std::set<std::string> MemorySessions::factoryNames(ItemKind kind) const {
    std::set<std::string> names;
    for (const std::string& name : m_store.names(kind)) names.insert(upperName(name));
    return names;
}

std::vector<StoredItem> MemorySessions::formatsToHandIn(std::vector<std::string>& leftOut) {
    // What is not handed in does not come back, and must not be taken for deleted: factory items,
    // which the component drops, and rows that are no records.
    const std::set<std::string> factory = factoryNames(ItemKind::PartFormat);
    std::vector<StoredItem> formats;
    for (StoredItem& item : m_database.items(ItemKind::PartFormat)) {
        if (factory.contains(item.name)) continue;
        if (isWhole(item, partformat::kType))
            formats.push_back(std::move(item));
        else
            leftOut.push_back(item.name);
    }
    return formats;
}

MemoryResult MemorySessions::configure(const std::string& name) {
    MemoryEdit edit;
    edit.sessionBefore = m_database.item(ItemKind::Session, name);
    if (!edit.sessionBefore)
        throw DatabaseError("The session " + upperName(name) + " is no longer in the database.");
    if (!isWhole(*edit.sessionBefore, session::kType))
        throw DatabaseError("The session " + upperName(name) + " of the database is damaged.");
    MemoryResult outcome{0, edit.sessionBefore->name};
    edit.formatsBefore = formatsToHandIn(outcome.leftOut);
    std::vector<std::string> texts;
    for (const StoredItem& format : edit.formatsBefore) texts.push_back(format.xml);
    outcome.result = m_component.showMORAMConfigDlgEX(outcome.name, edit.sessionBefore->xml, texts);
    if (outcome.result != 0) return outcome;
    takeBack(edit);
    MemoryResult stored = store(edit);
    stored.leftOut = std::move(outcome.leftOut);
    return stored;
}

MemoryResult MemorySessions::add() {
    MemoryResult outcome;
    outcome.result = m_component.showAddMORAMConfigDlgEX(outcome.name);
    if (outcome.result != 0) return outcome;
    MemoryEdit edit;
    takeBack(edit);
    return store(edit);
}

MemoryResult MemorySessions::takeOver(const std::string& root, const std::string& session,
                                      const std::string& name) {
    if (!m_component.MigrateSession(root, session)) return {};
    MemoryEdit edit;
    takeBack(edit);
    return store(underAnotherName(std::move(edit), name, {}, {}));
}

void MemorySessions::remove(ItemKind kind, const ListedItem& item) {
    m_database.store({{ItemChange::Act::Delete, kind, item.name, {}, item.version}});
}

void MemorySessions::takeBack(MemoryEdit& edit) {
    edit.session = readItem(m_component.GetDatasetSessionData(), session::kType);
    const std::set<std::string> factory = factoryNames(ItemKind::PartFormat);
    std::set<std::string> names;
    for (const std::string& xml : m_component.GetDatasetFormatsData()) {
        if (xml.empty()) continue;
        ItemText format = readItem(xml, partformat::kType);
        // The text of a record that can't be saved is that of another one.
        if (!names.insert(format.name).second)
            throw DatabaseError("The part format " + format.name +
                                " came back twice. Nothing was stored.");
        if (!factory.contains(format.name)) edit.formats.push_back(std::move(format));
    }
}

std::vector<ItemChange> MemorySessions::changesToStore(MemoryEdit edit) {
    const std::vector<StoredItem> handedIn = edit.formatsBefore;
    const auto wasHandedIn = [&](const std::string& name) {
        return std::any_of(handedIn.begin(), handedIn.end(),
                           [&](const StoredItem& each) { return each.name == name; });
    };
    for (const ItemText& format : edit.formats) {
        if (wasHandedIn(format.name)) continue;
        auto stored = m_database.item(ItemKind::PartFormat, format.name);
        if (stored && isWhole(*stored, partformat::kType) && sameRecord(stored->xml, format.xml))
            edit.formatsBefore.push_back(std::move(*stored));
    }
    return changesOf(edit);
}

void MemorySessions::checkName(const MemoryEdit& edit) const {
    const std::string& name = edit.session.name;
    if (name.empty() || name.find_first_of(kForbidden) != std::string::npos)
        throw RefusedEdit("A session can't be named \"" + name +
                              "\": a name has a character at least, and none of " + kForbidden,
                          edit);
    const bool kept = edit.sessionBefore && edit.sessionBefore->name == name;
    if (!kept && factoryNames(ItemKind::Session).contains(name))
        throw RefusedEdit("The store has a session " + name + " of its own.", edit);
}

MemoryResult MemorySessions::store(const MemoryEdit& edit) {
    checkName(edit);
    try {
        m_database.store(changesToStore(edit));
    } catch (const ConflictError& error) {
        throw RefusedEdit(error.what(), edit, error.conflicts());
    } catch (const DatabaseError& error) {
        throw RefusedEdit(error.what(), edit);
    }
    return {0, edit.session.name, edit.session.xml};
}

MemoryResult MemorySessions::storeUnderAnotherName(const RefusedEdit& refused,
                                                   const std::string& name) {
    std::set<std::string> taken = factoryNames(ItemKind::PartFormat);
    for (const ListedItem& item : m_database.list(ItemKind::PartFormat)) taken.insert(item.name);
    return store(underAnotherName(refused.edit(), name, refused.conflicts(), taken));
}

}  // namespace wynconfig
