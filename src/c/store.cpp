// Records, and what is in a store.
#include <algorithm>

#include "c/calls.h"
#include "wynconfig/keys.h"

namespace wynconfig::c {

namespace {

std::shared_ptr<Dataset> freshRecord(ItemKind kind, const std::string& name) {
    auto record = std::make_shared<Dataset>();
    record->Create(kind == ItemKind::Session ? session::kType : partformat::kType, name, "",
                   session::kColumns);
    record->SetKey(session::kColumns[0]);
    return record;
}

StoreItem itemOf(wyn_record* handle) {
    const auto record = get<Dataset>(handle);
    const bool isSession = record->Type() == session::kType;
    if (!isSession && record->Type() != partformat::kType)
        throw Error(WYN_ERROR_CALL, "A record of the type \"" + record->Type() +
                                        "\" is neither a session nor a part format.");
    return {isSession ? ItemKind::Session : ItemKind::PartFormat, record};
}

/// A call that asks a store or record for a text.
template <class T, class Ask>
std::int32_t ask(const char* function, typename HandleOf<T>::Type* handle, char** place,
                 const Ask& question) {
    return run(function, [&] {
        requirePlace(place);
        *place = textOut(question(*get<T>(handle)));
    });
}

/// A call that asks a store or record for a list.
template <class T, class Ask>
std::int32_t askList(const char* function, typename HandleOf<T>::Type* handle, wyn_list** place,
                     const Ask& question) {
    return run(function, [&] {
        requirePlace(place);
        *place = listOf(question(*get<T>(handle)));
    });
}

}  // namespace

}  // namespace wynconfig::c

using namespace wynconfig;
using namespace wynconfig::c;

int32_t wyn_upper_name(const char* name, char** upper) {
    return run("wyn_upper_name", [&] {
        requirePlace(upper);
        *upper = textOut(upperName(textIn(name)));
    });
}

int32_t wyn_is_item_name(const char* name, int32_t* is_one) {
    return run("wyn_is_item_name", [&] {
        requirePlace(is_one);
        *is_one = isItemName(textIn(name)) ? 1 : 0;
    });
}

int32_t wyn_record_new(int32_t kind, const char* name, wyn_record** record) {
    return run("wyn_record_new", [&] {
        requirePlace(record);
        *record = open(freshRecord(itemKind(kind), textIn(name)));
    });
}

int32_t wyn_record_load(const char* path, wyn_record** record) {
    return run("wyn_record_load", [&] {
        requirePlace(record);
        const auto loaded = std::make_shared<Dataset>();
        loaded->Load(textIn(path));
        *record = open(loaded);
    });
}

int32_t wyn_record_parse(const char* xml, wyn_record** record) {
    return run("wyn_record_parse", [&] {
        requirePlace(record);
        Document document;
        if (!document.loadXML(textIn(xml)))
            throw Error(WYN_ERROR_RECORD, "The text is not well-formed XML.");
        const auto parsed = std::make_shared<Dataset>();
        parsed->Load(document);
        *record = open(parsed);
    });
}

int32_t wyn_record_type(wyn_record* record, char** type) {
    return ask<Dataset>("wyn_record_type", record, type,
                        [](const Dataset& asked) { return asked.Type(); });
}

int32_t wyn_record_name(wyn_record* record, char** name) {
    return ask<Dataset>("wyn_record_name", record, name,
                        [](const Dataset& asked) { return asked.Name(); });
}

int32_t wyn_record_rows(wyn_record* record, wyn_list** rows) {
    return askList<Dataset>("wyn_record_rows", record, rows, [](const Dataset& asked) {
        Rows all;
        for (const DataRow& row : asked.Rows()) all.push_back({row[0], row[1]});
        return all;
    });
}

int32_t wyn_record_get(wyn_record* record, const char* key, char** value) {
    return ask<Dataset>("wyn_record_get", record, value,
                        [&](const Dataset& asked) { return asked.GetRow(textIn(key))[1]; });
}

int32_t wyn_record_set(wyn_record* record, const char* key, const char* value) {
    return run("wyn_record_set", [&] {
        const auto changed = get<Dataset>(record);
        const DataRow row{textIn(key), textIn(value)};
        try {
            changed->UpdateRow(row, row);
        } catch (const Error& error) {
            if (error.number() != errc::NoSuchKey) throw;
            changed->AddRow(row);
        }
    });
}

