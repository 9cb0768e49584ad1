// OK, Apply and Cancel of the session dialog: the checks in their fixed order, and the writing.
#include "dialogs/session/dlgAdvConfig.h"
#include "dialogs/session/frmMORAMConfig.h"
#include "dialogs/session/frmTallyvaneConfig.h"
#include "platform/files/file_system.h"
#include "platform/text/numbers.h"
#include "platform/text/text.h"
#include "services/list_and_name_helpers.h"
#include "services/on_error.h"
#include "services/status.h"
#include "services/texts.h"
#include "store/config_global_module.h"
#include "store/session_record.h"
#include "wynconfig/error.h"

namespace wynconfig {

using namespace ConfigGlobalModule;

namespace {

/// Whether a plain file lies at the path of a program, which may stand in double quotes. With a
/// quote in front the last character goes too, without being looked at.
bool programExists(std::string path) {
    const std::size_t length = charCount(path);
    if (path.starts_with('"') && length >= 2)
        path = path.substr(1, byteOffset(path, length - 1) - 1);
    return fileSystem().existsExactly(path);
}

}  // namespace

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
    return g_DatasetMode ? ApplyChangesEX() : ApplyChanges();
}

long frmMORAMConfig::ApplyChanges() {
    OnError on{"UnifrmMORAMConfig:ApplyChanges"};
    return applyIn(false, on);
}

long frmMORAMConfig::ApplyChangesEX() {
    OnError on{"UnifrmMORAMConfig:ApplyChangesEX"};
    return applyIn(true, on);
}

/// The two ways of applying are one but for the rename, the factory formats, and the last save.
long frmMORAMConfig::applyIn(bool inMemory, OnError& on) {
    if (isContentRefused(on)) return kRefused;
    if (on.test([&] { return UCase(dataset()->Name()) != UCase(txtDisplayName.text()); })) {
        if (isRenameRefused(on, inMemory)) return kRefused;
        renameSession(on, inMemory);
    }
    on.resumeNext();
    replaceRows(on, m_fields, *dataset());
    removeFormatRows();
    writeFormatRows(on, inMemory);
    {
        dlgAdvConfig advanced;
        on([&] { advanced.init(dataset(), txtDisplayName.text()); });
        on([&] { advanced.SaveAdvancedChanges(); });
        // Passing the launch check puts the handler back in force. Where the launch is disabled
        // there is no check, and all that follows stays silent.
        if (on.test([&] { return !advanced.chkDisableProgramLaunch.value(); })) {
            if (isLaunchRefused(on, advanced)) return kRefused;
            on.standard();
        }
        on([&] { advanced.Unload(); });
    }
    writeFileWriterRows(on);
    if (!inMemory)
        on([&] { dataset()->Save(ItemPath::item(g_SessionFolder, txtDisplayName.text())); });
    on.standard();
    m_SessionName = UCase(txtDisplayName.text());
    return kApplied;
}

bool frmMORAMConfig::isContentRefused(OnError& on) {
    if (on.test([&] { return txtDisplayName.text().empty(); })) {
        refuse(on, fetchString(on, "MORAM_CONFIG_MSG_ENTER_DISPLAY_NAME"),
               "MORAM_CONFIG_MSG_DISPLAY_NAME", 0, txtDisplayName);
        return true;
    }
    if (on.test([&] { return IsInvalidName(txtDisplayName.text()); })) {
        refuse(on, invalidNameText(on, kForbiddenInNames), "MORAM_CONFIG_MSG_INVALID_CONFIG", 0,
               txtDisplayName);
        return true;
    }
    if (on.test([&] { return lstSelectedFormats2.count() < 1; })) {
        refuse(on, fetchString(on, "MORAM_CONFIG_MSG_SELECT_FORMAT"),
               "MORAM_CONFIG_MSG_PART_FORMAT", 1, lstAvailableFormats);
        return true;
    }
    return false;
}

