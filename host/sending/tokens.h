// The tokens of templates and pads.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace host {

/// Tokens, angle brackets included, and what each stands for.
using TokenValues = std::vector<std::pair<std::string_view, std::string>>;

/// The tokens that stand for a character each: <TAB>, <SPACE>, <CR>, <LF> and <ESCAPE>.
const TokenValues& controlTokens();

/// Puts the values in the place of the tokens, in one pass from left to right: a value is not
/// looked through again. Everything else stays as it is, unknown tokens included.
std::string expandTokens(std::string_view text, const TokenValues& values);

}  // namespace host
