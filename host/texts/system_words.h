// Why the system, or the component, did not do something with a file, in the user's language.
#pragma once

#include <string>
#include <system_error>

namespace host {

/// The reason as part of a sentence; the system's own words for what seldom happens.
std::string systemWords(const std::error_code& failure);

/// A sentence of the component that ends in the system's words, as in ": Permission denied.": the
/// reason alone, in the user's language. Empty for any other sentence.
std::string reasonTold(const std::string& sentence);

/// What the component says of a failure: the reason alone where it can be told in the user's
/// language, else the component's own sentence.
std::string inUsersWords(const std::string& sentence);

}  // namespace host
