// Edits how a session finds and waits for the window of the other program. Runs shown, or unseen
// by `init` and `SaveAdvancedChanges` alone, which gives a session the keys that it lacks.
#pragma once

#include <memory>
#include <string>

#include "services/fields.h"
#include "services/helped_form.h"
#include "services/messages.h"
#include "wynconfig/dataset.h"
#include "wynconfig/keys.h"

namespace wynconfig {

class dlgAdvConfig : public HelpedForm {
  public:
    dlgAdvConfig();

    /// Shows the values of a record in the controls; the first absent key ends the reading.
    /// @param partlist      the session's record, shared with the caller; with null nothing happens
    /// @param sSessionName  name of the item file to save to, used as given
    void init(const std::shared_ptr<Dataset>& partlist, const std::string& sSessionName);
    /// Writes the nine rows and, in file mode, the item file. Always 0.
    long SaveAdvancedChanges();
    /// 0 OK or closed by the frame, 1 Cancel.
    long Result() const { return m_Result; }
    void SetTextStrings();

    FormCaption UniCaption1{*this, "UniCaption1"};
    MsgBox UniMsgBox1{*this, "UniMsgBox1"};
    Frame FrameWindowTitle{*this, "FrameWindowTitle", "Window Title"};
    Edit txtWindowTitle{*this, "txtWindowTitle"};
    OptionButton btnTitleContains{*this, "btnTitleContains", FrameWindowTitle, "Contains"};
    OptionButton btnTitleStartsWith{*this, "btnTitleStartsWith", FrameWindowTitle, "Starts with"};
    OptionButton btnTitleMatches{*this, "btnTitleMatches", FrameWindowTitle, "Matches"};
    Frame FrameClassTitle{*this, "FrameClassTitle", "Window Class"};
    Edit txtWindowClass{*this, "txtWindowClass"};
    OptionButton btnClassContains{*this, "btnClassContains", FrameClassTitle, "Contains"};
    OptionButton btnClassStartsWith{*this, "btnClassStartsWith", FrameClassTitle, "Starts with"};
    OptionButton btnClassMatches{*this, "btnClassMatches", FrameClassTitle, "Matches"};
    Frame Frame1{*this, "Frame1"};
    CheckBox chkDisableProgramLaunch{*this, "chkDisableProgramLaunch", "Disable Program Launch"};
    Label lblProgramLaunchDelay{*this, "lblProgramLaunchDelay", "Program Launch Delay"};
    Edit txtProgramLaunchDelay{*this, "txtProgramLaunchDelay"};
    Label lblWindowTitleClassDelay{*this, "lblWindowTitleClassDelay", "Window Title/Class Delay"};
    Edit txtWindowTitleClassDelay{*this, "txtWindowTitleClassDelay"};
    Button OKButton{*this, "OKButton", "OK"};
    Button CancelButton{*this, "CancelButton", "Cancel"};

  private:
    void Form_Load() override;
    void Form_Unload() override;
    FormLayout declareLayout() override;
    HelpTable helpTable() const override;

    void showLaunchDelayEnabled(bool enabled);
    long ApplyChanges();
    long refuse(OnError& on, const std::string& textKey, const std::string& titleKey, Edit& box);
    void OKButton_Click();
    void CancelButton_Click();
    void chkDisableProgramLaunch_Click();

    const Fields m_fields{
        {AsOptions{{{btnTitleContains, words::kContains},
                    {btnTitleStartsWith, words::kStartsWith},
                    {btnTitleMatches, words::kMatches}},
                   btnTitleContains},
         session::kWindowTitleSearchType, words::kContains},
        {AsOptions{{{btnClassContains, words::kContains},
                    {btnClassStartsWith, words::kStartsWith},
                    {btnClassMatches, words::kMatches}},
                   btnClassContains},
         session::kWindowClassSearchType, words::kContains},
        {AsText{txtWindowTitle}, session::kWindowTitle},
        {AsText{txtWindowClass}, session::kWindowClass},
        {AsSwitch{chkDisableProgramLaunch}, session::kDisableProgramLaunch, words::kFalse},
        {AsText{txtWindowTitleClassDelay}, session::kWindowTitleClassDelay, "0"},
        {AsText{txtProgramLaunchDelay}, session::kProgramLaunchDelay, "0"},
        // These are there for the host alone.
        {AsConstant{}, session::kWindowTitleCaseSensitive, words::kTrue},
        {AsConstant{}, session::kWindowClassCaseSensitive, words::kFalse}};
    long m_Result = 0;
    std::shared_ptr<Dataset> m_Dataset;
    std::string m_SessionName;
    Messages m_messages{UniMsgBox1};
};

}  // namespace wynconfig
