// What the played user does to sessions and part formats of the database.
#include "tour/tour_database_steps.h"

#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <utility>

#include "wynconfig/dataset.h"
#include "wynconfig/keys.h"

namespace host {

namespace {

namespace partformat = wynconfig::partformat;
namespace session = wynconfig::session;
namespace words = wynconfig::words;
using wynconfig::ItemChange;
using wynconfig::ItemKind;
using wynconfig::User;

constexpr const char* kTaken = "OLD WORKSHOP";
constexpr const char* kForked = "OLD WORKSHOP 2";
constexpr const char* kAdded = "NIGHT EXPORT";
constexpr const char* kQuantityFirst = "QUANTITY FIRST";
constexpr const char* kNewFormat = "PIECES X PART";

void setName(QDialog& dialog, const char* name) {
    dialog.findChild<QLineEdit*>("name")->setText(name);
}

/// From here on the database holds this session with other data of a row.
void expectRow(Tour& tour, const char* session, const std::string& key, const std::string& data) {
    Rows rows = tour.expectedStoredRows(ItemKind::Session, session);
    rows[key] = data;
    tour.expectStored(ItemKind::Session, session, std::move(rows));
}

void renameFormat(Tour& tour) {
    User& user = tour.user();
    tour.say("a part format of the database gets another name");
    user.onForm("dlgSingleEntry", [](User& prompt) {
        prompt.type("txtTextBox", "pieces x part");
        prompt.click("OKButton");
    });
    user.pick("lstAvailableFormats", kQuantityFirst);
    user.click("btnRename");
    tour.expectStored(ItemKind::PartFormat, kNewFormat,
                      tour.expectedStoredRows(ItemKind::PartFormat, kQuantityFirst));
    tour.expectNotStored(ItemKind::PartFormat, kQuantityFirst);
    expectRow(tour, kTaken, session::formatKey(2), kNewFormat);
}

void editFormat(Tour& tour) {
    User& user = tour.user();
    tour.say("and another header");
    user.onForm("frmPartNumberFormat", [](User& editor) {
        editor.type("txtHeader", "PIECES");
        editor.click("btnOk");
    });
    user.pick("lstAvailableFormats", kNewFormat);
    user.click("btnEdit");
    Rows rows = tour.expectedStoredRows(ItemKind::PartFormat, kNewFormat);
    rows[partformat::kHeader] = "PIECES";
    tour.expectStored(ItemKind::PartFormat, kNewFormat, std::move(rows));
}

void refuseFactoryFormat(Tour& tour) {
    tour.say("a part format of the store is a factory item, and can't be changed");
    tour.expectBox("factory-format", "MORAM_CONFIG_MSG_CANNOT_MODIFY_FACTORY_DEFAULTS");
    tour.user().pick("lstAvailableFormats", "SHELF LABEL");
    tour.user().click("btnEdit");
    tour.user().click("btnAdd");
    expectRow(tour, kTaken, session::formatKey(3), "SHELF LABEL");
    expectRow(tour, kTaken, session::kFormatCount, "3");
}

/// What another workstation does to the session.
void changeElsewhere(Tour& tour) {
    wynconfig::SessionDatabase other(tour.workplace().database().address(), "ben@office");
    const wynconfig::StoredItem item = *other.item(ItemKind::Session, kTaken);
    wynconfig::Document document;
    document.loadXML(item.xml);
    wynconfig::Dataset record;
    record.Load(document);
    record.UpdateRow({session::kOrientation, ""}, {session::kOrientation, words::kLeft});
    record.Save(document);
    other.store(
        {{ItemChange::Act::Update, ItemKind::Session, kTaken, document.xml(), item.version}});
    tour.say("ben@office has changed the session meanwhile");
}

}  // namespace

void takeSessionOver(Tour& tour) {
    tour.onHostDialog("take-over", "ok", [&](QDialog& dialog) {
        dialog.findChild<QLineEdit*>("storeFolder")
            ->setText(QString::fromStdString(tour.otherStore().root.string()));
        dialog.findChild<QComboBox*>("session")->setCurrentText("WORKSHOP COUNTER");
        setName(dialog, "old workshop");
    });
    tour.perform("take-over", {}, {0, kTaken});
    tour.expectStored(ItemKind::Session, kTaken,
                      tour.rowsInOtherStore("MORAM/WORKSHOP COUNTER.vla"));
    tour.say("a part format that the store has too stays a factory item");
    tour.expectStored(ItemKind::PartFormat, kQuantityFirst,
                      tour.rowsInOtherStore("PARTFORMAT/QUANTITY FIRST.vla"));
    tour.checkDatabase();
    tour.hostPicture("host-after-take-over");
}

void configureInMemory(Tour& tour) {
    tour.user().onForm("frmMORAMConfig", [&](User& user) {
        user.type("txtCommandLineArgs", "--old");
        expectRow(tour, kTaken, session::kCommandLineArgs, "--old");
        user.changeTab("SSTab2", 1);
        renameFormat(tour);
        editFormat(tour);
        refuseFactoryFormat(tour);
        tour.picture("in-memory-formats");
        user.click("btnOK");
    });
    tour.performInDatabase("configure-of-database", ItemKind::Session, kTaken, {0, kTaken});
    tour.checkDatabase();
    tour.checkStore();
    tour.hostPicture("host-after-in-memory");
    tour.perform("held", {}, {});
    tour.hostPicture("host-held-in-memory");
}

void beRefused(Tour& tour) {
    const Rows mine = tour.expectedStoredRows(ItemKind::Session, kTaken);
    tour.user().onForm("frmMORAMConfig", [&](User& user) {
        user.type("txtCommandLineArgs", "--of-anna");
        changeElsewhere(tour);
        // Comes up after OK, when the set is not stored.
        tour.onHostDialog("refused", "leave");
        user.click("btnOK");
    });
    tour.performInDatabase("configure-of-database", ItemKind::Session, kTaken, {1, ""});
    expectRow(tour, kTaken, session::kOrientation, words::kLeft);
    tour.checkDatabase();

    tour.say("the edit was kept, and is saved under another name");
    tour.onHostDialog("refused-again", "save");
    tour.performInDatabase("refused", ItemKind::Session, kTaken, {0, kForked});
    tour.expectStored(ItemKind::Session, kForked, mine);
    expectRow(tour, kForked, session::kCommandLineArgs, "--of-anna");
    tour.checkDatabase();
    tour.hostPicture("host-after-refusal");
}

void addAndRemoveInDatabase(Tour& tour) {
    tour.user().onForm("frmAddMORAMConfig", [](User& user) {
        user.type("txtName", "night export");
        user.choose("cboConfigs", "WEB SHOP EXPORT");
        user.click("btnOK");
    });
    tour.user().onForm("frmMORAMConfig", [](User& user) {
        user.click("rdoBottom");
        user.click("btnOK");
    });
    tour.perform("add-to-database", {}, {0, kAdded});
    tour.expectStored(ItemKind::Session, kAdded,
                      tour.rowsInOtherStore("MORAM/WEB SHOP EXPORT.vla"));
    expectRow(tour, kAdded, session::kOrientation, words::kBottom);
    tour.checkDatabase();

    tour.onHostDialog("remove-question", "yes");
    tour.expectNotStored(ItemKind::Session, kForked);
    tour.performInDatabase("remove-from-database", ItemKind::Session, kForked, {});
    tour.checkDatabase();
}

}  // namespace host
