// The rows of part format records, in the order in which they are stored.
#pragma once

#include "support/rows.h"

namespace wynconfig {

/// No value of these is that of a new part format.
inline const Stored kOwnFormat{{"Header", "<PageHeader><TAB>"},
                               {"Record", "<Part #>;<Quantity>"},
                               {"Separator", "<CR><LF>"},
                               {"Trailer", "<PageFooter>"},
                               {"FormatPartNumber", "true"},
                               {"PartFieldLength", "11"},
                               {"PartAlignment", "left"},
                               {"PartPadCharacter", "p"},
                               {"FormatQty", "true"},
                               {"QtyFieldLength", "12"},
                               {"QtyAlignment", "left"},
                               {"QtyPadCharacter", "q"},
                               {"FormatDesc", "true"},
                               {"DescFieldLength", "13"},
                               {"DescAlignment", "left"},
                               {"DescPadCharacter", "d"},
                               {"FormatVIN", "true"},
                               {"VINFieldLength", "14"},
                               {"VINAlignment", "left"},
                               {"VINPadCharacter", "5"},
                               {"MaxRecords", "99"}};

/// What a new part format shows and stores.
inline const Stored kFirstFormat{{"Header", ""},
                                 {"Record", ""},
                                 {"Separator", ""},
                                 {"Trailer", ""},
                                 {"FormatPartNumber", "false"},
                                 {"PartFieldLength", "20"},
                                 {"PartAlignment", "right"},
                                 {"PartPadCharacter", ""},
                                 {"FormatQty", "false"},
                                 {"QtyFieldLength", "20"},
                                 {"QtyAlignment", "right"},
                                 {"QtyPadCharacter", ""},
                                 {"FormatDesc", "false"},
                                 {"DescFieldLength", "34"},
                                 {"DescAlignment", "right"},
                                 {"DescPadCharacter", ""},
                                 {"FormatVIN", "false"},
                                 {"VINFieldLength", "17"},
                                 {"VINAlignment", "right"},
                                 {"VINPadCharacter", ""},
                                 {"MaxRecords", ""}};

}  // namespace wynconfig
