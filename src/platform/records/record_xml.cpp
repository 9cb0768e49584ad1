// Reads and writes the stored form of a record, reading by libxml2's SAX2 interface.
#include "platform/records/record_xml.h"

#include <libxml/parser.h>
#include <libxml/parserInternals.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <climits>
#include <cstdint>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "platform/text/text.h"
#include "wynconfig/error.h"

namespace wynconfig {

namespace {

constexpr std::string_view kHexDigits = "0123456789ABCDEF";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// The code unit in `_xHHHH` at the start of text, or nothing.
std::optional<unsigned> openUnit(std::string_view text) {
    constexpr std::size_t length = 6;
    if (text.size() < length || text[0] != '_' || text[1] != 'x') return {};
    unsigned unit = 0;
    const auto [end, fault] = std::from_chars(text.data() + 2, text.data() + length, unit, 16);
    if (fault != std::errc() || end != text.data() + length) return {};
    return unit;
}

/// The code unit in `_xHHHH_` at the start of text, or nothing.
std::optional<unsigned> escapedUnit(std::string_view text) {
    return text.size() > 6 && text[6] == '_' ? openUnit(text) : std::nullopt;
}

bool isSurrogate(unsigned unit) {
    return unit >= 0xD800 && unit <= 0xDFFF;
}

/// Turns `_xHHHH_` back into what it stands for. A unit that stands for nothing stays as it is.
std::string unescape(std::string_view text) {
    if (text.find('_') == std::string_view::npos) return std::string(text);
    std::size_t at = text.find("_x");
    std::string out;
    std::size_t from = 0;
    for (; at != std::string_view::npos; at = text.find("_x", at)) {
        const auto unit = escapedUnit(text.substr(at));
        if (!unit || (isSurrogate(*unit) && (*unit < 0xDC80 || *unit > 0xDCFF))) {
            ++at;
            continue;
        }
        out.append(text, from, at - from);
        if (isSurrogate(*unit))
            out.push_back(static_cast<char>(*unit - 0xDC00));
        else
            appendCharacter(out, static_cast<std::int32_t>(*unit));
        at += 7;
        from = at;
    }
    out.append(text, from);
    return out;
}

void appendUnit(std::string& out, unsigned unit) {
    out += "_x";
    for (int shift = 12; shift >= 0; shift -= 4) out += kHexDigits[(unit >> shift) & 0xF];
    out += '_';
}

/// Bytes that can't simply be copied into XML text.
constexpr std::array<bool, 256> kSpecial = [] {
    std::array<bool, 256> special{};
    for (std::size_t byte = 0; byte < 256; ++byte) special[byte] = byte < 0x20 || byte >= 0x80;
    for (const char each : {'&', '<', '>', '"', '_'})
        special[static_cast<unsigned char>(each)] = true;
    return special;
}();

/// Appends what stands for the byte, or the character that starts, at `at`, and moves behind it.
void appendSpecial(std::string& out, std::string_view text, std::size_t& at, bool attribute) {
    const char byte = text[at];
    const auto value = static_cast<unsigned char>(byte);
    if (value >= 0x80) {
        const Character character = characterAt(text, at);
        if (character.code < 0)
            appendUnit(out, 0xDC00U + value);
        else if (character.code == 0xFFFE || character.code == 0xFFFF)
            appendUnit(out, static_cast<unsigned>(character.code));
        else
            out.append(text, at, character.length);
        at += character.length;
        return;
    }
    ++at;
    switch (byte) {
        case '&':
            out += "&amp;";
            return;
        case '<':
            out += "&lt;";
            return;
        case '>':
            out += "&gt;";
            return;
        case '"':
            out += attribute ? "&quot;" : "\"";
            return;
        case '_':
            // What closes it may be the `_` of an escape that is only about to be written.
            if (openUnit(text.substr(at - 1)))
                appendUnit(out, '_');
            else
                out += '_';
            return;
        case '\r':
            out += "&#13;";
            return;
        case '\n':
            out += attribute ? "&#10;" : "\n";
            return;
        case '\t':
            out += attribute ? "&#9;" : "\t";
            return;
        default:
            appendUnit(out, value);
    }
}

void holdToBound(std::size_t size) {
    if (size > kMaxItemSize)
        throw Error(errc::InvalidCall, "The record is too large to be stored.");
}

void appendText(std::string& out, std::string_view text, bool attribute) {
    holdToBound(out.size() + text.size());
    std::size_t from = 0;
    std::size_t at = 0;
    while (at < text.size()) {
        if (!kSpecial[static_cast<unsigned char>(text[at])]) {
            ++at;
            continue;
        }
        out.append(text, from, at - from);
        appendSpecial(out, text, at, attribute);
        holdToBound(out.size());
        from = at;
    }
    out.append(text, from);
}

/// What takes the events of one pass. It collects a record, or is only there to see how far the
/// pass comes.
class RecordReader {
  public:
    explicit RecordReader(bool collects) : m_collects(collects) {}