bool frmMORAMConfig::isRenameRefused(OnError& on, bool inMemory) {
    const std::string text = txtDisplayName.text();
    if (on.test([&] { return IsFactorySession(text); })) {
        const std::string exists = fetchString(on, "MORAM_CONFIG_MSG_NAME_EXISTS");
        const std::string reenter = fetchString(on, "MORAM_CONFIG_MSG_REENTER_NAME");
        refuse(on, exists + " " + text + ". " + reenter, "MORAM_CONFIG_MSG_DISPLAY_NAME", 0,
               txtDisplayName);
        return true;
    }
    if (inMemory && on.test([&] { return IsFactorySession(dataset()->Name()); })) {
        refuse(on, fetchString(on, "MORAM_CONFIG_MSG_CANNOT_MODIFY_FACTORY_DEFAULTS"),
               "MORAM_CONFIG_MSG_ERROR", 0, txtDisplayName);
        return true;
    }
    return false;
}

void frmMORAMConfig::renameSession(OnError& on, bool inMemory) {
    const std::string oldName = dataset()->Name();
    const std::string newName = UCase(txtDisplayName.text());
    on([&] { dataset()->setName(newName); });
    on([&] { dataset()->setFolder(g_SessionFolder); });
    if (inMemory) return;
    on([&] { dataset()->Save(ItemPath::item(g_SessionFolder, newName)); });
    on([&] { fileSystem().remove(ItemPath::item(g_SessionFolder, oldName)); });
}

/// The first absent key leaves the rest of the old rows where they are.
void frmMORAMConfig::removeFormatRows() {
    try {
        const std::int16_t count = toInt16(dataset()->GetRow(session::kFormatCount)[1]);
        for (int i = 0; i < count; ++i) dataset()->DeleteRow(session::formatKey(i + 1));
        dataset()->DeleteRow(session::kFormatCount);
    } catch (...) {
        (void)Error::fromCurrentException();
    }
}

void frmMORAMConfig::writeFormatRows(OnError& on, bool inMemory) {
    const auto& rows = lstSelectedFormats2.rows();
    on([&] { dataset()->AddRow({session::kFormatCount, std::to_string(rows.size())}); });
    int number = 0;
    for (const ListRow& row : rows) {
        ++number;
        on([&] { dataset()->AddRow({session::formatKey(number), row.text}); });
        if (inMemory && on.test([&] { return IsFactoryPartFormat(row.text); }))
            on([&] { AddFDToConfigPartFormats(row.text); });
    }
}

bool frmMORAMConfig::isLaunchRefused(OnError& on, dlgAdvConfig& advanced) {
    const std::string path = txtProgramPath.text();
    const auto refusePath = [&](const std::string& titleKey) {
        on([&] { advanced.Unload(); });
        refuse(on, fetchString(on, "MORAM2_MSG_CHECK_SESSION_CONFIG") + ".", titleKey, 0,
               txtProgramPath);
        return true;
    };
    if (path.empty()) return refusePath("MORAM2_MSG_APP_PATH_EMPTY");
    bool found = false;
    on([&] { found = programExists(path); });
    return found ? false : refusePath("MORAM2_MSG_APP_PATH_INVALID");
}

void frmMORAMConfig::writeFileWriterRows(OnError& on) {
    frmTallyvaneConfig fileWriter;
    on([&] { fileWriter.init(dataset(), UCase(Trim(txtDisplayName.text()))); });
    on([&] { fileWriter.SaveAdvancedChanges(); });
    on([&] { fileWriter.Unload(); });
}

void frmMORAMConfig::refuse(OnError& on, const std::string& text, const std::string& titleKey,
                            int tab, Control& offender) {
    m_messages.refuse(on, text, titleKey);
    if (SSTab2.tab() != tab) {
        on([&] { UniContainer1[tab].setFocus(); });
        on([&] { UniContainer1[tab].bringToFront(); });
        on([&] { SSTab2.setTab(tab); });
    }
    on([&] { offender.setFocus(); });
}

}  // namespace wynconfig
