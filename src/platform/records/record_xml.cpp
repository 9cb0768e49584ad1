// Reads and writes the stored form of a record, reading by Expat what is not plain.
#include "platform/records/record_xml.h"

#include <expat.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <climits>
#include <cstdint>
#include <cstring>
#include <exception>
#include <new>
#include <optional>
#include <utility>

#include "platform/records/parser_memory.h"
#include "platform/records/plain_record.h"
#include "platform/records/single_byte_encodings.h"
#include "platform/records/xml_parser.h"
#include "platform/text/text.h"
#include "wynconfig/error.h"

namespace wynconfig {

namespace {

constexpr std::string_view kHexDigits = "0123456789ABCDEF";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr const char* kUtf8 = "UTF-8";

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

/// Whether the text may have something to turn back.
bool isEscaped(std::string_view text) {
    return text.find('_') != std::string_view::npos;
}

/// Turns `_xHHHH_` back into what it stands for. A unit that stands for nothing stays as it is.
std::string unescape(std::string_view text) {
    if (!isEscaped(text)) return std::string(text);
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

    XML_Parser parser = nullptr;
    bool checksNames = false;  ///< the parser does not, not as it should
    RecordText record;
    std::string fault;          ///< why the pass was stopped; empty while the text may be wanted
    std::string error;          ///< why the parser ended it
    std::exception_ptr raised;  ///< what ended it beside the text, such as want of memory

    bool isLeftUnread = false;  ///< the pass was stopped, though nothing is wrong by then

    void documentType(bool hasDeclarations) {
        if (m_collects) return blame("it has a document type declaration");
        if (!hasDeclarations) return;
        isLeftUnread = true;
        XML_StopParser(parser, XML_FALSE);
    }
    void start(const char* name, const char** attributes) {
        ++m_depth;
        if (checksNames) checkNames(name, attributes);
        if (m_depth > kMaxDepth) return blame("its elements are nested too deeply");
        if (!m_collects || m_depth > 2) return;
        if (m_depth == 2) return startInRecord(name, attributes);
        if (!isName(name, "dataset")) return blame("its root element is not a dataset");
        record.type = unescape(attribute("type", attributes).value_or(""));
        record.name = unescape(attribute("name", attributes).value_or(""));
        if (const auto key = attribute("key", attributes)) record.key = unescape(*key);
    }
    void end() {
        if (m_depth-- != 2 || !m_text) return;
        if (isEscaped(*m_text)) *m_text = unescape(*m_text);
        collectIn(nullptr);
    }
    void characters(std::string_view text) {
        if (m_depth == 2) m_text->append(text);
    }
    /// @param prefix  null for the namespace of the names without one
    void startNamespace(const char* prefix) {
        if (checksNames && prefix) checkName(prefix);
        if (++m_namespaces > kMaxNamespaces) blame("it declares too many namespaces");
    }
    void endNamespace() { --m_namespaces; }
    void instruction(const char* target) {
        if (checksNames) checkName(target);
    }

    /// Nothing behind a fault is worth reading, and may be long.
    void blame(std::string cause) {
        if (fault.empty()) fault = std::move(cause);
        XML_StopParser(parser, XML_FALSE);
    }

  private:
    void checkNames(const char* element, const char** attributes) {
        checkName(element);
        for (; *attributes; attributes += 2) checkName(*attributes);
    }
    void checkName(const char* name) {
        if (hasLetterOfNoName(name)) blame("it has a name with a letter that no name may have");
    }
    void startInRecord(const char* name, const char** attributes) {
        if (isName(name, "row")) {
            const auto key = attribute("key", attributes);
            if (!key) return blame("it has a row without a key");
            std::string* const data =
                isEscaped(*key) ? record.add(unescape(*key)) : record.add(*key);
            if (!data) return blame("it has the row \"" + unescape(*key) + "\" twice");
            collectIn(data);
        } else if (isName(name, "column") && m_columns < record.columns.size()) {
            std::string& column = record.columns[m_columns++];
            column.clear();
            collectIn(&column);
        }
    }
    /// The characters between the elements of a record are nobody's: they are not asked for.
    void collectIn(std::string* text);

    /// Names in a namespace bear its separator, and so are none of these.
    static bool isName(const char* name, const char* one) { return std::strcmp(name, one) == 0; }
    static std::optional<std::string_view> attribute(const char* name, const char** attributes) {
        for (; *attributes; attributes += 2)
            if (isName(attributes[0], name)) return attributes[1];
        return {};
    }

    static constexpr int kMaxDepth = 256;
    static constexpr int kMaxNamespaces = 256;

    bool m_collects;
    int m_depth = 0;
    int m_namespaces = 0;           ///< that are in force
    std::string* m_text = nullptr;  ///< of the row or column that is open
    std::size_t m_columns = 0;      ///< that were told
};

/// Runs what handles an event. No exception may pass through the parser.
template <class Handling>
void handle(void* user, const Handling& handling) {
    RecordReader& reader = *static_cast<RecordReader*>(user);
    try {
        handling(reader);
    } catch (...) {
        reader.raised = std::current_exception();
        XML_StopParser(reader.parser, XML_FALSE);
    }
}

void onStart(void* user, const char* name, const char** attributes) {
    handle(user, [&](RecordReader& reader) { reader.start(name, attributes); });
}

void onEnd(void* user, const char*) {
    handle(user, [&](RecordReader& reader) { reader.end(); });
}

void onCharacters(void* user, const char* text, int length) {
    handle(user, [&](RecordReader& reader) {
        reader.characters({text, static_cast<std::size_t>(length)});
    });
}

void onStartNamespace(void* user, const char* prefix, const char*) {
    handle(user, [&](RecordReader& reader) { reader.startNamespace(prefix); });
}

void onEndNamespace(void* user, const char*) {
    static_cast<RecordReader*>(user)->endNamespace();
}

void onInstruction(void* user, const char* target, const char*) {
    handle(user, [&](RecordReader& reader) { reader.instruction(target); });
}

/// Comes before the first declaration of the type: those can take long, and none is wanted.
void onDocumentType(void* user, const char*, const char*, const char*, int hasDeclarations) {
    handle(user, [&](RecordReader& reader) { reader.documentType(hasDeclarations != 0); });
}

void onDeclaration(void* user, const char* version, const char* encoding, int) {
    if (encoding && encoding != std::string_view(kUtf8))
        static_cast<RecordReader*>(user)->checksNames = true;
    if (isReadVersion(version)) return;
    handle(user, [](RecordReader& reader) {
        reader.blame("it declares a version of XML that is not read");
    });
}

/// Is asked for the encodings that the parser does not know by itself.
int onUnknownEncoding(void* user, const char* name, XML_Encoding* encoding) {
    const auto meanings = byteMeanings(name);
    if (!meanings) {
        handle(user, [&](RecordReader& reader) {
            constexpr std::size_t shown = 40;
            const std::string_view asked = name;
            reader.fault = "it declares the encoding " + std::string(asked.substr(0, shown)) +
                           (asked.size() > shown ? "..." : "") + ", which is not read";
        });
        return XML_STATUS_ERROR;
    }
    std::copy(meanings->begin(), meanings->end(), encoding->map);
    encoding->data = nullptr;
    encoding->convert = nullptr;
    encoding->release = nullptr;
    return XML_STATUS_OK;
}

void RecordReader::collectIn(std::string* text) {
    m_text = text;
    XML_SetCharacterDataHandler(parser, text ? onCharacters : nullptr);
}

/// Making a parser costs more than reading a record, so it is kept between the calls.
XmlParser& keptParser() {
    thread_local XmlParser parser;
    return parser;
}

/// @param encoding  what the text is in, whatever it declares, or null
void prepare(XmlParser& parser, RecordReader& reader, const char* encoding) {
    renew(parser);
    if (encoding && !XML_SetEncoding(parser.get(), encoding)) throw std::bad_alloc();
    reader.parser = parser.get();
    reader.checksNames = encoding && encoding != std::string_view(kUtf8);
    XML_SetUserData(parser.get(), &reader);
    XML_SetElementHandler(parser.get(), onStart, onEnd);
    XML_SetNamespaceDeclHandler(parser.get(), onStartNamespace, onEndNamespace);
    XML_SetProcessingInstructionHandler(parser.get(), onInstruction);
    XML_SetStartDoctypeDeclHandler(parser.get(), onDocumentType);
    XML_SetXmlDeclHandler(parser.get(), onDeclaration);
    XML_SetUnknownEncodingHandler(parser.get(), onUnknownEncoding, &reader);
}

/// What the parser must be told of the encoding; null where it is to take what the text declares.
/// The marks are right: a person's editor has put them there and left the declaration alone.
const char* encodingOf(std::string_view xml, XmlSource source) {
    if (source == XmlSource::Memory || xml.starts_with(kByteOrderMark)) return kUtf8;
    return beginsInUtf16(xml) ? "UTF-16" : nullptr;
}

/// A fault of the encoding that the parser would not find; empty for none.
std::string encodingFault(std::string_view xml, XmlSource source) {
    if (!mayPassForUtf16(xml)) return {};
    if (source == XmlSource::File && beginsInUtf16(xml))
        return hasWholeCharacters(xml) ? "" : "it has half a character of UTF-16";
    return std::string("line 1: ") + XML_ErrorString(XML_ERROR_INVALID_TOKEN);
}

/// One pass over the text. No entity is ever declared, so none is expanded but the five of XML
/// itself.
/// @return whether the text is well-formed
bool parse(std::string_view xml, XmlSource source, RecordReader& reader) {
    static_assert(kMaxItemSize <= INT_MAX, "the parser counts in int");
    if (xml.size() > kMaxItemSize) {
        reader.fault = "it is too large";
        return false;
    }
    reader.error = xml.empty() ? "it is empty" : encodingFault(xml, source);
    if (!reader.error.empty()) return false;
    XmlParser& parser = keptParser();
    prepare(parser, reader, encodingOf(xml, source));
    const bool wellFormed = XML_Parse(parser.get(), xml.data(), static_cast<int>(xml.size()),
                                      XML_TRUE) == XML_STATUS_OK;
    const bool noMemory = hasRunOutOfMemory(parser);
    if (!wellFormed && reader.fault.empty() && !parserMemory().isExceeded && !noMemory)
        reader.error = xmlErrorOf(parser);
    // What a large text took, or a strange one, is not kept.
    constexpr std::size_t keptSize = std::size_t{1} << 20;
    if (!wellFormed || noMemory || xml.size() > keptSize) parser.reset();
    if (noMemory) throw std::bad_alloc();
    if (reader.raised) std::rethrow_exception(reader.raised);
    if (reader.isLeftUnread) return true;
    if (parserMemory().isExceeded) reader.fault = "it has too many different names";
    return wellFormed && reader.fault.empty();
}

}  // namespace

RecordText readRecord(std::string_view xml, XmlSource source) {
    RecordText plain;
    if (readPlainRecord(xml, plain)) return plain;
    RecordReader reader(true);
    if (parse(xml, source, reader)) return std::move(reader.record);
    if (!reader.fault.empty()) throw Error(errc::BadRecord, reader.fault);
    throw Error(errc::BadRecord, "it is not well-formed XML (" + reader.error + ")");
}

bool isWellFormed(std::string_view xml) {
    RecordText plain;
    if (readPlainRecord(xml, plain)) return true;
    RecordReader reader(false);
    return parse(xml, XmlSource::Memory, reader);
}

std::string writeRecord(std::string_view type, std::string_view name, std::string_view key,
                        const std::array<std::string, 2>& columns, const DataRows& rows) {
    std::size_t size = 256 + name.size();
    for (const DataRow& row : rows) size += row[0].size() + row[1].size() + 32;
    std::string out;
    out.reserve(std::min(size, kMaxItemSize));
    out += written::kType;
    appendText(out, type, true);
    out += written::kName;
    appendText(out, name, true);
    out += written::kKey;
    appendText(out, key, true);
    out += written::kOpen;
    for (const std::string& column : columns) {
        out += written::kColumn;
        appendText(out, column, false);
        out += written::kColumnEnd;
    }
    for (const DataRow& row : rows) {
        out += written::kRow;
        appendText(out, row[0], true);
        if (row[1].empty()) {
            out += written::kEmptyRowEnd;
            continue;
        }
        out += written::kData;
        appendText(out, row[1], false);
        out += written::kRowEnd;
    }
    out += written::kEnd;
    holdToBound(out.size());
    return out;
}

}  // namespace wynconfig
