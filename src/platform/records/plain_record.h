// Records in the very form in which they are written, which needs no parser.
#pragma once

#include <string_view>

#include "platform/records/record_xml.h"

namespace wynconfig {

/// What stands between the texts of a written record, byte for byte.
namespace written {
inline constexpr std::string_view kType =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<dataset version=\"1\" type=\"";
inline constexpr std::string_view kName = "\" name=\"";
inline constexpr std::string_view kKey = "\" key=\"";
inline constexpr std::string_view kOpen = "\">\n";
inline constexpr std::string_view kColumn = "  <column>";
inline constexpr std::string_view kColumnEnd = "</column>\n";
inline constexpr std::string_view kRow = "  <row key=\"";
inline constexpr std::string_view kEmptyRowEnd = "\"/>\n";
inline constexpr std::string_view kData = "\">";
inline constexpr std::string_view kRowEnd = "</row>\n";
inline constexpr std::string_view kEnd = "</dataset>\n";
}  // namespace written

/// Reads a record that stands as it is written, in UTF-8, and whose texts stand for themselves:
/// without escapes, and without a character that would need one. It is what the parser makes of it.
/// @param record  as it is made; when nothing comes of it, it may have some of what the text says
/// @return false where the text is another one, which may still be a record, or a wrong one
bool readPlainRecord(std::string_view xml, RecordText& record);

}  // namespace wynconfig
