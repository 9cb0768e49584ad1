// Text by ICU's character tables and UTF-8 decoding; no locale takes part.
#include "platform/text/text.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

namespace wynconfig {

// ICU's macro narrows on purpose, within a condition that has checked the range.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"

Character characterAt(std::string_view text, std::size_t start) {
    std::size_t next = start;
    UChar32 code = 0;
    U8_NEXT(text.data(), next, text.size(), code);
    // ICU steps over the whole beginning of a broken sequence; here each byte stands for itself.
    return code < 0 ? Character{code, 1} : Character{code, next - start};
}

#pragma GCC diagnostic pop

namespace {

UChar32 upperOf(UChar32 code) {
    const UChar32 upper = u_toupper(code);
    return u_tolower(upper) == code ? upper : code;
}

}  // namespace

void appendCharacter(std::string& text, std::int32_t code) {
    char bytes[U8_MAX_LENGTH] = {};
    std::size_t length = 0;
    U8_APPEND_UNSAFE(bytes, length, code);
    text.append(bytes, length);
}

std::string UCase(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const char byte = text[at];
        if (U8_IS_SINGLE(byte)) {
            result += byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 'a' + 'A') : byte;
            ++at;
            continue;
        }
        const Character character = characterAt(text, at);
        const UChar32 upper = character.code < 0 ? character.code : upperOf(character.code);
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
