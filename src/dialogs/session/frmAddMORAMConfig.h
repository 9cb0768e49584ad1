// Makes a new session, from nothing or on the base of another one.
#pragma once

#include <string>

#include "services/helped_form.h"
#include "services/messages.h"

namespace wynconfig {

class frmAddMORAMConfig : public HelpedForm {
  public:
    frmAddMORAMConfig();

    /// @param sName  the proposed name, upper-cased
    void init(const std::string& sName);
    /// After a close: the upper-cased text of the name box, empty after Cancel.
    const std::string& SessionName() const { return m_SessionName; }
    /// 0 the session was made, 1 cancelled or closed with an empty name.
    long Result() const { return m_Result; }
    void SetTextStrings();

    FormCaption UniCaption1{*this, "UniCaption1"};
    MsgBox UniMsgBox1{*this, "UniMsgBox1"};
    Frame frmSession{*this, "frmSession"};
    Label lblName{*this, "lblName", "Add a new session named"};
    Edit txtName{*this, "txtName"};
    Label lblConfigs{*this, "lblConfigs", "based on the session"};
    ComboBox cboConfigs{*this, "cboConfigs"};
    Button btnOK{*this, "btnOK", "OK"};
    Button btnCancel{*this, "btnCancel", "Cancel"};

  private:
    void Form_Load() override;
    void Form_Activate() override;
    void Form_Unload() override;
    FormLayout declareLayout() override;
    HelpTable helpTable() const override;

    void loadCboConfigs();
    /// Whether the name in the box may be that of a new session; shows the box that says why not.
    bool isNameFree(OnError& on);
    void makeSession(OnError& on);
    void normaliseName();
    void btnOk_Click();
    void btnCancel_Click();

    std::string m_SessionName;
    long m_Result = 0;
    Messages m_messages{UniMsgBox1};
};

}  // namespace wynconfig
