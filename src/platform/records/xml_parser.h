// The XML parser as this component uses it: with namespaces, and within bounds to what a hostile
// text may cost.
#pragma once

#include <expat.h>

#include <memory>
#include <string>

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

/// Why the parser ended a text, with the line. The parser counts the lines when it is asked.
std::string xmlErrorOf(const XmlParser& parser);

}  // namespace wynconfig
