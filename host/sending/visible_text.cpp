// Pictures for control characters.
#include "visible_text.h"

#include "characters.h"

namespace host {

namespace {

constexpr unsigned char kFirstPrintable = 0x20;
constexpr unsigned char kDelete = 0x7F;
constexpr unsigned char kFirstBeyondAscii = 0x80;
constexpr const char* kReplacement = "\xEF\xBF\xBD";    // U+FFFD
constexpr const char* kDeletePicture = "\xE2\x90\xA1";  // U+2421
constexpr const char* kPicturesLead = "\xE2\x90";       // U+2400 and on, but for the last byte
constexpr unsigned char kFirstPictureByte = 0x80;

void addVisible(std::string& text, std::string_view character) {
    const auto first = static_cast<unsigned char>(character.front());
    if (first < kFirstPrintable)
        text.append(kPicturesLead) += static_cast<char>(kFirstPictureByte + first);
    else if (first == kDelete)
        text += kDeletePicture;
    else if (character.size() == 1 && first >= kFirstBeyondAscii)
        text += kReplacement;
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
