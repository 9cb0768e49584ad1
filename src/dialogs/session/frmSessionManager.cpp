// Loading the host's list of sessions, its buttons, and leaving the dialog.
#include "dialogs/session/frmSessionManager.h"

#include <string_view>
#include <unordered_set>
#include <vector>

#include "services/item_lists.h"
#include "services/list_and_name_helpers.h"
#include "services/on_error.h"
#include "services/progress_words.h"
#include "services/texts.h"
#include "store/comma_list.h"
#include "wynconfig/wynconfig.h"

namespace wynconfig {

frmSessionManager::frmSessionManager() : HelpedForm("frmSessionManager") {
    btnAdd.Click = [this] { btnNew_Click(); };
    btnDelete.Click = [this] { btnRemove_Click(); };
    btnEdit.Click = [this] { btnEdit_Click(); };
    btnOK.Click = [this] { btnOK_Click(); };
    btnCancel.Click = [this] { btnCancel_Click(); };
}

FormLayout frmSessionManager::declareLayout() {
    using namespace layout;
    return {column({growing(acting(titled(lblSelectSession, lstAvailableTESessions,
                                          {single(btnAdd), single(btnEdit), single(btnDelete)}),
                                   {.del = &btnDelete, .activate = &btnOK, .fill = &btnAdd})),
                    buttons({&btnOK, &btnCancel})}),
            &btnOK, &btnCancel};
}

void frmSessionManager::SetTextStrings() {
    applyTexts({{&UniCaption1, "SESSION_MANAGER_TITLE", "Session Manager"},
                {this, "SESSION_MANAGER_TITLE", "Session Manager"},
                {&lblSelectSession, "MORAM_MAINT_LBL_SELECTSESSION"},
                {&btnAdd, "BUTTON_ADD"},
                {&btnDelete, "BUTTON_DELETE"},
                {&btnEdit, "BUTTON_EDIT"},
                {&btnOK, "BUTTON_OK"},
                {&btnCancel, "BUTTON_CANCEL"}});
}

HelpTable frmSessionManager::helpTable() const {
    return {"HELP_MANAGER",
            {{"HELP_SESSION_LIST", {&lstAvailableTESessions}},
             {"HELP_LIST_SESSION", {&btnAdd}},
             {"HELP_EDIT_SESSION", {&btnEdit}},
             {"HELP_UNLIST_SESSION", {&btnDelete}}}};
}

void frmSessionManager::Form_Load() {
    OnError on{"frmSessionManager:Form_Load"};
    on([&] { m_Result = 1; });
    on([&] { SetTopMost(*this, true); });
    on([&] { SetTopMost(*this, false); });
    on([&] { SetFormFont(*this); });
    on([&] { prepareItemList(lstAvailableTESessions, lblSelectSession, 5000); });
    on([&] { loadLstConfiguredSessions(); });
    on([&] { UniCaption1.bind(*this); });
    on([&] { SetTextStrings(); });
    selectAtLoad(on, lstAvailableTESessions, m_SessionName);
}

void frmSessionManager::Form_Unload() {
    UniCaption1.release();
}

void frmSessionManager::init(bool bEnableConfig, const std::string& sConfiguredSessions) {
    OnError on{"frmSessionManager:init"};
    // Before the first touch of a button, which loads the form.
    m_Sessions = sConfiguredSessions;
    for (Button* each : {&btnAdd, &btnDelete, &btnEdit})
        on([&] { each->setVisible(bEnableConfig); });
}

/// Names whose item file has gone leave the list, all of them in one pass.
void frmSessionManager::loadLstConfiguredSessions() {
    OnError on{"frmSessionManager:loadLstConfiguredSessions"};
    Working work(listingSessions);
    on([&] { lstAvailableTESessions.clear(); });
    const std::string sessions = m_Sessions;
    const std::vector<std::string_view> parts = splitAtCommas(sessions);
    work.expect(parts.size());
    std::unordered_set<std::string_view> gone;
    for (const std::string_view part : parts) {
        work.step();
        if (gone.contains(part)) continue;
        const std::string name(part);
        if (on.test([&] { return IsFactorySession(name); }))
            on([&] { lstAvailableTESessions.add(name, name, font()); });
        else
            gone.insert(part);
    }
    if (!gone.empty()) m_Sessions = withoutNames(sessions, gone);
    on([&] { lstAvailableTESessions.setVisible(true); });
}

void frmSessionManager::AddSessionToList(const std::string& sName) {
    m_Sessions = withName(m_Sessions, sName);
}

void frmSessionManager::RemoveSessionFromList(const std::string& sName) {
    m_Sessions = withoutNames(m_Sessions, {sName});
}

void frmSessionManager::selectSession(OnError& on, const std::string& name) {
    on([&] { lstAvailableTESessions.select(name); });
    on([&] { lstAvailableTESessions.setFocus(); });
}

void frmSessionManager::btnNew_Click() {
    OnError on{"frmSessionManager:btnNew_Click"};
    std::string name;
    long result = 0;
    on([&] { result = WYNConfig().showMORAMMaintenanceDlg(name); });
    if (result == 0) AddSessionToList(name);
    on([&] { loadLstConfiguredSessions(); });
    if (!name.empty()) selectSession(on, name);
}

void frmSessionManager::btnRemove_Click() {
    OnError on{"frmSessionManager:btnRemove_Click"};
    const ListRow* selected = lstAvailableTESessions.selectedItem();
    if (!selected) return;
    RemoveSessionFromList(selected->text);
    on([&] { loadLstConfiguredSessions(); });
}

void frmSessionManager::btnEdit_Click() {
    // The tag is that of the delete button, here as well.
    OnError on{"frmSessionManager:btnRemove_Click"};
    const ListRow* selected = lstAvailableTESessions.selectedItem();
    if (!selected) return;
    const std::string oldName = selected->text;
    std::string newName = oldName;
    long result = 0;
    on([&] { result = WYNConfig().showMORAMConfigDlg(newName); });
    if (result != 0 || newName.empty()) return;
    if (newName != oldName) {
        RemoveSessionFromList(oldName);
        AddSessionToList(newName);
    }
    on([&] { loadLstConfiguredSessions(); });
    selectSession(on, newName);
}

void frmSessionManager::btnOK_Click() {
    const ListRow* selected = lstAvailableTESessions.selectedItem();
    m_SessionName = selected ? selected->text : std::string();
    m_Result = selected ? 0 : 1;
    Unload();
}

void frmSessionManager::btnCancel_Click() {
    m_SessionName.clear();
    m_Result = 1;
    Unload();
}

}  // namespace wynconfig
