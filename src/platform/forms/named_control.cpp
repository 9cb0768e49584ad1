// How played persons find a control: by its name.
#include "platform/forms/named_control.h"

#include <string>

#include "wynconfig/user.h"

namespace wynconfig {

Control& namedControl(const Form& form, std::string_view name) {
    if (Control* control = form.control(name)) return *control;
    std::string names;
    for (const Control* each : form.controls()) names += " " + std::string(each->name());
    throw UserError("there is no " + std::string(name) + " on " + std::string(form.name()) +
                    "; there are:" + names);
}

}  // namespace wynconfig
