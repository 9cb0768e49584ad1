// The form of a vehicle identification number.
#pragma once

#include <string>
#include <string_view>

namespace host {

/// What is wrong with the form of a VIN, as a hint for the user; empty when nothing is, or when
/// there is none. A VIN has 17 characters, digits and Latin letters (in either case) without I, O
/// and Q, which look like digits.
std::string vinHint(std::string_view vin);

}  // namespace host
