// The part formats of the sample store, and how a played user enters them.
#include "sample/sample_formats.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace host {

using wynconfig::User;
using wynconfig::UserError;

namespace {

constexpr const char* kSymbols = "lstSpecialSymbols2";

/// How a field of a parts list is laid out.
struct FieldSample {
    const char* length;
    const char* alignment;  ///< "Left" or "Right", as the names of the options end
    const char* pad;
};

struct FormatSample {
    const char* name;
    const char* header = "";
    const char* record;
    const char* separator = "<CR><LF>";
    const char* trailer = "";
    const char* maxRecords;
    // A field without settings goes over as it is.
    std::optional<FieldSample> part = {};
    std::optional<FieldSample> quantity = {};
    std::optional<FieldSample> description = {};
    std::optional<FieldSample> vin = {};
};

const std::vector<FormatSample>& formatSamples() {
    static const std::vector<FormatSample> all = {
        {.name = "COMMA SEPARATED",
         .header = "Part number,Quantity,Description<CR><LF>",
         .record = "<Part #>,<Quantity>,\"<Description>\"",
         .trailer = "<CR><LF>",
         .maxRecords = "500"},
        {.name = "TAB SEPARATED",
         .record = "<Part #><TAB><Quantity><TAB><Description>",
         .trailer = "<CR><LF>",
         .maxRecords = "500"},
        {.name = "FIXED WIDTH",
         .record = "<Part #><Quantity><Description>",
         .trailer = "<CR><LF>END",
         .maxRecords = "999",
         .part = FieldSample{"18", "Left", "<SPACE>"},
         .quantity = FieldSample{"5", "Right", "0"},
         .description = FieldSample{"30", "Left", "<SPACE>"}},
        {.name = "ONE PART PER LINE",
         .record = "<Part #>",
         .trailer = "<CR><LF>",
         .maxRecords = "1000"},
        {.name = "QUANTITY FIRST",
         .record = "<Quantity> x <Part #>",
         .maxRecords = "100",
         .quantity = FieldSample{"3", "Right", "<SPACE>"}},
        {.name = "VIN IN HEADER",
         .header = "VIN;<VIN><CR><LF>",
         .record = "<Part #>;<Quantity>",
         .trailer = "<CR><LF>",
         .maxRecords = "50",
         .vin = FieldSample{"17", "Left", "<SPACE>"}},
        {.name = "SHELF LABEL",
         .header = "<ESCAPE>@",
         .record = "<Part #><LF><Description><LF>",
         .separator = "<ESCAPE>C<LF>",
         .trailer = "<ESCAPE>m",
         .maxRecords = "24",
         .part = FieldSample{"16", "Left", "<SPACE>"},
         .description = FieldSample{"24", "Left", "<SPACE>"}},
        {.name = "ORDER FORM",
         .header = "<PageHeader><CR><LF>  Qty  Part number       Description<CR><LF>",
         .record = "<Quantity>  <Part #>  <Description>",
         .trailer = "<CR><LF><PageFooter>",
         .maxRecords = "40",
         .part = FieldSample{"16", "Left", "<SPACE>"},
         .quantity = FieldSample{"5", "Right", "<SPACE>"},
         .description = FieldSample{"34", "Left", "<SPACE>"}},
    };
    return all;
}

void requireText(User& user, const std::string& box, const std::string& expected) {
    const std::string text = user.see(box).text;
    if (text != expected)
        throw UserError(box + " holds \"" + text + "\" instead of \"" + expected + "\"");
}

/// The symbol that a text begins with at a place; null when it begins with none that is offered.
const std::string* symbolAt(const std::vector<std::string>& symbols, const std::string& text,
                            std::size_t place) {
    const auto found = std::find_if(symbols.begin(), symbols.end(), [&](const std::string& each) {
        return text.compare(place, each.size(), each) == 0;
    });
    return found == symbols.end() ? nullptr : &*found;
}

/// Picks the symbols from the list, and types what stands between them.
void fillTemplate(User& user, const std::string& box, const std::string& text) {
    if (text.empty()) return;
    const std::vector<std::string> symbols = user.see(kSymbols).rowTexts();
    user.focus(box);
    std::size_t done = 0;
    while (done < text.size()) {
        if (const std::string* symbol = symbolAt(symbols, text, done)) {
            user.pick(kSymbols, *symbol);
            done += symbol->size();
        } else {
            do ++done;
            while (done < text.size() && !symbolAt(symbols, text, done));
            user.type(box, text.substr(0, done));
        }
        requireText(user, box, text.substr(0, done));
    }
}

/// @param field  as the names of its controls have it
/// @param flag   name of the check box that turns the settings on
void fillField(User& user, const std::string& field, const char* flag,
               const std::optional<FieldSample>& sample) {
    if (!sample) return;
    user.tick(flag);
    user.type("txt" + field + "FieldLength", sample->length);
    user.click("rdo" + field + sample->alignment);
    const std::string padBox = "txt" + field + "Pad";
    // The list has no effect on the pad of the VIN.
    if (*sample->pad == '<' && field != "VIN") {
        user.focus(padBox);
        user.pick(kSymbols, sample->pad);
    } else {
        user.type(padBox, sample->pad);
    }
    requireText(user, padBox, sample->pad);
}

void fillEditor(User& user, const FormatSample& sample) {
    user.type("txtFormatName", sample.name);
    fillTemplate(user, "txtHeader", sample.header);
    fillTemplate(user, "txtRecord", sample.record);
    fillTemplate(user, "txtSeparator", sample.separator);
    fillTemplate(user, "txtTrailer", sample.trailer);
    fillField(user, "Part", "chkFormatPartNumber", sample.part);
    fillField(user, "Qty", "chkFormatQty", sample.quantity);
    fillField(user, "Desc", "chkFormatDesc", sample.description);
    fillField(user, "VIN", "chkFormatVIN", sample.vin);
    user.type("txtMaxRecords", sample.maxRecords);
    user.click("btnOk");
}

void makeFormat(User& user, const FormatSample& sample) {
    user.onForm("frmPartNumberFormat", [&](User& u) { fillEditor(u, sample); });
    user.click("btnNew");
    const wynconfig::Sight list = user.see("lstAvailableFormats");
    if (list.selected == 0 || list.rows[list.selected - 1].text != sample.name)
        throw UserError("the part format " + std::string(sample.name) + " was not made");
}

/// Makes those that are wanted from within a session, which is never kept.
void makeFormats(wynconfig::WYNConfig& component, User& user,
                 const std::function<bool(const FormatSample&)>& isWanted) {
    user.onForm("frmMORAMConfig", [&](User& u) {
        u.changeTab("SSTab2", 1);
        for (const FormatSample& sample : formatSamples())
            if (isWanted(sample)) makeFormat(u, sample);
        u.click("btnCancel");
    });
    std::string name;
    component.showMORAMConfigDlg(name);
    user.finish();
}

FieldLayout layoutOf(const std::optional<FieldSample>& sample) {
    if (!sample) return {};
    return {true, sample->length, std::string(sample->alignment) == "Right", sample->pad};
}

}  // namespace

void makeSampleFormats(wynconfig::WYNConfig& component, User& user) {
    makeFormats(component, user, [](const FormatSample&) { return true; });
}

void makeSampleFormat(wynconfig::WYNConfig& component, User& user, const std::string& name) {
    makeFormats(component, user, [&](const FormatSample& each) { return name == each.name; });
}

std::vector<PartFormat> sampleFormats() {
    std::vector<PartFormat> formats;
    for (const FormatSample& each : formatSamples()) {
        PartFormat format{each.name,
                          each.header,
                          each.record,
                          each.separator,
                          each.trailer,
                          layoutOf(each.part),
                          layoutOf(each.quantity),
                          layoutOf(each.description),
                          layoutOf(each.vin),
                          each.maxRecords};
        formats.push_back(std::move(format));
    }
    return formats;
}

}  // namespace host
