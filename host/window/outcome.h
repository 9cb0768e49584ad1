// What came of an operation of the component.
#pragma once

#include <optional>
#include <string>

namespace host {

/// What an operation gave back.
struct Outcome {
    std::optional<long> result = {};  ///< 0: the user confirmed, 1: not; none: it gives no number
    std::string name = {};            ///< the session that it ended on; may be empty
    std::string text = {};            ///< what else it gave, in a sentence; may be empty
    std::string shown = {};           ///< XML text to look at; may be empty
    bool failed = false;              ///< what the user wanted was not done
};

}  // namespace host
