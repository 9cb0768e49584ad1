/// @file
/// The characters of a text, by which carets are counted.
#pragma once

#include <cstddef>
#include <string_view>

#include "wynconfig/export.h"

namespace wynconfig {

/// Length of a text in characters (code points).
/// @param text  UTF-8; a byte that is no UTF-8 counts as one character
WYNCONFIG_API std::size_t charCount(std::string_view text);

/// Byte offset of a character; the length of the text beyond its end.
/// @param text   UTF-8
/// @param chars  number of the character, from 0
WYNCONFIG_API std::size_t byteOffset(std::string_view text, std::size_t chars);

}  // namespace wynconfig
