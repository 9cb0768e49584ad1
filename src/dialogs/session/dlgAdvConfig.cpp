// Reading, checking and storing the window search, the delays and the launch switch of a session.
#include "dialogs/session/dlgAdvConfig.h"

#include "platform/text/numbers.h"
#include "services/on_error.h"
#include "services/status.h"
#include "services/texts.h"
#include "store/config_global_module.h"

namespace wynconfig {

using namespace ConfigGlobalModule;

dlgAdvConfig::dlgAdvConfig() : HelpedForm("dlgAdvConfig") {
    OKButton.Click = [this] { OKButton_Click(); };
    CancelButton.Click = [this] { CancelButton_Click(); };
    chkDisableProgramLaunch.Click = [this] { chkDisableProgramLaunch_Click(); };
}

FormLayout dlgAdvConfig::declareLayout() {
    using namespace layout;
    constexpr int kDelay = 8;
    return {
        column({group(FrameWindowTitle, {single(txtWindowTitle),
                                         row({single(btnTitleContains), single(btnTitleStartsWith),
                                              single(btnTitleMatches), stretch()})}),
                group(FrameClassTitle, {single(txtWindowClass),
                                        row({single(btnClassContains), single(btnClassStartsWith),
                                             single(btnClassMatches), stretch()})}),
                group(Frame1,
                      {single(chkDisableProgramLaunch),
                       sized(field(lblProgramLaunchDelay, txtProgramLaunchDelay), kDelay),
                       sized(field(lblWindowTitleClassDelay, txtWindowTitleClassDelay), kDelay)}),
                stretch(), buttons({&OKButton, &CancelButton})}),
        &OKButton, &CancelButton};
}

void dlgAdvConfig::SetTextStrings() {
    applyTexts({
        {&UniCaption1, "ADV_CONFIG_TITLE", "Advanced Configuration"},
        {&chkDisableProgramLaunch, "ADV_CONFIG_CHK_DISABLEPROGRAMLAUNCH"},
        {&lblProgramLaunchDelay, "ADV_CONFIG_LBL_PROGRAMLAUNCHDELAY"},
        {&lblWindowTitleClassDelay, "ADV_CONFIG_LBL_WINDOWTITLECLASSDELAY"},
        {&FrameWindowTitle, "ADV_CONFIG_LBL_WINDOWTITLE"},
        {&btnTitleContains, "MORAM2_SEARCH_TYPE_CONTAINS"},
        {&btnTitleStartsWith, "MORAM2_SEARCH_TYPE_STARTSWITH"},
        {&btnTitleMatches, "MORAM2_SEARCH_TYPE_MATCHES"},
        {&FrameClassTitle, "ADV_CONFIG_LBL_WINDOWCLASS"},
        {&btnClassContains, "MORAM2_SEARCH_TYPE_CONTAINS"},
        {&btnClassStartsWith, "MORAM2_SEARCH_TYPE_STARTSWITH"},
        {&btnClassMatches, "MORAM2_SEARCH_TYPE_MATCHES"},
        {&OKButton, "BUTTON_OK"},
        {&CancelButton, "BUTTON_CANCEL"},
    });
}

HelpTable dlgAdvConfig::helpTable() const {
    return {"HELP_ADVANCED",
            {{"HELP_WINDOW_TITLE", {&txtWindowTitle}},
             {"HELP_WINDOW_CLASS", {&txtWindowClass}},
             {"HELP_MATCH",
              {&btnTitleContains, &btnTitleStartsWith, &btnTitleMatches, &btnClassContains,
               &btnClassStartsWith, &btnClassMatches}},
             {"HELP_DISABLE_LAUNCH", {&chkDisableProgramLaunch}},
             {"HELP_LAUNCH_DELAY", {&txtProgramLaunchDelay}},
             {"HELP_WINDOW_DELAY", {&txtWindowTitleClassDelay}}}};
}

void dlgAdvConfig::Form_Load() {
    SetFormFont(*this);
    UniCaption1.bind(*this);
    SetTextStrings();
}

void dlgAdvConfig::Form_Unload() {
    UniCaption1.release();
}

void dlgAdvConfig::init(const std::shared_ptr<Dataset>& partlist, const std::string& sSessionName) {
    if (!partlist) return;
    m_Dataset = partlist;
    m_SessionName = sSessionName;
    OnError on{"dlgAdvConfig:init"};
    m_messages.okCaption = fetchString(on, "BUTTON_OK");
    // From here a failure ends the opening, without a box.
    on.resumeNext();
    on([&] {
        showFirstValues(m_fields);
        readUpToAbsentKey(m_fields, *m_Dataset);
        showLaunchDelayEnabled(!chkDisableProgramLaunch.value());
    });
}

void dlgAdvConfig::showLaunchDelayEnabled(bool enabled) {
    txtProgramLaunchDelay.setEnabled(enabled);
    txtProgramLaunchDelay.setBackground(enabled ? Background::Window : Background::InactiveBorder);
}

void dlgAdvConfig::chkDisableProgramLaunch_Click() {
    const bool disabled = chkDisableProgramLaunch.value();
    if (disabled) txtProgramLaunchDelay.setText("0");
    showLaunchDelayEnabled(!disabled);
}

void dlgAdvConfig::OKButton_Click() {
    if (ApplyChanges() != kApplied) return;
    m_Result = 0;
    Unload();
}

void dlgAdvConfig::CancelButton_Click() {
    m_Result = 1;
    Unload();
}

long dlgAdvConfig::ApplyChanges() {
    OnError on{"dlgAdvConfig:ApplyChanges"};
    if (on.test([&] { return !IsNumeric(txtWindowTitleClassDelay.text()); }))
        return refuse(on, "ADV_CONFIG_MSG_ENTER_VALID_TITLE_DELAY", "ADV_CONFIG_MSG_TITLE_DELAY",
                      txtWindowTitleClassDelay);
    if (on.test([&] {
            return !IsNumeric(txtProgramLaunchDelay.text()) && !chkDisableProgramLaunch.value();
        }))
        return refuse(on, "ADV_CONFIG_MSG_ENTER_VALID_LAUNCH_DELAY", "ADV_CONFIG_MSG_LAUNCH_DELAY",
                      txtProgramLaunchDelay);
    on([&] { SaveAdvancedChanges(); });
    return kApplied;
}

long dlgAdvConfig::refuse(OnError& on, const std::string& textKey, const std::string& titleKey,
                          Edit& box) {
    m_messages.refuse(on, fetchString(on, textKey), titleKey, box);
    return kRefused;
}

long dlgAdvConfig::SaveAdvancedChanges() {
    if (!m_Dataset) return 0;
    OnError on = OnError::ignoring();
    replaceRows(on, m_fields, *m_Dataset);
    if (!g_DatasetMode)
        on([&] { m_Dataset->Save(ItemPath::item(g_SessionFolder, m_SessionName)); });
    return 0;
}

}  // namespace wynconfig
