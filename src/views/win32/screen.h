// What a view has on the screen.
#pragma once

#include <vector>

#include "views/win32/form_window.h"

namespace wynconfig::native {

/// The forms that are up, the topmost last.
struct Screen {
    std::vector<FormWindow*> forms;

    /// The form that a person can act on, or null.
    FormWindow* top() const {
        for (auto each = forms.rbegin(); each != forms.rend(); ++each) {
            if ((*each)->live()) return *each;
        }
        return nullptr;
    }
};

}  // namespace wynconfig::native
