// The list of special symbols: a pick writes a token into the box that was entered last.
#include <array>

#include "dialogs/partformat/frmPartNumberFormat.h"
#include "platform/text/text.h"
#include "services/on_error.h"

namespace wynconfig {

namespace {

constexpr std::array<std::string_view, 10> kSymbols{
    "<Part #>", "<Quantity>", "<Description>", "<PageHeader>", "<PageFooter>",
    "<TAB>",    "<SPACE>",    "<CR>",          "<LF>",         "<ESCAPE>"};

bool isDataToken(std::string_view token) {
    return token == "<Part #>" || token == "<Quantity>" || token == "<Description>";
}

bool isPad(std::string_view field) {
    return field == "PartPad" || field == "QtyPad" || field == "DescPad" || field == "VINPad";
}

/// Whether a token makes sense in a field.
bool isWelcome(std::string_view token, std::string_view field) {
    if (field == "Disabled") return false;
    if (isDataToken(token) && field != "Record" && field != "Separator") return false;
    if (token == "<PageHeader>" && field != "Header") return false;
    if (token == "<PageFooter>" && field != "Trailer") return false;
    return !(token == "<VIN>" && isPad(field));
}

/// Puts a token in front of the caret; the caret then stands at the end of the whole text.
void insertToken(Edit& box, std::string_view token) {
    std::string text = box.text();
    text.insert(byteOffset(text, box.caret()), token);
    const std::size_t end = charCount(text);
    box.setText(std::move(text));
    box.setCaret(end);
}

}  // namespace

void frmPartNumberFormat::prepareSymbols() {
    lstSpecialSymbols2.setVisible(false);
    lstSpecialSymbols2.addColumn({"NAME", "", 1440, "Stores the name of the item"});
}

void frmPartNumberFormat::fillSymbols(OnError& on) {
    on([&] { lstSpecialSymbols2.clear(); });
    for (std::size_t i = 0; i < kSymbols.size(); ++i) {
        on([&] {
            lstSpecialSymbols2.add("I" + std::to_string(i + 1), std::string(kSymbols[i]), font());
        });
    }
    on([&] { lstSpecialSymbols2.setVisible(true); });
}

void frmPartNumberFormat::lstSpecialSymbols2_ItemClick() {
    const ListRow* selected = lstSpecialSymbols2.selectedItem();
    if (!selected) return;
    const std::string token = selected->text;
    const std::string_view field = m_CurrentField;
    if (!isWelcome(token, field)) return;
    if (field == "Header") return insertToken(txtHeader, token);
    if (field == "Record") return insertToken(txtRecord, token);
    if (field == "Separator") return insertToken(txtSeparator, token);
    if (field == "Trailer") return insertToken(txtTrailer, token);
    // The VIN pad has no branch of its own: it is typed by hand alone.
    for (FieldGroup* group : {&Part, &Qty, &Desc}) {
        if (field == group->padField) group->pad.setText(token);
    }
}

}  // namespace wynconfig
