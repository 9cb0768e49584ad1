// Reads a file of texts by Expat.
#include "platform/resources/text_file.h"

#include <expat.h>

#include <algorithm>
#include <cstddef>
#include <exception>
#include <new>
#include <string>
#include <utility>

#include "platform/records/parser_memory.h"
#include "platform/records/xml_parser.h"
#include "wynconfig/error.h"

namespace wynconfig {

namespace {

constexpr std::string_view kXmlBlanks = " \t\r\n";

/// A text whose blanks and line ends are there for the eye alone.
std::string withoutLayout(std::string_view text) {
    std::string plain;
    for (std::size_t at = text.find_first_not_of(kXmlBlanks); at != std::string_view::npos;) {
        const std::size_t end = std::min(text.find_first_of(kXmlBlanks, at), text.size());
        if (!plain.empty()) plain += ' ';
        plain.append(text, at, end - at);
        at = text.find_first_not_of(kXmlBlanks, end);
    }
    return plain;
}

/// The value of an attribute; null where it is not there.
const char* attribute(std::string_view name, const char** attributes) {
    for (; *attributes; attributes += 2)
        if (attributes[0] == name) return attributes[1];
    return nullptr;
}

/// What takes the events of a pass over a file, and collects its texts.
class TextReader {
  public:
    XML_Parser parser = nullptr;
    std::vector<FileText> texts;
    std::string fault;          ///< why the pass was stopped
    std::exception_ptr raised;  ///< what ended it beside the text, such as want of memory

    void start(std::string_view name, const char** attributes) {
        if (m_open.size() == kMostOpen) return blame("its elements are nested too deeply");
        const char* const space = attribute(kSpace, attributes);
        const bool inherited = !m_open.empty() && m_open.back();
        m_open.push_back(space ? space == std::string_view("preserve") : inherited);
        if (m_open.size() == 1) return startRoot(name);
        const std::string_view own = ownName(name);
        if (m_unit == 0 && own == "trans-unit") return startUnit(attributes);
        // Proposals have sources and targets as well, one deeper.
        if (m_open.size() != m_unit + 1) return;
        if (own == "source" || own == "target") {
            m_text = m_open.size();
            m_characters.clear();
            if (own == "target") startTarget(attributes);
        }
    }
    void end() {
        // The parser still ends an empty element behind its stop.
        if (raised || !fault.empty()) return;
        if (m_text == m_open.size()) endText();
        if (m_unit == m_open.size()) endUnit();
        m_open.pop_back();
    }
    void characters(std::string_view text) {
        if (m_text != 0) m_characters.append(text);
    }
    void startNamespace() {
        if (++m_namespaces > kMostOpen) blame("it declares too many namespaces");
    }
    void endNamespace() { --m_namespaces; }

    /// Nothing behind a fault is worth reading, and may be long.
    void blame(std::string cause) {
        if (fault.empty()) fault = std::move(cause);
        XML_StopParser(parser, XML_FALSE);
    }

  private:
    void startRoot(std::string_view name) {
        for (const std::string_view version : {"1.2", "1.1"}) {
            m_namespace = "urn:oasis:names:tc:xliff:document:";
            m_namespace.append(version).append(kNamespaceEnd);
            if (ownName(name) == "xliff") return;
        }
        m_namespace.clear();
        if (ownName(name) != "xliff") blame("it is no XLIFF of version 1.2");
    }
    void startUnit(const char** attributes) {
        m_unit = m_open.size();
        const char* const key = attribute("id", attributes);
        m_hasKey = key != nullptr;
        m_text = 0;
        m_read = {key ? key : "", {}, {}};
        m_isUntranslated = false;
    }
    void startTarget(const char** attributes) {
        const char* const state = attribute("state", attributes);
        m_isTarget = true;
        m_isUntranslated = state && (state == std::string_view("new") ||
                                     state == std::string_view("needs-translation"));
    }
    void endText() {
        std::string text = m_open.back() ? m_characters : withoutLayout(m_characters);
        m_text = 0;
        if (!std::exchange(m_isTarget, false))
            m_read.source = std::move(text);
        else if (!text.empty() || !m_isUntranslated)
            m_read.target = std::move(text);
    }
    void endUnit() {
        m_unit = 0;
        if (m_hasKey) texts.push_back(std::move(m_read));
    }
    /// The name of an element of XLIFF itself; empty for those of others.
    std::string_view ownName(std::string_view name) const {
        if (!name.starts_with(m_namespace)) return {};
        name.remove_prefix(m_namespace.size());
        return name.find(kNamespaceEnd) == std::string_view::npos ? name : std::string_view{};
    }

