// Opening the session dialog, its tabs, and the buttons that open other dialogs.
#include "dialogs/session/frmMORAMConfig.h"

#include <vector>

#include "dialogs/session/dlgAdvConfig.h"
#include "dialogs/session/frmTallyvaneConfig.h"
#include "platform/files/file_system.h"
#include "platform/text/numbers.h"
#include "platform/text/text.h"
#include "services/global_error.h"
#include "services/item_lists.h"
#include "services/list_and_name_helpers.h"
#include "services/on_error.h"
#include "services/texts.h"
#include "store/config_global_module.h"
#include "store/row_variable.h"
#include "store/session_record.h"
#include "wynconfig/error.h"

namespace wynconfig {

using namespace ConfigGlobalModule;

frmMORAMConfig::frmMORAMConfig() : Form("frmMORAMConfig") {
    SSTab2.TabClick = [this](int previous) { SSTab2_Click(previous); };
    txtDisplayName.LostFocus = [this] { txtDisplayName_LostFocus(); };
    btnBrowseFile.Click = [this] { btnBrowseFile_Click(); };
    btnAdvanced.Click = [this] { btnAdvanced_Click(); };
    btnTallyvane.Click = [this] { btnTallyvane_Click(); };
    btnAdd.Click = [this] { btnAdd_Click(); };
    btnRemove.Click = [this] { btnRemove_Click(); };
    btnNew.Click = [this] { btnNew_Click(); };
    btnEdit.Click = [this] { btnEdit_Click(); };
    btnCopy.Click = [this] { btnCopy_Click(); };
    btnRename.Click = [this] { btnRename_Click(); };
    btnDelete.Click = [this] { btnDelete_Click(); };
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
    Layout available = titled(
        lblAvailableFormats,
        {single(btnNew), single(btnCopy), single(btnRename), single(btnEdit), single(btnDelete)},
        lstAvailableFormats);
    Layout formats = pane(
        UniContainer1[1],
        {field(lblDisplayName3, lblDisplayName2),
         growing(group(
             frmPartFormat,
             {growing(row(
                 {growing(acting(std::move(available),
                                 {.del = &btnDelete, .rename = &btnRename, .activate = &btnAdd})),
                  column({stretch(), moving(btnAdd, lblAvailableFormats, lblSelectedFormats),
                          moving(btnRemove, lblSelectedFormats, lblAvailableFormats), stretch()}),
                  growing(acting(titled(lblSelectedFormats, lstSelectedFormats2),
                                 {.del = &btnRemove, .activate = &btnRemove}))}))}))});
    return {column({growing(tabs(SSTab2, {std::move(launch), std::move(formats)})),
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
        {&lblDisplayName3, "MORAM_CONFIG_LBL_DISPLAYNAME"},
        {&lblAvailableFormats, "MORAM_CONFIG_LBL_AVAILABLEFORMATS"},
        {&lblSelectedFormats, "MORAM_CONFIG_LBL_SELECTEDFORMATS"},
        {&btnNew, "BUTTON_NEW"},
        {&btnCopy, "BUTTON_COPY"},
        {&btnRename, "BUTTON_RENAME"},
        {&btnEdit, "BUTTON_EDIT"},
        {&btnDelete, "BUTTON_DELETE"},
        {&btnOK, "BUTTON_OK"},
        {&btnCancel, "BUTTON_CANCEL"},
        {&btnApply, "BUTTON_APPLY"},
        {&CommonDialog, {}, "Select an application"},
        {&m_messages.okCaption, "BUTTON_OK", "Ok"},
    });
}

void frmMORAMConfig::Form_Load() {
    m_Result = 1;
    Hide();
    SetTopMost(*this, true);
    SetTopMost(*this, false);
    SetFormFont(*this);
    // The columns keep the labels' design captions: the texts come later.
    prepareItemList(lstAvailableFormats, lblAvailableFormats, 3200);
    prepareItemList(lstSelectedFormats2, lblSelectedFormats, 3200);
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
    if (SSTab2.tab() == 0) {
        on([&] { txtDisplayName.setFocus(); });
        return;
    }
    on([&] { btnNew.setFocus(); });
    on([&] { lblDisplayName2.setCaption(txtDisplayName.text()); });
    on([&] { lstAvailableFormats.refresh(); });
    on([&] { lstSelectedFormats2.refresh(); });
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
    on([&] { loadAvailableFormats(); });
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
    on([&] { loadAvailableFormats(); });
    on([&] { lstAvailableFormats.refresh(); });
}

/// The part formats are read through the row variable of the fields, so that an absent count takes
/// the data of the key before it.
void frmMORAMConfig::showSession() {
    RowVariable row = readCarryingOver(m_fields, *dataset());
    readSelectedFormats(row);
}

void frmMORAMConfig::readSelectedFormats(RowVariable& row) {
    OnError on = OnError::ignoring();
    std::int16_t count = 0;
    on([&] { row.read(*dataset(), session::kFormatCount); });
    on([&] { count = toInt16(row.data()); });
    on([&] { lstSelectedFormats2.clear(); });
    for (int i = 1; i <= count; ++i) {
        on([&] { row.read(*dataset(), session::formatKey(i)); });
        on([&] { lstSelectedFormats2.add(row.data(), row.data(), font()); });
    }
    showFilled(on, lstSelectedFormats2);
}

void frmMORAMConfig::showFilled(OnError& on, ListView& list) {
    on([&] { list.setVisible(true); });
    on([&] { list.refresh(); });
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

void frmMORAMConfig::loadAvailableFormats() {
    OnError on{"UnifrmMORAMConfig:loadAvailableFormats"};
    std::vector<std::string> names;
    on([&] { names = listItemNames(g_PartFormatFolder); });
    if (names.empty()) return;
    on([&] { lstAvailableFormats.clear(); });
    for (const std::string& name : names) on([&] { lstAvailableFormats.add(name, name, font()); });
    if (g_DatasetMode) {
        for (const auto& [key, format] : g_PartFormats) {
            const std::string& name = format->Name();
            if (!IsItemInUniListView(lstAvailableFormats, name))
                on([&] { lstAvailableFormats.add(name, name, font()); });
        }
    }
    showFilled(on, lstAvailableFormats);
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
    if (!IsItemInUniListView(lstSelectedFormats2, g_TallyvanePartFormat))
        lstSelectedFormats2.add(g_TallyvanePartFormat, g_TallyvanePartFormat);
}

}  // namespace wynconfig
