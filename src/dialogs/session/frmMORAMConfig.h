// The main dialog: edits one session on a launch tab and a part format tab. The part format tab and
// the applying are classes of their own.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "dialogs/session/part_format_tab.h"
#include "services/fields.h"
#include "services/helped_form.h"
#include "services/messages.h"
#include "wynconfig/dataset.h"
#include "wynconfig/keys.h"

namespace wynconfig {

class frmMORAMConfig : public HelpedForm {
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

    PartFormatTab formatTab{*this, m_messages, [this]() -> Dataset& { return *dataset(); }};

    Button btnOK{*this, "btnOK", "OK"};
    Button btnCancel{*this, "btnCancel", "Cancel"};
    Button btnApply{*this, "btnApply", "Apply"};

  private:
    void Form_Load() override;
    void Form_Unload() override;
    void Form_Resize() override;
    FormLayout declareLayout() override;
    HelpTable helpTable() const override;

    /// The session's record, made at the first use.
    const std::shared_ptr<Dataset>& dataset();
    void showSession();
    void UpdateProgramLaunchFields();

    /// What enters and leaves the order of the Tab key with a tab: all but the lists.
    std::vector<Control*> tabStopsOf(int tab);
    void SSTab2_Click(int PreviousTab);
    void txtDisplayName_LostFocus();
    void btnBrowseFile_Click();
    void btnAdvanced_Click();
    void btnTallyvane_Click();

    void btnOK_Click();
    void btnCancel_Click();
    void btnApply_Click();
    /// Applies the session in the present mode of working. @return kApplied or kRefused
    long apply();

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
