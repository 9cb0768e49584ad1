// Text by its own decoding of UTF-8, and by a table of upper-case forms that is the same on every
// system: names of files hang on it. No locale takes part.
#include "platform/text/text.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace wynconfig {

namespace {

/// Characters of the same distance to their upper-case forms, each second one of them for step 2.
struct UpperRun {
    std::int32_t first;
    std::int32_t last;
    std::int32_t step;
    std::int32_t distance;
};

constexpr UpperRun kUpperRuns[] = {
#include "platform/text/upper_case.inc"
};

std::int32_t upperOf(std::int32_t code) {
    const UpperRun* run =
        std::lower_bound(std::begin(kUpperRuns), std::end(kUpperRuns), code,
                         [](const UpperRun& each, std::int32_t c) { return each.last < c; });
    const bool isIn =
        run != std::end(kUpperRuns) && code >= run->first && (code - run->first) % run->step == 0;
    return isIn ? code + run->distance : code;
}

constexpr std::int32_t kLastCode = 0x10FFFF;
constexpr std::int32_t kFirstSurrogate = 0xD800;
constexpr std::int32_t kLastSurrogate = 0xDFFF;
constexpr Character kBrokenByte{-1, 1};

bool isAscii(char byte) {
    return static_cast<unsigned char>(byte) < 0x80;
}

/// How many bytes a sequence has by its first one; 0 for a byte that begins none.
std::size_t lengthBy(unsigned lead) {
    if (lead < 0x80) return 1;
    if (lead >= 0xC2 && lead <= 0xDF) return 2;
    if (lead >= 0xE0 && lead <= 0xEF) return 3;
    return lead >= 0xF0 && lead <= 0xF4 ? 4 : 0;
}

}  // namespace

Character characterAt(std::string_view text, std::size_t start) {
    const auto byteAt = [&](std::size_t at) { return static_cast<unsigned char>(text[at]); };
    const unsigned lead = byteAt(start);
    const std::size_t length = lengthBy(lead);
    if (length == 1) return {static_cast<std::int32_t>(lead), 1};
    if (length == 0 || length > text.size() - start) return kBrokenByte;
    std::uint32_t bits = lead & (0xFFU >> (length + 1));
    for (std::size_t at = start + 1; at < start + length; ++at) {
        if ((byteAt(at) & 0xC0U) != 0x80U) return kBrokenByte;
        bits = bits << 6 | (byteAt(at) & 0x3FU);
    }
    // Each code has one form, the shortest.
    constexpr std::array<std::int32_t, 5> kLeast{0, 0, 0x80, 0x800, 0x10000};
    const auto code = static_cast<std::int32_t>(bits);
    const bool isSurrogate = code >= kFirstSurrogate && code <= kLastSurrogate;
    if (code < kLeast[length] || code > kLastCode || isSurrogate) return kBrokenByte;
    return {code, length};
}

void appendCharacter(std::string& text, std::int32_t code) {
    const auto append = [&text](std::int32_t byte) { text += static_cast<char>(byte); };
    const auto appendRest = [&](int shift) { append(0x80 | (code >> shift & 0x3F)); };
    if (code < 0x80) {
        append(code);
    } else if (code < 0x800) {
        append(0xC0 | code >> 6);
        appendRest(0);
    } else if (code < 0x10000) {
        append(0xE0 | code >> 12);
        appendRest(6);
        appendRest(0);
    } else {
        append(0xF0 | code >> 18);
        appendRest(12);
        appendRest(6);
        appendRest(0);
    }
}

std::string UCase(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const char byte = text[at];
        if (isAscii(byte)) {
            result += byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 'a' + 'A') : byte;
            ++at;
            continue;
        }
        const Character character = characterAt(text, at);
        const std::int32_t upper = upperOf(character.code);  // a broken byte has no other
        if (upper == character.code) {
            result.append(text.substr(at, character.length));
        } else {
            appendCharacter(result, upper);
        }
        at += character.length;
    }
    return result;
}

std::string Trim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

std::size_t charCount(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size(); ++count) at += characterAt(text, at).length;
    return count;
}

std::size_t byteOffset(std::string_view text, std::size_t chars) {
    std::size_t at = 0;
    for (; chars > 0 && at < text.size(); --chars) at += characterAt(text, at).length;
    return at;
}

bool isUtf8(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const Character character = characterAt(text, at);
        if (character.code < 0) return false;
        at += character.length;
    }
    return true;
}

}  // namespace wynconfig
