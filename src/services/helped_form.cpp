// A dialog whose help comes from the host's resource manager.
#include "services/helped_form.h"

#include <algorithm>

#include "services/texts.h"

namespace wynconfig {

std::string HelpedForm::fetchHelp(const Control* control) const {
    const HelpTable table = helpTable();
    if (!control) return findString(std::string(table.dialog));
    for (const HelpRow& row : table.rows) {
        if (std::find(row.controls.begin(), row.controls.end(), control) != row.controls.end())
            return findString(std::string(row.key));
    }
    return {};
}

}  // namespace wynconfig
