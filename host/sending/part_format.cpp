// Reading a part format's record.
#include "sending/part_format.h"

#include <limits>

#include "sending/record_reader.h"
#include "texts/phrase.h"
#include "wynconfig/keys.h"

namespace host {

namespace partformat = wynconfig::partformat;
namespace words = wynconfig::words;

namespace {

/// A field longer than a page is wide; it bounds what a mistyped length can ask for.
constexpr long kLongestField = 10000;

FieldLayout readField(const wynconfig::Dataset& record, const partformat::FieldKeys& keys) {
    FieldLayout layout;
    layout.on = storedText(record, keys.flag, words::kFalse) != words::kFalse;
    layout.length = storedText(record, keys.length);
    layout.right = storedText(record, keys.alignment, words::kRight) == words::kRight;
    layout.pad = storedText(record, keys.pad);
    return layout;
}

}  // namespace

PartFormat readPartFormat(const wynconfig::Dataset& record) {
    PartFormat format;
    format.name = record.Name();
    format.header = storedText(record, partformat::kHeader);
    format.record = storedText(record, partformat::kRecord);
    format.separator = storedText(record, partformat::kSeparator);
    format.trailer = storedText(record, partformat::kTrailer);
    format.part = readField(record, partformat::kPart);
    format.quantity = readField(record, partformat::kQty);
    format.description = readField(record, partformat::kDesc);
    format.vin = readField(record, partformat::kVin);
    format.maxRecords = storedText(record, partformat::kMaxRecords);
    return format;
}

std::optional<long> fieldLength(const FieldLayout& layout) {
    return layout.on ? storedCount(layout.length, kLongestField) : std::nullopt;
}

std::optional<long> recordLimit(const PartFormat& format) {
    return storedCount(format.maxRecords, std::numeric_limits<int>::max());
}

std::vector<std::string> remarksOn(const PartFormat& format) {
    std::vector<std::string> remarks;
    const auto field = [&](const FieldLayout& layout, const char* remark) {
        if (layout.on && !fieldLength(layout))
            remarks.push_back(phrase(remark, {format.name, layout.length}));
    };
    field(format.part, "REMARK_FIELD_PART");
    field(format.quantity, "REMARK_FIELD_QUANTITY");
    field(format.description, "REMARK_FIELD_DESCRIPTION");
    field(format.vin, "REMARK_FIELD_VIN");
    if (!recordLimit(format))
        remarks.push_back(phrase("REMARK_MAXIMUM", {format.name, format.maxRecords}));
    return remarks;
}

}  // namespace host
