// The part that the operations which give back a name and a result have in common.
#pragma once

#include <string>

#include "services/on_error.h"

namespace wynconfig {

/// Shows a form that has been initialised, reads its name and its result, and unloads it.
/// @return the form's `Result`; 0 when it can't be read
template <class AForm>
long runDialog(OnError& on, AForm& form, std::string& sName) {
    long result = 0;
    on([&] { form.Show(); });
    on([&] { sName = form.SessionName(); });
    on([&] { result = form.Result(); });
    on([&] { form.Unload(); });
    return result;
}

}  // namespace wynconfig
