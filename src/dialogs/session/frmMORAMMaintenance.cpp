// Loading the list of sessions, and leaving the dialog with one of them or none.
#include "dialogs/session/frmMORAMMaintenance.h"

#include "services/item_lists.h"
#include "services/list_and_name_helpers.h"
#include "services/on_error.h"
#include "services/texts.h"
#include "store/config_global_module.h"

namespace wynconfig {

using namespace ConfigGlobalModule;

frmMORAMMaintenance::frmMORAMMaintenance() : Form("frmMORAMMaintenance") {
    btnOK.Click = [this] { btnOK_Click(); };
    btnCancel.Click = [this] { btnCancel_Click(); };
}

FormLayout frmMORAMMaintenance::declareLayout() {
    using namespace layout;
    return {column({growing(row(
                        {growing(titled(lblSelectSession, lstAvailableMORAMs2)),
                         column({single(btnNew), single(btnEdit), single(btnDelete), stretch()})})),
                    row({stretch(), single(btnOK), single(btnCancel)})}),
            &btnOK, &btnCancel};
}

void frmMORAMMaintenance::SetTextStrings() {
    applyTexts({{&UniCaption1, "MORAM_MAINT_TITLE", "Session Maintenance"},
                {this, "MORAM_MAINT_TITLE", "Session Maintenance"},
                {&lblSelectSession, "MORAM_MAINT_LBL_SELECTSESSION", "Select a session"},
                {&btnNew, "BUTTON_NEW", "New"},
                {&btnDelete, "BUTTON_DELETE", "Delete"},
                {&btnEdit, "BUTTON_EDIT", "Edit"},
                {&btnOK, "BUTTON_OK", "OK"},
                {&btnCancel, "BUTTON_CANCEL", "Cancel"}});
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
    if (on.test([&] { return lstAvailableMORAMs2.count() > 0; }))
        on([&] { lstAvailableMORAMs2.select(1); });
    if (m_SessionName.empty()) return;
    for (std::size_t i = 1; i <= lstAvailableMORAMs2.count(); ++i) {
        if (lstAvailableMORAMs2.row(i).text == m_SessionName)
            on([&] { lstAvailableMORAMs2.select(i); });
    }
}

void frmMORAMMaintenance::Form_Unload() {
    UniCaption1.release();
}

void frmMORAMMaintenance::loadLstAvailableMORAMs() {
    OnError on{"frmMORAMMaintenance:loadLstAvailableMORAMs"};
    on([&] { lstAvailableMORAMs2.clear(); });
    std::vector<std::string> names;
    on([&] { names = listItemNames(g_SessionFolder); });
    for (const std::string& name : names) on([&] { lstAvailableMORAMs2.add(name, name, font()); });
    on([&] { lstAvailableMORAMs2.setVisible(true); });
    if (!names.empty()) on([&] { lstAvailableMORAMs2.refresh(); });
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
