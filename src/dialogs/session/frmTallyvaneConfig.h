// Edits how a session writes its parts list to a file. Runs shown, or unseen by `init` and
// `SaveAdvancedChanges` alone, which gives a session the keys that it lacks.
#pragma once

#include <memory>
#include <string>

#include "services/fields.h"
#include "services/helped_form.h"
#include "services/messages.h"
#include "wynconfig/dataset.h"
#include "wynconfig/keys.h"

namespace wynconfig {

class frmTallyvaneConfig : public HelpedForm {
  public:
    frmTallyvaneConfig();

    /// 0 OK or closed by the frame, 1 Cancel.
    long Result() const { return m_Result; }
    /// Shows the values of a record in the controls; an absent key reads as empty.
    /// @param partlist      the session's record, shared with the caller; with null nothing happens
    /// @param sSessionName  name of the item file to save to, used as given
    void init(const std::shared_ptr<Dataset>& partlist, const std::string& sSessionName);
    /// Writes the rows and, in file mode, the item file. Always 0.
    long SaveAdvancedChanges();
    void SetTextStrings();

    BrowseFolder UniBrowse{*this, "UniBrowse"};
    FormCaption UniCaption1{*this, "UniCaption1"};
    MsgBox UniMsgBox1{*this, "UniMsgBox1"};
    Label lblPartFormat{*this, "lblPartFormat", "Part Format"};
    ComboBox cboPartFormat{*this, "cboPartFormat"};
    Label lblFileName{*this, "lblFileName", "File Name"};
    Edit txtFileName{*this, "txtFileName"};
    Label lblFileFolder{*this, "lblFileFolder", "File Folder"};
    Edit txtFileFolder{*this, "txtFileFolder"};
    Button btnBrowseFolder{*this, "btnBrowseFolder", "Browse"};
    OptionButton rdoAppend{*this, "rdoAppend", "Append"};
    OptionButton rdoOverWrite{*this, "rdoOverWrite", "Over Write"};
    CheckBox chkWriteFileOnly{*this, "chkWriteFileOnly", "Write File Only"};
    Button btnOk{*this, "btnOk", "OK"};
    Button btnCancel{*this, "btnCancel", "Cancel"};

  private:
    void Form_Load() override;
    void Form_Unload() override;
    FormLayout declareLayout() override;
    HelpTable helpTable() const override;

    void loadCboPartFormat();
    long ApplyChanges();
    void btnBrowseFolder_Click();
    void btnOk_Click();
    void btnCancel_Click();

    const Fields m_fields{
        {AsItem{cboPartFormat}, session::kPartFormat},
        {AsTrimmedText{txtFileName}, session::kFileName, ""},
        {AsTrimmedText{txtFileFolder}, session::kFileFolder, ""},
        {AsOptions{{{rdoAppend, words::kAppend}, {rdoOverWrite, words::kOverWrite}}, rdoOverWrite},
         session::kFileAction, words::kOverWrite},
        {AsSwitch{chkWriteFileOnly}, session::kWriteFileOnly, words::kFalse}};
    long m_Result = 0;
    std::shared_ptr<Dataset> m_Dataset;
    std::string m_SessionName;
    Messages m_messages{UniMsgBox1};
};

}  // namespace wynconfig
