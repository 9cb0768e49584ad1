// The command that carries a store into a database and back.
#include <CLI/CLI.hpp>
#include <cstdlib>
#include <map>
#include <utility>

#include "commands.h"
#include "manner.h"
#include "wynconfig/database.h"
#include "wynconfig/error.h"

namespace tool {

namespace {

using wynconfig::Dataset;
using wynconfig::ItemChange;
using wynconfig::SessionDatabase;
using wynconfig::StoredItem;
using wynconfig::StoreItem;

constexpr ItemKind kKinds[] = {ItemKind::Session, ItemKind::PartFormat};

/// What the database has, by kind and name.
using Present = std::map<std::pair<ItemKind, std::string>, StoredItem>;

Present presentIn(SessionDatabase& database) {
    Present present;
    for (const ItemKind kind : kKinds) {
        for (StoredItem& item : database.items(kind)) {
            std::string name = item.name;
            present.emplace(std::pair(kind, std::move(name)), std::move(item));
        }
    }
    return present;
}

std::pair<ItemKind, std::string> keyOf(const StoreItem& item) {
    return {item.kind, wynconfig::upperName(item.record->Name())};
}

/// The record of a text; null when it is none.
std::shared_ptr<Dataset> recordFrom(const std::string& xml) {
    wynconfig::Document document;
    auto record = std::make_shared<Dataset>();
    try {
        if (!document.loadXML(xml)) return nullptr;
        record->Load(document);
    } catch (const wynconfig::Error&) {
        return nullptr;
    }
    return record;
}

std::string xmlOf(const Dataset& record) {
    wynconfig::Document document;
    record.Save(document);
    return document.xml();
}

int push(const Workplace& here, SessionDatabase& database, Manner manner) {
    const Bundle bundle = wholeStore(here.store(), here.progress("reading"));
    const Present present = presentIn(database);
    const Plan plan = planOf(bundle, [&](const StoreItem& item) -> std::shared_ptr<const Dataset> {
        const auto found = present.find(keyOf(item));
        if (found == present.end()) return nullptr;
        const auto record = recordFrom(found->second.xml);
        return record ? record : std::make_shared<Dataset>();
    });
    return carryOver(here, plan, manner, "pushed", [&](const Plan& planned) {
        std::vector<ItemChange> changes;
        for (const StoreItem& item : planned.toSave) {
            const auto found = present.find(keyOf(item));
            const bool isThere = found != present.end();
            changes.push_back({isThere ? ItemChange::Act::Update : ItemChange::Act::Insert,
                               item.kind, item.record->Name(), xmlOf(*item.record),
                               isThere ? found->second.version : 0});
        }
        database.store(changes);
    });
}

int pull(const Workplace& here, SessionDatabase& database, Manner manner) {
    const Store store = here.store();
    Bundle bundle;
    for (const auto& [key, item] : presentIn(database)) {
        const auto record = recordFrom(item.xml);
        if (!record || wynconfig::upperName(record->Name()) != item.name)
            throw wynconfig::Error(wynconfig::errc::BadRecord,
                                   "The item " + textOf(Item{key.first, item.name}) +
                                       " of the database is no record of that name.");
        bundle.items.push_back({key.first, record});
    }
    return carryOver(here, planOf(store, bundle), manner, "pulled",
                     [&](const Plan& plan) { store.save(plan.toSave, here.progress("writing")); });
}

int run(const Workplace& here, bool pushes, const std::string& address, const std::string& who,
        Manner manner) {
    try {
        SessionDatabase database(wynconfig::DatabaseAddress::parseCommandLine(address), who);
        return pushes ? push(here, database, manner) : pull(here, database, manner);
    } catch (const wynconfig::DatabaseError& error) {
        throw wynconfig::Error(wynconfig::errc::FileAccess, error.what());
    }
}

}  // namespace

Run declareSql(CLI::App& app) {
    const auto direction = std::make_shared<std::string>();
    const auto address = std::make_shared<std::string>();
    const char* const user = std::getenv("USER");
    const auto who = std::make_shared<std::string>(user && *user ? user : "wynconfig");
    app.add_option("DIRECTION", *direction,
                   "push: the store into the database; pull: the database into the store")
        ->type_name("push|pull")
        ->check(CLI::IsMember({"push", "pull"}))
        ->required();
    app.add_option("ADDRESS", *address,
                   "postgresql://user@host:port/name without its password, which PGPASSWORD or "
                   "~/.pgpass has; or a file of SQLite")
        ->required();
    app.add_option("--as", *who, "Who changes things there; without it the user")
        ->type_name("NAME");
    const auto manner = declareManner(app);
    return
        [=](Workplace& here) { return run(here, *direction == "push", *address, *who, *manner); };
}

}  // namespace tool
