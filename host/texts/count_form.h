// Which form of a text belongs to a number.
#pragma once

#include <string>

namespace host {

/// The end of the key: "ONE", "TWO", "FEW", "MANY" or "OTHER", by the rules of the Unicode project
/// for the languages that the host comes in; English for all others.
/// @param language  such as "de" or "zh-Hans"
/// @param count     from 0 up
std::string countForm(const std::string& language, long long count);

}  // namespace host
