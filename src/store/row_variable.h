// The row variable of a block of reads, by which an absent key takes the value before it.
#pragma once

#include <optional>
#include <string>

#include "wynconfig/dataset.h"
#include "wynconfig/error.h"

namespace wynconfig {

/// Holds the row that was read last. Reading an absent key fails and leaves the row as it was, so
/// that the next look at the data finds that of the key before.
class RowVariable {
  public:
    /// Raises errc::NoSuchKey when the key is absent.
    void read(const Dataset& record, const std::string& key) { m_row = record.GetRow(key); }

    /// Whether no read has succeeded yet.
    bool isEmpty() const { return !m_row; }
    /// Element 1 of the row. Raises errc::SubscriptRange while no read has succeeded.
    const std::string& data() const {
        if (!m_row) throw Error(errc::SubscriptRange, "No row has been read.");
        return (*m_row)[1];
    }

  private:
    std::optional<DataRow> m_row;
};

}  // namespace wynconfig
