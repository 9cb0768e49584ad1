// What a person sees of a control: read from its widget, not from the control.
#pragma once

#include "views/qt/form_window.h"
#include "wynconfig/user.h"

namespace wynconfig::desktop {

Sight look(const FormWindow& window, const Control& control);

}  // namespace wynconfig::desktop
