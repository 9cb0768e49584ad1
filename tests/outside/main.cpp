// A host that was written against the installed component: it goes through all operations in the
// order of the interface, with two objects, one inside the other, in both ways of working.
#include <wynconfig/resource_manager.h>
#include <wynconfig/scripted_view.h>
#include <wynconfig/user.h>
#include <wynconfig/view.h>
#include <wynconfig/wynconfig.h>

#include <cstdio>
#include <exception>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "expect.h"
#include "store.h"

namespace {

using wynconfig::User;
using wynconfig::WYNConfig;

/// A resource manager of this host: every text in capitals says its key, and one is missing.
class OwnTexts : public wynconfig::ResourceManager {
  public:
    std::string GetString(const std::string& key) override {
        ++asked;
        if (key == "SESSION_MANAGER_TITLE") return "Sessions of this house";
        return "OWN " + key;
    }
    wynconfig::Font GetFont(long) override { throw std::string("this house has no fonts"); }
    int asked = 0;
};

/// What this host keeps of its user's configuration between two calls: texts and nothing else.
struct Kept {
    std::string session;
    std::vector<std::string> formats;
};

class Host {
  public:
    Host() {
        std::ofstream(program) << "a program";
        wynconfig::installView(view);
    }
    ~Host() { wynconfig::installView(nullptr); }
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    void run() {
        start();
        readBeforeAnything();
        migrate();
        openSession();
        exchange();
        mixModes();
        refuse();
        maintain();
        add();
        addInMemory();
        moveToAnotherStore();
        manageSessions();
        person().finish();
    }

  private:
    void start();
    void readBeforeAnything();
    void migrate();
    void openSession();
    void exchange();
    void mixModes();
    void refuse();
    void maintain();
    void add();
    void addInMemory();
    void moveToAnotherStore();
    void manageSessions();

    User& person() { return view->user(); }
    void onForm(const std::string& form, User::Script script) {
        person().onForm(form, std::move(script));
    }
    static User::Script press(const std::string& button) {
        return [button](User& user) { user.click(button); };
    }
    /// Types a command line into the session dialog and presses OK.
    static User::Script editing(const std::string& line) {
        return [line](User& user) {
            user.type("txtCommandLineArgs", line);
            user.click("btnOK");
        };
    }
    void takeBack() {
        kept.session = first.GetDatasetSessionData();
        kept.formats = second.GetDatasetFormatsData();
    }

