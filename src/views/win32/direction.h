// In which direction texts are read.
#pragma once

#include "wynconfig/form.h"

namespace wynconfig::native {

/// Whether the windows of this process run from right to left by the host's wish.
bool isProcessMirrored();

/// Whether most of a form's captions are in a script that is read from right to left.
bool readsFromRight(const Form& form);

}  // namespace wynconfig::native
