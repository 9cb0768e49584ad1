// Collecting items, writing and reading them, and comparing them with a store.
#include "bundle.h"

#include <algorithm>
#include <memory>
#include <set>
#include <utility>

#include "wynconfig/dataset.h"
#include "wynconfig/error.h"

namespace tool {

namespace {

using wynconfig::Dataset;
using wynconfig::Error;
using wynconfig::StoreItem;
namespace errc = wynconfig::errc;

constexpr const char* kMark = "wynconfig";
constexpr const char* kContent = "items";
constexpr int kVersion = 1;

const char* listOf(ItemKind kind) {
    return kind == ItemKind::Session ? "sessions" : "formats";
}

[[noreturn]] void refuse(const std::string& cause) {
    throw Error(errc::BadRecord, "The file holds no exported items: " + cause + ".");
}

/// Collects items, each once.
class Collector {
  public:
    explicit Collector(const Store& store) : m_store(store) {}

    void takeSession(const std::string& session) {
        const auto record = take({ItemKind::Session, session});
        if (!record) return;
        for (const std::string& format : wynconfig::formatsOf(*record)) {
            if (m_store.has(ItemKind::PartFormat, format))
                take({ItemKind::PartFormat, format});
            else
                m_bundle.missing.push_back({session, format});
        }
    }
    void takeFormat(const std::string& format) { take({ItemKind::PartFormat, format}); }
    Bundle bundle() { return std::move(m_bundle); }

  private:
    /// The record; null when it is there already.
    std::shared_ptr<Dataset> take(const Item& item) {
        const std::string name = wynconfig::upperName(item.name);
        if (!m_taken.insert({item.kind, name}).second) return nullptr;
        auto record = m_store.read(item.kind, item.name);
        if (wynconfig::upperName(record->Name()) != name) record->setName(name);
        if (record->Type() != typeOf(item.kind))
            throw Error(errc::BadRecord, "The file " + fileOf(m_store, item) +
                                             " holds a record of the type \"" + record->Type() +
                                             "\".");
        m_bundle.items.push_back({item.kind, record});
        return record;
    }

    const Store& m_store;
    std::set<std::pair<ItemKind, std::string>> m_taken;
    Bundle m_bundle;
};

StoreItem itemFrom(const Json& json, ItemKind kind) {
    const std::string what = wordOf(kind);
    if (!json.is_object() || !json.contains("name") || !json.contains("xml") ||
        !json["name"].is_string() || !json["xml"].is_string())
        refuse("a " + what + " has no name, or no XML");
    const std::string name = json["name"];
    const std::string label = "the " + what + " \"" + name + "\" ";
    wynconfig::Document document;
    if (!document.loadXML(json["xml"])) refuse(label + "is not well-formed XML");
    const auto record = std::make_shared<Dataset>();
    record->Load(document);
    if (record->Name() != name)
        refuse(label + "has the name \"" + record->Name() + "\" in its XML");
    if (!wynconfig::isItemName(name)) refuse(label + "can't have that name");
    if (record->Type() != typeOf(kind))
        refuse(label + "is a record of the type \"" + record->Type() + "\"");
    return {kind, record};
}

/// Whether two records say the same. The order of the rows says nothing.
bool isSame(const Dataset& one, const Dataset& other) {
    const auto rows = [](const Dataset& record) {
        return std::set<wynconfig::DataRow>(record.Rows().begin(), record.Rows().end());
    };
    return one.Type() == other.Type() && rows(one) == rows(other) &&
           wynconfig::upperName(one.Name()) == wynconfig::upperName(other.Name());
}

}  // namespace

Bundle bundleOf(const Store& store, const Names& sessions,
                const wynconfig::StoreProgress& progress) {
    Collector collector(store);
    std::size_t done = 0;
    for (const std::string& session : sessions) {
        collector.takeSession(session);
        if (progress) progress(++done, sessions.size());
    }
    return collector.bundle();
}

Bundle wholeStore(const Store& store, const wynconfig::StoreProgress& progress) {
    const Names sessions = store.names(ItemKind::Session);
    const Names formats = store.names(ItemKind::PartFormat);
    Collector collector(store);
    std::size_t done = 0;
    const auto tell = [&] {
        if (progress) progress(++done, sessions.size() + formats.size());
    };
    for (const std::string& session : sessions) {
        collector.takeSession(session);
        tell();
    }
    for (const std::string& format : formats) {
        collector.takeFormat(format);
        tell();
    }
    return collector.bundle();
}

std::string textOf(const Bundle& bundle) {
    Json json{{kMark, kContent}, {"version", kVersion}};
    for (const ItemKind kind : {ItemKind::Session, ItemKind::PartFormat}) {
        Json& list = json[listOf(kind)] = Json::array();
        for (const StoreItem& item : bundle.items) {
            if (item.kind != kind) continue;
            wynconfig::Document document;
            item.record->Save(document);
            list.push_back({{"name", item.record->Name()}, {"xml", document.xml()}});
        }
    }
    return json.dump(2) + "\n";
}

Bundle bundleFrom(const std::string& text) {
    const Json json = Json::parse(text, nullptr, false);
    if (json.is_discarded()) refuse("it is no JSON");
    if (!json.is_object() || json.value(kMark, Json()) != kContent)
        refuse("they are not marked so");
    if (json.value("version", Json()) != kVersion) refuse("it has a version unknown here");
    Bundle bundle;
    for (const ItemKind kind : {ItemKind::Session, ItemKind::PartFormat}) {
        const Json list = json.value(listOf(kind), Json());
        if (!list.is_array()) refuse(std::string("it has no list of ") + listOf(kind));
        std::set<std::string> names;
        for (const Json& each : list) {
            bundle.items.push_back(itemFrom(each, kind));
            const std::string& name = bundle.items.back().record->Name();
            if (!names.insert(wynconfig::upperName(name)).second)
                refuse(std::string("the ") + wordOf(kind) + " \"" + name + "\" is there twice");
        }
    }
    return bundle;
}

Plan planOf(const Bundle& bundle,
            const std::function<std::shared_ptr<const Dataset>(const StoreItem& item)>& present) {
    Plan plan;
    for (const StoreItem& item : bundle.items) {
        const Item named{item.kind, item.record->Name()};
        const auto there = present(item);
        if (there && isSame(*there, *item.record)) {
            plan.unchanged.push_back(named);
            continue;
        }
        (there ? plan.differing : plan.added).push_back(named);
        plan.toSave.push_back(item);
    }
    return plan;
}

Plan planOf(const Store& store, const Bundle& bundle) {
    return planOf(bundle, [&](const StoreItem& item) -> std::shared_ptr<const Dataset> {
        const std::string& name = item.record->Name();
        if (!store.has(item.kind, name)) return nullptr;
        try {
            return store.read(item.kind, name);
        } catch (const Error& error) {
            if (error.number() != errc::BadRecord) throw;
            return std::make_shared<Dataset>();
        }
    });
}

}  // namespace tool
