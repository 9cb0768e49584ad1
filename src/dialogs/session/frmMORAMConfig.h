// The main dialog: edits one session on a launch tab and a part format tab. Its code is cut by what
// it does: opening and simple handlers (frmMORAMConfig.cpp), applying (frmMORAMConfigApply.cpp),
// the part format tab (frmMORAMConfigFormats.cpp), and carrying a format's new name or deletion
// through the sessions (frmMORAMConfigWalkers.cpp).
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "services/fields.h"
#include "services/messages.h"
#include "wynconfig/dataset.h"
#include "wynconfig/form.h"
#include "wynconfig/keys.h"

namespace wynconfig {

class dlgAdvConfig;

class frmMORAMConfig : public Form {
  public:
    frmMORAMConfig();

    /// Whether a part format is the only one of some session in the session folder.
    /// @param sSession  out: the first such session in the order of the listing, or empty
    bool CheckForLastPartNumberFormatInAllMORAMs(const std::string& sPartformat,
                                                 std::string& sSession);
    /// Carries a part format's new name, or with an empty one its deletion, through every session
    /// file. In the in-memory mode nothing happens. All files are written with one flush of the
    /// disk, each wholly old or wholly new at any moment.
    void UpdatePartNumberFormatsInAllMORAMs(const std::string& sOldName,
                                            const std::string& sNewName);
    /// The same for the session that is being edited, in its record alone.
    void RenamePartNumberFormatsInCurrentMORAM(const std::string& sOldName,
                                               const std::string& sNewName);
    /// 0 the session was saved and the dialog closed with success, 1 otherwise.
    long Result() const { return m_Result; }
    /// Opens a session in file mode.
    /// @param sSessionName  upper-cased name; an empty one opens on a session that does not exist
    /// yet
    void init(const std::string& sSessionName);
    /// Opens `g_Session` in the in-memory mode.
    /// @param bPassedPartFormats  nothing reads it
    void initEX(const std::string& sSessionName, bool bPassedPartFormats = false);
    /// The name as opened; after a successful Apply the upper-cased display name.
    const std::string& SessionName() const { return m_SessionName; }
    void SetTextStrings();

    FormCaption UniCaption1{*this, "UniCaption1"};
    MsgBox UniMsgBox1{*this, "UniMsgBox1"};
    BrowseFolder UniBrowse{*this, "UniBrowse"};
    wynconfig::CommonDialog CommonDialog{*this, "CommonDialog"};
    Tabs SSTab2{*this, "SSTab2", {"3rd Party Application Launch", "Part Number Format"}};
    Container UniContainer1[2]{{*this, "UniContainer1(0)"}, {*this, "UniContainer1(1)"}};

    // The launch tab, in the order of the Tab key.
    Label lblDisplayName{*this, "lblDisplayName", "Display Name"};
    Edit txtDisplayName{*this, "txtDisplayName"};
    Frame frmLaunch{*this, "frmLaunch", "Program Launch"};
    Label lblPath{*this, "lblPath", "Program Path"};
    Edit txtProgramPath{*this, "txtProgramPath"};
    Button btnBrowseFile{*this, "btnBrowseFile", "Browse"};
    Label lblCmdLine{*this, "lblCmdLine", "Command Line Options"};
    Edit txtCommandLineArgs{*this, "txtCommandLineArgs"};
    CheckBox chkReverseList{*this, "chkReverseList", "Reverse List Order"};
    Button btnAdvanced{*this, "btnAdvanced", "Advanced"};
    Button btnTallyvane{*this, "btnTallyvane", "Tallyvane"};
    Frame frmOrientation{*this, "frmOrientation", "Orientation"};
    OptionButton rdoTop{*this, "rdoTop", frmOrientation, "Top"};
    OptionButton rdoBottom{*this, "rdoBottom", frmOrientation, "Bottom"};
    OptionButton rdoLeft{*this, "rdoLeft", frmOrientation, "Left"};
    OptionButton rdoRight{*this, "rdoRight", frmOrientation, "Right"};
    CheckBox chkAutoResize{*this, "chkAutoResize", "Automatic Resize"};

    // The part format tab.
    Label lblDisplayName3{*this, "lblDisplayName3", "Display Name"};
    Label lblDisplayName2{*this, "lblDisplayName2"};
    Frame frmPartFormat{*this, "frmPartFormat"};
    Label lblAvailableFormats{*this, "lblAvailableFormats", "Available Part Formats"};
    ListView lstAvailableFormats{*this, "lstAvailableFormats"};
    Button btnAdd{*this, "btnAdd", ">"};
    Button btnRemove{*this, "btnRemove", "<"};
    Label lblSelectedFormats{*this, "lblSelectedFormats", "Selected Part Formats"};
    ListView lstSelectedFormats2{*this, "lstSelectedFormats2"};
    Button btnNew{*this, "btnNew", "New"};
    Button btnCopy{*this, "btnCopy", "Copy"};
    Button btnRename{*this, "btnRename", "Rename"};
    Button btnEdit{*this, "btnEdit", "Edit"};
    Button btnDelete{*this, "btnDelete", "Delete"};

    Button btnOK{*this, "btnOK", "OK"};
    Button btnCancel{*this, "btnCancel", "Cancel"};
    Button btnApply{*this, "btnApply", "Apply"};

  private:
    void Form_Load() override;
    void Form_Unload() override;
    void Form_Resize() override;
    FormLayout declareLayout() override;

    /// The session's record, made at the first use.
    const std::shared_ptr<Dataset>& dataset();
    void showSession();
    void readSelectedFormats(RowVariable& row);
    void UpdateProgramLaunchFields();
    void loadAvailableFormats();
    void showFilled(OnError& on, ListView& list);

    /// What enters and leaves the order of the Tab key with a tab: all but the lists.
    std::vector<Control*> tabStopsOf(int tab);
    void SSTab2_Click(int PreviousTab);
    void txtDisplayName_LostFocus();
    void btnBrowseFile_Click();
    void btnAdvanced_Click();
    void btnTallyvane_Click();
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

    void btnOK_Click();
    void btnCancel_Click();
    void btnApply_Click();
    long apply();
    long ApplyChanges();
    long ApplyChangesEX();
    long applyIn(bool inMemory, OnError& on);
    bool isContentRefused(OnError& on);
    bool isRenameRefused(OnError& on, bool inMemory);
    void renameSession(OnError& on, bool inMemory);
    void removeFormatRows();
    void writeFormatRows(OnError& on, bool inMemory);
    bool isLaunchRefused(OnError& on, dlgAdvConfig& advanced);
    void writeFileWriterRows(OnError& on);
    void refuse(OnError& on, const std::string& text, const std::string& titleKey, int tab,
                Control& offender);

    // The first values are those of a session that does not exist yet.
    const Fields m_fields{{AsText{txtProgramPath}, session::kProgramPath},
                          {AsText{txtCommandLineArgs}, session::kCommandLineArgs},
                          {AsSwitch{chkReverseList}, session::kReverseList},
                          {AsSwitch{chkAutoResize}, session::kAutoResize, words::kTrue},
                          {AsOptions{{{rdoTop, words::kTop},
                                      {rdoBottom, words::kBottom},
                                      {rdoRight, words::kRight},
                                      {rdoLeft, words::kLeft}},
                                     rdoLeft},
                           session::kOrientation}};
    long m_Result = 0;
    std::shared_ptr<Dataset> m_Dataset;
    std::string m_SessionName;
    bool m_bApplied = false;
    Messages m_messages{UniMsgBox1};
};

}  // namespace wynconfig
