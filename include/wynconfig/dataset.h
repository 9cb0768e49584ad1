/// @file
/// The record store: a keyed table of rows of two texts that goes to and from files and XML text.
#pragma once

#include <array>
#include <list>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "wynconfig/export.h"
#include "wynconfig/item_path.h"

namespace wynconfig {

/// A row: its `Element`, which is the key, and its `Data`.
using DataRow = std::array<std::string, 2>;

/// An XML document in memory, between a `Dataset` and the text that a host keeps.
class WYNCONFIG_API Document {
  public:
    /// Whether `loadXML` may return before it is done. It never does; the value is only kept.
    bool async() const { return m_async; }
    /// Keeps the value, which changes nothing.
    void setAsync(bool async) { m_async = async; }

    /// Takes XML text, UTF-8 (whatever encoding it declares). Whether it is a record shows when a
    /// `Dataset` loads it.
    /// @return false when the text is not well-formed, has a document type declaration, is larger
    ///         than kMaxItemSize, nested more than 256 deep, or of more than 256 namespaces or some
    ///         ten thousand different names; the document is empty then
    bool loadXML(const std::string& text);

    /// The document's text; empty for a fresh document.
    const std::string& xml() const { return m_xml; }

  private:
    friend class Dataset;
    bool m_async = true;
    std::string m_xml;
};

/// A record: a type, a name, a folder and rows with unique keys. Rows keep their order, though
/// nothing depends on it. Nothing touches a file but `Load` and `Save` with a path. All failures
/// raise `Error`; a failed `Load` leaves the object as it was, a failed `Save` the old file.
///
/// All texts, paths too, are UTF-8. Text may hold anything: bytes that XML has no room for are
/// written as `_xHHHH_`. Whatever can be saved can be loaded again, by a file and by a document.
class WYNCONFIG_API Dataset {
  public:
    /// An empty record without type and name, with the usual columns, "Element" and "Data".
    Dataset();
    Dataset(const Dataset&) = delete;
    Dataset& operator=(const Dataset&) = delete;

    /// Makes this an empty record.
    /// @param typeName  "MORAM" or "PARTFORMAT", see session::kType and partformat::kType
    /// @param name      of the session or part format
    /// @param folder    where the host means it to lie; kept, but neither stored nor used by `Save`
    /// @param columns   names of the two columns, see session::kColumns; the first one is the key
    void Create(const std::string& typeName, const std::string& name, const std::string& folder,
                const std::array<std::string, 2>& columns);
    /// Declares the key column, which is stored. Rows are found by their first text all the same.
    /// Raises errc::InvalidCall for a name that is none of the columns.
    /// @param column  name of one of the columns
    /// @param kind    of the key; there is one kind, unique texts, whatever the number
    void SetKey(const std::string& column, long kind = 3);

    /// "MORAM" of a session, "PARTFORMAT" of a part format; empty of a record that is none yet.
    const std::string& Type() const { return m_type; }
    /// The name in the record, which need not be that of its file.
    const std::string& Name() const { return m_name; }
    /// Gives the record another name. A file keeps its own.
    void setName(std::string name) { m_name = std::move(name); }
    /// What `Create` or `setFolder` was given; `Load` leaves it as it is.
    const std::string& Folder() const { return m_folder; }
    /// Keeps a folder with the object.
    void setFolder(std::string folder) { m_folder = std::move(folder); }

    /// Appends a row. Raises errc::DuplicateKey when its key is present.
    void AddRow(const DataRow& row);
    /// Removes all rows; type, name and columns stay.
    void ClearRows();
    /// Removes a row. Raises errc::NoSuchKey when the key is absent.
    void DeleteRow(const std::string& key);
    /// A copy of the row. Raises errc::NoSuchKey when the key is absent.
    DataRow GetRow(const std::string& key) const;
    /// Replaces the row of `keyRow`'s key by `newRow`. Raises errc::NoSuchKey when that key is
    /// absent, errc::DuplicateKey when the new row's key is that of another row.
    void UpdateRow(const DataRow& keyRow, const DataRow& newRow);
    /// All rows in their order.
    const std::list<DataRow>& Rows() const { return m_rows; }

    /// Replaces the whole content by the record in a file. Raises errc::FileNotFound,
    /// errc::FileAccess, or errc::BadRecord when the file holds no record.
    /// @param path    UTF-8
    /// @param option  without a meaning; callers give 0
    void Load(const std::string& path, long option = 0);
    /// The same, from a folder and a name that can't lead out of it.
    void Load(const ItemPath& path, long option = 0);
    /// Replaces the whole content by the record in a document; raises errc::BadRecord when its text
    /// is no record, the empty text of a fresh document included.
    void Load(const Document& document, long option = 0);

    /// Writes the whole record to a file; the file is at all times wholly the old or the new one.
    /// Raises errc::FileAccess, or errc::InvalidCall when its text would be larger than
    /// kMaxItemSize.
    /// @param path  UTF-8; its folder must be there
    void Save(const std::string& path) const;
    /// The same, to a folder and a name that can't lead out of it.
    void Save(const ItemPath& path) const;
    /// Replaces the document's content by this record. Raises errc::InvalidCall when its text would
    /// be larger than kMaxItemSize; the document then stays as it was.
    void Save(Document& document) const;

  private:
    struct Content;
    void take(Content content);
    std::string text() const;

    std::string m_type;
    std::string m_name;
    std::string m_folder;
    std::array<std::string, 2> m_columns;
    std::string m_key;
    std::list<DataRow> m_rows;
    std::unordered_map<std::string_view, std::list<DataRow>::iterator> m_index;
};

}  // namespace wynconfig
