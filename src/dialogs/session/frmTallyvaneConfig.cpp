// Reading, checking and storing the file that a session writes.
#include "dialogs/session/frmTallyvaneConfig.h"

#include <vector>

#include "platform/text/text.h"
#include "services/list_and_name_helpers.h"
#include "services/on_error.h"
#include "services/progress_words.h"
#include "services/status.h"
#include "services/texts.h"
#include "store/config_global_module.h"
#include "store/item_names.h"

namespace wynconfig {

using namespace ConfigGlobalModule;

frmTallyvaneConfig::frmTallyvaneConfig() : HelpedForm("frmTallyvaneConfig") {
    btnBrowseFolder.Click = [this] { btnBrowseFolder_Click(); };
    btnOk.Click = [this] { btnOk_Click(); };
    btnCancel.Click = [this] { btnCancel_Click(); };
}

FormLayout frmTallyvaneConfig::declareLayout() {
    using namespace layout;
    return {column({field(lblPartFormat, cboPartFormat), field(lblFileName, txtFileName),
                    field(lblFileFolder, txtFileFolder, {single(btnBrowseFolder)}),
                    spokenAs(below(rdoAppend, {single(rdoOverWrite)}), "VIEW_FILE_ACTION"),
                    below(chkWriteFileOnly), stretch(), buttons({&btnOk, &btnCancel})}),
            &btnOk, &btnCancel};
}

void frmTallyvaneConfig::SetTextStrings() {
    applyTexts({
        {&UniCaption1, "TVW_CONFIG_TITLE", "Configure Tallyvane Session"},
        {&lblPartFormat, "MORAM_CONFIG_MSG_PART_FORMAT"},
        {&lblFileName, "TVW_CONFIG_LBL_FILE_NAME"},
        {&lblFileFolder, "TVW_CONFIG_LBL_FILE_FOLDER"},
        {&btnBrowseFolder, "BUTTON_BROWSE"},
        {&rdoAppend, "TVW_CONFIG_RDO_APPEND"},
        {&rdoOverWrite, "TVW_CONFIG_RDO_OVER_WRITE"},
        {&chkWriteFileOnly, "TVW_CONFIG_CHK_WRITE_FILE_ONLY"},
        {&btnOk, "BUTTON_OK"},
        {&btnCancel, "BUTTON_CANCEL"},
    });
}

HelpTable frmTallyvaneConfig::helpTable() const {
    return {"HELP_TALLYVANE",
            {{"HELP_FILE_FORMAT", {&cboPartFormat}},
             {"HELP_FILE_NAME", {&txtFileName}},
             {"HELP_FILE_FOLDER", {&txtFileFolder}},
             {"HELP_BROWSE_FOLDER", {&btnBrowseFolder}},
             {"HELP_FILE_ACTION", {&rdoAppend, &rdoOverWrite}},
             {"HELP_WRITE_FILE_ONLY", {&chkWriteFileOnly}}}};
}

void frmTallyvaneConfig::Form_Load() {
    SetFormFont(*this);
    UniCaption1.bind(*this);
    SetTextStrings();
    loadCboPartFormat();
    cboPartFormat.setTabStop(false);
    txtFileName.setTabStop(true);
    txtFileFolder.setTabStop(true);
}

void frmTallyvaneConfig::Form_Unload() {
    UniCaption1.release();
}

void frmTallyvaneConfig::loadCboPartFormat() {
    OnError on{"frmTallyvaneConfig:loadCboPartFormat"};
    Working work(listingFormats);
    std::vector<std::string> names;
    on([&] { names = listItemNames(g_PartFormatFolder); });
    work.expect(names.size());
    if (!names.empty()) {
        on([&] { cboPartFormat.clear(); });
        on([&] { cboPartFormat.addItem("<" + GetString("ADD_MORAM_CONFIG_NONE") + ">"); });
    }
    for (const std::string& name : names) {
        on([&] { cboPartFormat.addItem(name); });
        work.step();
    }
    if (g_DatasetMode) {
        for (const auto& [key, format] : g_PartFormats) {
            const std::string& name = format->Name();
            if (!name.empty()) on([&] { cboPartFormat.addItem(name); });
        }
    }
    if (!cboPartFormat.items().empty()) on([&] { cboPartFormat.setSelectedIndex(0); });
}

void frmTallyvaneConfig::init(const std::shared_ptr<Dataset>& partlist,
                              const std::string& sSessionName) {
    if (!partlist) return;
    m_Dataset = partlist;
    m_SessionName = sSessionName;
    m_messages.okCaption = GetString("BUTTON_OK");
    OnError on = OnError::ignoring();
    for (Edit* box : {&txtFileName, &txtFileFolder}) {
        on([&] { box->setEnabled(true); });
        on([&] { box->setBackground(Background::Window); });
    }
    showFirstValues(on, m_fields);
    readPastAbsentKeys(m_fields, *m_Dataset);
}

long frmTallyvaneConfig::ApplyChanges() {
    OnError on{"frmTallyvaneConfig.ApplyChanges"};
    const auto refuse = [&](const std::string& text, const std::string& titleKey) {
        m_messages.refuse(on, text, titleKey);
        return kRefused;
    };
    on([&] { txtFileName.setText(Trim(txtFileName.text())); });
    const bool bNoFormat = cboPartFormat.text().find('<') != std::string::npos;
    if (on.test([&] { return !bNoFormat && txtFileName.text().empty(); }))
        return refuse(fetchString(on, "TVW_ERR_FILE_NAME_INVALID") + "\r\n", "TVW_ERR_TITLE");
    on([&] { txtFileFolder.setText(Trim(txtFileFolder.text())); });
    if (on.test([&] { return !bNoFormat && txtFileFolder.text().empty(); }))
        return refuse(fetchString(on, "TVW_ERR_FOLDER_INVALID") + "\r\n", "TVW_ERR_TITLE");
    if (on.test([&] { return IsInvalidFileName(txtFileName.text()); }))
        return refuse(invalidNameText(on, kForbiddenInFileNames),
                      "MORAM_CONFIG_MSG_INVALID_CONFIG");
    if (on.test([&] { return bNoFormat && chkWriteFileOnly.value(); }))
        return refuse(fetchString(on, "TVW_CONFIG_INVAILD_PART_FORMAT_WITH_WFO"), "TVW_ERR_TITLE");
    on([&] { g_TallyvanePartFormat = cboPartFormat.text(); });
    on([&] { SaveAdvancedChanges(); });
    return kApplied;
}

long frmTallyvaneConfig::SaveAdvancedChanges() {
    if (!m_Dataset) return 0;
    OnError on = OnError::ignoring();
    replaceRows(on, m_fields, *m_Dataset);
    if (!g_DatasetMode)
        on([&] { m_Dataset->Save(ItemPath::item(g_SessionFolder, m_SessionName)); });
    return 0;
}

void frmTallyvaneConfig::btnBrowseFolder_Click() {
    OnError on{"frmTallyvaneConfig:btnBrowseFolder_Click"};
    const std::shared_ptr<const Font> formFont = font();
    const BrowseTexts texts = fetchBrowseTexts("GLOBAL_BROWSE_FOLDER", "Browse for folder");
    std::string path;
    on([&] { path = UniBrowse.browse(false, texts.title, texts.ok, texts.cancel, formFont); });
    if (!path.empty()) on([&] { txtFileFolder.setText(path); });
}

void frmTallyvaneConfig::btnOk_Click() {
    if (ApplyChanges() != kApplied) return;
    m_Result = 0;
    Unload();
}

void frmTallyvaneConfig::btnCancel_Click() {
    m_Result = 1;
    Unload();
}

}  // namespace wynconfig
