// Builds the failure box on one hidden form that is kept for good.
#include "services/global_error.h"

#include <memory>
#include <utility>

#include "dialogs/session/frmMORAMMaintenance.h"
#include "platform/forms/observing.h"
#include "services/on_error.h"
#include "services/texts.h"
#include "wynconfig/view.h"

namespace wynconfig {

namespace {

std::unique_ptr<frmMORAMMaintenance>& sharedForm() {
    thread_local std::unique_ptr<frmMORAMMaintenance> form;
    return form;
}

}  // namespace

void GlobalError(const std::string& sProject, const std::string& sProcedure, long lNumber,
                 const std::string& sDescription) {
    tellFailure(sProcedure, lNumber, sDescription);
    OnError on = OnError::ignoring();
    std::string okCaption;
    std::string message;
    std::string title;
    on([&] { okCaption = GetString("BUTTON_OK"); });
    on([&] {
        // Piece by piece, so that the keys are asked in their order.
        std::string text = GetString("GLOBAL_MOD_ERROR") + ": " + sDescription + "\r\n\r\n";
        text += GetString("GLOBAL_MOD_TEXT") + " " + sProject + "\r\n";
        text += GetString("GLOBAL_MOD_PROCEDURE") + " " + sProcedure + "\r\n\r\n";
        text += GetString("GLOBAL_MOD_MSG");
        message = std::move(text);
    });
    on([&] { title = GetString("GLOBAL_MOD_UNEXPECTED"); });
    on([&] {
        // The form is kept before its first touch loads it: a failure within that load comes back
        // here and must find the form in place.
        if (!sharedForm()) sharedForm() = std::make_unique<frmMORAMMaintenance>();
        sharedForm()->UniMsgBox1.ShowMsg(message, boxstyle::SystemModal | boxstyle::Critical, title,
                                         okCaption);
    });
}

void resetGlobalError() {
    sharedForm().reset();
}

}  // namespace wynconfig
