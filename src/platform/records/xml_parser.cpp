// Makes the parser, and says what it has found.
#include "platform/records/xml_parser.h"

#include <new>
#include <random>
#include <string_view>

#include "platform/records/parser_memory.h"

namespace wynconfig {

namespace {

/// Begins the hashing of names at a place of chance, so that nobody can make names meet. It is
/// drawn once, as asking for chance costs a call to the system.
unsigned long hashSalt() {
    static const unsigned long salt = [] {
        std::random_device chance;
        std::uniform_int_distribution<unsigned long> any(1);
        return any(chance);
    }();
    return salt;
}

}  // namespace

void renew(XmlParser& parser) {
    static const XML_Memory_Handling_Suite memory{allocateForParser, reallocateForParser,
                                                  freeForParser};
    parserMemory().isExceeded = false;
    if (!parser)
        parser.reset(XML_ParserCreate_MM(nullptr, &memory, kNamespaceEnd));
    else if (!XML_ParserReset(parser.get(), nullptr))
        parser.reset();
    if (!parser) throw std::bad_alloc();
    XML_SetHashSalt(parser.get(), hashSalt());
}

bool isReadVersion(const char* version) {
    const std::string_view text = version;
    return text.starts_with("1.") && text.size() > 2 &&
           text.find_first_not_of("0123456789", 2) == std::string_view::npos;
}

std::string xmlErrorOf(const XmlParser& parser) {
    return "line " + std::to_string(XML_GetCurrentLineNumber(parser.get())) + ": " +
           XML_ErrorString(XML_GetErrorCode(parser.get()));
}

}  // namespace wynconfig
