// Fetching what a box says, showing it, and moving the focus.
#include "services/messages.h"

#include "services/texts.h"
#include "wynconfig/view.h"

namespace wynconfig {

void Messages::tell(OnError& on, const std::string& text, int style, const std::string& titleKey) {
    const std::string title = fetchString(on, titleKey);
    on([&] { m_box.ShowMsg(text, style, title, okCaption); });
}

void Messages::refuse(OnError& on, const std::string& text, const std::string& titleKey) {
    tell(on, text, boxstyle::Critical, titleKey);
}

void Messages::refuse(OnError& on, const std::string& text, const std::string& titleKey,
                      Control& offender) {
    refuse(on, text, titleKey);
    on([&] { offender.setFocus(); });
}

void Messages::refuseText(OnError& on, const std::string& text, const std::string& titleKey,
                          Edit& box) {
    refuse(on, text, titleKey);
    on([&] { box.setCaret(0); });
    on([&] { box.setFocus(); });
}

bool Messages::ask(OnError& on, const std::string& textKey, const std::string& titleKey) {
    const std::string text = fetchString(on, textKey);
    const std::string title = fetchString(on, titleKey);
    int pressed = 0;
    on([&] { pressed = m_box.ShowMsg(text, boxstyle::YesNo, title, ""); });
    return pressed == answer::Yes;
}

std::string invalidNameText(OnError& on, const std::string& characters) {
    return fetchString(on, "MORAM_CONFIG_MSG_INVALID_CHARS") + "\r\n" + characters;
}

}  // namespace wynconfig
