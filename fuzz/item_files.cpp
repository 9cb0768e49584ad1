// Reads any bytes as an item file. What is taken for a record is written and read again, equal.
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/records/record_xml.h"
#include "require.h"
#include "wynconfig/error.h"

namespace {

using namespace wynconfig;

std::string written(const RecordText& record) {
    return writeRecord(record.type, record.name, record.key, record.columns, record.rows);
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
    const std::string text = written(record);
    const RecordText again = readRecord(text, XmlSource::File);
    require(again.type == record.type && again.name == record.name && again.key == record.key);
    require(again.columns == record.columns && again.rows == record.rows);
    require(written(again) == text);
    return 0;
}
