// Whether the editor's content may be stored, and storing it.
#include <functional>
#include <vector>

#include "dialogs/partformat/frmPartNumberFormat.h"
#include "platform/files/file_system.h"
#include "platform/text/numbers.h"
#include "platform/text/text.h"
#include "services/list_and_name_helpers.h"
#include "services/on_error.h"
#include "services/status.h"
#include "services/texts.h"
#include "store/config_global_module.h"

namespace wynconfig {

using namespace ConfigGlobalModule;

namespace {

/// One check of the editor's content.
struct Check {
    Edit& box;
    std::function<bool()> fails;
    std::string messageKey;
    std::string titleKey;
    std::string secondLine = {};  ///< behind the keyed text
    bool setsCaret = true;
};

}  // namespace

bool frmPartNumberFormat::ValidatePartFormat() {
    OnError on{"frmPartNumberFormat:ValidatePartFormat"};
    on([&] { txtFormatName.setText(UCase(Trim(txtFormatName.text()))); });

    const auto length = [](FieldGroup& group, const std::string& messageKey) {
        return Check{group.length,
                     [&group] { return group.check.value() && !IsNumeric(group.length.text()); },
                     messageKey, "PART_FORMAT_LBL_FIELDLENGTH"};
    };
    const auto pad = [](FieldGroup& group, const std::string& messageKey) {
        return Check{group.pad,
                     [&group] { return group.check.value() && group.pad.text().empty(); },
                     messageKey, "PART_FORMAT_LBL_PADCHAR"};
    };
    const std::vector<Check> checks{
        length(Part, "PART_FORMAT_MSG_PART_FIELD_LEN"),
        length(Qty, "PART_FORMAT_MSG_QTY_FIELD_LEN"),
        length(Desc, "PART_FORMAT_MSG_DESC_FIELD_LEN"),
        length(VIN, "PART_FORMAT_MSG_VIN_FIELD_LEN"),
        {txtMaxRecords, [&] { return !IsNumeric(txtMaxRecords.text()); },
         "PART_FORMAT_MSG_NUM_MAX_RECORDS", "PART_FORMAT_LBL_MAXRECORDS"},
        {txtMaxRecords, [&] { return toDouble(txtMaxRecords.text()) <= 0; },
         "PART_FORMAT_MSG_NUM_MAX_RECORDS", "PART_FORMAT_LBL_MAXRECORDS"},
        pad(Part, "PART_FORMAT_MSG_PART_PAD_CHAR"),
        pad(Qty, "PART_FORMAT_MSG_QTY_PAD_CHAR"),
        pad(Desc, "PART_FORMAT_MSG_DESC_PAD_CHAR"),
        pad(VIN, "PART_FORMAT_MSG_VIN_PAD_CHAR"),
        {txtFormatName,
         [&] { return txtFormatName.text().empty(); },
         "PART_FORMAT_MSG_CONFIG_NAME",
         "PART_FORMAT_LBL_FORMATNAME",
         {},
         false},
        {txtFormatName, [&] { return IsInvalidName(txtFormatName.text()); },
         "MORAM_CONFIG_MSG_INVALID_CHARS", "MORAM_CONFIG_MSG_INVALID_CONFIG",
         "\r\n" + kForbiddenInNames},
    };
    for (const Check& check : checks) {
        if (!on.test(check.fails)) continue;
        const std::string text = fetchString(on, check.messageKey) + check.secondLine;
        if (check.setsCaret)
            m_messages.refuseText(on, text, check.titleKey, check.box);
        else
            m_messages.refuse(on, text, check.titleKey, check.box);
        return false;
    }
    return true;
}

long frmPartNumberFormat::ApplyChanges() {
    OnError on{"frmPartNumberFormat:ApplyChanges"};
    bool valid = false;
    on([&] { valid = ValidatePartFormat(); });
    if (!valid) return kRefused;

    const std::string name = UCase(txtFormatName.text());
    const bool isNew = !m_Dataset;
    if (isNew || on.test([&] { return UCase(m_Dataset->Name()) != name; })) {
        if (isNameTaken(on, name)) {
            refuseTakenName(on);
            return kRefused;
        }
        if (isNew)
            createRecord(on, name);
        else
            renameRecord(on, name);
    }
    if (!isNew) on([&] { m_Dataset->ClearRows(); });
    addRows(on, m_fields, *m_Dataset);
    if (!g_DatasetMode)
        on([&] { m_Dataset->Save(ItemPath::item(g_PartFormatFolder, txtFormatName.text())); });
    return kApplied;
}

bool frmPartNumberFormat::isNameTaken(OnError& on, const std::string& name) {
    if (on.test([&] { return IsFactoryPartFormat(name); })) return true;
    return g_DatasetMode && on.test([&] { return IsItemInCollection(g_PartFormats, name); });
}

void frmPartNumberFormat::refuseTakenName(OnError& on) {
    const std::string exists = fetchString(on, "MORAM_CONFIG_MSG_NAME_EXISTS");
    const std::string reenter = fetchString(on, "MORAM_CONFIG_MSG_REENTER_NAME");
    m_messages.refuseText(on, exists + ": " + txtFormatName.text() + ". " + reenter,
                          "MORAM_CONFIG_MSG_PART_FORMAT", txtFormatName);
}

void frmPartNumberFormat::createRecord(OnError& on, const std::string& name) {
    m_Dataset = std::make_shared<Dataset>();
    on([&] { m_Dataset->Create(partformat::kType, name, g_PartFormatFolder, session::kColumns); });
    on([&] { m_Dataset->SetKey(session::kColumns[0], 3); });
    if (g_DatasetMode)
        on([&] { g_PartFormats.Add(m_Dataset, name); });
    else
        on([&] { m_Dataset->Save(ItemPath::item(g_PartFormatFolder, name)); });
}

/// The record goes under its new name first, so that it is there under one name or the other.
void frmPartNumberFormat::renameRecord(OnError& on, const std::string& name) {
    const std::string oldName = UCase(m_Dataset->Name());
    on([&] { m_Dataset->setName(name); });
    if (g_DatasetMode) {
        on([&] { g_PartFormats.Add(m_Dataset, name); });
        on([&] { g_PartFormats.Remove(oldName); });
    } else {
        on([&] { m_Dataset->Save(ItemPath::item(g_PartFormatFolder, name)); });
        on([&] { fileSystem().remove(ItemPath::item(g_PartFormatFolder, oldName)); });
    }
}

}  // namespace wynconfig
