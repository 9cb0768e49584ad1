// The grammar of stored numbers.
#include "stored_number.h"

#include <algorithm>
#include <charconv>
#include <system_error>

namespace host {

namespace {

bool startsAsNumber(std::string_view text) {
    if (!text.empty() && text.front() == '-') text.remove_prefix(1);
    // The library's own reading would take "inf" and "nan" as well.
    return !text.empty() && (text.front() == '.' || (text.front() >= '0' && text.front() <= '9'));
}

}  // namespace

std::optional<double> storedNumber(std::string_view text) {
    while (text.starts_with(' ')) text.remove_prefix(1);
    while (text.ends_with(' ')) text.remove_suffix(1);
    if (text.starts_with('+')) {
        text.remove_prefix(1);
        if (text.starts_with('-')) return {};
    }
    if (!startsAsNumber(text)) return {};
    double number = 0;
    const char* end = text.data() + text.size();
    const auto [stop, failure] = std::from_chars(text.data(), end, number);
    if (failure != std::errc() || stop != end) return {};
    return number;
}

std::optional<long> storedCount(std::string_view text, long most) {
    const std::optional<double> number = storedNumber(text);
    if (!number || *number < 1) return {};
    return static_cast<long>(std::min(*number, static_cast<double>(most)));
}

}  // namespace host
