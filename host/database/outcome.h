// What came of an operation of the component.
#pragma once

#include <string>

namespace host {

/// What an operation gave back.
struct Outcome {
    long result = 0;   ///< 0: the user confirmed, 1: the user did not
    std::string name;  ///< the session that it ended on; may be empty
    std::string text;  ///< what else it gave, or what the host did with it; may be empty
};

}  // namespace host
