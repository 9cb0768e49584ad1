/// @file
/// The key that a caption marks for the keyboard.
#pragma once

#include <string>
#include <string_view>

#include "wynconfig/export.h"

namespace wynconfig {

// In the caption of a control, `&` marks the character behind it as the control's key (with Alt),
// `&&` stands for an ampersand, and a lone `&` at the end for nothing. Languages whose letters are
// no keys put the key behind the words, as in "Wort(&W)". Names, values and rows of lists are never
// read so.

/// The words of a caption: without the mark, and without a key that is put behind the words in
/// brackets.
/// @param caption  UTF-8
WYNCONFIG_API std::string plainCaption(std::string_view caption);

/// The key that a caption marks first, as one upper-cased character; empty when it marks none.
/// @param caption  UTF-8
WYNCONFIG_API std::string mnemonicOf(std::string_view caption);

}  // namespace wynconfig
