// The commands that only look at a store.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <map>
#include <memory>

#include "commands.h"
#include "items.h"
#include "workplace.h"
#include "wynconfig/dataset.h"
#include "wynconfig/error.h"

namespace tool {

namespace {

int list(const Workplace& here, const std::string& which) {
    std::vector<Item> items = allItems(here.store());
    if (which.empty()) {
        here.answer({{"items", jsonOf(items)}}, linesOf(items));
        return kClean;
    }
    const ItemKind kind = which == "sessions" ? ItemKind::Session : ItemKind::PartFormat;
    std::erase_if(items, [&](const Item& item) { return item.kind != kind; });
    std::string names;
    for (const Item& item : items) names += plain(item.name) + "\n";
    here.answer({{"items", jsonOf(items)}}, names);
    return kClean;
}

int show(const Workplace& here, const std::string& text) {
    const Store store = here.store();
    const Item item = itemMeant(allItems(store), text, "in the store");
    const auto record = store.read(item.kind, item.name);
    Json json = jsonOf(item);
    json["file"] = fileOf(store, item);
    json["type"] = record->Type();
    json["storedName"] = record->Name();
    json["values"] = Json::object();
    std::string lines;
    for (const auto& [key, value] : record->Rows()) {
        json["values"][key] = value;
        lines += plain(key) + " = " + plain(value) + "\n";
    }
    here.answer(json, lines);
    return kClean;
}

const char* wordOfCause(wynconfig::StoreFault::Cause cause) {
    using Cause = wynconfig::StoreFault::Cause;
    static const std::map<Cause, const char*> words{
        {Cause::Unreadable, "unreadable"},        {Cause::WrongType, "wrong-type"},
        {Cause::OtherName, "other-name"},         {Cause::UnknownKey, "unknown-key"},
        {Cause::FormatCount, "format-count"},     {Cause::MissingKey, "missing-key"},
        {Cause::MissingFormat, "missing-format"}, {Cause::MissingProgram, "missing-program"},
    };
    return words.at(cause);
}

int check(const Workplace& here) {
    const Store store = here.store();
    Json findings = Json::array();
    std::string lines;
    for (const wynconfig::StoreFault& fault : store.check(here.progress("checking"))) {
        const Item item{fault.kind, fault.item};
        const std::string file = fileOf(store, item);
        Json finding = jsonOf(item);
        finding["file"] = file;
        if (fault.line > 0) finding["line"] = fault.line;
        finding["cause"] = wordOfCause(fault.cause);
        finding["reason"] = fault.what;
        findings.push_back(finding);
        lines += plain(file) + (fault.line > 0 ? ":" + std::to_string(fault.line) : "") + ": " +
                 textOf(item) + ": " + plain(fault.what) + "\n";
    }
    const int code = findings.empty() ? kClean : kFindings;
    here.answer({{"findings", std::move(findings)}}, lines);
    return code;
}

int refs(const Workplace& here, const std::string& format) {
    const Store store = here.store();
    const bool isThere = store.has(ItemKind::PartFormat, format);
    const Names sessions = store.sessionsWith(format, here.progress("reading"));
    if (!isThere && sessions.empty())
        throw wynconfig::Error(
            wynconfig::errc::FileNotFound,
            "There is no part format \"" + format + "\" in the store, nor in any session.");
    std::string lines;
    for (const std::string& name : sessions) lines += plain(name) + "\n";
    here.answer({{"format", format}, {"exists", isThere}, {"sessions", sessions}}, lines);
    return kClean;
}

}  // namespace

Run declareList(CLI::App& app) {
    const auto which = std::make_shared<std::string>();
    app.add_option("WHICH", *which, "\"sessions\" or \"formats\"; without it, both")
        ->check(CLI::IsMember({"sessions", "formats"}));
    return [which](Workplace& here) { return list(here, *which); };
}

Run declareShow(CLI::App& app) {
    const auto item = std::make_shared<std::string>();
    app.add_option("ITEM", *item, "NAME, session:NAME or format:NAME")->required();
    return [item](Workplace& here) { return show(here, *item); };
}

Run declareCheck(CLI::App&) {
    return [](Workplace& here) { return check(here); };
}

Run declareRefs(CLI::App& app) {
    const auto format = std::make_shared<std::string>();
    app.add_option("FORMAT", *format, "Name of a part format")->required();
    return [format](Workplace& here) { return refs(here, *format); };
}

}  // namespace tool
