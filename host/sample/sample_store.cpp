// The sessions of the sample store, and the user who makes the whole of it.
#include "sample/sample_store.h"

#include <fstream>
#include <optional>
#include <stdexcept>
#include <string>
#include <system_error>
#include <vector>

#include "installed_view.h"
#include "sample/sample_formats.h"
#include "texts/phrase.h"
#include "texts/system_words.h"
#include "wynconfig/error.h"
#include "wynconfig/scripted_view.h"

namespace host {

namespace fs = std::filesystem;
using wynconfig::User;

namespace {

/// The settings of the advanced dialog that a sample changes.
struct AdvancedSample {
    bool disableLaunch = false;
    const char* titleMatch = "";  ///< control of the kind of match; empty: as it stands
    const char* title = "";
    const char* classMatch = "";
    const char* windowClass = "";
    const char* searchDelay = "0";
    const char* launchDelay = "0";
};

/// The settings of the file-writer dialog.
struct FileSample {
    const char* format;
    const char* name;
    bool append = false;
    bool writeFileOnly = false;
};

struct SessionSample {
    const char* name;
    const char* base = "";       ///< session that it starts from; empty: none
    const char* program = "";    ///< file among the stand-ins; empty: the box is left alone
    const char* arguments = "";  ///< empty: the box is left alone
    bool reverse = false;
    bool autoResize = true;
    const char* orientation = "rdoTop";
    std::vector<const char*> formats = {};
    std::optional<AdvancedSample> advanced = {};
    std::optional<FileSample> file = {};
};

const std::vector<SessionSample>& sessionSamples() {
    static const std::vector<SessionSample> all = {
        {.name = "WORKSHOP COUNTER",
         .program = "workshop-counter",
         .arguments = "--job-card new --import \"parts list.csv\"",
         .orientation = "rdoRight",
         .formats = {"COMMA SEPARATED", "QUANTITY FIRST"},
         .advanced = AdvancedSample{.titleMatch = "btnTitleStartsWith",
                                    .title = "Job Card - ",
                                    .classMatch = "btnClassMatches",
                                    .windowClass = "JobCardFrame",
                                    .searchDelay = "5",
                                    .launchDelay = "2"}},
        {.name = "DEALER ORDER DESK",
         .program = "order desk",
         .arguments = "/order:stock /quiet",
         .reverse = true,
         .formats = {"ORDER FORM", "FIXED WIDTH"}},
        {.name = "WARRANTY CLAIMS",
         .program = "warranty-claims",
         .arguments = "--claim",
         .autoResize = false,
         .orientation = "rdoLeft",
         .formats = {"VIN IN HEADER"},
         .advanced = AdvancedSample{.title = "Claim", .searchDelay = "2.5"}},
        {.name = "BODY SHOP QUOTES",
         .base = "WORKSHOP COUNTER",
         .program = "body-shop",
         .arguments = "--quote",
         .orientation = "rdoRight",
         .formats = {"TAB SEPARATED"}},
        {.name = "STOCK TAKING",
         .formats = {"ONE PART PER LINE"},
         .advanced = AdvancedSample{.disableLaunch = true},
         .file = FileSample{"FIXED WIDTH", "stock.txt", true}},
        {.name = "WEB SHOP EXPORT",
         .formats = {"COMMA SEPARATED"},
         .advanced = AdvancedSample{.disableLaunch = true},
         .file =
             FileSample{
                 .format = "COMMA SEPARATED", .name = "web-shop.csv", .writeFileOnly = true}},
        {.name = "LABEL PRINTING",
         .program = "label-printer",
         .arguments = "--tray 2",
         .orientation = "rdoBottom",
         .formats = {"SHELF LABEL"}},
    };
    return all;
}

/// A program that a session can name. It leaves what it was called with, and what it got to read,
/// in a file beside it, which appears as a whole.
constexpr const char* kProgramText = R"sh(#!/bin/sh
{
  echo "Called:   $0"
  for argument in "$@"; do echo "Argument: $argument"; done
  echo "Got:"
  cat
} > "$0.received.new"
mv "$0.received.new" "$0.received"
)sh";

void makeProgram(const fs::path& path) {
    std::ofstream(path) << kProgramText;
    fs::permissions(path, fs::perms::owner_exec | fs::perms::group_exec | fs::perms::others_exec,
                    fs::perm_options::add);
}

std::string programText(const StoreFolders& store, const SessionSample& sample) {
    const std::string path = (store.programs() / sample.program).string();
    return path.find(' ') == std::string::npos ? path : "\"" + path + "\"";
}

void fillAdvanced(User& user, const AdvancedSample& sample) {
    user.tick("chkDisableProgramLaunch", sample.disableLaunch);
    if (!sample.disableLaunch) user.type("txtProgramLaunchDelay", sample.launchDelay);
    user.type("txtWindowTitleClassDelay", sample.searchDelay);
    if (*sample.titleMatch) user.click(sample.titleMatch);
    user.type("txtWindowTitle", sample.title);
    if (*sample.classMatch) user.click(sample.classMatch);
    user.type("txtWindowClass", sample.windowClass);
    user.click("OKButton");
}

void fillFileWriter(User& user, const StoreFolders& store, const FileSample& sample) {
    user.choose("cboPartFormat", sample.format);
    user.type("txtFileName", sample.name);
    user.onBrowse(store.lists().string());
    user.click("btnBrowseFolder");
    user.click(sample.append ? "rdoAppend" : "rdoOverWrite");
    user.tick("chkWriteFileOnly", sample.writeFileOnly);
    user.click("btnOk");
}

void fillSession(User& user, const StoreFolders& store, const SessionSample& sample) {
    if (*sample.program) user.type("txtProgramPath", programText(store, sample));
    if (*sample.arguments) user.type("txtCommandLineArgs", sample.arguments);
    user.tick("chkReverseList", sample.reverse);
    user.tick("chkAutoResize", sample.autoResize);
    user.click(sample.orientation);
    if (sample.advanced) {
        user.onForm("dlgAdvConfig", [&](User& u) { fillAdvanced(u, *sample.advanced); });
        user.click("btnAdvanced");
    }
    if (sample.file) {
        user.onForm("frmTallyvaneConfig", [&](User& u) { fillFileWriter(u, store, *sample.file); });
        user.click("btnTallyvane");
    }
    user.changeTab("SSTab2", 1);
    for (const char* format : sample.formats) {
        user.pick("lstAvailableFormats", format);
        user.click("btnAdd");
    }
    user.click("btnOK");
}

void makeSession(wynconfig::WYNConfig& component, User& user, const StoreFolders& store,
                 const SessionSample& sample) {
    if (*sample.program) makeProgram(store.programs() / sample.program);
    user.onForm("frmAddMORAMConfig", [&](User& u) {
        u.type("txtName", sample.name);
        if (*sample.base) u.choose("cboConfigs", sample.base);
        u.click("btnOK");
    });
    user.onForm("frmMORAMConfig", [&](User& u) { fillSession(u, store, sample); });
    std::string name;
    const long result = component.showAddMORAMConfigDlg(name);
    user.finish();
    if (result != 0 || name != sample.name)
        throw wynconfig::UserError("the session " + std::string(sample.name) + " was not made");
}

/// Clears away what an interrupted making left. Never touches a folder that holds anything else.
void clearPlace(const StoreFolders& store) {
    if (!fs::exists(store.root)) return;
    if (store.unfinished()) {
        for (const fs::path& part :
             {store.sessions(), store.formats(), store.programs(), store.lists()})
            fs::remove_all(part);
        fs::remove(store.unfinishedMark());
    }
    if (!fs::is_empty(store.root))
        throw std::runtime_error(phrase("STORE_OTHER_FILES", {store.root.string()}));
}

/// Makes the folders in which nothing of the component lies.
void makePlace(const StoreFolders& store) {
    clearPlace(store);
    fs::create_directories(store.root);
    if (!std::ofstream(store.unfinishedMark()).flush())
        throw std::runtime_error(
            phrase("STORE_CANT_MAKE", {store.root.string(), phrase("STORE_NO_RIGHT")}));
    for (const fs::path& folder : {store.programs(), store.lists()}) fs::create_directory(folder);
}

/// Why a file or folder can't be read; empty when it can, or when nothing is there. Looks at what
/// it is before opening it, since a pipe or a device would wait for another program.
std::string faultOf(const fs::path& path, fs::file_type wanted) {
    std::error_code failure;
    if (fs::symlink_status(path, failure).type() == fs::file_type::not_found) return {};
    const fs::file_type kind = fs::status(path, failure).type();
    if (kind == fs::file_type::not_found) return phrase("REASON_LINK_NOWHERE");
    if (kind == fs::file_type::none) return systemWords(failure);
    if (kind != wanted)
        return phrase(wanted == fs::file_type::directory ? "REASON_NOT_FOLDER"
                                                         : "REASON_NOT_PLAIN");
    if (wanted == fs::file_type::directory) {
        const fs::directory_iterator opened(path, failure);
        return failure ? systemWords(failure) : std::string();
    }
    return std::ifstream(path) ? std::string() : phrase("REASON_CANT_OPEN");
}

}  // namespace

