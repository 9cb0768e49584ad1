// Lays a parts list out as text, as a part format says.
#pragma once

#include <cstddef>
#include <string>

#include "sending/part_format.h"
#include "sending/parts_list.h"

namespace host {

/// A parts list laid out.
struct Expansion {
    std::string text;           ///< the bytes; UTF-8 where the templates and the values are
    std::size_t pages = 0;      ///< at least 1
    std::size_t cutValues = 0;  ///< values that were longer than their fields
};

/// A value in its field.
struct LaidOutValue {
    std::string text;
    bool cut = false;  ///< the value was longer than the field
};

/// Brings a value to its field's length, counted in characters: what is too long loses its end,
/// what is too short gets the pad on the side that the alignment leaves free. A pad of several
/// characters is repeated from the left and stops where the gap is full.
LaidOutValue layOut(const FieldLayout& layout, const std::string& value);

/// Lays a whole list out: Header, a Record per part with a Separator between two, Trailer. A list
/// with more parts than the format has records for goes over in several pages of this kind.
/// @param reverse  begin with the last part
Expansion expand(const PartFormat& format, const PartsList& list, bool reverse);

}  // namespace host
