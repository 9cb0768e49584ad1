// Bytes as a person can look at them.
#pragma once

#include <string>
#include <string_view>

namespace host {

/// Text in which each control character is replaced by its name, such as ‹TAB›, ‹CR›, ‹LF› and
/// ‹ESC›, and each other control or byte that is no UTF-8 by its two hexadecimal digits, such as
/// ‹00›. A line ends behind a line feed, and behind a carriage return that no line feed follows.
std::string visibleText(std::string_view bytes);

}  // namespace host
