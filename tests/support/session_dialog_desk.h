// A desk for tests of the session dialog as a whole: a store with one full session, and short ways
// to open the dialog in either mode.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "dialogs/session/frmMORAMConfig.h"
#include "support/desk.h"

namespace wynconfig {

/// The store holds the session "DESK", which has the part format "CSV" and a program that exists.
/// A script may leave the dialog open: Cancel ends it.
class SessionDialogDesk : public Desk {
  protected:
    void SetUp() override {
        Desk::SetUp();
        putProgram("/programs/parts.exe");
        putFormat("CSV");
        putFullSession("DESK", {"CSV"});
    }

    /// Opens a session in file mode.
    void open(const std::string& name, const User::Script& script) {
        show(script, [&](frmMORAMConfig& dialog) { dialog.init(name); });
    }
    /// Opens `g_Session` as it is, in the in-memory mode.
    void openHeld(const std::string& name, const User::Script& script) {
        ConfigGlobalModule::g_DatasetMode = true;
        show(script, [&](frmMORAMConfig& dialog) { dialog.initEX(name); });
    }
    /// Opens `g_Session`, filled with the rows of the session "DESK", under a name of its own.
    void openInMemory(const std::string& name, const User::Script& script) {
        ConfigGlobalModule::g_Session = std::make_shared<Dataset>();
        ConfigGlobalModule::g_Session->Load(ItemPath::item(sessionFolder, "DESK"));
        ConfigGlobalModule::g_Session->setName(name);
        openHeld(name, script);
    }
    /// The dialog that is open.
    frmMORAMConfig& dialog() { return *m_dialog; }
    /// Of the dialog that was closed last.
    long result() const { return m_result; }
    const std::string& sessionName() const { return m_name; }

  private:
    void show(const User::Script& script, const std::function<void(frmMORAMConfig&)>& init) {
        frmMORAMConfig dialog;
        m_dialog = &dialog;
        user().onForm("frmMORAMConfig", [this, script](User& u) {
            script(u);
            if (m_dialog->loaded()) u.click("btnCancel");
        });
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

}  // namespace wynconfig
