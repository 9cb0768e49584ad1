// What the played user does to whole sessions and to lists of them.
#include "tour/tour_tool_steps.h"

#include <QDialog>
#include <QLineEdit>
#include <utility>

#include "wynconfig/keys.h"

namespace host {

namespace {

namespace session = wynconfig::session;
namespace words = wynconfig::words;
using wynconfig::User;
using Names = std::vector<std::string>;

constexpr const char* kSessions = "lstAvailableMORAMs2";
constexpr const char* kListed = "lstAvailableTESessions";
constexpr const char* kMade = "SPARE COUNTER";
constexpr const char* kListFile = "session-list.txt";

std::string selectedRow(User& user, const char* list) {
    const wynconfig::Sight seen = user.see(list);
    return seen.selected == 0 ? std::string() : seen.rows[seen.selected - 1].text;
}

void makeInMaintenance(Tour& tour) {
    User& user = tour.user();
    tour.say("New leads through the dialogs of a new session");
    user.onForm("frmAddMORAMConfig", [](User& adding) {
        adding.type("txtName", "spare counter");
        adding.choose("cboConfigs", "LABEL PRINTING");
        adding.click("btnOK");
    });
    user.onForm("frmMORAMConfig", [](User& session) { session.click("btnOK"); });
    user.click("btnNew");
    tour.expectRecord(sessionFile(kMade), tour.expectedRows(sessionFile("LABEL PRINTING")));
    tour.expectText(selectedRow(user, kSessions), kMade, "the selected session");
    tour.checkStore();
    tour.picture("maintenance-new");
}

void editInMaintenance(Tour& tour) {
    User& user = tour.user();
    tour.say("Edit opens the selected session");
    user.onForm("frmMORAMConfig", [](User& session) {
        session.tick("chkReverseList");
        session.click("btnOK");
    });
    user.click("btnEdit");
    Rows rows = tour.expectedRows(sessionFile(kMade));
    rows[session::kReverseList] = words::kTrue;
    tour.expectRecord(sessionFile(kMade), std::move(rows));
    tour.expectText(selectedRow(user, kSessions), kMade, "the selected session");
    tour.checkStore();
}

void deleteInMaintenance(Tour& tour) {
    User& user = tour.user();
    tour.say("Delete moves the file into the folder deleted");
    tour.expectQuestion("maintenance-delete-no", "MORAM_MAINT_MSG_DELETE_CONFIG",
                        wynconfig::answer::No);
    user.click("btnDelete");
    tour.checkStore();
    tour.expectQuestion("maintenance-delete", "MORAM_MAINT_MSG_DELETE_CONFIG",
                        wynconfig::answer::Yes);
    user.click("btnDelete");
    tour.expectRecord("MORAM/deleted/" + std::string(kMade) + ".vla",
                      tour.expectedRows(sessionFile(kMade)));
    tour.expectNoRecord(sessionFile(kMade));
    tour.checkStore();
    tour.expectText(selectedRow(user, kSessions), "", "the selected session after a deletion");
    tour.picture("maintenance-deleted");
}

void editList(Tour& tour) {
    User& user = tour.user();
    tour.expect(user.see(kListed).rows.size() == 8, "the list does not hold all eight sessions");
    tour.say("Delete drops a name from the list and touches no file");
    for (const char* name : {"BODY SHOP QUOTES", "DEALER ORDER DESK", "LABEL PRINTING",
                             "LATE COUNTER", "STOCK TAKING", "WARRANTY CLAIMS"}) {
        user.pick(kListed, name);
        user.click("btnDelete");
    }
    tour.say("Add picks a session in the maintenance dialog");
    user.onForm("frmMORAMMaintenance", [](User& maintenance) {
        maintenance.pick(kSessions, "LABEL PRINTING");
        maintenance.click("btnOK");
    });
    user.click("btnAdd");
    const Names left = {"WEB SHOP EXPORT", "WORKSHOP COUNTER", "LABEL PRINTING"};
    tour.expect(user.see(kListed).rowTexts() == left, "the list is not the one that was made");
    tour.picture("list-edited");
    tour.say("cancelling keeps the list as it is by then");
    user.click("btnCancel");
}

}  // namespace

void maintainSessions(Tour& tour) {
    tour.user().onForm("frmMORAMMaintenance", [&](User& user) {
        tour.expectText(selectedRow(user, kSessions), "STOCK TAKING", "the selected session");
        makeInMaintenance(tour);
        editInMaintenance(tour);
        deleteInMaintenance(tour);
        user.pick(kSessions, "WARRANTY CLAIMS");
        user.click("btnOK");
    });
    tour.perform("maintain", "STOCK TAKING", {0, "WARRANTY CLAIMS"});
    tour.hostPicture("host-after-maintenance");
}

void useSessionList(Tour& tour) {
    tour.user().onForm("frmSessionManager", [&](User&) { editList(tour); });
    tour.expectFile(kListFile, "WEB SHOP EXPORT,WORKSHOP COUNTER,LABEL PRINTING");
    tour.perform("edit-list", "WARRANTY CLAIMS", {});
    tour.checkStore();

    tour.say("the plain manager offers the list, and no buttons to change it");
    tour.user().onForm("frmSessionManager", [&](User& user) {
        tour.expect(!user.see("btnAdd").visible, "the plain manager shows Add");
        user.pick(kListed, "LABEL PRINTING");
        tour.picture("list-pick");
        user.click("btnOK");
    });
    tour.perform("pick", "WARRANTY CLAIMS", {{}, "LABEL PRINTING"});
    tour.hostPicture("host-after-pick");
}

void openOtherStore(Tour& tour) {
    const auto go = [&](const StoreFolders& store, const char* pictureName) {
        tour.onHostDialog(pictureName, "ok", [&store](QDialog& dialog) {
            dialog.findChild<QLineEdit*>("storeFolder")
                ->setText(QString::fromStdString(store.root.string()));
        });
        tour.perform("open-store", {}, {});
        tour.expectText(tour.workplace().store().root.string(), store.root.string(), "the store");
    };
    go(tour.otherStore(), "open-other-store");
    tour.hostPicture("host-on-other-store");
    tour.user().onForm("frmMORAMConfig", [&](User& user) {
        tour.expectText(user.see("txtCommandLineArgs").text, "--tray 2",
                        "the other store's session");
        user.pressEscape();
    });
    tour.perform("configure", "LABEL PRINTING", {1, "LABEL PRINTING"});
    go(tour.store(), "open-first-store");
}

}  // namespace host