    xmlParserCtxt* parser = nullptr;
    RecordText record;
    std::string fault;  ///< why the pass was stopped; empty while the text may be what is wanted
    std::string error;  ///< what the parser said first

    void start(std::string_view name, int namespaceCount, int attributeCount,
               const xmlChar** attributes) {
        ++m_depth;
        if (m_depth > kMaxDepth) return blame("its elements are nested too deeply");
        m_namespaces.push_back(namespaceCount + (m_namespaces.empty() ? 0 : m_namespaces.back()));
        if (m_namespaces.back() > kMaxNamespaces) return blame("it declares too many namespaces");
        if (!m_collects) return;
        if (m_depth == 1) {
            if (name != "dataset") return blame("its root element is not a dataset");
            record.type = unescape(attribute("type", attributeCount, attributes).value_or(""));
            record.name = unescape(attribute("name", attributeCount, attributes).value_or(""));
            record.key = unescape(attribute("key", attributeCount, attributes).value_or("Element"));
        } else if (m_depth == 2) {
            m_inRow = name == "row";
            m_inColumn = name == "column";
            if (m_inRow) startRow(attributeCount, attributes);
        }
    }
    void end() {
        m_namespaces.pop_back();
        if (m_depth-- != 2) return;
        if (m_inRow) record.rows.back()[1] = unescaped();
        if (m_inColumn) record.columns.push_back(unescaped());
        m_inRow = m_inColumn = false;
        m_text.clear();
    }
    void characters(std::string_view text) {
        if (m_depth == 2 && (m_inRow || m_inColumn)) m_text.append(text);
    }
    void documentType() {
        if (m_collects) blame("it has a document type declaration");
    }

  private:
    void startRow(int attributeCount, const xmlChar** attributes) {
        const auto key = attribute("key", attributeCount, attributes);
        if (!key) blame("it has a row without a key");
        record.rows.emplace_back()[0] = unescape(key.value_or(""));
    }
    std::string unescaped() {
        std::string text = std::exchange(m_text, {});
        if (text.find('_') == std::string::npos) return text;
        return unescape(text);
    }
    /// Nothing behind a fault is worth reading, and defaults for the attributes of a thousand
    /// elements would be costly to collect.
    void blame(const char* cause) {
        fault = cause;
        xmlStopParser(parser);
    }
    /// SAX2 hands attributes over in fives: local name, prefix, URI, begin and end of the value.
    static std::optional<std::string_view> attribute(std::string_view name, int count,
                                                     const xmlChar** attributes) {
        for (int i = 0; i < count; ++i, attributes += 5) {
            if (attributes[1] || name != reinterpret_cast<const char*>(attributes[0])) continue;
            const auto* begin = reinterpret_cast<const char*>(attributes[3]);
            return std::string_view(begin, static_cast<std::size_t>(attributes[4] - attributes[3]));
        }
        return {};
    }

    static constexpr int kMaxDepth = 256;
    static constexpr int kMaxNamespaces = 256;  ///< the parser looks a prefix up among all of them

