// Digits in groups. A file of its own: beside the reading of numbers it would make that slower,
// since the compiler then puts less of it in line.
#include "platform/text/count_text.h"

#include "platform/text/numbers.h"

namespace wynconfig {

std::string countText(std::size_t count) {
    const std::string digits = std::to_string(count);
    std::string text;
    for (std::size_t at = 0; at < digits.size(); ++at) {
        if (at > 0 && (digits.size() - at) % 3 == 0) text += numberMarks().thousands;
        text += digits[at];
    }
    return text;
}

}  // namespace wynconfig
