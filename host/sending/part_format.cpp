// Reading a part format's record.
#include "part_format.h"

#include <limits>

#include "record_reader.h"

namespace host {

namespace {

/// A field longer than a page is wide; it bounds what a mistyped length can ask for.
constexpr long kLongestField = 10000;

FieldLayout readField(const wynconfig::Dataset& record, const std::string& flag,
                      const std::string& prefix) {
    FieldLayout layout;
    layout.on = storedText(record, flag, "false") != "false";
    layout.length = storedText(record, prefix + "FieldLength");
    layout.right = storedText(record, prefix + "Alignment", "right") == "right";
    layout.pad = storedText(record, prefix + "PadCharacter");
    return layout;
}

}  // namespace

PartFormat readPartFormat(const wynconfig::Dataset& record) {
    PartFormat format;
    format.name = record.Name();
    format.header = storedText(record, "Header");
    format.record = storedText(record, "Record");
    format.separator = storedText(record, "Separator");
    format.trailer = storedText(record, "Trailer");
    format.part = readField(record, "FormatPartNumber", "Part");
    format.quantity = readField(record, "FormatQty", "Qty");
    format.description = readField(record, "FormatDesc", "Desc");
    format.vin = readField(record, "FormatVIN", "VIN");
    format.maxRecords = storedText(record, "MaxRecords");
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
    const auto field = [&](const FieldLayout& layout, const char* values) {
        if (layout.on && !fieldLength(layout))
            remarks.push_back(format.name + ": the field length \"" + layout.length +
                              "\" is no number from 1 up, so " + values + " go over as they are.");
    };
    field(format.part, "part numbers");
    field(format.quantity, "quantities");
    field(format.description, "descriptions");
    field(format.vin, "VINs");
    if (!recordLimit(format))
        remarks.push_back(format.name + ": the maximum of records \"" + format.maxRecords +
                          "\" is no number from 1 up, so there is no limit.");
    return remarks;
}

}  // namespace host
