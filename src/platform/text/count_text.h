// Numbers as text.
#pragma once

#include <cstddef>
#include <string>

namespace wynconfig {

/// A count as a person reads it: in groups of three digits, by the marks of the user's locale.
std::string countText(std::size_t count);

}  // namespace wynconfig
