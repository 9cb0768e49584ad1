// The prompt's loading and leaving.
#include "dialogs/partformat/dlgSingleEntry.h"

#include "platform/text/text.h"
#include "services/texts.h"

namespace wynconfig {

dlgSingleEntry::dlgSingleEntry() : HelpedForm("dlgSingleEntry") {
    const auto leaveWith = [this](long result) {
        m_Result = result;
        Unload();
    };
    OKButton.Click = [leaveWith] { leaveWith(0); };
    CancelButton.Click = [leaveWith] { leaveWith(1); };
}

FormLayout dlgSingleEntry::declareLayout() {
    using namespace layout;
    return {column({titled(lblLabel, txtTextBox), stretch(), buttons({&OKButton, &CancelButton})}),
            &OKButton, &CancelButton};
}

void dlgSingleEntry::SetTextStrings() {
    applyTexts({{&UniCaption1, "DIALOG_CAPTION", "Rename"},
                {&lblLabel, "DIALOG_LABEL"},
                {&OKButton, "BUTTON_OK"},
                {&CancelButton, "BUTTON_CANCEL"}});
}

HelpTable dlgSingleEntry::helpTable() const {
    return {"HELP_RENAMING", {{"HELP_FORMAT_NAME", {&txtTextBox}}}};
}

void dlgSingleEntry::Form_Load() {
    m_Result = 1;
    SetFormFont(*this);
    UniCaption1.bind(*this);
    SetTextStrings();
}

void dlgSingleEntry::Form_Unload() {
    m_Text = UCase(txtTextBox.text());
    UniCaption1.release();
}

}  // namespace wynconfig
