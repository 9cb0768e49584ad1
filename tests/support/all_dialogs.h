// Every dialog of the component, to test what they all have in common.
#pragma once

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "dialogs/partformat/dlgSingleEntry.h"
#include "dialogs/partformat/frmPartNumberFormat.h"
#include "dialogs/session/dlgAdvConfig.h"
#include "dialogs/session/frmAddMORAMConfig.h"
#include "dialogs/session/frmMORAMConfig.h"
#include "dialogs/session/frmMORAMMaintenance.h"
#include "dialogs/session/frmSessionManager.h"
#include "dialogs/session/frmTallyvaneConfig.h"

namespace wynconfig {

struct Dialog {
    std::string name;
    std::function<std::unique_ptr<Form>()> make;
    /// Its `Result`.
    std::function<long(const Form&)> result;
};

inline void PrintTo(const Dialog& dialog, std::ostream* out) {
    *out << dialog.name;
}

template <class T>
Dialog dialogOf(const std::string& name) {
    return {name, [] { return std::make_unique<T>(); },
            [](const Form& form) { return static_cast<const T&>(form).Result(); }};
}

inline const std::vector<Dialog>& allDialogs() {
    static const std::vector<Dialog> dialogs{
        dialogOf<frmMORAMConfig>("frmMORAMConfig"),
        dialogOf<dlgAdvConfig>("dlgAdvConfig"),
        dialogOf<frmTallyvaneConfig>("frmTallyvaneConfig"),
        dialogOf<frmAddMORAMConfig>("frmAddMORAMConfig"),
        dialogOf<frmMORAMMaintenance>("frmMORAMMaintenance"),
        dialogOf<frmSessionManager>("frmSessionManager"),
        dialogOf<frmPartNumberFormat>("frmPartNumberFormat"),
        dialogOf<dlgSingleEntry>("dlgSingleEntry"),
    };
    return dialogs;
}

}  // namespace wynconfig
