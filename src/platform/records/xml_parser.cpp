// Makes the parser, and says what it has found.
#include "platform/records/xml_parser.h"

#include <cstddef>
#include <cstring>
#include <new>
#include <string_view>

#include "platform/records/key_hash.h"
#include "platform/records/parser_memory.h"

namespace wynconfig {

void renew(XmlParser& parser) {
    static const XML_Memory_Handling_Suite memory{allocateForParser, reallocateForParser,
                                                  freeForParser};
    parserMemory().isExceeded = false;
    parserMemory().hasRunOut = false;
    if (!parser)
        parser.reset(XML_ParserCreate_MM(nullptr, &memory, kNamespaceEnd));
    else if (!XML_ParserReset(parser.get(), nullptr))
        parser.reset();
    if (!parser) throw std::bad_alloc();
    // So that nobody can make names meet. None at all would have the parser ask for chance itself.
    XML_SetHashSalt(parser.get(), static_cast<unsigned long>(processHashKey().first) | 1U);
}

bool isReadVersion(const char* version) {
    const std::string_view text = version;
    return text.starts_with("1.") && text.size() > 2 &&
           text.find_first_not_of("0123456789", 2) == std::string_view::npos;
}

bool beginsInUtf16(std::string_view xml) {
    using namespace std::string_view_literals;
    return xml.starts_with("\xFF\xFE"sv) || xml.starts_with("\xFE\xFF"sv) ||
           xml.starts_with("<\0?\0"sv) || xml.starts_with("\0<\0?"sv);
}

bool mayPassForUtf16(std::string_view xml) {
    return beginsInUtf16(xml) || xml.substr(0, 2).find('\0') != std::string_view::npos;
}

bool hasWholeCharacters(std::string_view utf16) {
    const bool bigEndian = utf16.front() == '\xFE' || utf16.front() == '\0';
    bool isOpen = false;
    for (std::size_t at = bigEndian ? 0 : 1; at < utf16.size(); at += 2) {
        const int half = static_cast<unsigned char>(utf16[at]) & 0xFC;
        if (isOpen != (half == 0xDC)) return false;
        isOpen = half == 0xD8;
    }
    return !isOpen;
}

bool hasLetterOfNoName(const char* name) {
    constexpr char lead = '\xC2';
    if (!std::strchr(name, lead)) return false;
    const char* const space = std::strrchr(name, *kNamespaceEnd);
    for (const char* at = space ? space : name; (at = std::strchr(at, lead)); ++at)
        if (at[1] == '\xAA' || at[1] == '\xB5' || at[1] == '\xBA') return true;
    return false;
}

bool hasRunOutOfMemory(const XmlParser& parser) {
    return parserMemory().hasRunOut ||
           (!parserMemory().isExceeded && XML_GetErrorCode(parser.get()) == XML_ERROR_NO_MEMORY);
}

std::string xmlErrorOf(const XmlParser& parser) {
    return "line " + std::to_string(XML_GetCurrentLineNumber(parser.get())) + ": " +
           XML_ErrorString(XML_GetErrorCode(parser.get()));
}

}  // namespace wynconfig