    const ScratchFolder scratch;
    const std::string program = (scratch.path() / "program").string();
    const Store store{scratch.path() / "store"};
    const Store oldStore{scratch.path() / "old"};
    const Store otherStore{scratch.path() / "other"};
    const std::shared_ptr<wynconfig::ScriptedView> view =
        std::make_shared<wynconfig::ScriptedView>();
    WYNConfig first;
    WYNConfig second;
    Kept kept;
};

void Host::start() {
    first.InitResourceManager(wynconfig::makeBundleResourceManager(WYNCONFIG_RESOURCES, "en"));
    second.init(oldStore.root());
    first.init(store.root());
    expect(store.hasCatalogues() && oldStore.hasCatalogues(), "both stores were made");
    store.putFormat("CSV");
    for (const std::string format : {"TAPE", "REEL"}) oldStore.putFormat(format);
    oldStore.putSession("DESK", program, {"TAPE", "REEL"});
}

void Host::readBeforeAnything() {
    takeBack();
    expectEqual(nameIn(kept.session), "");
    expect(kept.formats == std::vector<std::string>{""}, "no format is one empty text");
}

void Host::migrate() {
    const std::size_t files = oldStore.fileCount() + store.fileCount();
    expect(!second.MigrateSession(oldStore.root(), "GONE"), "there is no session GONE");
    expect(second.MigrateSession(oldStore.root(), "DESK"), "DESK is migrated");
    takeBack();
    expectEqual(nameIn(kept.session), "DESK");
    expectEqual(namesIn(kept.formats), "TAPE,REEL");
    expect(oldStore.fileCount() + store.fileCount() == files, "migrating writes nothing");
}

void Host::openSession() {
    store.putSession("BENCH", program, {"CSV"});
    onForm("frmMORAMConfig", [this](User& user) {
        expectEqual(user.see("txtDisplayName").text, "BENCH");
        // A second object at work while the first one's dialog is open.
        onForm("frmSessionManager", [](User& inner) {
            expect(
                inner.see("lstAvailableTESessions").rowTexts() == std::vector<std::string>{"BENCH"},
                "only BENCH is in the store");
            inner.click("btnOK");
        });
        expectEqual(second.showSessionManagerDlg("GONE,BENCH"), "BENCH");
        user.type("txtCommandLineArgs", "/bench");
        user.click("btnOK");
    });
    std::string name = "bench";
    expect(first.showMORAMConfigDlg(name) == 0, "the session dialog was confirmed");
    expectEqual(name, "BENCH");
    expectEqual(store.sessionValue("BENCH", "CommandLineArgs"), "/bench");
    expectEqual(nameIn(first.GetDatasetSessionData()), "DESK");
}

void Host::exchange() {
    const std::size_t files = store.fileCount();
    onForm("frmPartNumberFormat", [](User& user) {
        user.type("txtFormatName", "cassette");
        user.type("txtMaxRecords", "5");
        user.click("btnOk");
    });
    onForm("frmMORAMConfig", [this](User& user) {
        user.changeTab("SSTab2", 1);
        expect(user.see("lstAvailableFormats").rowTexts() ==
                   std::vector<std::string>{"CSV", "TAPE", "REEL"},
               "the store's format stands before the host's");
        user.click("btnNew");
        user.pick("lstAvailableFormats", "CSV");
        user.click("btnAdd");
        // In memory the second object's plain operation saves nothing either.
        onForm("frmMORAMConfig", editing("/lost"));
        std::string inner = "bench";
        expect(second.showMORAMConfigDlg(inner) == 0, "and says nothing of it");
        user.click("btnOK");
    });
    std::string name = "desk";
    expect(first.showMORAMConfigDlgEX(name, kept.session, kept.formats) == 0, "confirmed");
    takeBack();
    expectEqual(valueIn(kept.session, "FormatCount"), "3");
    expectEqual(valueIn(kept.session, "FORMAT3"), "CSV");
    expectEqual(namesIn(kept.formats), "TAPE,REEL,CASSETTE,CSV");
    expectEqual(store.sessionValue("BENCH", "CommandLineArgs"), "/bench");
    expect(store.fileCount() == files, "no file came to be");

    const Kept before = kept;
    onForm("frmMORAMConfig", press("btnCancel"));
    expect(second.showMORAMConfigDlgEX(name, kept.session, kept.formats) == 1, "cancelled");
    takeBack();
    expect(kept.session == before.session, "the session comes back as it was handed in");
    expectEqual(namesIn(kept.formats), "TAPE,REEL,CASSETTE");
}

void Host::mixModes() {
    const std::string before = store.sessionText("BENCH");
    std::string name = "bench";
    onForm("frmMORAMConfig", editing("/lost"));
    expect(first.showMORAMConfigDlg(name) == 0, "confirmed in memory");
    expect(store.sessionText("BENCH") == before, "the file is as it was");
    // Adding a session in file mode, even in vain, is the way back to the files.
    onForm("frmAddMORAMConfig", press("btnCancel"));
    expect(second.showAddMORAMConfigDlg(name) == 1, "adding was cancelled");
    name = "bench";
    onForm("frmMORAMConfig", editing("/kept"));
    expect(first.showMORAMConfigDlg(name) == 0, "confirmed in file mode");
    expectEqual(store.sessionValue("BENCH", "CommandLineArgs"), "/kept");
    // What the component gives is what its files hold.
    store.putSessionText("DESK", kept.session);
    onForm("frmMORAMConfig", [](User& user) {
        expectEqual(user.see("txtCommandLineArgs").text, "/list");
        user.click("btnCancel");
    });
    name = "desk";
    expect(second.showMORAMConfigDlg(name) == 1, "cancelled in file mode");
}

void Host::refuse() {
    std::string name = "as it was";
    for (const std::string argument : {"strSessionDataXML", "arrayPartFormats(1)"}) {
        person().onBox([argument](const wynconfig::SeenBox& box) {
            expect(box.text.find(argument + " is not a valid XML document") != std::string::npos,
                   "the box names " + argument + ": " + box.text);
            return wynconfig::answer::Ok;
        });
    }
    expect(first.showMORAMConfigDlgEX(name, "no xml", {}) == 1, "a bad session is refused");
    expect(first.showMORAMConfigDlgEX(name, kept.session, {kept.formats[0], ""}) == 1,
           "a bad format is refused");
    expectEqual(name, "as it was");
    expectEqual(namesIn(first.GetDatasetFormatsData()), "TAPE");
}

void Host::maintain() {
    onForm("frmMORAMMaintenance", [this](User& user) {
        expect(
            user.see("lstAvailableMORAMs2").rowTexts() == std::vector<std::string>{"BENCH", "DESK"},
            "the maintenance dialog lists the store");
        user.pick("lstAvailableMORAMs2", "DESK");
        person().onBox(wynconfig::answer::Yes);
        user.click("btnDelete");
        user.pick("lstAvailableMORAMs2", "BENCH");
        user.click("btnOK");
    });
    std::string name;
    expect(second.showMORAMMaintenanceDlg(name) == 0, "a session was picked");
    expectEqual(name, "BENCH");
    expect(!store.hasSession("DESK"), "DESK was deleted");
}

void Host::add() {
    const auto adding = [](User& user) {
        user.type("txtName", "stand");
        user.choose("cboConfigs", "BENCH");
        user.click("btnOK");
    };
    std::string name;
    onForm("frmAddMORAMConfig", adding);
    onForm("frmMORAMConfig", press("btnCancel"));
    expect(first.showAddMORAMConfigDlg(name) == 1, "the new session was cancelled");
    expectEqual(name, "");
    expect(!store.hasSession("STAND"), "its file was taken back");
    onForm("frmAddMORAMConfig", adding);
    onForm("frmMORAMConfig", editing("/stand"));
    expect(first.showAddMORAMConfigDlg(name) == 0, "the new session was confirmed");
    expectEqual(name, "STAND");
    expectEqual(store.sessionValue("STAND", "CommandLineArgs"), "/stand");
}

void Host::addInMemory() {
    const std::size_t files = store.fileCount();
    onForm("frmAddMORAMConfig", [](User& user) {
        user.type("txtName", "counter");
        user.choose("cboConfigs", "BENCH");
        user.click("btnOK");
    });
    onForm("frmMORAMConfig", press("btnCancel"));
    std::string name;
    expect(second.showAddMORAMConfigDlgEX(name) == 1, "the editing was cancelled");
    expectEqual(name, "COUNTER");
    takeBack();
    expectEqual(nameIn(kept.session), "COUNTER");
    expectEqual(valueIn(kept.session, "CommandLineArgs"), "/kept");
    expect(kept.formats == std::vector<std::string>{""}, "a new session starts without formats");
    expect(store.fileCount() == files, "no file came to be");
}

void Host::moveToAnotherStore() {
    first.init(otherStore.root());
    expect(otherStore.hasCatalogues(), "the other store was made");
    expectEqual(nameIn(second.GetDatasetSessionData()), "COUNTER");
    onForm("frmMORAMMaintenance", [](User& user) {
        expect(user.see("lstAvailableMORAMs2").rows.empty(), "the other store has no session");
        user.click("btnCancel");
    });
    std::string name = "bench";
    expect(second.showMORAMMaintenanceDlg(name) == 1, "nothing was picked");
    first.init(store.root());
}

void Host::manageSessions() {
    const auto own = std::make_shared<OwnTexts>();
    second.InitResourceManager(own);
    onForm("frmSessionManager", [](User& user) {
        expectEqual(user.formTitle(), "Sessions of this house");
        expectEqual(user.see("btnOK").caption, "OWN BUTTON_OK");
        user.pick("lstAvailableTESessions", "STAND");
        user.click("btnOK");
    });
    expectEqual(first.showSessionManagerDlg("BENCH,STAND"), "STAND");
    expect(own->asked > 0, "the first object asks the second one's resource manager");
    onForm("frmSessionManager", [this](User& user) {
        onForm("frmMORAMMaintenance", [](User& inner) {
            inner.pick("lstAvailableMORAMs2", "STAND");
            inner.click("btnOK");
        });
        user.click("btnAdd");
        user.closeByFrame();
    });
    expectEqual(first.showConfigurableSessionManagerDlg("GONE,BENCH"), "BENCH,STAND");
    first.InitResourceManager(nullptr);
}

}  // namespace

int main() {
    try {
        Host().run();
    } catch (const std::exception& failure) {
        expect(false, failure.what());
    }
    if (failedChecks == 0) std::puts("all operations did as they should");
    return failedChecks == 0 ? 0 : 1;
}
