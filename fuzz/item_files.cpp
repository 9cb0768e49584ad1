// Reads any bytes as an item file. What is taken for a record is written and read again, equal,
// with the parser and without it.
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/records/plain_record.h"
#include "platform/records/record_xml.h"
#include "require.h"
#include "wynconfig/error.h"

namespace {

using namespace wynconfig;

std::string textOf(const RecordText& record) {
    return writeRecord(record.type, record.name, record.key, record.columns, record.rows);
}

void requireSame(const RecordText& one, const RecordText& other) {
    require(one.type == other.type && one.name == other.name && one.key == other.key);
    require(one.columns == other.columns && one.rows == other.rows);
}

/// What the parser makes of a text, which it has to look at behind a byte order mark.
RecordText parsed(std::string_view xml) {
    return readRecord("\xEF\xBB\xBF" + std::string(xml), XmlSource::File);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    RecordText record;
    try {
        record = readRecord(bytes, XmlSource::File);
    } catch (const Error& error) {
        require(error.number() == errc::BadRecord && !error.description().empty());
        return 0;
    }
    RecordText plain;
    if (readPlainRecord(bytes, plain)) requireSame(plain, parsed(bytes));
    const std::string text = textOf(record);
    const RecordText again = readRecord(text, XmlSource::File);
    requireSame(again, record);
    requireSame(parsed(text), record);
    require(textOf(again) == text);
    return 0;
}
