// What a person would see of a control: told by the control itself.
#pragma once

#include "wynconfig/form.h"
#include "wynconfig/user.h"

namespace wynconfig::scripted {

/// Whether a control stands on the screen now.
bool isThere(Form& form, const Control& control);

Sight look(Form& form, const Control& control);

}  // namespace wynconfig::scripted
