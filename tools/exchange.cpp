// The commands that carry sessions with their part formats from one store to another.
#include <CLI/CLI.hpp>
#include <memory>
#include <utility>

#include "bundle.h"
#include "commands.h"
#include "files.h"
#include "manner.h"
#include "workplace.h"
#include "wynconfig/error.h"

namespace tool {

namespace {

/// The sessions that a person means, each as its file is spelt; all of the store for none.
Names sessionsMeant(const Store& store, const Names& texts) {
    if (texts.empty()) return store.names(ItemKind::Session);
    std::vector<Item> items;
    for (std::string& name : store.names(ItemKind::Session))
        items.push_back({ItemKind::Session, std::move(name)});
    Names names;
    for (const std::string& text : texts)
        names.push_back(itemMeant(items, text, "among the sessions of " + store.root()).name);
    return names;
}

Json missingOf(const Bundle& bundle) {
    Json list = Json::array();
    for (const auto& [session, format] : bundle.missing)
        list.push_back({{"session", session}, {"format", format}});
    return list;
}

int exportTo(const Workplace& here, const Names& texts, const std::string& file) {
    const Store store = here.store();
    const Bundle bundle = bundleOf(store, sessionsMeant(store, texts), here.progress("reading"));
    writeFile(file, textOf(bundle));
    std::vector<Item> items;
    items.reserve(bundle.items.size());
    for (const auto& each : bundle.items) items.push_back({each.kind, each.record->Name()});
    for (const auto& [session, format] : bundle.missing)
        here.remark("The session \"" + session + "\" names the part format \"" + format +
                    "\", which is not there.");
    here.answer({{"file", file}, {"items", jsonOf(items)}, {"missing", missingOf(bundle)}},
                linesOf(items));
    return bundle.missing.empty() ? kClean : kFindings;
}

int importFrom(const Workplace& here, const std::string& file, Manner manner) {
    const Store store = here.store();
    return carryOver(here, planOf(store, bundleFrom(readFile(file))), manner, "imported",
                     [&](const Plan& plan) { store.save(plan.toSave, here.progress("writing")); });
}

/// What came of one session.
struct Migrated {
    const char* result = "failed";
    Json json;
    std::string line;
    ExitCode code = kFailed;
};

/// Carries one session over, with its part formats or not at all.
Migrated migrateOne(const Store& from, const Store& to, const std::string& name, Manner manner) {
    Migrated done;
    done.json = {{"name", name}};
    std::string remark;
    try {
        const Bundle bundle = bundleOf(from, {name});
        const Plan plan = planOf(to, bundle);
        const bool hasConflicts = !plan.differing.empty() && !manner.replaces;
        if (!hasConflicts && !manner.isDryRun) to.save(plan.toSave);
        const bool isNothing = plan.toSave.empty();
        done.result = hasConflicts ? "conflict" : isNothing ? "unchanged" : "migrated";
        done.code = hasConflicts || !bundle.missing.empty() ? kFindings : kClean;
        done.json["result"] = done.result;
        done.json.update(jsonOf(plan, manner.replaces));
        Json missing = Json::array();
        for (const auto& each : bundle.missing) {
            missing.push_back(each.format);
            remark += " (format:" + plain(each.format) + " is not there)";
        }
        done.json["missing"] = missing;
        if (hasConflicts) {
            for (const Item& item : plan.differing) remark += " " + textOf(item);
        }
    } catch (const wynconfig::Error& error) {
        done.json["result"] = done.result;
        done.json["message"] = error.description();
        remark = " " + plain(error.description());
    }
    done.line = std::string(done.result) + " session:" + plain(name) +
                (remark.empty() ? "" : ":" + remark) + "\n";
    return done;
}

int migrate(const Workplace& here, const std::string& root, const Names& texts, bool all,
            Manner manner) {
    if (all != texts.empty()) throw UsageError("Name sessions to migrate, or say --all.");
    const Store from = Workplace::storeAt(root);
    const Store to = here.store();
    const Names sessions = sessionsMeant(from, texts);
    const auto progress = here.progress("migrating");
    Json list = Json::array();
    std::string lines;
    int code = kClean;
    for (const std::string& name : sessions) {
        Migrated done = migrateOne(from, to, name, manner);
        list.push_back(std::move(done.json));
        lines += done.line;
        code = std::max<int>(code, done.code);
        progress(list.size(), sessions.size());
    }
    here.answer({{"dryRun", manner.isDryRun}, {"sessions", list}}, lines);
    return code;
}

/// Any number of names on the command line. The parser makes a list of "[A,B]": an item of such a
/// name is named with its kind in front.
std::shared_ptr<Names> declareSessions(CLI::App& app, const std::string& description) {
    auto names = std::make_shared<Names>();
    app.add_option(
           "SESSION",
           [names](const CLI::results_t& given) {
               *names = given;
               return true;
           },
           description)
        ->type_name("NAME")
        ->expected(1, CLI::detail::expected_max_vector_size)
        ->allow_extra_args();
    return names;
}

}  // namespace

Run declareExport(CLI::App& app) {
    const auto sessions = declareSessions(app, "The sessions; without any, all of the store");
    const auto file = std::make_shared<std::string>();
    app.add_option("--to", *file, "The file to write")->type_name("FILE")->required();
    return [=](Workplace& here) { return exportTo(here, *sessions, *file); };
}

Run declareImport(CLI::App& app) {
    const auto file = std::make_shared<std::string>();
    app.add_option("FILE", *file, "A file that export has written")->required();
    const auto manner = declareManner(app);
    return [=](Workplace& here) { return importFrom(here, *file, *manner); };
}

Run declareMigrate(CLI::App& app) {
    const auto root = std::make_shared<std::string>();
    app.add_option("OTHERROOT", *root, "Root of the store that the sessions come from")->required();
    const auto sessions = declareSessions(app, "The sessions to take over");
    const auto all = std::make_shared<bool>(false);
    app.add_flag("--all", *all, "All sessions of the other store");
    const auto manner = declareManner(app);
    return [=](Workplace& here) { return migrate(here, *root, *sessions, *all, *manner); };
}

}  // namespace tool
