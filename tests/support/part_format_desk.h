// What the tests of the part format editor share: records to open, the values that the editor
// shows, and opening it as its callers do.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "dialogs/partformat/frmPartNumberFormat.h"
#include "store/session_record.h"
#include "support/desk.h"
#include "support/format_rows.h"

namespace wynconfig {

/// Where the value of each key stands, in the order of the keys; of an alignment the common part
/// of its two options' names.
inline const std::array<std::string, 21> kPlaces{
    "txtHeader",           "txtRecord",          "txtSeparator", "txtTrailer",
    "chkFormatPartNumber", "txtPartFieldLength", "rdoPart",      "txtPartPad",
    "chkFormatQty",        "txtQtyFieldLength",  "rdoQty",       "txtQtyPad",
    "chkFormatDesc",       "txtDescFieldLength", "rdoDesc",      "txtDescPad",
    "chkFormatVIN",        "txtVINFieldLength",  "rdoVIN",       "txtVINPad",
    "txtMaxRecords"};

/// One field's controls, in the order of the fields.
struct FieldControls {
    std::string check;
    std::string length;
    std::string left;
    std::string right;
    std::string pad;
    std::vector<std::string> captions;
};

inline const std::array<FieldControls, 4> kFields{{
    {"chkFormatPartNumber",
     "txtPartFieldLength",
     "rdoPartLeft",
     "rdoPartRight",
     "txtPartPad",
     {"frmPart", "lblPartFieldLength", "lblPartAlignment", "lblPartPad"}},
    {"chkFormatQty",
     "txtQtyFieldLength",
     "rdoQtyLeft",
     "rdoQtyRight",
     "txtQtyPad",
     {"frmQty", "lblQtyFieldLength", "lblQtyAlignment", "lblQtyPad"}},
    {"chkFormatDesc",
     "txtDescFieldLength",
     "rdoDescLeft",
     "rdoDescRight",
     "txtDescPad",
     {"frmDesc", "lblDescFieldLength", "lblDescAlignment", "lblDescPad"}},
    {"chkFormatVIN",
     "txtVINFieldLength",
     "rdoVINLeft",
     "rdoVINRight",
     "txtVINPad",
     {"frmVin", "lblVINFieldLength", "lblVINAlignment", "lblVINPad"}},
}};

/// What the editor shows, put as rows: an alignment is "right", "left", "none" or "both".
inline Stored shownBy(User& u) {
    Stored shown;
    for (std::size_t i = 0; i < kPlaces.size(); ++i) {
        const std::string& place = kPlaces[i];
        std::string value;
        if (place.starts_with("txt")) {
            value = u.see(place).text;
        } else if (place.starts_with("chk")) {
            value = u.see(place).value ? "true" : "false";
        } else {
            const bool left = u.see(place + "Left").value;
            const bool right = u.see(place + "Right").value;
            value = left ? (right ? "both" : "left") : (right ? "right" : "none");
        }
        shown.emplace_back(kFirstFormat[i].first, value);
    }
    return shown;
}

class PartFormatDesk : public Desk {
  protected:
    /// Opens the editor on a name, empty for a new part format, and gives its `Result`. The script
    /// must close it; `formatName` is what it leaves as its `FormatName`.
    long edit(const std::string& name, User::Script script) {
        user().onForm("frmPartNumberFormat", std::move(script));
        frmPartNumberFormat form;
        form.init(name);
        form.Show();
        formatName = form.FormatName();
        return form.Result();
    }
    /// Types what a new part format can't do without.
    static void typeNameAndLimit(User& u, const std::string& name) {
        u.type("txtFormatName", name);
        u.type("txtMaxRecords", "1");
    }
    /// The rows of a stored record, straight from its file.
    Stored formatRows(const std::string& name) { return rowsOf(*formatRecord(name)); }

    /// From here on the editor works in memory.
    void workInMemory() { ConfigGlobalModule::g_DatasetMode = true; }
    /// Gives the host's records one more.
    std::shared_ptr<Dataset> hold(const std::string& name, const Stored& rows,
                                  const std::string& key) {
        auto record = std::make_shared<Dataset>();
        record->Create("PARTFORMAT", name, formatFolder, session::kColumns);
        for (const auto& [element, data] : rows) record->AddRow({element, data});
        ConfigGlobalModule::g_PartFormats.Add(record, key);
        return record;
    }
    std::shared_ptr<Dataset> hold(const std::string& name, const Stored& rows) {
        return hold(name, rows, name);
    }

    std::string formatName;
};

}  // namespace wynconfig
