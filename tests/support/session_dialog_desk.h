// Desks for tests of the session dialog: short ways to open it in either mode, and a store with one
// full session.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "dialogs/session/frmMORAMConfig.h"
#include "support/desk.h"

namespace wynconfig {

/// Opens the session dialog, in file mode or on `g_Session` as it is, in the in-memory mode.
class SessionDialogDesk : public Desk {
  protected:
    /// The script must close the dialog.
    void edit(const std::string& name, const User::Script& script) {
        ConfigGlobalModule::g_DatasetMode = false;
        show(script, [&](frmMORAMConfig& dialog) { dialog.init(name); });
    }
    void editHeld(const std::string& name, const User::Script& script) {
        ConfigGlobalModule::g_DatasetMode = true;
        show(script, [&](frmMORAMConfig& dialog) { dialog.initEX(name); });
    }
    /// The script may leave the dialog open: Cancel ends it.
    void open(const std::string& name, const User::Script& script) { edit(name, ending(script)); }
    void openHeld(const std::string& name, const User::Script& script) {
        editHeld(name, ending(script));
    }
    /// Turns to the part format tab, and adds these formats to the selected ones or removes them.
    static void addFormats(User& u, const Names& formats) {
        u.changeTab("SSTab2", 1);
        for (const std::string& format : formats) {
            u.pick("lstAvailableFormats", format);
            u.click("btnAdd");
        }
    }
    static void removeFormats(User& u, const Names& formats) {
        u.changeTab("SSTab2", 1);
        for (const std::string& format : formats) {
            u.pick("lstSelectedFormats2", format);
            u.click("btnRemove");
        }
    }
    /// The dialog that is open.
    frmMORAMConfig& dialog() { return *m_dialog; }
    /// Of the dialog that was closed last.
    long result() const { return m_result; }
    const std::string& sessionName() const { return m_name; }

  private:
    User::Script ending(const User::Script& script) {
        return [this, script](User& u) {
            script(u);
            if (m_dialog->loaded()) u.click("btnCancel");
        };
    }
    void show(const User::Script& script, const std::function<void(frmMORAMConfig&)>& init) {
        frmMORAMConfig dialog;
        m_dialog = &dialog;
        announceConfiguring(script);
        init(dialog);
        dialog.Show();
        m_result = dialog.Result();
        m_name = dialog.SessionName();
        m_dialog = nullptr;
    }

    frmMORAMConfig* m_dialog = nullptr;
    long m_result = -1;
    std::string m_name;
};

/// The store holds the session "DESK", which has the part format "CSV" and a program that exists.
class FullSessionDesk : public SessionDialogDesk {
  protected:
    void SetUp() override {
        SessionDialogDesk::SetUp();
        putProgram("/programs/parts.exe");
        putFormat("CSV");
        putFullSession("DESK", {"CSV"});
    }
    /// Makes a new session fit to be applied.
    static void fillIn(User& u, const std::string& name) {
        u.type("txtDisplayName", name);
        u.type("txtProgramPath", "/programs/parts.exe");
        addFormats(u, {"CSV"});
    }
    /// Opens `g_Session`, filled with the rows of the session "DESK", under a name of its own.
    void openInMemory(const std::string& name, const User::Script& script) {
        ConfigGlobalModule::g_Session = sessionRecord("DESK");
        ConfigGlobalModule::g_Session->setName(name);
        openHeld(name, script);
    }
};

}  // namespace wynconfig
