// Texts with places for others.
#pragma once

#include <cstddef>
#include <string>

namespace wynconfig {

/// A text with what is to stand at %1 and %2. Places in these are none.
inline std::string filledIn(const std::string& text, const std::string& first,
                            const std::string& second) {
    std::string filled;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char number = text[at] == '%' && at + 1 < text.size() ? text[at + 1] : '\0';
        if (number == '1' || number == '2') {
            filled += number == '1' ? first : second;
            ++at;
        } else {
            filled += text[at];
        }
    }
    return filled;
}

}  // namespace wynconfig
