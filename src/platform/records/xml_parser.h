// The XML parser as this component uses it: with namespaces, and within bounds to what a hostile
// text may cost.
#pragma once

#include <expat.h>

#include <memory>
#include <string>
#include <string_view>

namespace wynconfig {

/// Gives a parser back.
struct FreeXmlParser {
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};
using XmlParser = std::unique_ptr<XML_ParserStruct, FreeXmlParser>;

/// Stands between a namespace and a name in it. No text of XML can hold it.
inline constexpr char kNamespaceEnd[] = "\f";

/// Makes a parser, or the one that is there as good as new, with no handlers set. Its memory is
/// that of parser_memory.h, and the bound to it is not exceeded by then. Raises std::bad_alloc.
void renew(XmlParser& parser);

/// Whether what a text declares as its version of XML is one that is read. The parser takes any
/// word.
bool isReadVersion(const char* version);

/// Whether text begins as one in UTF-16: with its byte order mark, or with a declaration in it.
bool beginsInUtf16(std::string_view xml);

/// Whether the parser would take the text for UTF-16, whatever it is told.
bool mayPassForUtf16(std::string_view xml);

/// Whether in text that begins in UTF-16 each half of a character has its other half. The parser
/// does not look.
bool hasWholeCharacters(std::string_view utf16);

/// Whether a name, behind its namespace, has one of the three letters that the parser takes in
/// names though XML does not: U+00AA, U+00B5 and U+00BA, in texts in UTF-16 or ISO-8859-1.
bool hasLetterOfNoName(const char* name);

/// Whether the parser was refused memory other than by the bound. Where that was for a name alone
/// it may have taken the name for unknown, and so whatever it says of the text is not to be
/// believed.
bool hasRunOutOfMemory(const XmlParser& parser);

/// Why the parser ended a text, with the line. The parser counts the lines when it is asked.
std::string xmlErrorOf(const XmlParser& parser);

}  // namespace wynconfig
