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

bool isPad(SymbolTarget target) {
    return target == SymbolTarget::PartPad || target == SymbolTarget::QtyPad ||
           target == SymbolTarget::DescPad || target == SymbolTarget::VINPad;
}

/// Whether a token makes sense in a box.
bool isWelcome(std::string_view token, SymbolTarget target) {
    if (target == SymbolTarget::Disabled) return false;
    if (isDataToken(token) && target != SymbolTarget::Record && target != SymbolTarget::Separator)
        return false;
    if (token == "<PageHeader>" && target != SymbolTarget::Header) return false;
    if (token == "<PageFooter>" && target != SymbolTarget::Trailer) return false;
    // The list does not offer <VIN>, so no pick comes this far with it; the rule stands for the day
    // on which the list does.
    return !(token == "<VIN>" && isPad(target));
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
    if (!isWelcome(token, m_CurrentField)) return;
    switch (m_CurrentField) {
        case SymbolTarget::Header:
            return insertToken(txtHeader, token);
        case SymbolTarget::Record:
            return insertToken(txtRecord, token);
        case SymbolTarget::Separator:
            return insertToken(txtSeparator, token);
        case SymbolTarget::Trailer:
            return insertToken(txtTrailer, token);
        case SymbolTarget::PartPad:
            return Part.pad.setText(token);
        case SymbolTarget::QtyPad:
            return Qty.pad.setText(token);
        case SymbolTarget::DescPad:
            return Desc.pad.setText(token);
        case SymbolTarget::VINPad:  // is typed by hand alone
        case SymbolTarget::Disabled:
            return;
    }
}

}  // namespace wynconfig
