// The commands that make a store, and change the items in it.
#include <CLI/CLI.hpp>
#include <filesystem>
#include <memory>
#include <system_error>

#include "commands.h"
#include "items.h"
#include "workplace.h"
#include "wynconfig/error.h"
#include "wynconfig/observer.h"
#include "wynconfig/wynconfig.h"

namespace tool {

namespace {

/// Keeps the first failure that the component tells its user.
class FirstFailure : public wynconfig::Observer {
  public:
    void failed(const wynconfig::Failure& failure) override {
        if (description.empty()) description = failure.description;
    }

    std::string description;
};

int init(const Workplace& here) {
    const std::string root = here.namedRoot();
    std::error_code error;  // where the folder can't be made, the component tells what it lacks
    std::filesystem::create_directory(root, error);
    const auto failure = std::make_shared<FirstFailure>();
    wynconfig::installObserver(failure);
    wynconfig::WYNConfig().init(root);
    wynconfig::installObserver(nullptr);
    if (!Store(root).isMade())
        throw wynconfig::Error(wynconfig::errc::FileAccess, failure->description);
    here.answer({{"store", root}}, "");
    return kClean;
}

int rename(const Workplace& here, const std::string& format, const std::string& newName) {
    const Store store = here.store();
    const Names sessions = store.rename(format, newName, here.progress("renaming"));
    std::string lines;
    for (const std::string& name : sessions) lines += plain(name) + "\n";
    here.answer({{"format", wynconfig::upperName(format)},
                 {"newName", wynconfig::upperName(newName)},
                 {"sessions", sessions}},
                lines);
    return kClean;
}

/// A part format stays as long as a session has it.
void refuseIfUsed(const Workplace& here, const Store& store, const Item& item) {
    if (item.kind != ItemKind::PartFormat) return;
    const Names sessions = store.sessionsWith(item.name, here.progress("reading"));
    if (sessions.empty()) return;
    std::string text = "The part format \"" + item.name + "\" stays: sessions have it:";
    for (const std::string& name : sessions) text += " " + name;
    throw wynconfig::Error(wynconfig::errc::InvalidCall, text + ". See --force.");
}

int remove(const Workplace& here, const std::string& text, bool isForced) {
    const Store store = here.store();
    const Item item = itemMeant(allItems(store), text, "in the store");
    if (!isForced) refuseIfUsed(here, store, item);
    store.moveToDeleted(item.kind, item.name);
    here.answer({{"deleted", jsonOf(item)}}, "");
    return kClean;
}

int listDeleted(const Workplace& here) {
    const std::vector<Item> items = allDeleted(here.store());
    here.answer({{"items", jsonOf(items)}}, linesOf(items));
    return kClean;
}

int restore(const Workplace& here, const std::string& text) {
    const Store store = here.store();
    const Item item = itemMeant(allDeleted(store), text, "among the deleted ones");
    store.restore(item.kind, item.name);
    here.answer({{"restored", jsonOf(item)}}, "");
    return kClean;
}

}  // namespace

Run declareInit(CLI::App&) {
    return [](Workplace& here) { return init(here); };
}

Run declareRename(CLI::App& app) {
    const auto format = std::make_shared<std::string>();
    const auto newName = std::make_shared<std::string>();
    app.add_option("FORMAT", *format, "Name of a part format")->required();
    app.add_option("NEWNAME", *newName, "The name that it gets, in upper case")->required();
    return [=](Workplace& here) { return rename(here, *format, *newName); };
}

Run declareDelete(CLI::App& app) {
    const auto item = std::make_shared<std::string>();
    const auto isForced = std::make_shared<bool>(false);
    app.add_option("ITEM", *item, "NAME, session:NAME or format:NAME")->required();
    app.add_flag("--force", *isForced, "Delete also a part format that sessions have");
    return [=](Workplace& here) { return remove(here, *item, *isForced); };
}

Run declareDeleted(CLI::App&) {
    return [](Workplace& here) { return listDeleted(here); };
}

Run declareRestore(CLI::App& app) {
    const auto item = std::make_shared<std::string>();
    app.add_option("ITEM", *item, "NAME, session:NAME or format:NAME")->required();
    return [=](Workplace& here) { return restore(here, *item); };
}

}  // namespace tool
