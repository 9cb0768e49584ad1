// What a person sees of a control: read from its window, not from the control.
#pragma once

#include <string>
#include <vector>

#include "views/win32/form_window.h"
#include "wynconfig/user.h"

namespace wynconfig::native {

Sight look(const FormWindow& window, const Control& control);

/// The rows of a list, or the items of a combo box.
std::vector<std::string> rowsIn(HWND list);
std::vector<std::string> itemsIn(HWND combo);

}  // namespace wynconfig::native
