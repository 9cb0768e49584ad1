// Lists all sessions of the session folder, to pick, make, edit or delete one. One hidden instance
// hosts the failure box.
#pragma once

#include <string>

#include "services/helped_form.h"
#include "services/messages.h"

namespace wynconfig {

class frmMORAMMaintenance : public HelpedForm {
  public:
    frmMORAMMaintenance();

    /// Keeps the name of the session to select at load. Touches no control.
    void init(const std::string& sSessionName) { m_SessionName = sSessionName; }
    /// 0 a session was chosen, 1 otherwise.
    long Result() const { return m_Result; }
    /// The name that `init` gave; on leaving, the name chosen.
    const std::string& SessionName() const { return m_SessionName; }
    void SetTextStrings();

    FormCaption UniCaption1{*this, "UniCaption1"};
    MsgBox UniMsgBox1{*this, "UniMsgBox1"};
    Label lblSelectSession{*this, "lblSelectSession", "Select a session"};
    ListView lstAvailableMORAMs2{*this, "lstAvailableMORAMs2"};
    Button btnNew{*this, "btnNew", "New"};
    Button btnDelete{*this, "btnDelete", "Delete"};
    Button btnEdit{*this, "btnEdit", "Edit"};
    Button btnOK{*this, "btnOK", "OK"};
    Button btnCancel{*this, "btnCancel", "Cancel"};

  private:
    void Form_Load() override;
    void Form_Unload() override;
    FormLayout declareLayout() override;
    HelpTable helpTable() const override;

    void loadLstAvailableMORAMs();
    void btnNew_Click();
    void btnEdit_Click();
    void btnRemove_Click();
    void btnOK_Click();
    void btnCancel_Click();

    long m_Result = 0;
    std::string m_SessionName;
    Messages m_messages{UniMsgBox1};
};

}  // namespace wynconfig
