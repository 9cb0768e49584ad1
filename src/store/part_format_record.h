// What a part format record holds: its 21 keys, in the order in which they are written and read.
#pragma once

#include <array>
#include <string>

#include "wynconfig/keys.h"

namespace wynconfig::partformat {

/// What the value of a key is.
enum class Kind {
    Template,   ///< text with tokens, of any length
    Flag,       ///< "true" or "false": whether a field is formatted
    Length,     ///< a field's length, number as text
    Alignment,  ///< "right" or "left"
    Pad,        ///< what fills a field up, any text
    Limit       ///< the greatest number of records, number as text
};

/// One key of a part format.
struct Key {
    std::string name;
    Kind kind;
    std::string firstValue;  ///< its value in a new part format
};

/// All keys, in their order.
const std::array<Key, 21>& keys();

}  // namespace wynconfig::partformat
