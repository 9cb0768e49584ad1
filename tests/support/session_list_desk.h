// A desk for tests of the two dialogs that list sessions: a store with three of them, and short
// ways to open the dialogs and those that they open in their turn.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "support/desk.h"

namespace wynconfig {

/// The store holds the sessions "A", "B" and "C", each of which can be applied as it is.
class SessionListDesk : public Desk {
  protected:
    void SetUp() override {
        Desk::SetUp();
        putProgram("/programs/parts.exe");
        putFormat("CSV");
        for (const char* session : {"A", "B", "C"}) putFullSession(session, {"CSV"});
        texts->asked.clear();
    }

    /// Opens the maintenance dialog on a name.
    long maintain(const User::Script& script, const std::string& onName = "") {
        announceMaintenance(script);
        name = onName;
        return component.showMORAMMaintenanceDlg(name);
    }
    /// The session manager in its plain use. @return the name that the host gets
    std::string pickFrom(const std::string& sessions, const User::Script& script) {
        user().onForm("frmSessionManager", script);
        return component.showSessionManagerDlg(sessions);
    }
    /// The session manager in its configurable use. @return the list that the host gets
    std::string manage(const std::string& sessions, const User::Script& script) {
        user().onForm("frmSessionManager", script);
        return component.showConfigurableSessionManagerDlg(sessions);
    }

    void announceMaintenance(const User::Script& script) {
        user().onForm("frmMORAMMaintenance", script);
    }
    /// The session dialog that comes up next: another name, and OK.
    void announceRenaming(const std::string& newName) {
        announceConfiguring([newName](User& u) {
            u.type("txtDisplayName", newName);
            u.click("btnOK");
        });
    }
    /// The add dialog that comes up next: a new session of this name, made after "A".
    void announceAdding(const std::string& newName) {
        user().onForm("frmAddMORAMConfig", [newName](User& u) {
            u.type("txtName", newName);
            u.choose("cboConfigs", "A");
            u.click("btnOK");
        });
    }
    /// Calls an in-memory operation, whose mode the dialogs keep from there on.
    void workInMemory() {
        Document document;
        Dataset session;
        session.setName("MINE");
        session.Save(document);
        announceConfiguring(cancel);
        std::string mine = "MINE";
        EXPECT_EQ(component.showMORAMConfigDlgEX(mine, document.xml(), {}), 1);
        EXPECT_TRUE(ConfigGlobalModule::g_DatasetMode);
    }

    static void ok(User& u) { u.click("btnOK"); }
    static void cancel(User& u) { u.click("btnCancel"); }

    bool isKeptAside(const std::string& session) {
        return !memory->find(ItemPath::item(deletedFolder, session)).empty();
    }
    std::string textKeptAside(const std::string& session) {
        return memory->read(ItemPath::item(deletedFolder, session));
    }
    void removeSession(const std::string& session) {
        memory->remove(ItemPath::item(sessionFolder, session));
    }
    /// A session under whose name and file stands no record.
    void spoilSession(const std::string& session) {
        memory->save(ItemPath::item(sessionFolder, session), "<no record");
    }

    std::string name;  ///< what the maintenance dialog was given, and then gave back
    const std::string deletedFolder = sessionFolder + "deleted\\";
};

/// The list of one of the two dialogs as it is seen.
struct SessionRows {
    std::string list;

    Names names(User& u) const { return u.see(list).rowTexts(); }
    /// The text of the selected row; empty for none.
    std::string selected(User& u) const {
        const Sight sight = u.see(list);
        return sight.selected == 0 ? std::string() : sight.rows[sight.selected - 1].text;
    }
    bool anySelected(User& u) const { return u.see(list).selected != 0; }
    bool focused(User& u) const { return u.see(list).focus; }
    /// Selects a row and presses a button.
    void act(User& u, const std::string& row, const std::string& button) const {
        u.pick(list, row);
        u.click(button);
    }
};

}  // namespace wynconfig
