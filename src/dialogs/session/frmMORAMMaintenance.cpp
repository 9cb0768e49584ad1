// Loading the list of sessions, its buttons, and leaving the dialog with one session or none.
#include "dialogs/session/frmMORAMMaintenance.h"

#include "platform/text/text.h"
#include "services/deleted_items.h"
#include "services/item_lists.h"
#include "services/list_and_name_helpers.h"
#include "services/on_error.h"
#include "services/progress_words.h"
#include "services/texts.h"
#include "store/config_global_module.h"
#include "store/item_names.h"
#include "wynconfig/wynconfig.h"

namespace wynconfig {

using namespace ConfigGlobalModule;

frmMORAMMaintenance::frmMORAMMaintenance() : HelpedForm("frmMORAMMaintenance") {
    btnNew.Click = [this] { btnNew_Click(); };
    btnDelete.Click = [this] { btnRemove_Click(); };
    btnEdit.Click = [this] { btnEdit_Click(); };
    btnOK.Click = [this] { btnOK_Click(); };
    btnCancel.Click = [this] { btnCancel_Click(); };
}

FormLayout frmMORAMMaintenance::declareLayout() {
    using namespace layout;
    return {column({growing(acting(titled(lblSelectSession, lstAvailableMORAMs2,
                                          {single(btnNew), single(btnEdit), single(btnDelete)}),
                                   {.del = &btnDelete, .activate = &btnOK, .fill = &btnNew})),
                    buttons({&btnOK, &btnCancel})}),
            &btnOK, &btnCancel};
}

void frmMORAMMaintenance::SetTextStrings() {
    applyTexts({{&UniCaption1, "MORAM_MAINT_TITLE", "Session Maintenance"},
                {this, "MORAM_MAINT_TITLE", "Session Maintenance"},
                {&lblSelectSession, "MORAM_MAINT_LBL_SELECTSESSION"},
                {&btnNew, "BUTTON_NEW"},
                {&btnDelete, "BUTTON_DELETE"},
                {&btnEdit, "BUTTON_EDIT"},
                {&btnOK, "BUTTON_OK"},
                {&btnCancel, "BUTTON_CANCEL"}});
}

HelpTable frmMORAMMaintenance::helpTable() const {
    return {"HELP_MAINTENANCE",
            {{"HELP_SESSIONS", {&lstAvailableMORAMs2}},
             {"HELP_MAKE_SESSION", {&btnNew}},
             {"HELP_EDIT_SESSION", {&btnEdit}},
             {"HELP_DELETE_SESSION", {&btnDelete}}}};
}

void frmMORAMMaintenance::Form_Load() {
    OnError on{"frmMORAMMaintenance:Form_Load"};
    on([&] { m_Result = 1; });
    on([&] { SetTopMost(*this, true); });
    on([&] { SetTopMost(*this, false); });
    on([&] { SetFormFont(*this); });
    on([&] { prepareItemList(lstAvailableMORAMs2, lblSelectSession, 3200); });
    on([&] { loadLstAvailableMORAMs(); });
    on([&] { UniCaption1.bind(*this); });
    on([&] { SetTextStrings(); });
    selectAtLoad(on, lstAvailableMORAMs2, m_SessionName);
}

void frmMORAMMaintenance::Form_Unload() {
    UniCaption1.release();
}

void frmMORAMMaintenance::loadLstAvailableMORAMs() {
    OnError on{"frmMORAMMaintenance:loadLstAvailableMORAMs"};
    Working work(listingSessions);
    on([&] { lstAvailableMORAMs2.clear(); });
    std::vector<std::string> names;
    on([&] { names = listItemNames(g_SessionFolder); });
    work.expect(names.size());
    for (const std::string& name : names) {
        on([&] { lstAvailableMORAMs2.add(name, name, font()); });
        work.step();
    }
    on([&] { lstAvailableMORAMs2.setVisible(true); });
    if (!names.empty()) on([&] { lstAvailableMORAMs2.refresh(); });
}

void frmMORAMMaintenance::btnNew_Click() {
    OnError on{"frmMORAMMaintenance:btnNew_Click"};
    std::string name;
    on([&] { WYNConfig().showAddMORAMConfigDlg(name); });
    on([&] { loadLstAvailableMORAMs(); });
    if (name.empty()) return;
    on([&] { lstAvailableMORAMs2.select(name); });
    on([&] { lstAvailableMORAMs2.setFocus(); });
}

void frmMORAMMaintenance::btnEdit_Click() {
    const ListRow* selected = lstAvailableMORAMs2.selectedItem();
    if (!selected) return;
    std::string name = selected->text;
    WYNConfig().showMORAMConfigDlg(name);
    loadLstAvailableMORAMs();
    if (name.empty()) return;
    lstAvailableMORAMs2.select(name);
    lstAvailableMORAMs2.setFocus();
}

void frmMORAMMaintenance::btnRemove_Click() {
    OnError on{"frmMORAMMaintenance:btnRemove_Click"};
    const ListRow* selected = lstAvailableMORAMs2.selectedItem();
    if (!selected) return;
    // The host is at work while the question is asked, and the rows may be others behind it.
    const std::string name = UCase(selected->text);
    if (!m_messages.ask(on, "MORAM_MAINT_MSG_DELETE_CONFIG", "MORAM_CONFIG_MSG_ARE_YOU_SURE"))
        return;
    moveToDeleted(on, g_SessionFolder, name);
    selected = lstAvailableMORAMs2.selectedItem();
    if (!selected) return;
    const std::string key = selected->key;
    on([&] { lstAvailableMORAMs2.remove(key); });
}

void frmMORAMMaintenance::btnOK_Click() {
    const ListRow* selected = lstAvailableMORAMs2.selectedItem();
    m_SessionName = selected ? selected->text : std::string();
    m_Result = selected ? 0 : 1;
    Unload();
}

void frmMORAMMaintenance::btnCancel_Click() {
    m_SessionName.clear();
    m_Result = 1;
    Unload();
}

}  // namespace wynconfig
