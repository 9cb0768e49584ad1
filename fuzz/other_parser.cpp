// Holds the reader of records to another parser: what it takes is well-formed XML with namespaces
// there as well, and has the same rows. The first byte tells whether the text is a file or a
// document.
#include <libxml/parser.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/records/record_xml.h"
#include "platform/text/text.h"
#include "require.h"
#include "wynconfig/error.h"

namespace {

using namespace wynconfig;
using Rows = std::vector<std::pair<std::string, std::string>>;

std::string_view textOf(const xmlChar* text) {
    return text ? reinterpret_cast<const char*>(text) : "";
}

/// What a stored text stands for, by the words of docs/stored_form.md.
std::string meaning(std::string_view stored) {
    std::string out;
    while (!stored.empty()) {
        const std::string group(stored.substr(0, 7));
        const bool isGroup = group.size() == 7 && group.starts_with("_x") && group[6] == '_' &&
                             group.find_first_not_of("0123456789abcdefABCDEF", 2) == 6;
        const int unit = isGroup ? std::stoi(group.substr(2, 4), nullptr, 16) : -1;
        const bool isByte = unit >= 0xDC80 && unit <= 0xDCFF;
        if (!isGroup || (unit >= 0xD800 && unit <= 0xDFFF && !isByte)) {
            out += stored.front();
            stored.remove_prefix(1);
            continue;
        }
        if (isByte)
            out += static_cast<char>(unit - 0xDC00);
        else
            appendCharacter(out, unit);
        stored.remove_prefix(group.size());
    }
    return out;
}

/// The rows of a record in the other parser's tree.
Rows rowsIn(const xmlDoc* document) {
    Rows rows;
    const xmlNode* const root = xmlDocGetRootElement(document);
    require(root && !root->ns && textOf(root->name) == "dataset");
    for (const xmlNode* node = root->children; node; node = node->next) {
        if (node->type != XML_ELEMENT_NODE || node->ns || textOf(node->name) != "row") continue;
        std::string key;
        for (const xmlAttr* each = node->properties; each; each = each->next)
            if (!each->ns && textOf(each->name) == "key" && each->children)
                key = textOf(each->children->content);
        std::string data;
        for (const xmlNode* part = node->children; part; part = part->next)
            if (part->type == XML_TEXT_NODE || part->type == XML_CDATA_SECTION_NODE)
                data += textOf(part->content);
        rows.emplace_back(meaning(key), meaning(data));
    }
    return rows;
}

struct Freeing {
    void operator()(xmlParserCtxt* context) const { xmlFreeParserCtxt(context); }
    void operator()(xmlDoc* document) const { xmlFreeDoc(document); }
};

/// Keeps what is no warning. That the name of a namespace is to be an absolute URI is no rule of
/// namespaces.
void onError(void* user, xmlErrorPtr error) {
    if (error->level < XML_ERR_ERROR || error->code == XML_WAR_NS_URI) return;
    *static_cast<bool*>(user) = false;
}

/// Whether the declaration does not tell the encoding.
bool ignoresDeclaration(std::string_view xml, XmlSource source) {
    return source == XmlSource::Memory || xml.starts_with("\xEF\xBB\xBF") ||
           xml.starts_with("\xFF\xFE") || xml.starts_with("\xFE\xFF");
}

/// The rows as the other parser reads them; nothing where it refuses the text.
std::optional<Rows> rowsByOther(std::string_view xml, XmlSource source) {
    const std::unique_ptr<xmlParserCtxt, Freeing> context(xmlNewParserCtxt());
    bool isFine = true;
    xmlSetStructuredErrorFunc(&isFine, onError);
    const int options = XML_PARSE_NONET | XML_PARSE_NOENT | XML_PARSE_HUGE |
                        (ignoresDeclaration(xml, source) ? XML_PARSE_IGNORE_ENC : 0);
    const std::unique_ptr<xmlDoc, Freeing> document(
        xmlCtxtReadMemory(context.get(), xml.data(), static_cast<int>(xml.size()), nullptr,
                          source == XmlSource::Memory ? "UTF-8" : nullptr, options));
    if (!document || !context->wellFormed || !isFine) return {};
    return rowsIn(document.get());
}

/// Whether the other parser reads the encoding otherwise: it joins letters and their marks, which
/// stand each for itself in these, or takes it from the middle of the declaration on.
bool isReadOtherwise(std::string_view xml) {
    const std::string upper = UCase(xml.substr(0, 200));
    return upper.find("WINDOWS-1255") != std::string::npos ||
           upper.find("WINDOWS-1258") != std::string::npos ||
           xml.substr(0, 2).find('\0') != std::string::npos;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const XmlSource source = data[0] % 2 ? XmlSource::File : XmlSource::Memory;
    const std::string_view xml(reinterpret_cast<const char*>(data) + 1, size - 1);
    if (source == XmlSource::File && isReadOtherwise(xml)) return 0;
    RecordText ours;
    try {
        ours = readRecord(xml, source);
    } catch (const Error&) {
        return 0;
    }
    const std::optional<Rows> theirs = rowsByOther(xml, source);
    require(theirs.has_value());
    Rows rows;
    for (const DataRow& row : ours.rows) rows.emplace_back(row[0], row[1]);
    require(rows == *theirs);
    return 0;
}
