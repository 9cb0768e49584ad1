// A part format as the host reads it from its record.
#pragma once

#include <string>
#include <vector>

#include "sending/stored_number.h"
#include "wynconfig/dataset.h"

namespace host {

/// How the values of one field are laid out. While it is off, they go over as they are.
struct FieldLayout {
    bool on = false;
    std::string length;  ///< as stored
    bool right = true;   ///< the value stands at the right end of its field
    std::string pad;     ///< as stored; a token or any text
};

struct PartFormat {
    std::string name;
    std::string header;
    std::string record;
    std::string separator;
    std::string trailer;
    FieldLayout part;
    FieldLayout quantity;
    FieldLayout description;
    FieldLayout vin;
    std::string maxRecords;  ///< as stored
};

/// Reads a record of type "PARTFORMAT". A missing text is empty, a missing flag off, a missing
/// alignment right; a flag is off for exactly "false", and an alignment right for exactly "right".
PartFormat readPartFormat(const wynconfig::Dataset& record);

/// The length that a field gives to its values, or nothing when it gives none.
std::optional<long> fieldLength(const FieldLayout& layout);

/// The most records of a page, or nothing when there is no limit.
std::optional<long> recordLimit(const PartFormat& format);

/// What the host makes of settings that it can't take at their word, a sentence each.
std::vector<std::string> remarksOn(const PartFormat& format);

}  // namespace host
