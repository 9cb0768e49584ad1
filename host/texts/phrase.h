// The words that the host's user reads, by their keys, in the language that was chosen. Values are
// put into them here, so that each language has them in its own order.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace host {

/// How numbers are written in a language.
struct NumberWriting {
    std::function<std::string(long long)> whole;
    std::function<std::string(double)> decimal;  ///< with as many digits as it needs
};

/// Where the host's own texts lie: in a folder below that of the component's texts, and where that
/// has none, below the component's own.
/// @param resources  folder of the component's texts
std::string hostTextFolder(const std::string& resources);

/// Takes the texts of a language from now on, and its way of writing numbers. Until then they are
/// English.
/// @param folder    of the host's texts
/// @param language  such as "de"; empty: the user's
/// Raises `wynconfig::Error` when the folder has no texts; those so far then stay.
void usePhrases(const std::string& folder, const std::string& language, NumberWriting numbers);

/// A text, with `values` in its places %1, %2 and so on. What has no text is shown by its key.
/// @param key  as host/resources/en.xlf has it
std::string phrase(const char* key, const std::vector<std::string>& values = {});

/// A text about a number, in the form that its language has for this number; the number is %1.
/// @param key  without the name of a form at its end, such as "BYTES"
std::string countedPhrase(const std::string& key, long long count);

/// Numbers as they are written in the language.
std::string wholeText(long long number);
std::string decimalText(double number);

}  // namespace host
