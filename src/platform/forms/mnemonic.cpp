// Reading the marks of captions.
#include "wynconfig/mnemonic.h"

#include "platform/text/text.h"

namespace wynconfig {

namespace {

constexpr char kMark = '&';

/// The byte behind the character that begins at `at`.
std::size_t behind(std::string_view caption, std::size_t at) {
    return at + characterAt(caption, at).length;
}

/// Length of a key in brackets, "(&W)", that ends the caption at `at`; 0 when there is none.
std::size_t bracketedKey(std::string_view caption, std::size_t at) {
    if (!caption.substr(at).starts_with("(&") || at + 2 >= caption.size()) return 0;
    if (caption[at + 2] == kMark) return 0;
    const std::size_t end = behind(caption, at + 2);
    return caption.substr(end) == ")" ? end + 1 - at : 0;
}

}  // namespace

std::string plainCaption(std::string_view caption) {
    std::string plain;
    for (std::size_t at = 0; at < caption.size();) {
        if (const std::size_t key = bracketedKey(caption, at)) {
            at += key;
            continue;
        }
        if (caption[at] == kMark && ++at == caption.size()) break;
        const std::size_t next = behind(caption, at);
        plain += caption.substr(at, next - at);
        at = next;
    }
    return plain;
}

std::string mnemonicOf(std::string_view caption) {
    for (std::size_t at = caption.find(kMark);
         at != std::string_view::npos && ++at < caption.size(); at = caption.find(kMark, at + 1)) {
        if (caption[at] != kMark) return UCase(caption.substr(at, behind(caption, at) - at));
    }
    return {};
}

}  // namespace wynconfig
