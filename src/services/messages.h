// The message boxes of a dialog, and where they lead the user.
#pragma once

#include <string>

#include "services/on_error.h"
#include "wynconfig/controls.h"

namespace wynconfig {

/// Shows the boxes of one dialog. The text of a box is fetched before its title, the title by its
/// key at the moment of showing; a text that can't be fetched is a failed statement of its own, and
/// the box comes up with that piece empty.
class Messages {
  public:
    explicit Messages(MsgBox& box) : m_box(box) {}

    /// Caption of the OK button; the dialog fetches it.
    std::string okCaption;

    /// Shows a box with the OK button.
    /// @param style  see `boxstyle`
    void tell(OnError& on, const std::string& text, int style, const std::string& titleKey);
    /// Tells in a critical box why a check refuses what the user entered.
    void refuse(OnError& on, const std::string& text, const std::string& titleKey);
    /// The same; then the offender gets the focus.
    void refuse(OnError& on, const std::string& text, const std::string& titleKey,
                Control& offender);
    /// The same; the caret goes to the start of the box before that.
    void refuseText(OnError& on, const std::string& text, const std::string& titleKey, Edit& box);
    /// Asks a question. @return whether the answer was Yes
    bool ask(OnError& on, const std::string& textKey, const std::string& titleKey);

  private:
    MsgBox& m_box;
};

/// The text that refuses a name for what it holds, which the second line lists.
/// @param characters  such as `kForbiddenInNames`
std::string invalidNameText(OnError& on, const std::string& characters);

}  // namespace wynconfig
