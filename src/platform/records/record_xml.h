// The stored form of a record: XML text, readable by a person, described in docs/dataset.xsd.
#pragma once

#include <list>
#include <string>
#include <string_view>
#include <vector>

#include "wynconfig/dataset.h"

namespace wynconfig {

/// What the stored form of a record carries.
struct RecordText {
    std::string type;
    std::string name;
    std::string key;
    std::vector<std::string> columns;
    std::list<DataRow> rows;
};

/// How text is to be read.
enum class XmlSource {
    File,   ///< in the encoding of its byte order mark, else in the one that it declares, or UTF-8
    Memory  ///< UTF-8, whatever it declares
};

/// Reads a record. Raises `Error` (errc::BadRecord) with the cause, when the text is not
/// well-formed, goes beyond the bounds of `isWellFormed`, has a document type declaration, or is no
/// record. Attributes and elements that this version does not know are read over.
RecordText readRecord(std::string_view xml, XmlSource source);

/// Whether text is well-formed XML within these bounds: it has no more than kMaxItemSize bytes, its
/// elements are nested no more than 256 deep, with no more than 256 namespaces in force, and their
/// names and those of their attributes take no more than some 16 KiB, each counted once. No entity
/// is expanded and nothing is fetched.
bool isWellFormed(std::string_view xml);

/// Writes a record. Any text can be read back: `_xHHHH_` stands for a character that XML has no
/// room for, and `_xDC80_` to `_xDCFF_` for a byte that is no UTF-8. Raises `Error`
/// (errc::InvalidCall) when the text would have more than kMaxItemSize bytes.
std::string writeRecord(std::string_view type, std::string_view name, std::string_view key,
                        const std::array<std::string, 2>& columns, const std::list<DataRow>& rows);

}  // namespace wynconfig