    bool m_collects;
    int m_depth = 0;
    std::vector<int> m_namespaces;  ///< how many are in force within each open element
    bool m_inRow = false;
    bool m_inColumn = false;
    std::string m_text;
};

RecordReader& readerOf(void* user) {
    return *static_cast<RecordReader*>(user);
}

/// The parser compares each attribute of a tag with all others, so that a great many names would
/// hold it up for hours.
void onStartDocument(void* user) {
    constexpr std::size_t bound = std::size_t{16} * 1024;
    xmlDictSetLimit(readerOf(user).parser->dict, bound);
}

void onStart(void* user, const xmlChar* name, const xmlChar*, const xmlChar* uri,
             int namespaceCount, const xmlChar**, int attributeCount, int,
             const xmlChar** attributes) {
    // The names of the stored form are in no namespace; those of others are unknown here.
    readerOf(user).start(uri ? "" : reinterpret_cast<const char*>(name), namespaceCount,
                         attributeCount, attributes);
}

void onEnd(void* user, const xmlChar*, const xmlChar*, const xmlChar*) {
    readerOf(user).end();
}

void onCharacters(void* user, const xmlChar* text, int length) {
    readerOf(user).characters(
        {reinterpret_cast<const char*>(text), static_cast<std::size_t>(length)});
}

void onDocumentType(void* user, const xmlChar*, const xmlChar*, const xmlChar*) {
    readerOf(user).documentType();
}

void onError(void* user, xmlErrorPtr error) {
    std::string& kept = readerOf(user).error;
    if (!kept.empty() || error->level < XML_ERR_ERROR) return;
    std::string_view message = error->message ? error->message : "unreadable";
    while (message.ends_with('\n')) message.remove_suffix(1);
    if (error->code == XML_ERR_NO_MEMORY) message = "its names take too much memory";
    const bool hasLine = error->line > 0;
    kept = (hasLine ? "line " + std::to_string(error->line) + ": " : "") + std::string(message);
}

/// The parser takes a NUL, and bytes that are not of the text's encoding, for the end of the text;
/// behind the root element it says nothing of them.
void onEndDocument(void* user) {
    RecordReader& reader = readerOf(user);
    const xmlParserInput* input = reader.parser->input;
    const bool unread = input->cur != input->end;
    const bool unconverted = input->buf && input->buf->raw && xmlBufUse(input->buf->raw) > 0;
    if (!unread && !unconverted) return;
    reader.parser->wellFormed = 0;
    if (reader.error.empty()) reader.error = "it goes on behind its end";
}

/// Takes what the parser tells its thread, and not its context: that a text can't be converted.
/// Nobody else is told then, and nothing is written to the standard error stream.
class ThreadErrors {
  public:
    explicit ThreadErrors(RecordReader& reader)
        : m_function(xmlStructuredError), m_user(xmlStructuredErrorContext) {
        xmlSetStructuredErrorFunc(&reader, onError);
    }
    ThreadErrors(const ThreadErrors&) = delete;
    ThreadErrors& operator=(const ThreadErrors&) = delete;
    ~ThreadErrors() { xmlSetStructuredErrorFunc(m_user, m_function); }

