// What can be done with the rows of a list, beside the buttons that do it: in a menu and by the
// mouse.
#pragma once

#include <QMenu>
#include <functional>

#include "wynconfig/form.h"

namespace wynconfig::desktop {

/// The menu of a list: the buttons that act on it, as they can be seen and used now, each with the
/// key that presses it too.
class ListMenu : public QMenu {
  public:
    /// @param rightToLeft  how the window runs
    ListMenu(Form& form, ListView& list, bool rightToLeft, QWidget* parent);

    /// Gets the button of an entry that was chosen, in the midst of an event of the menu.
    std::function<void(Button&)> chosen;
};

}  // namespace wynconfig::desktop
