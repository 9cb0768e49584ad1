// Where typed letters lead in a list of rows: the same in every view.
#include "wynconfig/type_ahead.h"

#include "platform/text/text.h"

namespace wynconfig {

namespace {

/// Whether a text begins with an upper-cased one. Only as much of the text is looked at as counts:
/// lists are long, and people type fast.
bool begins(std::string_view text, std::string_view upper, std::size_t chars) {
    return UCase(text.substr(0, byteOffset(text, chars))) == upper;
}

/// The character, when a text is made of one alone.
std::string_view onlyCharacterOf(std::string_view text) {
    const std::string_view first = text.substr(0, byteOffset(text, 1));
    for (std::size_t at = 0; at < text.size(); at += first.size()) {
        if (text.substr(at, first.size()) != first) return {};
    }
    return first;
}

}  // namespace

std::size_t TypeAhead::next(std::string_view letter, std::size_t count, const RowText& textOf,
                            std::size_t current) {
    m_typed += UCase(letter);
    const std::size_t chars = charCount(m_typed);
    for (std::size_t row = 1; row <= count; ++row) {
        if (begins(textOf(row), m_typed, chars)) return row;
    }
    const std::string_view repeated = onlyCharacterOf(m_typed);
    if (repeated.empty()) return 0;
    for (std::size_t step = 0; step < count; ++step) {
        const std::size_t row = (current + step) % count + 1;
        if (begins(textOf(row), repeated, 1)) return row;
    }
    return 0;
}

}  // namespace wynconfig