bool StoreFolders::unfinished() const {
    std::error_code failure;
    return fs::exists(fs::status(unfinishedMark(), failure));
}

bool StoreFolders::exist() const {
    std::error_code failure;
    return fs::symlink_status(sessions(), failure).type() != fs::file_type::not_found &&
           !unfinished();
}

std::vector<std::string> StoreFolders::faults() const {
    std::vector<std::string> faults;
    const auto look = [&](const fs::path& path, fs::file_type wanted) {
        const bool isFolder = wanted == fs::file_type::directory;
        const std::string why = faultOf(path, wanted);
        if (!why.empty())
            faults.push_back(
                phrase(isFolder ? "FOLDER_CANT_READ" : "FILE_CANT_READ", {path.string(), why}));
        return why.empty();
    };
    const auto folder = [&](const fs::path& path) { return look(path, fs::file_type::directory); };
    if (!folder(root)) return faults;
    for (const fs::path& items : {sessions(), formats()})
        if (folder(items)) folder(items / "deleted");
    look(sessionList(), fs::file_type::regular);
    return faults;
}

std::vector<std::string> StoreFolders::losses() const {
    const auto isGone = [](const fs::path& path) {
        std::error_code failure;
        return fs::symlink_status(path, failure).type() == fs::file_type::not_found;
    };
    if (isGone(root)) return {phrase("STORE_LOST", {root.string()})};
    std::vector<std::string> losses;
    for (const fs::path& each : {sessions(), formats()})
        if (isGone(each)) losses.push_back(phrase("STORE_FOLDER_LOST", {each.string()}));
    return losses;
}

std::vector<std::string> StoreFolders::readableNames(wynconfig::ItemKind kind) const {
    try {
        return names(kind);
    } catch (const wynconfig::Error&) {
        return {};
    }
}

std::vector<std::string> StoreFolders::names(wynconfig::ItemKind kind) const {
    std::vector<std::string> names = wynconfig::Store(rootText()).names(kind);
    for (std::string& name : names) name = wynconfig::upperName(name);
    return names;
}

void makeSampleStore(wynconfig::WYNConfig& component, const StoreFolders& store) {
    try {
        makePlace(store);
    } catch (const fs::filesystem_error& failure) {
        // Its own text names calls of the system.
        throw std::runtime_error(
            phrase("STORE_CANT_MAKE", {store.root.string(), systemWords(failure.code())}));
    }
    const auto view = std::make_shared<wynconfig::ScriptedView>();
    const InstalledView installed(view);
    component.init(store.rootText());
    view->user().finish();
    makeSampleFormats(component, view->user());
    for (const SessionSample& sample : sessionSamples())
        makeSession(component, view->user(), store, sample);
    fs::remove(store.unfinishedMark());
}

}  // namespace host
