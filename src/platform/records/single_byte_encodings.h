// The encodings of one byte a character in which a stored text may be, beside those that the XML
// library knows by itself.
#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace wynconfig {

/// What each byte of an encoding stands for: a code point, or -1 for nothing.
using ByteMeanings = std::array<int, 256>;

/// The meanings of the bytes in an encoding of the families ISO-8859, but for its first, and
/// windows-125x, such as "iso-8859-15"; case is of no regard. Nothing for any other name.
std::optional<ByteMeanings> byteMeanings(std::string_view encoding);

}  // namespace wynconfig
