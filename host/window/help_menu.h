// The help of the host itself: a short guide, and what the program is. What the dialogs of the
// component are for they tell by themselves.
#pragma once

class QMenu;
class QWidget;

namespace host {

/// The menu "Help"; what it shows belongs to `window`.
QMenu* makeHelpMenu(QWidget* window);

}  // namespace host
