// The grammar of stored numbers.
#include "sending/stored_number.h"

#include <algorithm>
#include <charconv>
#include <string>
#include <system_error>

#include "sending/characters.h"

namespace host {

namespace {

/// The ASCII character for which a character of full width stands, U+FF01 to U+FF5E, or the blank
/// for U+3000; 0 for every other character.
char narrowed(std::string_view character) {
    if (character == "\u3000") return ' ';
    if (character < "\uFF01" || character > "\uFF5E") return 0;
    // In UTF-8 the last two bytes count on, in steps of 64.
    const auto middle = static_cast<unsigned char>(character[1]);
    const auto last = static_cast<unsigned char>(character[2]);
    return static_cast<char>((middle - 0xBC) * 64 + (last - 0x81) + '!');
}

std::string narrowedText(std::string_view text) {
    std::string narrow;
    while (!text.empty()) {
        const std::string_view character = text.substr(0, firstCharacterLength(text));
        if (const char ascii = narrowed(character)) {
            narrow += ascii;
        } else {
            narrow += character;
        }
        text.remove_prefix(character.size());
    }
    return narrow;
}

bool startsAsNumber(std::string_view text) {
    if (!text.empty() && text.front() == '-') text.remove_prefix(1);
    // The library's own reading would take "inf" and "nan" as well.
    return !text.empty() && (text.front() == '.' || (text.front() >= '0' && text.front() <= '9'));
}

}  // namespace

std::optional<double> storedNumber(std::string_view stored) {
    const std::string narrow = narrowedText(stored);
    std::string_view text = narrow;
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
