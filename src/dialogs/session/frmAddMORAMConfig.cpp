// Naming a new session and writing its first record.
#include "dialogs/session/frmAddMORAMConfig.h"

#include <memory>
#include <vector>

#include "platform/files/file_system.h"
#include "platform/text/text.h"
#include "services/list_and_name_helpers.h"
#include "services/on_error.h"
#include "services/progress_words.h"
#include "services/texts.h"
#include "store/config_global_module.h"
#include "store/item_names.h"
#include "store/session_record.h"

namespace wynconfig {

using namespace ConfigGlobalModule;

frmAddMORAMConfig::frmAddMORAMConfig() : HelpedForm("frmAddMORAMConfig") {
    btnOK.Click = [this] { btnOk_Click(); };
    btnCancel.Click = [this] { btnCancel_Click(); };
    txtName.LostFocus = [this] { normaliseName(); };
}

FormLayout frmAddMORAMConfig::declareLayout() {
    using namespace layout;
    return {column({group(frmSession, {field(lblName, txtName), field(lblConfigs, cboConfigs)}),
                    stretch(), buttons({&btnOK, &btnCancel})}),
            &btnOK, &btnCancel};
}

void frmAddMORAMConfig::SetTextStrings() {
    applyTexts({{&UniCaption1, "ADD_MORAM_CONFIG_TITLE", "Add a session"},
                {&lblName, "ADD_MORAM_CONFIG_LBL_NAME"},
                {&lblConfigs, "ADD_MORAM_CONFIG_LBL_CONFIGS"},
                {&btnOK, "BUTTON_OK"},
                {&btnCancel, "BUTTON_CANCEL"}});
}

HelpTable frmAddMORAMConfig::helpTable() const {
    return {"HELP_NEW_SESSION",
            {{"HELP_SESSION_NAME", {&txtName}}, {"HELP_BASE_SESSION", {&cboConfigs}}}};
}

void frmAddMORAMConfig::Form_Load() {
    SetTopMost(*this, true);
    SetTopMost(*this, false);
    SetFormFont(*this);
    UniCaption1.bind(*this);
    SetTextStrings();
}

void frmAddMORAMConfig::Form_Activate() {
    if (visible()) txtName.setFocus();
}

void frmAddMORAMConfig::Form_Unload() {
    m_SessionName = UCase(txtName.text());
    UniCaption1.release();
    if (Trim(m_SessionName).empty()) m_Result = 1;
}

void frmAddMORAMConfig::init(const std::string& sName) {
    OnError on{"frmAddMORAMConfig:init"};
    on([&] { txtName.setText(sName); });
    on([&] { m_messages.okCaption = GetString("BUTTON_OK"); });
    on([&] { loadCboConfigs(); });
}

void frmAddMORAMConfig::loadCboConfigs() {
    OnError on{"frmAddMORAMConfig:loadCboConfigs"};
    on([&] { cboConfigs.clear(); });
    Working work(listingSessions);
    std::vector<std::string> names;
    on([&] { names = listItemNames(g_SessionFolder); });
    work.expect(names.size());
    on([&] { cboConfigs.addItem(GetString("ADD_MORAM_CONFIG_NONE")); });
    for (const std::string& name : names) {
        on([&] { cboConfigs.addItem(name); });
        work.step();
    }
    if (!cboConfigs.items().empty()) on([&] { cboConfigs.setSelectedIndex(0); });
}

void frmAddMORAMConfig::normaliseName() {
    txtName.setText(UCase(Trim(txtName.text())));
}

void frmAddMORAMConfig::btnOk_Click() {
    OnError on{"frmAddMORAMConfig:btnOk_Click"};
    on([&] { normaliseName(); });
    if (!isNameFree(on)) return;
    makeSession(on);
    on([&] { m_Result = 0; });
    on([&] { Unload(); });
}

bool frmAddMORAMConfig::isNameFree(OnError& on) {
    const std::string name = txtName.text();
    if (on.test([&] { return name.empty(); })) {
        m_messages.refuse(on, fetchString(on, "MORAM_CONFIG_MSG_ENTER_NEW_NAME"),
                          "MORAM_CONFIG_MSG_INVALID_CONFIG");
        return false;
    }
    if (on.test([&] { return IsInvalidName(name); })) {
        m_messages.refuse(on, invalidNameText(on, kForbiddenInNames),
                          "MORAM_CONFIG_MSG_INVALID_CONFIG");
        return false;
    }
    if (on.test([&] { return IsFactorySession(name); })) {
        const std::string exists = fetchString(on, "MORAM_CONFIG_MSG_NAME_EXISTS");
        const std::string reenter = fetchString(on, "MORAM_CONFIG_MSG_REENTER_NAME");
        m_messages.refuse(on, exists + " " + name + ". " + reenter, "MORAM_CONFIG_MSG_FORMAT_NAME");
        return false;
    }
    return true;
}

void frmAddMORAMConfig::makeSession(OnError& on) {
    const std::string name = UCase(txtName.text());
    const auto objDataset = std::make_shared<Dataset>();
    const bool fromNothing =
        on.test([&] { return cboConfigs.text() == GetString("ADD_MORAM_CONFIG_NONE"); });
    if (fromNothing) {
        on([&] { objDataset->Create(session::kType, name, g_SessionFolder, session::kColumns); });
        on([&] { objDataset->SetKey(session::kColumns[0], 3); });
    } else {
        on([&] { objDataset->Load(ItemPath::item(g_SessionFolder, UCase(cboConfigs.text())), 0); });
        on([&] { objDataset->setName(name); });
    }
    on([&] { objDataset->setFolder(g_SessionFolder); });
    if (!g_DatasetMode) {
        on([&] { objDataset->Save(ItemPath::item(g_SessionFolder, name)); });
        return;
    }
    Document objDOM;
    on([&] { objDataset->Save(objDOM); });
    on([&] { g_Session->Load(objDOM, 0); });
}

void frmAddMORAMConfig::btnCancel_Click() {
    OnError on{"frmAddMORAMConfig:btnCancel_Click"};
    on([&] { m_Result = 1; });
    on([&] { txtName.setText(""); });
    on([&] { Unload(); });
}

}  // namespace wynconfig
