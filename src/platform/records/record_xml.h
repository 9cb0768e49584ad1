// The stored form of a record: XML text, readable by a person, described in docs/dataset.xsd.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <utility>

#include "wynconfig/dataset.h"

namespace wynconfig {

/// What the stored form of a record carries. Columns that it does not tell are the usual ones.
struct RecordText {
    std::string type;
    std::string name;
    std::string key = "Element";
    std::array<std::string, 2> columns{"Element", "Data"};
    DataRows rows;

    /// Adds a row. @return its data, until the next one; null when its key is there already
    std::string* add(std::string_view rowKey) { return rows.add(rowKey); }
};

/// How text is to be read.
enum class XmlSource {
    /// In the encoding of its byte order mark, else in the one that it declares, or UTF-8. Read are
    /// UTF-8, UTF-16, US-ASCII, and those of the families ISO-8859 and windows-125x.
    File,
    /// UTF-8, whatever it declares.
    Memory
};

/// Reads a record. Raises `Error` (errc::BadRecord) with the cause, when the text is not
/// well-formed in the sense of `isWellFormed`, is in an encoding that is not read, or is no record.
/// Attributes and elements that this version does not know are read over.
RecordText readRecord(std::string_view xml, XmlSource source);

/// Whether text is well-formed XML with namespaces, up to the first declaration of a document type,
/// and within these bounds: it has no more than kMaxItemSize bytes, its elements are nested no more
/// than 256 deep, with no more than 256 namespaces in force, and they and their attributes have no
/// more than some ten thousand different names. No entity is expanded and nothing is fetched. Any
/// text is read or refused in a time in proportion to its size.
bool isWellFormed(std::string_view xml);

/// Writes a record. Any text can be read back: `_xHHHH_` stands for a character that XML has no
/// room for, and `_xDC80_` to `_xDCFF_` for a byte that is no UTF-8. Raises `Error`
/// (errc::InvalidCall) when the text would have more than kMaxItemSize bytes.
std::string writeRecord(std::string_view type, std::string_view name, std::string_view key,
                        const std::array<std::string, 2>& columns, const DataRows& rows);

}  // namespace wynconfig
