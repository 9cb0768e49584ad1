// Does one of the component's pure parts so often, for its instructions to be counted by
// scripts/instructions.
#include <cstdlib>
#include <functional>
#include <iostream>
#include <map>
#include <memory>
#include <string>

#include "bench_store.h"
#include "platform/files/file_system.h"
#include "platform/text/numbers.h"
#include "platform/text/text.h"
#include "wynconfig/dataset.h"
#include "wynconfig/resource_manager.h"
#include "wynconfig/scripted_view.h"
#include "wynconfig/wynconfig.h"

namespace wynconfig::bench {

namespace {

using Part = std::function<void(int times)>;

/// A session of 26 rows, as text. It launches nothing, so that no program has to be there.
std::string sessionText() {
    Dataset record;
    fillSession(record, "DEALER ORDER DESK", "TAB SEPARATED");
    record.UpdateRow({"DisableProgramLaunch", ""}, {"DisableProgramLaunch", "true"});
    Document document;
    record.Save(document);
    return document.xml();
}

void parseText(int times, const std::string& text) {
    Document document;
    document.loadXML(text);
    Dataset record;
    while (times-- > 0) record.Load(document);
}

void parse(int times) {
    parseText(times, sessionText());
}

/// The same session as another program may have written it, without a declaration.
void parseForeign(int times) {
    parseText(times, " " + sessionText().substr(sessionText().find("<dataset")));
}

void write(int times) {
    Dataset record;
    fillSession(record, "DEALER ORDER DESK", "TAB SEPARATED");
    Document document;
    while (times-- > 0) record.Save(document);
}

void number(int times) {
    setNumberLocale("en-US");
    while (times-- > 0) {
        if (parseNumber(" -1,234.56e2 ") != -123456.0) std::abort();
    }
}

void upperCase(int times) {
    while (times-- > 0) {
        if (UCase("Straße nach Österreich").size() < 20) std::abort();
    }
}

/// A text for each key.
class Texts : public ResourceManager {
  public:
    std::string GetString(const std::string& key) override { return key; }
    Font GetFont(long) override { return {"Sans", 9.0, false, false}; }
};

/// Opens a session of the host's in the session dialog and presses OK.
void apply(int times) {
    const auto files = makeMemoryFileSystem();
    setFileSystem(files.get());
    const auto view = std::make_shared<ScriptedView>();
    installView(view);
    files->makeFolder("/store");
    WYNConfig component;
    component.InitResourceManager(std::make_shared<Texts>());
    component.init("/store/");
    const std::string session = sessionText();
    while (times-- > 0) {
        view->user().onForm("frmMORAMConfig", [](User& user) { user.click("btnOK"); });
        std::string name = "DEALER ORDER DESK";
        component.showMORAMConfigDlgEX(name, session, {});
        view->user().finish();
    }
    installView(nullptr);
    setFileSystem(nullptr);
}

const std::map<std::string, Part> kParts{
    {"parse-record", parse},   {"parse-foreign-record", parseForeign},
    {"write-record", write},   {"number", number},
    {"upper-case", upperCase}, {"apply-in-memory", apply}};

}  // namespace

}  // namespace wynconfig::bench

int main(int count, char** arguments) {
    using namespace wynconfig::bench;
    if (count < 2) {
        for (const auto& part : kParts) std::cout << part.first << "\n";
        return 0;
    }
    const auto part = kParts.find(arguments[1]);
    if (count != 3 || part == kParts.end()) {
        std::cerr << "wynconfig_instructions [PART TIMES]\n";
        return 2;
    }
    try {
        part->second(std::atoi(arguments[2]));
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << "\n";
        return 1;
    }
    return 0;
}