    static constexpr std::size_t kMostOpen = 256;
    static constexpr std::string_view kSpace = "http://www.w3.org/XML/1998/namespace\fspace";

    std::vector<bool> m_open;       ///< for each open element, whether its blanks count
    std::size_t m_namespaces = 0;   ///< that are in force
    std::string m_namespace;        ///< of XLIFF, as names in it begin
    std::size_t m_unit = 0;         ///< how deep the open unit is; 0: there is none
    std::size_t m_text = 0;         ///< how deep its open source or target is; 0: there is none
    bool m_hasKey = false;          ///< of the open unit
    FileText m_read;                ///< of the open unit
    bool m_isTarget = false;        ///< of the open text
    bool m_isUntranslated = false;  ///< unless the open target has characters
    std::string m_characters;       ///< of the open text
};

/// Runs what handles an event. No exception may pass through the parser.
template <class Handling>
void handleText(void* user, const Handling& handling) {
    TextReader& reader = *static_cast<TextReader*>(user);
    try {
        handling(reader);
    } catch (...) {
        reader.raised = std::current_exception();
        XML_StopParser(reader.parser, XML_FALSE);
    }
}

void setHandlers(XML_Parser parser) {
    XML_SetElementHandler(
        parser,
        [](void* user, const char* name, const char** attributes) {
            handleText(user, [&](TextReader& reader) { reader.start(name, attributes); });
        },
        [](void* user, const char*) {
            handleText(user, [](TextReader& reader) { reader.end(); });
        });
    XML_SetCharacterDataHandler(parser, [](void* user, const char* text, int length) {
        handleText(user, [&](TextReader& reader) {
            reader.characters({text, static_cast<std::size_t>(length)});
        });
    });
    XML_SetNamespaceDeclHandler(
        parser,
        [](void* user, const char*, const char*) {
            handleText(user, [](TextReader& reader) { reader.startNamespace(); });
        },
        [](void* user, const char*) { static_cast<TextReader*>(user)->endNamespace(); });
    // Comes before the first declaration of the type, so none is read, and no entity is declared.
    XML_SetStartDoctypeDeclHandler(parser,
                                   [](void* user, const char*, const char*, const char*, int) {
                                       handleText(user, [](TextReader& reader) {
                                           reader.blame("it has a document type declaration");
                                       });
                                   });
    XML_SetXmlDeclHandler(parser, [](void* user, const char* version, const char*, int) {
        if (isReadVersion(version)) return;
        handleText(user, [](TextReader& reader) {
            reader.blame("it declares a version of XML that is not read");
        });
    });
}

[[noreturn]] void raiseBadTexts(const std::string& cause) {
    throw Error(errc::BadRecord, cause);
}

}  // namespace

std::vector<FileText> readTextFile(std::string_view xml) {
    if (xml.size() > kMaxTextFileSize) raiseBadTexts("it is too large");
    if (mayPassForUtf16(xml) && !(beginsInUtf16(xml) && hasWholeCharacters(xml)))
        raiseBadTexts("it is no whole text in UTF-16");
    XmlParser parser;
    renew(parser);
    TextReader reader;
    reader.parser = parser.get();
    XML_SetUserData(parser.get(), &reader);
    setHandlers(parser.get());
    const bool wellFormed = XML_Parse(parser.get(), xml.data(), static_cast<int>(xml.size()),
                                      XML_TRUE) == XML_STATUS_OK;
    if (hasRunOutOfMemory(parser)) throw std::bad_alloc();
    if (reader.raised) std::rethrow_exception(reader.raised);
    if (!reader.fault.empty()) raiseBadTexts(reader.fault);
    if (wellFormed) return std::move(reader.texts);
    if (parserMemory().isExceeded) raiseBadTexts("it has too many different names");
    raiseBadTexts("it is not well-formed XML (" + xmlErrorOf(parser) + ")");
}

}  // namespace wynconfig
