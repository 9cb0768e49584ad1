// Names for control characters.
#include "sending/visible_text.h"

#include "sending/characters.h"

namespace host {

namespace {

constexpr unsigned char kFirstPrintable = 0x20;
constexpr unsigned char kDelete = 0x7F;
constexpr unsigned char kFirstBeyondAscii = 0x80;

std::string nameOf(unsigned char byte) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    switch (byte) {
        case '\t':
            return "TAB";
        case '\n':
            return "LF";
        case '\r':
            return "CR";
        case 0x1B:
            return "ESC";
        default:
            return {kDigits[byte >> 4], kDigits[byte & 0xF]};
    }
}

void addVisible(std::string& text, std::string_view character) {
    const auto first = static_cast<unsigned char>(character.front());
    const bool noUtf8 = character.size() == 1 && first >= kFirstBeyondAscii;
    if (first < kFirstPrintable || first == kDelete || noUtf8)
        text += "‹" + nameOf(first) + "›";
    else
        text += character;
}

}  // namespace

std::string visibleText(std::string_view bytes) {
    std::string text;
    while (!bytes.empty()) {
        const std::string_view character = firstCharacters(bytes, 1);
        bytes.remove_prefix(character.size());
        addVisible(text, character);
        if (character == "\n" || (character == "\r" && !bytes.starts_with('\n'))) text += '\n';
    }
    return text;
}

}  // namespace host
