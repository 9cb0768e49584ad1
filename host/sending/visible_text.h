// Bytes as a person can look at them.
#pragma once

#include <string>
#include <string_view>

namespace host {

/// Text in which each control character is replaced by its picture (U+2400 and on), such as U+240D
/// for a carriage return, and each byte that is no UTF-8 by U+FFFD. A line ends behind a line feed,
/// and behind a carriage return that no line feed follows.
std::string visibleText(std::string_view bytes);

}  // namespace host
