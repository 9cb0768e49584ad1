// Filling the lists, moving formats between them, and making, editing, copying, renaming and
// deleting formats.
#include "dialogs/session/part_format_tab.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "dialogs/partformat/dlgSingleEntry.h"
#include "dialogs/partformat/frmPartNumberFormat.h"
#include "platform/files/file_system.h"
#include "platform/text/numbers.h"
#include "platform/text/text.h"
#include "services/deleted_items.h"
#include "services/format_walks.h"
#include "services/item_lists.h"
#include "services/list_and_name_helpers.h"
#include "services/on_error.h"
#include "services/progress_words.h"
#include "services/texts.h"
#include "store/config_global_module.h"
#include "store/item_names.h"
#include "wynconfig/form.h"
#include "wynconfig/keys.h"
#include "wynconfig/view.h"

namespace wynconfig {

using namespace ConfigGlobalModule;

PartFormatTab::PartFormatTab(Form& dialog, Messages& messages, std::function<Dataset&()> session)
    : m_dialog(dialog), m_messages(messages), m_session(std::move(session)) {
    btnAdd.Click = [this] { btnAdd_Click(); };
    btnRemove.Click = [this] { btnRemove_Click(); };
    btnNew.Click = [this] { btnNew_Click(); };
    btnEdit.Click = [this] { btnEdit_Click(); };
    btnCopy.Click = [this] { btnCopy_Click(); };
    btnRename.Click = [this] { btnRename_Click(); };
    btnDelete.Click = [this] { btnDelete_Click(); };
}

Layout PartFormatTab::declareLayout(Container& pane) {
    using namespace layout;
    Layout available = titled(
        lblAvailableFormats,
        {single(btnNew), single(btnCopy), single(btnRename), single(btnEdit), single(btnDelete)},
        lstAvailableFormats);
    return layout::pane(
        pane,
        {field(lblDisplayName3, lblDisplayName2),
         growing(group(
             frmPartFormat,
             {growing(row(
                 {growing(acting(std::move(available), {.del = &btnDelete,
                                                        .rename = &btnRename,
                                                        .activate = &btnAdd,
                                                        .fill = &btnNew})),
                  column({stretch(), moving(btnAdd, lblAvailableFormats, lblSelectedFormats),
                          moving(btnRemove, lblSelectedFormats, lblAvailableFormats), stretch()}),
                  growing(
                      acting(titled(lblSelectedFormats, lstSelectedFormats2),
                             {.del = &btnRemove, .activate = &btnRemove, .fill = &btnAdd}))}))}))});
}

void PartFormatTab::prepareLists() {
    // The columns keep the labels' design captions: the texts come later.
    prepareItemList(lstAvailableFormats, lblAvailableFormats, 3200);
    prepareItemList(lstSelectedFormats2, lblSelectedFormats, 3200);
}

void PartFormatTab::enter(const std::string& name) {
    OnError on = OnError::ignoring();
    on([&] { btnNew.setFocus(); });
    on([&] { lblDisplayName2.setCaption(name); });
    on([&] { lstAvailableFormats.refresh(); });
    on([&] { lstSelectedFormats2.refresh(); });
}

void PartFormatTab::showSelected(const Dataset& session, RowVariable& row) {
    OnError on = OnError::ignoring();
    std::int16_t count = 0;
    on([&] { row.read(session, session::kFormatCount); });
    on([&] { count = toInt16(row.data()); });
    on([&] { lstSelectedFormats2.clear(); });
    for (int i = 1; i <= count; ++i) {
        on([&] { row.read(session, session::formatKey(i)); });
        on([&] { lstSelectedFormats2.add(row.data(), row.data(), m_dialog.font()); });
    }
    showFilled(on, lstSelectedFormats2);
}

void PartFormatTab::showFilled(OnError& on, ListView& list) {
    on([&] { list.setVisible(true); });
    on([&] { list.refresh(); });
}

void PartFormatTab::loadAvailableFormats() {
    OnError on{"UnifrmMORAMConfig:loadAvailableFormats"};
    Working work(listingFormats);
    std::vector<std::string> names;
    on([&] { names = listItemNames(g_PartFormatFolder); });
    if (names.empty()) return;
    work.expect(names.size());
    on([&] { lstAvailableFormats.clear(); });
    for (const std::string& name : names) {
        on([&] { lstAvailableFormats.add(name, name, m_dialog.font()); });
        work.step();
    }
    if (g_DatasetMode) {
        for (const auto& [key, format] : g_PartFormats) {
            const std::string& name = format->Name();
            if (!IsItemInUniListView(lstAvailableFormats, name))
                on([&] { lstAvailableFormats.add(name, name, m_dialog.font()); });
        }
    }
    showFilled(on, lstAvailableFormats);
}

void PartFormatTab::btnAdd_Click() {
    OnError on{"UnifrmMORAMConfig:btnAdd_Click"};
    if (const ListRow* selected = lstAvailableFormats.selectedItem()) {
        const std::string name = selected->text;
        // Texts are compared, not keys: after a rename a row's text and key part ways.
        const auto& rows = lstSelectedFormats2.rows();
        if (std::any_of(rows.begin(), rows.end(),
                        [&](const ListRow& row) { return row.text == name; }))
            return;
        on([&] { lstSelectedFormats2.add(name, name, m_dialog.font()); });
    }
    on([&] { lstSelectedFormats2.refresh(); });
}

void PartFormatTab::btnRemove_Click() {
    OnError on{"UnifrmMORAMConfig:btnRemove_Click"};
    if (const ListRow* selected = lstSelectedFormats2.selectedItem()) {
        const std::string key = selected->key;
        on([&] { lstSelectedFormats2.remove(key); });
    }
    on([&] { lstSelectedFormats2.refresh(); });
}

void PartFormatTab::UpdateLstSelectedFormats(const std::string& sOld, const std::string& sNew) {
    OnError on{"UnifrmMORAMConfig:UpdateLstSelectedFormats"};
    const auto& rows = lstSelectedFormats2.rows();
    const auto row = std::find_if(rows.begin(), rows.end(),
                                  [&](const ListRow& each) { return each.text == sOld; });
    if (row == rows.end()) return;
    if (sNew.empty()) {
        const std::string key = row->key;
        on([&] { lstSelectedFormats2.remove(key); });
    } else {
        // The row's key stays the old name.
        const auto number = static_cast<std::size_t>(row - rows.begin()) + 1;
        on([&] { lstSelectedFormats2.setRowText(number, sNew); });
    }
    on([&] { lstSelectedFormats2.refresh(); });
}

void PartFormatTab::btnNew_Click() {
    frmPartNumberFormat editor;
    editor.init("");
    editor.Show();
    const std::string name = editor.FormatName();
    loadAvailableFormats();
    if (!name.empty() && editor.Result() == 0) {
        lstAvailableFormats.select(name);
        lstAvailableFormats.refresh();
        lstAvailableFormats.setFocus();
    }
    editor.Unload();
}

void PartFormatTab::btnEdit_Click() {
    OnError on{"UnifrmMORAMConfig:btnEdit_Click"};
    const ListRow* selected = lstAvailableFormats.selectedItem();
    if (!selected) return;
    const std::string name = selected->text;
    if (g_DatasetMode && isFactoryRefused(on, name)) return;
    frmPartNumberFormat editor;
    on([&] { editor.init(name); });
    on([&] { editor.Show(); });
    if (on.test([&] { return editor.Result() == 0; })) {
        const Working wait;
        const std::string& newName = editor.FormatName();
        on([&] { UpdateLstSelectedFormats(name, newName); });
        on([&] { carryFormatThroughSessions(name, newName); });
        on([&] { loadAvailableFormats(); });
        selectAvailable(on, newName);
    }
    on([&] { editor.Unload(); });
    on([&] { lstAvailableFormats.refresh(); });
    on([&] { lstAvailableFormats.setFocus(); });
}

void PartFormatTab::btnCopy_Click() {
    OnError on{"UnifrmMORAMConfig:btnCopy_Click"};
    const ListRow* selected = lstAvailableFormats.selectedItem();
    if (!selected) return;
    const std::string name = selected->text;
    if (g_DatasetMode) {
        copyInMemory(on, name);
    } else {
        const std::string copyName = "COPY OF " + UCase(name);
        Dataset copy;
        on([&] { copy.Load(ItemPath::item(g_PartFormatFolder, UCase(name)), 0); });
        on([&] { copy.setName(copyName); });
        on([&] { copy.Save(ItemPath::item(g_PartFormatFolder, copyName)); });
    }
    on([&] { loadAvailableFormats(); });
    selectAvailable(on, name);
}

void PartFormatTab::copyInMemory(OnError& on, const std::string& name) {
    const std::string copyName = "COPY OF " + UCase(name);
    const auto copy = std::make_shared<Dataset>();
    if (on.test([&] { return IsFactoryPartFormat(name); })) {
        on([&] { copy->Load(ItemPath::item(g_PartFormatFolder, UCase(name)), 0); });
        on([&] { copy->setName(copyName); });
    } else if (on.test([&] { return IsItemInCollection(g_PartFormats, name); })) {
        Document document;
        on([&] { g_PartFormats.Item(name)->Save(document); });
        on([&] { copy->Load(document, 0); });
        on([&] { copy->setName(copyName); });
    }
    if (copy->Name().empty()) return;
    on.resumeNext();
    const bool added = on([&] { g_PartFormats.Add(copy, copyName); });
    on.standard();
    if (added) return;
    on([&] { g_PartFormats.Remove(copyName); });
    on([&] { g_PartFormats.Add(copy, copyName); });
}

void PartFormatTab::btnRename_Click() {
    OnError on{"UnifrmMORAMConfig:btnRename_Click"};
    const ListRow* selected = lstAvailableFormats.selectedItem();
    if (!selected) return;
    const std::string oldName = selected->text;
    if (g_DatasetMode && isFactoryRefused(on, oldName)) return;
    dlgSingleEntry prompt;
    on([&] { prompt.setCaption(GetString("DIALOG_CAPTION")); });
    on([&] { prompt.setLabel(GetString("DIALOG_LABEL")); });
    on([&] { prompt.setTextBox(oldName); });
    on([&] { prompt.Show(); });
    if (prompt.Result() == 0) {
        const std::string& newName = prompt.TextBox();
        if (newName.empty() || newName == oldName || isNewNameRefused(on, newName)) return;
        const Working wait;
        if (g_DatasetMode) {
            if (!renameInMemory(on, oldName, newName)) return;
        } else {
            const ItemPath oldFile = ItemPath::item(g_PartFormatFolder, UCase(oldName));
            Dataset format;
            on([&] { format.Load(oldFile, 0); });
            on([&] { format.setName(UCase(newName)); });
            on([&] { format.Save(ItemPath::item(g_PartFormatFolder, UCase(newName))); });
            on([&] { fileSystem().remove(oldFile); });
        }
        on([&] { UpdateLstSelectedFormats(oldName, UCase(newName)); });
        on([&] { carryFormatThroughSessions(oldName, UCase(newName)); });
        on([&] { loadAvailableFormats(); });
        selectAvailable(on, newName);
    }
    on([&] { prompt.Unload(); });
    on([&] { lstAvailableFormats.refresh(); });
    on([&] { lstAvailableFormats.setFocus(); });
}

bool PartFormatTab::isNewNameRefused(OnError& on, const std::string& name) {
    if (on.test([&] { return IsInvalidName(name); })) {
        m_messages.refuse(on, invalidNameText(on, kForbiddenInNames),
                          "MORAM_CONFIG_MSG_INVALID_CONFIG");
        return true;
    }
    if (on.test([&] { return IsFactoryPartFormat(name); })) {
        refuseTakenName(on, name);
        return true;
    }
    return false;
}

/// Here the name leads, with a colon behind it, other than in the session's own message.
void PartFormatTab::refuseTakenName(OnError& on, const std::string& name) {
    const std::string exists = fetchString(on, "MORAM_CONFIG_MSG_NAME_EXISTS");
    const std::string reenter = fetchString(on, "MORAM_CONFIG_MSG_REENTER_NAME");
    m_messages.refuse(on, name + ": " + exists + ". " + reenter, "MORAM_CONFIG_MSG_FORMAT_NAME");
}

bool PartFormatTab::renameInMemory(OnError& on, const std::string& oldName,
                                   const std::string& newName) {
    if (on.test([&] { return IsItemInCollection(g_PartFormats, newName); })) {
        refuseTakenName(on, newName);
        return false;
    }
    if (on.test([&] { return IsItemInCollection(g_PartFormats, oldName); })) {
        std::shared_ptr<Dataset> format;
        on([&] { format = g_PartFormats.Item(oldName); });
        on([&] { g_PartFormats.Remove(oldName); });
        on([&] { format->setName(newName); });
        on([&] { g_PartFormats.Add(format, newName); });
        on([&] { carryFormatThroughRecord(m_session(), oldName, newName); });
    }
    return true;
}

void PartFormatTab::btnDelete_Click() {
    OnError on{"UnifrmMORAMConfig:btnDelete_Click"};
    const ListRow* selected = lstAvailableFormats.selectedItem();
    if (!selected) return;
    const std::string name = selected->text;
    if (!m_messages.ask(on, "MORAM_CONFIG_MSG_DELETE_CONFIG", "MORAM_CONFIG_MSG_ARE_YOU_SURE"))
        return;
    if (!g_DatasetMode) return deleteInFiles(on, name);
    if (isFactoryRefused(on, name)) return;
    on([&] { DeleteUserPartFormat(name); });
    on([&] { carryFormatThroughRecord(m_session(), name, ""); });
}

void PartFormatTab::deleteInFiles(OnError& on, const std::string& name) {
    const Working wait;
    std::string session;
    if (on.test([&] { return isOnlyFormatOfASession(name, session); })) {
        const std::string text = fetchString(on, "MORAM_CONFIG_MSG_LAST_PART_FORMAT");
        m_messages.tell(on, text + " " + session, boxstyle::OkOnly, "MORAM_CONFIG_TAB_PART_FORMAT");
        return;
    }
    if (!name.empty()) moveToDeleted(on, g_PartFormatFolder, name);
    on([&] { UpdateLstSelectedFormats(name, ""); });
    on([&] { carryFormatThroughSessions(name, ""); });
    on([&] { loadAvailableFormats(); });
}

void PartFormatTab::DeleteUserPartFormat(const std::string& sName) {
    OnError on{"UnifrmMORAMConfig:DeleteUserPartFormat"};
    on([&] { g_PartFormats.Remove(sName); });
    on([&] { loadAvailableFormats(); });
    on([&] { UpdateLstSelectedFormats(sName, ""); });
    on([&] { lstAvailableFormats.refresh(); });
    on([&] { lstAvailableFormats.setFocus(); });
}

bool PartFormatTab::isFactoryRefused(OnError& on, const std::string& name) {
    if (!on.test([&] { return IsFactoryPartFormat(name); })) return false;
    m_messages.refuse(on, fetchString(on, "MORAM_CONFIG_MSG_CANNOT_MODIFY_FACTORY_DEFAULTS"),
                      "MORAM_CONFIG_MSG_ERROR");
    return true;
}

void PartFormatTab::selectAvailable(OnError& on, const std::string& name) {
    on([&] { lstAvailableFormats.select(name); });
    on([&] { lstAvailableFormats.refresh(); });
    on([&] { lstAvailableFormats.setFocus(); });
}

}  // namespace wynconfig