  private:
    xmlStructuredErrorFunc m_function;
    void* m_user;
};

struct FreeContext {
    void operator()(xmlParserCtxt* context) const { xmlFreeParserCtxt(context); }
};
using Context = std::unique_ptr<xmlParserCtxt, FreeContext>;

/// Making a parser context costs more than reading a record, so it is kept between the calls: one
/// for each source, since what a context was once told about encodings it never forgets.
Context& keptContext(XmlSource source) {
    thread_local Context file;
    thread_local Context memory;
    return source == XmlSource::File ? file : memory;
}

/// What all threads share in the parser is made once, by one of them, before any of them touches
/// it.
void prepareParser() {
    static const bool ready = (xmlInitParser(), true);
    static_cast<void>(ready);
}

Context makeContext() {
    Context context(xmlNewParserCtxt());
    if (!context) throw Error(errc::BadRecord, "There is no memory left to read a record.");
    xmlSAXHandler& sax = *context->sax;
    sax = {};
    sax.initialized = XML_SAX2_MAGIC;
    sax.startDocument = onStartDocument;
    sax.endDocument = onEndDocument;
    sax.startElementNs = onStart;
    sax.endElementNs = onEnd;
    sax.characters = onCharacters;
    sax.ignorableWhitespace = onCharacters;
    sax.cdataBlock = onCharacters;
    sax.internalSubset = onDocumentType;
    sax.serror = onError;
    return context;
}

/// Whether the parser might guess an encoding other than UTF-8 from the first bytes. It would have
/// to be told then, at a price: an encoding that it is told, be it UTF-8, it converts byte by byte.
bool mayPassForAnotherEncoding(std::string_view xml) {
    return xml.size() < 2 || xml[0] != '<' || xml[1] == '\0';
}

/// One pass over the text. Entities are never declared, so none is ever expanded but the five of
/// XML itself; without XML_PARSE_NOENT an `&` would come out of an attribute as `&#38;`.
/// The parser's own bounds on sizes and depth are lifted for those of this file.
/// @return whether the text is well-formed
bool parse(std::string_view xml, XmlSource source, RecordReader& reader) {
    static_assert(kMaxItemSize <= INT_MAX, "the parser counts in int");
    if (xml.size() > kMaxItemSize) {
        reader.fault = "it is too large";
        return false;
    }
    // The mark is right: a person's editor has put it there and left the declaration alone.
    if (xml.starts_with(kByteOrderMark)) source = XmlSource::Memory;
    prepareParser();
    const ThreadErrors errors(reader);
    Context& context = keptContext(source);
    if (!context) context = makeContext();
    context->userData = &reader;
    reader.parser = context.get();
    int options = XML_PARSE_NOENT | XML_PARSE_NONET | XML_PARSE_HUGE;
    const char* encoding = nullptr;
    if (source == XmlSource::Memory) {
        options |= XML_PARSE_IGNORE_ENC;
        if (mayPassForAnotherEncoding(xml)) encoding = "UTF-8";
    }
    xmlCtxtReadMemory(context.get(), xml.data(), static_cast<int>(xml.size()), nullptr, encoding,
                      options);
    const bool wellFormed = context->wellFormed != 0 && reader.fault.empty();
    // What strange texts leave in the context's dictionary would be held against later ones.
    constexpr std::size_t dictionaryBound = std::size_t{4} * 1024;
    if (!wellFormed || xmlDictGetUsage(context->dict) > dictionaryBound) context.reset();
    return wellFormed;
}

}  // namespace

RecordText readRecord(std::string_view xml, XmlSource source) {
    RecordReader reader(true);
    if (parse(xml, source, reader)) return std::move(reader.record);
    if (!reader.fault.empty()) throw Error(errc::BadRecord, reader.fault);
    throw Error(errc::BadRecord,
                "it is not well-formed XML (" +
                    (reader.error.empty() ? std::string("it is empty") : reader.error) + ")");
}

bool isWellFormed(std::string_view xml) {
    RecordReader reader(false);
    return parse(xml, XmlSource::Memory, reader);
}

std::string writeRecord(std::string_view type, std::string_view name, std::string_view key,
                        const std::array<std::string, 2>& columns, const std::list<DataRow>& rows) {
    std::size_t size = 256 + name.size();
    for (const DataRow& row : rows) size += row[0].size() + row[1].size() + 32;
    std::string out;
    out.reserve(std::min(size, kMaxItemSize));
    out += "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<dataset version=\"1\" type=\"";
    appendText(out, type, true);
    out += "\" name=\"";
    appendText(out, name, true);
    out += "\" key=\"";
    appendText(out, key, true);
    out += "\">\n";
    for (const std::string& column : columns) {
        out += "  <column>";
        appendText(out, column, false);
        out += "</column>\n";
    }
    for (const DataRow& row : rows) {
        out += "  <row key=\"";
        appendText(out, row[0], true);
        if (row[1].empty()) {
            out += "\"/>\n";
            continue;
        }
        out += "\">";
        appendText(out, row[1], false);
        out += "</row>\n";
    }
    out += "</dataset>\n";
    holdToBound(out.size());
    return out;
}

}  // namespace wynconfig
