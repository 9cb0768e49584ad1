// Comparing what was handed to the component with what came back.
#include "database/memory_edit.h"

#include <algorithm>
#include <map>
#include <memory>
#include <utility>

#include "wynconfig/dataset.h"
#include "wynconfig/error.h"
#include "wynconfig/keys.h"
#include "wynconfig/store.h"

namespace wynconfig {

namespace {

std::unique_ptr<Dataset> recordOf(const std::string& xml) {
    Document document;
    if (!document.loadXML(xml)) throw DatabaseError("This is no XML text: " + xml);
    auto record = std::make_unique<Dataset>();
    record->Load(document);
    return record;
}

std::string textOf(const Dataset& record) {
    Document document;
    record.Save(document);
    return document.xml();
}

/// Whether a row of a session names a part format.
bool namesFormat(const DataRow& row) {
    const std::string& key = row[0];
    if (key == session::kPartFormat) return !row[1].empty();
    const std::string& head = session::kFormatPrefix;
    return key.starts_with(head) && key.size() > head.size() &&
           key.find_first_not_of("0123456789", head.size()) == std::string::npos;
}

std::set<std::string> formatsOf(const ItemText& session) {
    std::set<std::string> names;
    const auto record = recordOf(session.xml);
    for (const DataRow& row : record->Rows()) {
        if (namesFormat(row)) names.insert(upperName(row[1]));
    }
    return names;
}

ItemText renamed(const ItemText& item, const std::string& name) {
    const auto record = recordOf(item.xml);
    record->setName(name);
    return {name, textOf(*record)};
}

/// A session with other names of its part formats.
ItemText withFormats(const ItemText& session, const std::map<std::string, std::string>& newNames) {
    const auto record = recordOf(session.xml);
    const auto rows = record->Rows();
    for (const DataRow& row : rows) {
        const auto found = newNames.find(upperName(row[1]));
        if (namesFormat(row) && found != newNames.end())
            record->UpdateRow(row, {row[0], found->second});
    }
    return {session.name, textOf(*record)};
}

std::string freeName(const std::string& name, const std::set<std::string>& taken) {
    for (int number = 2;; ++number) {
        std::string candidate = name + " " + std::to_string(number);
        if (!taken.contains(candidate)) return candidate;
    }
}

template <class Items>
auto findItem(Items& items, const std::string& name) {
    return std::find_if(items.begin(), items.end(),
                        [&](const auto& each) { return each.name == name; });
}

void addSessionChanges(const MemoryEdit& edit, std::vector<ItemChange>& changes) {
    const auto& [name, xml] = edit.session;
    const auto& before = edit.sessionBefore;
    if (!before) {
        changes.push_back({ItemChange::Act::Insert, ItemKind::Session, name, xml});
    } else if (before->name != name) {
        changes.push_back(
            {ItemChange::Act::Delete, ItemKind::Session, before->name, {}, before->version});
        changes.push_back({ItemChange::Act::Insert, ItemKind::Session, name, xml});
    } else if (!sameRecord(before->xml, xml)) {
        changes.push_back({ItemChange::Act::Update, ItemKind::Session, name, xml, before->version});
    }
}

}  // namespace

ItemText readItem(const std::string& xml, const std::string& type) {
    try {
        const auto record = recordOf(xml);
        if (record->Type() == type && !record->Name().empty())
            return {upperName(record->Name()), xml};
    } catch (const Error& error) {
        throw DatabaseError(error.description());
    }
    throw DatabaseError("This is no record of the type " + type + ": " + xml);
}

bool sameRecord(const std::string& xml, const std::string& other) {
    if (xml == other) return true;
    const auto sorted = [](const Dataset& record) {
        return std::set<DataRow>(record.Rows().begin(), record.Rows().end());
    };
    const auto first = recordOf(xml);
    const auto second = recordOf(other);
    return first->Name() == second->Name() && sorted(*first) == sorted(*second);
}

std::vector<ItemChange> changesOf(const MemoryEdit& edit) {
    std::vector<ItemChange> changes;
    addSessionChanges(edit, changes);
    const std::set<std::string> used = formatsOf(edit.session);
    for (const auto& [name, xml] : edit.formats) {
        const auto before = findItem(edit.formatsBefore, name);
        if (before == edit.formatsBefore.end())
            changes.push_back({ItemChange::Act::Insert, ItemKind::PartFormat, name, xml});
        else if (!sameRecord(before->xml, xml))
            changes.push_back(
                {ItemChange::Act::Update, ItemKind::PartFormat, name, xml, before->version});
        else if (used.contains(name))
            changes.push_back({ItemChange::Act::Need, ItemKind::PartFormat, name});
    }
    for (const StoredItem& before : edit.formatsBefore) {
        if (findItem(edit.formats, before.name) == edit.formats.end())
            changes.push_back(
                {ItemChange::Act::Delete, ItemKind::PartFormat, before.name, {}, before.version});
    }
    return changes;
}

MemoryEdit underAnotherName(MemoryEdit edit, const std::string& name,
                            const std::vector<ItemConflict>& conflicts,
                            std::set<std::string> takenFormats) {
    edit.sessionBefore.reset();
    edit.session = renamed(edit.session, upperName(name));
    for (const ItemText& format : edit.formats) takenFormats.insert(format.name);
    std::map<std::string, std::string> newNames;
    for (const ItemConflict& conflict : conflicts) {
        if (conflict.change.kind != ItemKind::PartFormat) continue;
        const std::string& old = conflict.change.name;
        // Whatever happened to it, the edit no longer goes on from there.
        std::erase_if(edit.formatsBefore, [&](const auto& each) { return each.name == old; });
        const auto mine = findItem(edit.formats, old);
        if (mine == edit.formats.end() || !conflict.present) continue;
        const std::string free = freeName(old, takenFormats);
        takenFormats.insert(free);
        newNames[old] = free;
        *mine = renamed(*mine, free);
    }
    edit.session = withFormats(edit.session, newNames);
    return edit;
}

}  // namespace wynconfig
