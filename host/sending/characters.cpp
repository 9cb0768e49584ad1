// The lengths of characters in UTF-8.
#include "sending/characters.h"

namespace host {

namespace {

constexpr unsigned char kContinuationMask = 0xC0;
constexpr unsigned char kContinuation = 0x80;

/// Bytes that a lead byte announces.
std::size_t announcedLength(unsigned char lead) {
    if (lead >= 0xF0 && lead <= 0xF4) return 4;
    if (lead >= 0xE0 && lead < 0xF0) return 3;
    if (lead >= 0xC2 && lead < 0xE0) return 2;
    return 1;
}

}  // namespace

std::size_t firstCharacterLength(std::string_view text) {
    if (text.empty()) return 0;
    const std::size_t length = announcedLength(static_cast<unsigned char>(text.front()));
    if (length > text.size()) return 1;
    for (std::size_t at = 1; at < length; ++at) {
        if ((static_cast<unsigned char>(text[at]) & kContinuationMask) != kContinuation) return 1;
    }
    return length;
}

std::size_t characterCount(std::string_view text) {
    std::size_t count = 0;
    for (; !text.empty(); ++count) text.remove_prefix(firstCharacterLength(text));
    return count;
}

std::string_view firstCharacters(std::string_view text, std::size_t count) {
    std::size_t bytes = 0;
    for (; count > 0 && bytes < text.size(); --count)
        bytes += firstCharacterLength(text.substr(bytes));
    return text.substr(0, bytes);
}

}  // namespace host
