/// @file
/// The record store: a keyed table of rows of two texts that goes to and from files and XML text.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "wynconfig/export.h"
#include "wynconfig/item_path.h"

namespace wynconfig {

struct RecordText;

/// A row: its `Element`, which is the key, and its `Data`.
using DataRow = std::array<std::string, 2>;

/// The rows of a record in their order, each key once. References and iterators into them hold
/// until the record changes; a copy is independent of it.
class DataRows {
    struct Slot;

  public:
    /// Goes through the rows in both directions.
    class const_iterator {
      public:
        using iterator_category = std::bidirectional_iterator_tag;  ///< as the standard asks
        using value_type = DataRow;                                 ///< a row
        using difference_type = std::ptrdiff_t;                     ///< as the standard asks
        using pointer = const DataRow*;                             ///< to a row
        using reference = const DataRow&;                           ///< to a row

        /// Refers to no row.
        const_iterator() = default;
        /// The row.
        reference operator*() const { return (*m_slots)[m_slot].row; }
        /// The row's members.
        pointer operator->() const { return &**this; }
        /// Goes to the next row.
        const_iterator& operator++() {
            m_slot = (*m_slots)[m_slot].next;
            return *this;
        }
        /// Goes to the next row, and gives what it was.
        const_iterator operator++(int) {
            const const_iterator was = *this;
            ++*this;
            return was;
        }
        /// Goes to the row before.
        const_iterator& operator--() {
            m_slot = (*m_slots)[m_slot].previous;
            return *this;
        }
        /// Goes to the row before, and gives what it was.
        const_iterator operator--(int) {
            const const_iterator was = *this;
            --*this;
            return was;
        }
        /// Whether two of the same rows are at the same place.
        bool operator==(const const_iterator& other) const { return m_slot == other.m_slot; }

      private:
        friend class DataRows;
        const_iterator(const std::vector<Slot>& all, std::uint32_t slot)
            : m_slots(&all), m_slot(slot) {}

        const std::vector<Slot>* m_slots = nullptr;
        std::uint32_t m_slot = 0;
    };
    using value_type = DataRow;       ///< a row
    using iterator = const_iterator;  ///< rows are changed by their record alone

    /// No rows.
    DataRows() = default;
    DataRows(const DataRows&) = default;             ///< a copy of all rows
    DataRows& operator=(const DataRows&) = default;  ///< a copy of all rows
    /// Takes the rows, and leaves none.
    DataRows(DataRows&& other) noexcept { swap(other); }
    /// Takes the rows, and leaves none.
    DataRows& operator=(DataRows&& other) noexcept {
        DataRows taken(std::move(other));
        swap(taken);
        return *this;
    }
    ~DataRows() = default;

    /// How many rows there are.
    std::size_t size() const { return m_size; }
    /// Whether there is none.
    bool empty() const { return m_size == 0; }
    /// At the first row.
    const_iterator begin() const { return {m_slots, m_slots.empty() ? 0 : m_slots[0].next}; }
    /// Behind the last row.
    const_iterator end() const { return {m_slots, 0}; }
    /// The first row, of those that are not empty.
    const DataRow& front() const { return *begin(); }
    /// The last row, of those that are not empty.
    const DataRow& back() const { return *std::prev(end()); }
    /// Whether both have the same rows in the same order.
    bool operator==(const DataRows& other) const {
        return std::equal(begin(), end(), other.begin(), other.end());
    }

  private:
    friend class Dataset;
    friend struct RecordText;

    /// Stands for the neighbour of a slot that is free.
    static constexpr std::uint32_t kNoSlot = 0xFFFFFFFF;

    /// A row and the slots of its neighbours. The neighbours of slot 0, which has no row, are the
    /// last and the first one. A slot that is free has an empty row, and tells the next free one.
    struct Slot {
        DataRow row;
        std::uint32_t previous = kNoSlot;
        std::uint32_t next = 0;
    };

    /// @return the hash of a key; 0 while no row is found by it
    std::uint32_t hashOf(std::string_view key) const;
    /// @return the slot of the row of a key, whose hash is given; 0 for none
    std::uint32_t slotOf(std::string_view key, std::uint32_t hash) const;
    /// @return the key's row; null for none
    const DataRow* find(std::string_view key) const;
    /// Appends a row without data. @return its data; null when its key is present
    std::string* add(std::string_view key);
    /// Removes the row of a key. @return false when there is none
    bool remove(std::string_view key);
    /// Replaces the row of a key, which is there, by one whose key no other row has.
    void replace(std::string_view key, DataRow row);
    void clear();
    void makeRoom();
    void swap(DataRows& other) noexcept {
        m_slots.swap(other.m_slots);
        m_index.swap(other.m_index);
        std::swap(m_free, other.m_free);
        std::swap(m_size, other.m_size);
    }

    std::vector<Slot> m_slots;           ///< empty until there was a row
    std::vector<std::uint64_t> m_index;  ///< of the keys; empty while the rows are few
    std::uint32_t m_free = 0;            ///< a slot that is free; 0 for none
    std::size_t m_size = 0;
};

/// An XML document in memory, between a `Dataset` and the text that a host keeps.
class WYNCONFIG_API Document {
  public:
    /// Whether `loadXML` may return before it is done. It never does; the value is only kept.
    bool async() const { return m_async; }
    /// Keeps the value, which changes nothing.
    void setAsync(bool async) { m_async = async; }

    /// Takes XML text, UTF-8 (whatever encoding it declares). Whether it is a record shows when a
    /// `Dataset` loads it.
    /// A document type that declares anything ends the reading: the text is taken unread from there
    /// on, and is no record.
    /// @return false when the text is not well-formed, larger than kMaxItemSize, nested more than
    ///         256 deep, or of more than 256 namespaces or some ten thousand different names; the
    ///         document is empty then
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
    const DataRows& Rows() const { return m_rows; }

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
    void take(RecordText record) noexcept;
    std::string text() const;

    std::string m_type;
    std::string m_name;
    std::string m_folder;
    std::array<std::string, 2> m_columns;
    std::string m_key;
    DataRows m_rows;
};

}  // namespace wynconfig
