// The table of a part format's keys.
#include "store/part_format_record.h"

namespace wynconfig::partformat {

const std::array<Key, 21>& keys() {
    static const std::array<Key, 21> table{{
        {"Header", Kind::Template, ""},
        {"Record", Kind::Template, ""},
        {"Separator", Kind::Template, ""},
        {"Trailer", Kind::Template, ""},
        {"FormatPartNumber", Kind::Flag, "false"},
        {"PartFieldLength", Kind::Length, "20"},
        {"PartAlignment", Kind::Alignment, "right"},
        {"PartPadCharacter", Kind::Pad, ""},
        {"FormatQty", Kind::Flag, "false"},
        {"QtyFieldLength", Kind::Length, "20"},
        {"QtyAlignment", Kind::Alignment, "right"},
        {"QtyPadCharacter", Kind::Pad, ""},
        {"FormatDesc", Kind::Flag, "false"},
        {"DescFieldLength", Kind::Length, "34"},
        {"DescAlignment", Kind::Alignment, "right"},
        {"DescPadCharacter", Kind::Pad, ""},
        {"FormatVIN", Kind::Flag, "false"},
        {"VINFieldLength", Kind::Length, "17"},
        {"VINAlignment", Kind::Alignment, "right"},
        {"VINPadCharacter", Kind::Pad, ""},
        {"MaxRecords", Kind::Limit, ""},
    }};
    return table;
}

}  // namespace wynconfig::partformat
