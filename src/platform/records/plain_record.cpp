// Whatever is in the least unusual is left to the parser: a text is taken only where nothing in it
// can mean anything but itself.
#include "platform/records/plain_record.h"

#include <array>
#include <string>

#include "platform/text/text.h"

namespace wynconfig {

namespace {

/// Bytes that mean themselves wherever they stand in a text.
constexpr std::array<bool, 256> kPlain = [] {
    std::array<bool, 256> plain{};
    for (std::size_t byte = ' '; byte < 0x80; ++byte) plain[byte] = true;
    for (const char each : {'&', '<', '>', '"', '_'})
        plain[static_cast<unsigned char>(each)] = false;
    return plain;
}();

/// Goes through the text from its start.
class PlainText {
  public:
    explicit PlainText(std::string_view xml) : m_xml(xml) {}

    /// Moves behind what is given, where it comes next.
    bool skip(std::string_view mark) {
        if (!m_xml.substr(m_at).starts_with(mark)) return false;
        m_at += mark.size();
        return true;
    }
    /// Moves to the end of an attribute's value. @return false where it is not plain
    bool value(std::string_view& text) { return moveTo('"', text); }
    /// Moves to the end of an element's characters. @return false where they are not plain
    bool characters(std::string_view& text) { return moveTo('<', text); }
    bool atEnd() const { return m_at == m_xml.size(); }

  private:
    bool moveTo(char end, std::string_view& text) {
        const std::size_t from = m_at;
        while (m_at < m_xml.size()) {
            const char byte = m_xml[m_at];
            if (kPlain[static_cast<unsigned char>(byte)]) {
                ++m_at;
            } else if (byte == end) {
                text = m_xml.substr(from, m_at - from);
                return true;
            } else if (!passUnusual(byte, end == '<')) {
                return false;
            }
        }
        return false;
    }
    /// Moves behind a character that means itself only at times.
    bool passUnusual(char byte, bool inElement) {
        if (static_cast<unsigned char>(byte) >= 0x80) {
            const Character character = characterAt(m_xml, m_at);
            if (character.code < 0 || character.code == 0xFFFE || character.code == 0xFFFF)
                return false;
            m_at += character.length;
            return true;
        }
        const bool isItself = byte == '_'
                                  ? !m_xml.substr(m_at + 1).starts_with('x')
                                  : inElement && (byte == '"' || byte == '\n' || byte == '\t');
        if (isItself) ++m_at;
        return isItself;
    }

    std::string_view m_xml;
    std::size_t m_at = 0;
};

bool readHead(PlainText& text, RecordText& record) {
    std::string_view type;
    std::string_view name;
    std::string_view key;
    if (!text.skip(written::kType) || !text.value(type) || !text.skip(written::kName) ||
        !text.value(name) || !text.skip(written::kKey) || !text.value(key) ||
        !text.skip(written::kOpen))
        return false;
    record.type = type;
    record.name = name;
    record.key = key;
    for (std::string& column : record.columns) {
        std::string_view told;
        if (!text.skip(written::kColumn) || !text.characters(told) ||
            !text.skip(written::kColumnEnd))
            return false;
        column = told;
    }
    return true;
}

bool readRow(PlainText& text, RecordText& record) {
    std::string_view key;
    if (!text.value(key)) return false;
    std::string* const data = record.add(key);
    if (!data) return false;
    if (text.skip(written::kEmptyRowEnd)) return true;
    std::string_view told;
    if (!text.skip(written::kData) || !text.characters(told) || !text.skip(written::kRowEnd))
        return false;
    *data = told;
    return true;
}

}  // namespace

bool readPlainRecord(std::string_view xml, RecordText& record) {
    PlainText text(xml);
    if (xml.size() > kMaxItemSize || !readHead(text, record)) return false;
    while (text.skip(written::kRow))
        if (!readRow(text, record)) return false;
    return text.skip(written::kEnd) && text.atEnd();
}

}  // namespace wynconfig