int32_t wyn_record_remove(wyn_record* record, const char* key) {
    return run("wyn_record_remove", [&] { get<Dataset>(record)->DeleteRow(textIn(key)); });
}

int32_t wyn_record_save(wyn_record* record, const char* path) {
    return run("wyn_record_save", [&] { get<Dataset>(record)->Save(textIn(path)); });
}

int32_t wyn_record_xml(wyn_record* record, char** xml) {
    return ask<Dataset>("wyn_record_xml", record, xml, [](const Dataset& asked) {
        Document document;
        asked.Save(document);
        return document.xml();
    });
}

int32_t wyn_store_open(const char* root, wyn_store** store) {
    return run("wyn_store_open", [&] {
        requirePlace(store);
        *store = open(std::make_shared<Store>(textIn(root)));
    });
}

int32_t wyn_store_is_made(wyn_store* store, int32_t* is_made) {
    return run("wyn_store_is_made", [&] {
        requirePlace(is_made);
        *is_made = get<Store>(store)->isMade() ? 1 : 0;
    });
}

int32_t wyn_store_names(wyn_store* store, int32_t kind, wyn_list** names) {
    return askList<Store>("wyn_store_names", store, names,
                          [&](const Store& asked) { return asked.names(itemKind(kind)); });
}

int32_t wyn_store_has(wyn_store* store, int32_t kind, const char* name, int32_t* has) {
    return run("wyn_store_has", [&] {
        requirePlace(has);
        *has = get<Store>(store)->has(itemKind(kind), textIn(name)) ? 1 : 0;
    });
}

int32_t wyn_store_path(wyn_store* store, int32_t kind, const char* name, char** path) {
    return ask<Store>("wyn_store_path", store, path, [&](const Store& asked) {
        std::string place = asked.path(itemKind(kind), textIn(name)).text();
#ifndef _WIN32
        // The component takes both for separators, other programs do not.
        std::replace(place.begin(), place.end(), '\\', '/');
#endif
        return place;
    });
}

int32_t wyn_store_read(wyn_store* store, int32_t kind, const char* name, wyn_record** record) {
    return run("wyn_store_read", [&] {
        requirePlace(record);
        *record = open(get<Store>(store)->read(itemKind(kind), textIn(name)));
    });
}

int32_t wyn_store_sessions_with(wyn_store* store, const char* format, wyn_list** sessions) {
    return askList<Store>("wyn_store_sessions_with", store, sessions,
                          [&](const Store& asked) { return asked.sessionsWith(textIn(format)); });
}

int32_t wyn_store_check(wyn_store* store, wyn_list** faults) {
    return askList<Store>("wyn_store_check", store, faults, [](const Store& asked) {
        Rows rows;
        for (const StoreFault& fault : asked.check()) {
            const char* kind = fault.kind == ItemKind::Session ? "session " : "part format ";
            rows.push_back({kind + fault.item, fault.what});
        }
        return rows;
    });
}

int32_t wyn_store_save(wyn_store* store, wyn_record* const* records, size_t count) {
    return run("wyn_store_save", [&] {
        const auto changed = get<Store>(store);
        if (!records && count > 0) throw Error(WYN_ERROR_CALL, "There are no records to count.");
        std::vector<StoreItem> items;
        for (std::size_t i = 0; i < count; ++i) items.push_back(itemOf(records[i]));
        changed->save(items);
    });
}

int32_t wyn_store_rename(wyn_store* store, const char* format, const char* new_name,
                         wyn_list** sessions) {
    return askList<Store>("wyn_store_rename", store, sessions, [&](const Store& changed) {
        return changed.rename(textIn(format), textIn(new_name));
    });
}

int32_t wyn_store_deleted_names(wyn_store* store, int32_t kind, wyn_list** names) {
    return askList<Store>("wyn_store_deleted_names", store, names,
                          [&](const Store& asked) { return asked.deletedNames(itemKind(kind)); });
}

int32_t wyn_store_move_to_deleted(wyn_store* store, int32_t kind, const char* name) {
    return run("wyn_store_move_to_deleted",
               [&] { get<Store>(store)->moveToDeleted(itemKind(kind), textIn(name)); });
}

int32_t wyn_store_restore(wyn_store* store, int32_t kind, const char* name) {
    return run("wyn_store_restore",
               [&] { get<Store>(store)->restore(itemKind(kind), textIn(name)); });
}
