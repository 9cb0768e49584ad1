// Where the words come from that views say by themselves (`viewWord`).
#pragma once

#include <functional>
#include <string>

namespace wynconfig {

/// Gives the text of a key, or an empty one. May raise.
using WordSource = std::function<std::string(const std::string& key)>;

/// From here on the words on this thread come from there, where it has any.
void takeViewWordsFrom(WordSource source);

}  // namespace wynconfig
