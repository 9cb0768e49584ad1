// Opening the session dialog, its tabs, the buttons that open other dialogs, and leaving it.
#include "dialogs/session/frmMORAMConfig.h"

#include <vector>

#include "dialogs/session/dlgAdvConfig.h"
#include "dialogs/session/frmTallyvaneConfig.h"
#include "dialogs/session/session_applying.h"
#include "platform/files/file_system.h"
#include "platform/text/text.h"
#include "services/format_walks.h"
#include "services/global_error.h"
#include "services/list_and_name_helpers.h"
#include "services/on_error.h"
#include "services/status.h"
#include "services/texts.h"
#include "store/config_global_module.h"
#include "wynconfig/error.h"

namespace wynconfig {

using namespace ConfigGlobalModule;

frmMORAMConfig::frmMORAMConfig() : HelpedForm("frmMORAMConfig") {
    SSTab2.TabClick = [this](int previous) { SSTab2_Click(previous); };
    txtDisplayName.LostFocus = [this] { txtDisplayName_LostFocus(); };
    btnBrowseFile.Click = [this] { btnBrowseFile_Click(); };
    btnAdvanced.Click = [this] { btnAdvanced_Click(); };
    btnTallyvane.Click = [this] { btnTallyvane_Click(); };
    btnOK.Click = [this] { btnOK_Click(); };
    btnCancel.Click = [this] { btnCancel_Click(); };
    btnApply.Click = [this] { btnApply_Click(); };
}

FormLayout frmMORAMConfig::declareLayout() {
    using namespace layout;
    Layout launch =
        pane(UniContainer1[0],
             {field(lblDisplayName, txtDisplayName), stretch(),
              group(frmLaunch, {field(lblPath, txtProgramPath, {single(btnBrowseFile)}),
                                field(lblCmdLine, txtCommandLineArgs),
                                row({stretch(), single(btnAdvanced), single(btnTallyvane)})}),
              stretch(),
              group(frmOrientation,
                    {row({growing(column({single(rdoTop), single(rdoBottom), single(rdoLeft),
                                          single(rdoRight)})),
                          growing(column({single(chkReverseList), single(chkAutoResize)}))})}),
              stretch()});
    return {column({growing(tabs(SSTab2,
                                 {std::move(launch), formatTab.declareLayout(UniContainer1[1])})),
                    buttons({&btnOK, &btnCancel, &btnApply})}),
            &btnOK, &btnCancel};
}

void frmMORAMConfig::SetTextStrings() {
    applyTexts({
        {&UniCaption1, "MORAM_CONFIG_TITLE", "WYN 3rd Party Application Configuration"},
        {TabCaption{&SSTab2, 0}, "MORAM_CONFIG_TAB_APP_LAUNCH"},
        {TabCaption{&SSTab2, 1}, "MORAM_CONFIG_TAB_PART_FORMAT"},
        {&lblDisplayName, "MORAM_CONFIG_LBL_DISPLAYNAME"},
        {&frmLaunch, "MORAM_CONFIG_FRA_LAUNCH"},
        {&lblPath, "MORAM_CONFIG_LBL_PATH"},
        {&btnBrowseFile, "BUTTON_BROWSE"},
        {&lblCmdLine, "MORAM_CONFIG_LBL_CMDLINE"},
        {&chkReverseList, "MORAM_CONFIG_OPT_REVERSE"},
        {&btnAdvanced, "BUTTON_ADVANCED"},
        {&btnTallyvane, "BUTTON_TALLYVANE"},
        {&frmOrientation, "MORAM_CONFIG_FRA_ORIENTATION"},
        {&rdoTop, "MORAM_CONFIG_OPT_TOP"},
        {&rdoBottom, "MORAM_CONFIG_OPT_BOTTOM"},
        {&rdoLeft, "MORAM_CONFIG_OPT_LEFT"},
        {&rdoRight, "MORAM_CONFIG_OPT_RIGHT"},
        {&chkAutoResize, "MORAM_CONFIG_CHK_AUTORESIZE"},
        {&formatTab.lblDisplayName3, "MORAM_CONFIG_LBL_DISPLAYNAME"},
        {&formatTab.lblAvailableFormats, "MORAM_CONFIG_LBL_AVAILABLEFORMATS"},
        {&formatTab.lblSelectedFormats, "MORAM_CONFIG_LBL_SELECTEDFORMATS"},
        {&formatTab.btnNew, "BUTTON_NEW"},
        {&formatTab.btnCopy, "BUTTON_COPY"},
        {&formatTab.btnRename, "BUTTON_RENAME"},
        {&formatTab.btnEdit, "BUTTON_EDIT"},
        {&formatTab.btnDelete, "BUTTON_DELETE"},
        {&btnOK, "BUTTON_OK"},
        {&btnCancel, "BUTTON_CANCEL"},
        {&btnApply, "BUTTON_APPLY"},
        {&CommonDialog, {}, "Select an application"},
        {&m_messages.okCaption, "BUTTON_OK", "Ok"},
    });
}

HelpTable frmMORAMConfig::helpTable() const {
    return {"HELP_SESSION",
            {{"HELP_SESSION_NAME", {&txtDisplayName}},
             {"HELP_PROGRAM_PATH", {&txtProgramPath}},
             {"HELP_BROWSE_PROGRAM", {&btnBrowseFile}},
             {"HELP_COMMAND_LINE", {&txtCommandLineArgs}},
             {"HELP_ADVANCED_BUTTON", {&btnAdvanced}},
             {"HELP_TALLYVANE_BUTTON", {&btnTallyvane}},
             {"HELP_ORIENTATION", {&rdoTop, &rdoBottom, &rdoLeft, &rdoRight}},
             {"HELP_REVERSE_LIST", {&chkReverseList}},
             {"HELP_AUTO_RESIZE", {&chkAutoResize}},
             {"HELP_AVAILABLE_FORMATS", {&formatTab.lstAvailableFormats}},
             {"HELP_SELECTED_FORMATS", {&formatTab.lstSelectedFormats2}},
             {"HELP_SELECT_FORMAT", {&formatTab.btnAdd}},
             {"HELP_UNSELECT_FORMAT", {&formatTab.btnRemove}},
             {"HELP_NEW_FORMAT", {&formatTab.btnNew}},
             {"HELP_COPY_FORMAT", {&formatTab.btnCopy}},
             {"HELP_RENAME_FORMAT", {&formatTab.btnRename}},
             {"HELP_EDIT_FORMAT", {&formatTab.btnEdit}},
             {"HELP_DELETE_FORMAT", {&formatTab.btnDelete}},
             {"HELP_APPLY", {&btnApply}}}};
}

void frmMORAMConfig::Form_Load() {
    m_Result = 1;
    Hide();
    SetTopMost(*this, true);
    SetTopMost(*this, false);
    SetFormFont(*this);
    formatTab.prepareLists();
    UniCaption1.bind(*this);
    SetTextStrings();
    Form_Resize();
}

void frmMORAMConfig::Form_Unload() {
    UniCaption1.release();
}

void frmMORAMConfig::Form_Resize() {
    // The dialog has this one size. The panes fill their tabs by the layout.
    setSize(9150, 6600);
    SSTab2_Click(1);
}

std::vector<Control*> frmMORAMConfig::tabStopsOf(int tab) {
    const Layout& tabs = layout().body.children.front();
    std::vector<Control*> stops = controlsOf(tabs.children[static_cast<std::size_t>(tab)]);
    std::erase_if(stops, [](const Control* each) {
        return !takesFocus(*each) || each->kind() == ControlKind::ListView;
    });
    return stops;
}

void frmMORAMConfig::SSTab2_Click(int PreviousTab) {
    OnError on = OnError::ignoring();
    Container& pane = UniContainer1[SSTab2.tab()];
    on([&] { pane.setFocus(); });
    on([&] { pane.bringToFront(); });
    for (Control* each : tabStopsOf(0)) on([&] { each->setTabStop(PreviousTab == 1); });
    for (Control* each : tabStopsOf(1)) on([&] { each->setTabStop(PreviousTab == 0); });
    if (SSTab2.tab() == 0)
        on([&] { txtDisplayName.setFocus(); });
    else
        formatTab.enter(txtDisplayName.text());
}

void frmMORAMConfig::txtDisplayName_LostFocus() {
    txtDisplayName.setText(UCase(Trim(txtDisplayName.text())));
}

const std::shared_ptr<Dataset>& frmMORAMConfig::dataset() {
    if (!m_Dataset) m_Dataset = std::make_shared<Dataset>();
    return m_Dataset;
}

void frmMORAMConfig::init(const std::string& sSessionName) {
    OnError on{"UnifrmMORAMConfig:init"};
    m_Dataset.reset();
    on([&] { Hide(); });
    m_bApplied = false;
    m_SessionName = sSessionName;
    if (sSessionName.empty()) {
        showFirstValues(on, m_fields);
    } else {
        std::string file;
        on([&] { file = fileSystem().find(ItemPath::item(g_SessionFolder, UCase(sSessionName))); });
        if (file.empty()) return;
        on([&] { dataset()->Load(ItemPath{g_SessionFolder, file}, 0); });
        on([&] { txtDisplayName.setText(sSessionName); });
        showSession();
    }
    on([&] { UpdateProgramLaunchFields(); });
    on([&] { formatTab.loadAvailableFormats(); });
}

void frmMORAMConfig::initEX(const std::string& sSessionName, bool) {
    OnError on{"UnifrmMORAMConfig:initEX"};
    if (!g_Session) {
        GlobalError(kProject, "UnifrmMORAMConfig:initEX", 999, "plConfigSession is null");
        return;
    }
    m_Dataset = g_Session;
    on([&] { Hide(); });
    m_bApplied = false;
    m_SessionName = sSessionName;
    on([&] { txtDisplayName.setText(sSessionName); });
    showSession();
    on([&] { UpdateProgramLaunchFields(); });
    on([&] { formatTab.loadAvailableFormats(); });
    on([&] { formatTab.lstAvailableFormats.refresh(); });
}

/// The part formats are read through the row variable of the fields, so that an absent count takes
/// the data of the key before it.
void frmMORAMConfig::showSession() {
    RowVariable row = readCarryingOver(m_fields, *dataset());
    formatTab.showSelected(*dataset(), row);
}

void frmMORAMConfig::UpdateProgramLaunchFields() {
    try {
        const bool enabled = dataset()->GetRow(session::kDisableProgramLaunch)[1] == words::kFalse;
        for (Edit* box : {&txtProgramPath, &txtCommandLineArgs}) {
            box->setEnabled(enabled);
            box->setBackground(enabled ? Background::Window : Background::InactiveBorder);
        }
    } catch (...) {
        // A session without the row leaves the boxes as they stand.
        (void)Error::fromCurrentException();
    }
}

void frmMORAMConfig::btnBrowseFile_Click() {
    OnError on{"UnifrmMORAMConfig:btnBrowseFile_Click"};
    const std::shared_ptr<const Font> formFont = font();
    const BrowseTexts texts = fetchBrowseTexts("GLOBAL_SELECT_APP", "Select an application");
    std::string path;
    on([&] { path = UniBrowse.browse(true, texts.title, texts.ok, texts.cancel, formFont); });
    if (!path.empty()) on([&] { txtProgramPath.setText(path); });
}

void frmMORAMConfig::btnAdvanced_Click() {
    dlgAdvConfig advanced;
    advanced.init(dataset(), UCase(Trim(txtDisplayName.text())));
    advanced.Show();
    if (advanced.Result() == 0) UpdateProgramLaunchFields();
    advanced.Unload();
}

void frmMORAMConfig::btnTallyvane_Click() {
    {
        frmTallyvaneConfig fileWriter;
        fileWriter.init(dataset(), UCase(Trim(txtDisplayName.text())));
        fileWriter.Show();
        fileWriter.Unload();
    }
    // The last format confirmed in that dialog joins the list, also after a Cancel.
    if (g_TallyvanePartFormat.empty() || g_TallyvanePartFormat.find('<') != std::string::npos)
        return;
    ListView& selected = formatTab.lstSelectedFormats2;
    if (!IsItemInUniListView(selected, g_TallyvanePartFormat))
        selected.add(g_TallyvanePartFormat, g_TallyvanePartFormat);
}

void frmMORAMConfig::btnApply_Click() {
    OnError on{"UnifrmMORAMConfig:btnApply_Click"};
    on([&] { m_bApplied = apply() == kApplied; });
}

void frmMORAMConfig::btnOK_Click() {
    OnError on{"UnifrmMORAMConfig:btnOK_Click"};
    on([&] { m_Result = apply() == kApplied ? 0 : 1; });
    if (m_Result == 0) on([&] { Unload(); });
}

void frmMORAMConfig::btnCancel_Click() {
    OnError on{"UnifrmMORAMConfig:btnCancel_Click"};
    m_Result = m_bApplied ? 0 : 1;
    on([&] { Unload(); });
}

long frmMORAMConfig::apply() {
    const long status =
        SessionApplying(*this, dataset(), m_fields, m_messages, g_DatasetMode).run();
    if (status == kApplied) m_SessionName = UCase(txtDisplayName.text());
    return status;
}

bool frmMORAMConfig::CheckForLastPartNumberFormatInAllMORAMs(const std::string& sPartformat,
                                                             std::string& sSession) {
    return isOnlyFormatOfASession(sPartformat, sSession);
}

void frmMORAMConfig::UpdatePartNumberFormatsInAllMORAMs(const std::string& sOldName,
                                                        const std::string& sNewName) {
    carryFormatThroughSessions(sOldName, sNewName);
}

void frmMORAMConfig::RenamePartNumberFormatsInCurrentMORAM(const std::string& sOldName,
                                                           const std::string& sNewName) {
    carryFormatThroughRecord(*dataset(), sOldName, sNewName);
}

}  // namespace wynconfig
