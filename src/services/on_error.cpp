// Where a guarded statement's failure becomes a box.
#include "services/on_error.h"

#include <string>

#include "services/global_error.h"
#include "wynconfig/error.h"

namespace wynconfig {

void OnError::tell() {
    if (m_silent) return;
    const Error error = Error::fromCurrentException();
    GlobalError(kProject, std::string(m_tag), error.number(), error.description());
}

}  // namespace wynconfig
