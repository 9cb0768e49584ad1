// The part format tab of the session dialog: which part formats exist, which of them the session
// uses, and the buttons that manage them.
#pragma once

#include <functional>
#include <string>

#include "services/messages.h"
#include "services/on_error.h"
#include "store/row_variable.h"
#include "wynconfig/controls.h"
#include "wynconfig/dataset.h"
#include "wynconfig/layout.h"

namespace wynconfig {

class PartFormatTab {
    // Before the controls, which register with the dialog.
    Form& m_dialog;
    Messages& m_messages;
    std::function<Dataset&()> m_session;

  public:
    /// @param dialog    the form on which the controls stand
    /// @param messages  shows the dialog's boxes
    /// @param session   gives the record of the session that the dialog edits
    PartFormatTab(Form& dialog, Messages& messages, std::function<Dataset&()> session);

    Label lblDisplayName3{m_dialog, "lblDisplayName3", "Display Name"};
    Label lblDisplayName2{m_dialog, "lblDisplayName2"};
    Frame frmPartFormat{m_dialog, "frmPartFormat"};
    Label lblAvailableFormats{m_dialog, "lblAvailableFormats", "Available Part Formats"};
    ListView lstAvailableFormats{m_dialog, "lstAvailableFormats"};
    Button btnAdd{m_dialog, "btnAdd", ">"};
    Button btnRemove{m_dialog, "btnRemove", "<"};
    Label lblSelectedFormats{m_dialog, "lblSelectedFormats", "Selected Part Formats"};
    ListView lstSelectedFormats2{m_dialog, "lstSelectedFormats2"};
    Button btnNew{m_dialog, "btnNew", "New"};
    Button btnCopy{m_dialog, "btnCopy", "Copy"};
    Button btnRename{m_dialog, "btnRename", "Rename"};
    Button btnEdit{m_dialog, "btnEdit", "Edit"};
    Button btnDelete{m_dialog, "btnDelete", "Delete"};

    Layout declareLayout(Container& pane);
    /// Readies the lists at the dialog's load, before its texts are fetched.
    void prepareLists();
    /// What happens when the tab comes on top.
    /// @param name  the session's, to be shown
    void enter(const std::string& name);
    /// Fills the list of the session's part formats.
    /// @param row  the row variable of what was read before: an absent count takes its data
    void showSelected(const Dataset& session, RowVariable& row);
    /// Fills the list of all part formats. Where no item file is there, it stays as it is.
    void loadAvailableFormats();

  private:
    void showFilled(OnError& on, ListView& list);
    void btnAdd_Click();
    void btnRemove_Click();
    void btnNew_Click();
    void btnEdit_Click();
    void btnCopy_Click();
    void btnRename_Click();
    void btnDelete_Click();
    void UpdateLstSelectedFormats(const std::string& sOld, const std::string& sNew);
    void DeleteUserPartFormat(const std::string& sName);
    /// Whether a part format may not be changed, being a factory one; shows the box that says so.
    bool isFactoryRefused(OnError& on, const std::string& name);
    bool isNewNameRefused(OnError& on, const std::string& name);
    void refuseTakenName(OnError& on, const std::string& name);
    bool renameInMemory(OnError& on, const std::string& oldName, const std::string& newName);
    void deleteInFiles(OnError& on, const std::string& name);
    void copyInMemory(OnError& on, const std::string& name);
    void selectAvailable(OnError& on, const std::string& name);
};

}  // namespace wynconfig
