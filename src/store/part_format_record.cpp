// The table of a part format's keys.
#include "store/part_format_record.h"

namespace wynconfig::partformat {

const std::array<Key, 21>& keys() {
    static const std::array<Key, 21> table{{
        {kHeader, Kind::Template, ""},
        {kRecord, Kind::Template, ""},
        {kSeparator, Kind::Template, ""},
        {kTrailer, Kind::Template, ""},
        {kPart.flag, Kind::Flag, words::kFalse},
        {kPart.length, Kind::Length, "20"},
        {kPart.alignment, Kind::Alignment, words::kRight},
        {kPart.pad, Kind::Pad, ""},
        {kQty.flag, Kind::Flag, words::kFalse},
        {kQty.length, Kind::Length, "20"},
        {kQty.alignment, Kind::Alignment, words::kRight},
        {kQty.pad, Kind::Pad, ""},
        {kDesc.flag, Kind::Flag, words::kFalse},
        {kDesc.length, Kind::Length, "34"},
        {kDesc.alignment, Kind::Alignment, words::kRight},
        {kDesc.pad, Kind::Pad, ""},
        {kVin.flag, Kind::Flag, words::kFalse},
        {kVin.length, Kind::Length, "17"},
        {kVin.alignment, Kind::Alignment, words::kRight},
        {kVin.pad, Kind::Pad, ""},
        {kMaxRecords, Kind::Limit, ""},
    }};
    return table;
}

}  // namespace wynconfig::partformat
