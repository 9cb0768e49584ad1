// How the host reads a number that a record holds as text.
#pragma once

#include <optional>
#include <string_view>

namespace host {

/// The number that a text stands for: blanks around it, a sign, digits with a decimal point, an
/// exponent. Each may be of full width, as East Asian keyboards type it. Independent of any locale.
/// @return nothing for every other text, and for a number beyond a double
std::optional<double> storedNumber(std::string_view stored);

/// The whole part of the number, or nothing when that is below 1.
/// @param most  a greater number counts as this one
std::optional<long> storedCount(std::string_view text, long most);

}  // namespace host
