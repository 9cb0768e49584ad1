// Text in UTF-8, counted in characters.
#pragma once

#include <cstddef>
#include <string_view>

namespace host {

/// Bytes of the character that a text begins with; 1 for a byte that is no UTF-8, 0 at the end.
std::size_t firstCharacterLength(std::string_view text);

/// Length in characters (code points). A byte that is no UTF-8 counts as one.
std::size_t characterCount(std::string_view text);

/// The beginning of a text, at most this many characters.
std::string_view firstCharacters(std::string_view text, std::size_t count);

}  // namespace host
