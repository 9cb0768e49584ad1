// The checks in their fixed order, and the writing.
#include "dialogs/session/session_applying.h"

#include <utility>

#include "dialogs/session/dlgAdvConfig.h"
#include "dialogs/session/frmMORAMConfig.h"
#include "dialogs/session/frmTallyvaneConfig.h"
#include "platform/files/file_system.h"
#include "platform/text/numbers.h"
#include "platform/text/text.h"
#include "services/list_and_name_helpers.h"
#include "services/progress_words.h"
#include "services/status.h"
#include "services/texts.h"
#include "store/config_global_module.h"
#include "store/session_record.h"
#include "wynconfig/error.h"
#include "wynconfig/keys.h"

namespace wynconfig {

using namespace ConfigGlobalModule;

SessionApplying::SessionApplying(frmMORAMConfig& dialog, std::shared_ptr<Dataset> session,
                                 const Fields& fields, Messages& messages, bool inMemory)
    : m_dialog(dialog),
      m_session(std::move(session)),
      m_fields(fields),
      m_messages(messages),
      m_inMemory(inMemory),
      m_on{inMemory ? "UnifrmMORAMConfig:ApplyChangesEX" : "UnifrmMORAMConfig:ApplyChanges"} {}

long SessionApplying::run() {
    if (isContentRefused()) return kRefused;
    if (m_on.test(
            [&] { return UCase(m_session->Name()) != UCase(m_dialog.txtDisplayName.text()); })) {
        if (isRenameRefused()) return kRefused;
        renameSession();
    }
    m_on.resumeNext();
    replaceRows(m_on, m_fields, *m_session);
    removeFormatRows();
    writeFormatRows();
    {
        dlgAdvConfig advanced;
        m_on([&] { advanced.init(m_session, m_dialog.txtDisplayName.text()); });
        m_on([&] { advanced.SaveAdvancedChanges(); });
        // Passing the launch check puts the handler back in force. Where the launch is disabled
        // there is no check, and all that follows stays silent.
        if (m_on.test([&] { return !advanced.chkDisableProgramLaunch.value(); })) {
            if (isLaunchRefused(advanced)) return kRefused;
            m_on.standard();
        }
        m_on([&] { advanced.Unload(); });
    }
    writeFileWriterRows();
    if (!m_inMemory)
        m_on([&] {
            m_session->Save(ItemPath::item(g_SessionFolder, m_dialog.txtDisplayName.text()));
        });
    return kApplied;
}

bool SessionApplying::isContentRefused() {
    if (m_on.test([&] { return m_dialog.txtDisplayName.text().empty(); })) {
        refuse(fetchString(m_on, "MORAM_CONFIG_MSG_ENTER_DISPLAY_NAME"),
               "MORAM_CONFIG_MSG_DISPLAY_NAME", 0, m_dialog.txtDisplayName);
        return true;
    }
    if (m_on.test([&] { return IsInvalidName(m_dialog.txtDisplayName.text()); })) {
        refuse(invalidNameText(m_on, kForbiddenInNames), "MORAM_CONFIG_MSG_INVALID_CONFIG", 0,
               m_dialog.txtDisplayName);
        return true;
    }
    if (m_on.test([&] { return m_dialog.formatTab.lstSelectedFormats2.count() < 1; })) {
        refuse(fetchString(m_on, "MORAM_CONFIG_MSG_SELECT_FORMAT"), "MORAM_CONFIG_MSG_PART_FORMAT",
               1, m_dialog.formatTab.lstAvailableFormats);
        return true;
    }
    return false;
}

bool SessionApplying::isRenameRefused() {
    const std::string text = m_dialog.txtDisplayName.text();
    if (m_on.test([&] { return IsFactorySession(text); })) {
        const std::string exists = fetchString(m_on, "MORAM_CONFIG_MSG_NAME_EXISTS");
        const std::string reenter = fetchString(m_on, "MORAM_CONFIG_MSG_REENTER_NAME");
        refuse(exists + " " + text + ". " + reenter, "MORAM_CONFIG_MSG_DISPLAY_NAME", 0,
               m_dialog.txtDisplayName);
        return true;
    }
    if (m_inMemory && m_on.test([&] { return IsFactorySession(m_session->Name()); })) {
        refuse(fetchString(m_on, "MORAM_CONFIG_MSG_CANNOT_MODIFY_FACTORY_DEFAULTS"),
               "MORAM_CONFIG_MSG_ERROR", 0, m_dialog.txtDisplayName);
        return true;
    }
    return false;
}

void SessionApplying::renameSession() {
    const std::string oldName = m_session->Name();
    const std::string newName = UCase(m_dialog.txtDisplayName.text());
    m_on([&] { m_session->setName(newName); });
    m_on([&] { m_session->setFolder(g_SessionFolder); });
    if (m_inMemory) return;
    m_on([&] { m_session->Save(ItemPath::item(g_SessionFolder, newName)); });
    m_on([&] { fileSystem().remove(ItemPath::item(g_SessionFolder, oldName)); });
}

/// The first absent key leaves the rest of the old rows where they are.
void SessionApplying::removeFormatRows() {
    try {
        const std::int16_t count = toInt16(m_session->GetRow(session::kFormatCount)[1]);
        for (int i = 0; i < count; ++i) m_session->DeleteRow(session::formatKey(i + 1));
        m_session->DeleteRow(session::kFormatCount);
    } catch (...) {
        (void)Error::fromCurrentException();
    }
}

void SessionApplying::writeFormatRows() {
    const auto& rows = m_dialog.formatTab.lstSelectedFormats2.rows();
    Working work(m_inMemory ? transferringFormats : nullptr, rows.size());
    m_on([&] { m_session->AddRow({session::kFormatCount, std::to_string(rows.size())}); });
    int number = 0;
    for (const ListRow& row : rows) {
        ++number;
        m_on([&] { m_session->AddRow({session::formatKey(number), row.text}); });
        if (m_inMemory && m_on.test([&] { return IsFactoryPartFormat(row.text); }))
            m_on([&] { AddFDToConfigPartFormats(row.text); });
        work.step();
    }
}

bool SessionApplying::isLaunchRefused(dlgAdvConfig& advanced) {
    const std::string path = m_dialog.txtProgramPath.text();
    const auto refusePath = [&](const std::string& titleKey) {
        m_on([&] { advanced.Unload(); });
        refuse(fetchString(m_on, "MORAM2_MSG_CHECK_SESSION_CONFIG") + ".", titleKey, 0,
               m_dialog.txtProgramPath);
        return true;
    };
    if (path.empty()) return refusePath("MORAM2_MSG_APP_PATH_EMPTY");
    bool found = false;
    m_on([&] { found = session::programExists(path); });
    return found ? false : refusePath("MORAM2_MSG_APP_PATH_INVALID");
}

void SessionApplying::writeFileWriterRows() {
    frmTallyvaneConfig fileWriter;
    m_on([&] { fileWriter.init(m_session, UCase(Trim(m_dialog.txtDisplayName.text()))); });
    m_on([&] { fileWriter.SaveAdvancedChanges(); });
    m_on([&] { fileWriter.Unload(); });
}

void SessionApplying::refuse(const std::string& text, const std::string& titleKey, int tab,
                             Control& offender) {
    m_messages.refuse(m_on, text, titleKey);
    if (m_dialog.SSTab2.tab() != tab) {
        m_on([&] { m_dialog.UniContainer1[tab].setFocus(); });
        m_on([&] { m_dialog.UniContainer1[tab].bringToFront(); });
        m_on([&] { m_dialog.SSTab2.setTab(tab); });
    }
    m_on([&] { offender.setFocus(); });
}

}  // namespace wynconfig
