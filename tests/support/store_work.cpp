// The store, the person and the operations.
#include "support/store_work.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>

#include "platform/files/file_system.h"
#include "platform/text/numbers.h"
#include "services/global_error.h"
#include "store/config_global_module.h"
#include "store/session_record.h"
#include "support/desk.h"
#include "support/format_rows.h"
#include "support/rows.h"
#include "wynconfig/error.h"
#include "wynconfig/scripted_view.h"
#include "wynconfig/store.h"
#include "wynconfig/wynconfig.h"

namespace wynconfig {

/// What is made ready once in a process.
struct WorkDesk {
    WorkDesk() {
        installView(view);
        component.InitResourceManager(texts);
        current = this;
    }
    WorkDesk(const WorkDesk&) = delete;
    WorkDesk& operator=(const WorkDesk&) = delete;
    ~WorkDesk() {
        installView(nullptr);
        ConfigGlobalModule::reset();
        resetGlobalError();
        current = nullptr;
    }

    inline static WorkDesk* current = nullptr;

    WYNConfig component;
    std::shared_ptr<TestTexts> texts = std::make_shared<TestTexts>();
    std::shared_ptr<ScriptedView> view = std::make_shared<ScriptedView>();
    std::string error;
    int descriptors = 0;
};

namespace {

namespace fs = std::filesystem;

std::string recordText(const std::string& type, const std::string& name, const Stored& rows) {
    Dataset record;
    record.Create(type, name, "", session::kColumns);
    for (const auto& [key, data] : rows) record.AddRow({key, data});
    return xmlOf(record);
}

std::string formatText(const std::string& name) {
    return recordText("PARTFORMAT", name, with(kOwnFormat, "Header", "head of " + name));
}

std::string sessionText(const std::string& folder, const std::string& name,
                        const std::vector<std::string>& formats) {
    Stored rows{{"ProgramPath", folder + "/program"},
                {"CommandLineArgs", "/of " + name},
                {"ReverseList", "false"},
                {"AutoResize", "false"},
                {"Orientation", "bottom"},
                {"FormatCount", std::to_string(formats.size())}};
    int number = 0;
    for (const std::string& format : formats)
        rows.emplace_back(session::formatKey(++number), format);
    return recordText("MORAM", name, rows);
}

/// Two sessions that share a part format, one that has another alone, and something deleted.
StoreFiles firstStore(const std::string& folder) {
    return {{"MORAM/MORAM.vls", recordText("MORAM", "MORAM", {})},
            {"MORAM/A.vla", sessionText(folder, "A", {"CSV", "TAB"})},
            {"MORAM/B.vla", sessionText(folder, "B", {"TAB", "CSV"})},
            {"MORAM/C.vla", sessionText(folder, "C", {"TAB"})},
            {"MORAM/deleted/OLD.vla", sessionText(folder, "OLD", {"CSV"})},
            {"PARTFORMAT/PARTFORMAT.vls", recordText("PARTFORMAT", "PARTFORMAT", {})},
            {"PARTFORMAT/CSV.vla", formatText("CSV")},
            {"PARTFORMAT/TAB.vla", formatText("TAB")}};
}

std::string textOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

int openDescriptors() {
    const fs::directory_iterator all("/proc/self/fd");
    return static_cast<int>(std::distance(fs::begin(all), fs::end(all)));
}

User& person() {
    return WorkDesk::current->view->user();
}
WYNConfig& component() {
    return WorkDesk::current->component;
}
void configure(const std::string& name, const User::Script& script) {
    person().onForm("frmMORAMConfig", script);
    std::string session = name;
    component().showMORAMConfigDlg(session);
}

User::Script onFormats(const std::string& format, const std::string& button) {
    return [=](User& u) {
        u.changeTab("SSTab2", 1);
        if (!format.empty()) u.pick("lstAvailableFormats", format);
        u.click(button);
        u.click("btnCancel");
    };
}

const std::string kSession = "UnifrmMORAMConfig:";
const std::string kWalk = kSession + "UpdatePartNumberFormatsInAllMORAMs";
const std::string kLists = kSession + "loadAvailableFormats";
/// What opening and applying a session may tell.
const std::set<std::string> kApplying{kSession + "init",
                                      kLists,
                                      kSession + "ApplyChanges",
                                      kSession + "btnOK_Click",
                                      "dlgAdvConfig:ApplyChanges",
                                      "frmTallyvaneConfig.ApplyChanges",
                                      "frmTallyvaneConfig:loadCboPartFormat"};
const std::set<std::string> kEditing{kSession + "init",
                                     kLists,
                                     kWalk,
                                     kSession + "btnNew_Click",
                                     kSession + "btnEdit_Click",
                                     "frmPartNumberFormat:init",
                                     "frmPartNumberFormat:ValidatePartFormat",
                                     "frmPartNumberFormat:ApplyChanges"};

std::set<std::string> both(std::set<std::string> some, const std::set<std::string>& others) {
    some.insert(others.begin(), others.end());
    return some;
}

void announceEditor(const std::string& name) {
    person().onForm("frmPartNumberFormat", [name](User& u) {
        if (!name.empty()) u.type("txtFormatName", name);
        u.type("txtHeader", "another head");
        u.type("txtRecord", "<Part #>");
        u.type("txtMaxRecords", "12");
        u.click("btnOk");
    });
}

std::vector<StoreWork> sessionWorks() {
    return {
        {"MakesAStore",
         [](const std::string& root) { component().init(root); },
         {"Class_Initialize: WYN config folders not available"},
         {},
         true},
        {"AddsASession",
         [](const std::string&) {
             person().onForm("frmAddMORAMConfig", [](User& u) {
                 u.type("txtName", "new");
                 u.choose("cboConfigs", "A");
                 u.click("btnOK");
             });
             person().onForm("frmMORAMConfig", [](User& u) {
                 u.type("txtCommandLineArgs", "/new");
                 u.click("btnOK");
             });
             std::string name;
             component().showAddMORAMConfigDlg(name);
         },
         both(kApplying, {"WYNConfig:showAddMORAMConfigDlg", "frmAddMORAMConfig:init",
                          "frmAddMORAMConfig:loadCboConfigs", "frmAddMORAMConfig:btnOk_Click"}),
         {"MORAM/NEW.vla"}},
        {"ChangesASession",
         [](const std::string&) {
             configure("A", [](User& u) {
                 u.type("txtCommandLineArgs", "/changed");
                 u.click("btnOK");
             });
         },
         kApplying,
         {"MORAM/A.vla"}},
        {"RenamesASession",
         [](const std::string&) {
             configure("A", [](User& u) {
                 u.type("txtDisplayName", "renamed");
                 u.click("btnOK");
             });
         },
         kApplying,
         {"MORAM/A.vla", "MORAM/RENAMED.vla"}},
        {"DeletesASession",
         [](const std::string&) {
             person().onForm("frmMORAMMaintenance", [](User& u) {
                 u.pick("lstAvailableMORAMs2", "A");
                 u.click("btnDelete");
                 u.click("btnCancel");
             });
             person().onBox(answer::Yes);
             std::string name;
             component().showMORAMMaintenanceDlg(name);
         },
         {"frmMORAMMaintenance:loadLstAvailableMORAMs", "frmMORAMMaintenance:btnRemove_Click"},
         {"MORAM/A.vla", "MORAM/deleted/A.vla"}},
    };
}

std::vector<StoreWork> formatWorks() {
    const std::set<std::string> csv{"PARTFORMAT/CSV.vla"};
    return {
        {"MakesAFormat",
         [](const std::string&) {
             announceEditor("fresh");
             configure("A", onFormats("", "btnNew"));
         },
         kEditing,
         {"PARTFORMAT/FRESH.vla"}},
        {"ChangesAFormat",
         [](const std::string&) {
             announceEditor("");
             configure("A", onFormats("CSV", "btnEdit"));
         },
         kEditing, csv},
        {"CopiesAFormat",
         [](const std::string&) { configure("A", onFormats("CSV", "btnCopy")); },
         {kSession + "init", kLists, kSession + "btnCopy_Click"},
         {"PARTFORMAT/COPY OF CSV.vla"}},
        {"RenamesAFormat",
         [](const std::string&) {
             person().onForm("dlgSingleEntry", [](User& u) {
                 u.type("txtTextBox", "lines");
                 u.click("OKButton");
             });
             configure("A", onFormats("CSV", "btnRename"));
         },
         {kSession + "init", kLists, kWalk, kSession + "btnRename_Click"},
         {"PARTFORMAT/CSV.vla", "PARTFORMAT/LINES.vla"}},
        {"DeletesAFormat",
         [](const std::string&) {
             person().onBox(answer::Yes);
             configure("A", onFormats("CSV", "btnDelete"));
         },
         {kSession + "init", kLists, kWalk, kSession + "CheckForLastPartNumberFormatInAllMORAMs",
          kSession + "btnDelete_Click"},
         {"PARTFORMAT/CSV.vla", "PARTFORMAT/deleted/CSV.vla"}},
    };
}

std::vector<StoreWork> storeCallWorks() {
    return {
        {"SavesByTheStore",
         [](const std::string& root) {
             const Store store(root);
             const auto first = store.read(ItemKind::Session, "A");
             const auto second = store.read(ItemKind::PartFormat, "CSV");
             first->AddRow({"Note", "one"});
             second->AddRow({"Note", "two"});
             store.save({{ItemKind::Session, first}, {ItemKind::PartFormat, second}});
         },
         {"error"},
         {}},
        {"RenamesByTheStore",
         [](const std::string& root) { Store(root).rename("CSV", "LINES"); },
         {"error"},
         {"PARTFORMAT/CSV.vla", "PARTFORMAT/LINES.vla"}},
        {"DeletesByTheStore",
         [](const std::string& root) { Store(root).moveToDeleted(ItemKind::Session, "A"); },
         {"error"},
         {"MORAM/A.vla", "MORAM/deleted/A.vla"}},
        {"RestoresByTheStore",
         [](const std::string& root) { Store(root).restore(ItemKind::Session, "OLD"); },
         {"error"},
         {"MORAM/OLD.vla", "MORAM/deleted/OLD.vla"}},
    };
}

}  // namespace

const std::vector<StoreWork>& storeWorks() {
    static const std::vector<StoreWork> works = [] {
        std::vector<StoreWork> all = sessionWorks();
        for (auto more : {formatWorks(), storeCallWorks()})
            all.insert(all.end(), more.begin(), more.end());
        return all;
    }();
    return works;
}

const StoreWork& storeWork(const std::string& name) {
    const auto& all = storeWorks();
    return *std::find_if(all.begin(), all.end(),
                         [&](const StoreWork& work) { return work.name == name; });
}

StoreWorker::StoreWorker(std::string folder) : m_folder(std::move(folder)) {}
StoreWorker::~StoreWorker() = default;

void StoreWorker::putStore(bool fresh) const {
    fs::remove_all(m_folder + "/store");
    fs::create_directory(m_folder + "/store");
    const std::ofstream program(m_folder + "/program");
    if (fresh) return;
    for (const auto& [path, text] : firstStore(m_folder)) {
        const fs::path file = root() + path;
        fs::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << text;
    }
}

void StoreWorker::begin(const StoreWork& work) {
    setNumberLocale("en-US");
    m_desk = std::make_unique<WorkDesk>();
    if (!work.onFreshRoot) m_desk->component.init(root());
    m_desk->descriptors = openDescriptors();
}

void StoreWorker::run(const StoreWork& work) {
    try {
        work.run(root());
    } catch (const Error& error) {
        m_desk->error = "error: " + error.description();
    }
}

StoreOutcome StoreWorker::outcome() {
    StoreOutcome outcome;
    outcome.descriptors = openDescriptors() - m_desk->descriptors;
    for (const auto& entry : fs::recursive_directory_iterator(root())) {
        if (!entry.is_regular_file()) continue;
        const std::string path = fs::relative(entry.path(), root()).string();
        if (entry.path().extension() == ".tmp")
            outcome.temporaries.push_back(path);
        else
            outcome.files[path] = textOf(entry.path());
    }
    for (const SeenBox& box : person().boxes()) outcome.boxes.push_back(box.text);
    if (!m_desk->error.empty()) outcome.boxes.push_back(std::exchange(m_desk->error, {}));
    try {
        person().finish();
    } catch (const UserError&) {
        // A box in the way is told by its text, and what did not come up by the files.
    }
    return outcome;
}

namespace {

void put(std::string& text, const std::string& part) {
    text += std::to_string(part.size()) + ":" + part;
}
std::string take(const std::string& text, std::size_t& at) {
    const std::size_t colon = text.find(':', at);
    const std::size_t size = std::stoul(text.substr(at, colon - at));
    at = colon + 1 + size;
    return text.substr(colon + 1, size);
}

void putAll(std::string& text, const std::vector<std::string>& parts) {
    put(text, std::to_string(parts.size()));
    for (const std::string& part : parts) put(text, part);
}
std::vector<std::string> takeAll(const std::string& text, std::size_t& at) {
    std::vector<std::string> parts(std::stoul(take(text, at)));
    for (std::string& part : parts) part = take(text, at);
    return parts;
}

}  // namespace

std::string written(const StoreOutcome& outcome) {
    std::string text;
    std::vector<std::string> files;
    for (const auto& [path, content] : outcome.files) {
        files.push_back(path);
        files.push_back(content);
    }
    putAll(text, files);
    putAll(text, outcome.temporaries);
    putAll(text, outcome.boxes);
    put(text, std::to_string(outcome.descriptors));
    return text;
}

StoreOutcome readOutcome(const std::string& text) {
    StoreOutcome outcome;
    std::size_t at = 0;
    const std::vector<std::string> files = takeAll(text, at);
    for (std::size_t i = 0; i + 1 < files.size(); i += 2) outcome.files[files[i]] = files[i + 1];
    outcome.temporaries = takeAll(text, at);
    outcome.boxes = takeAll(text, at);
    outcome.descriptors = std::stoi(take(text, at));
    return outcome;
}

}  // namespace wynconfig
