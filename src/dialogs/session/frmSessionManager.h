// Shows the sessions of a list that belongs to the host, to pick one of them or to edit the list.
#pragma once

#include <string>

#include "services/helped_form.h"

namespace wynconfig {

class OnError;

class frmSessionManager : public HelpedForm {
  public:
    frmSessionManager();

    /// Keeps the list and loads the form with it.
    /// @param bEnableConfig        whether the user may add, delete and edit
    /// @param sConfiguredSessions  names of sessions, joined by commas; empty: no session
    void init(bool bEnableConfig, const std::string& sConfiguredSessions);
    /// 0 a session was picked, 1 otherwise.
    long Result() const { return m_Result; }
    /// The name that was picked by OK, or empty.
    const std::string& SessionName() const { return m_SessionName; }
    /// The list as it stands: every change counts at once, and Cancel takes none back. Names whose
    /// item file has gone leave it whenever the list is shown anew.
    const std::string& Sessions() const { return m_Sessions; }
    void SetTextStrings();

    FormCaption UniCaption1{*this, "UniCaption1"};
    MsgBox UniMsgBox1{*this, "UniMsgBox1"};
    Label lblSelectSession{*this, "lblSelectSession", "Select a session"};
    ListView lstAvailableTESessions{*this, "lstAvailableTESessions"};
    Button btnAdd{*this, "btnAdd", "Add"};
    Button btnDelete{*this, "btnDelete", "Delete"};
    Button btnEdit{*this, "btnEdit", "Edit"};
    Button btnOK{*this, "btnOK", "OK"};
    Button btnCancel{*this, "btnCancel", "Cancel"};

  private:
    void Form_Load() override;
    void Form_Unload() override;
    FormLayout declareLayout() override;
    HelpTable helpTable() const override;

    void loadLstConfiguredSessions();
    void AddSessionToList(const std::string& sName);
    void RemoveSessionFromList(const std::string& sName);
    void selectSession(OnError& on, const std::string& name);
    void btnNew_Click();
    void btnRemove_Click();
    void btnEdit_Click();
    void btnOK_Click();
    void btnCancel_Click();

    long m_Result = 0;
    std::string m_SessionName;
    std::string m_Sessions;
};

}  // namespace wynconfig
