// Text as the component knows it: UTF-8, counted in characters, upper-cased one to one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "wynconfig/characters.h"

namespace wynconfig {

/// One character of a text: its code point, below 0 for a byte that is no UTF-8, and its bytes.
struct Character {
    std::int32_t code;
    std::size_t length;
};

/// The character that begins at the byte `start`, which lies within the text.
Character characterAt(std::string_view text, std::size_t start);

/// Appends the character of a code point, which is none of a surrogate.
void appendCharacter(std::string& text, std::int32_t code);

/// Upper-cases text character by character. A character changes only where its upper-case form is
/// a single character whose lower-case form is the character again, so that U+00DF, U+0131, U+017F
/// and U+00B5 stay. Independent of any locale. Bytes that are no UTF-8 stay as they are.
std::string UCase(std::string_view text);

/// Removes blanks, U+0020 alone, at both ends.
std::string Trim(std::string_view text);

/// True when the whole text is well-formed UTF-8.
bool isUtf8(std::string_view text);

}  // namespace wynconfig
