// How played persons find a control: by its name.
#pragma once

#include <string_view>

#include "wynconfig/export.h"
#include "wynconfig/form.h"

namespace wynconfig {

/// The control of a name. Raises `UserError`, which lists the names that there are, when there is
/// none. Exported for the desktop view's person, which lives in a library of its own.
WYNCONFIG_API Control& namedControl(const Form& form, std::string_view name);

}  // namespace wynconfig
