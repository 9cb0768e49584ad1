/// @file
/// Where typed letters lead in a list of rows: the same in every view.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "wynconfig/export.h"

namespace wynconfig {

/// Letters that follow each other quickly are the beginning of a row's text. One letter typed again
/// and again goes through the rows that begin with it. Case makes no difference.
class WYNCONFIG_API TypeAhead {
  public:
    /// The text of a row by its number from 1.
    using RowText = std::function<std::string_view(std::size_t)>;

    /// One more letter was typed.
    /// @param letter   one character, UTF-8
    /// @param count    how many rows there are
    /// @param textOf   gives the text of each
    /// @param current  number of the selected row, 0 for none
    /// @return number of the row that this leads to; 0: there is none
    std::size_t next(std::string_view letter, std::size_t count, const RowText& textOf,
                     std::size_t current);
    /// The person paused: what is typed next begins anew.
    void forget() { m_typed.clear(); }
    /// Whether a beginning stands there already. A blank is a letter only then; before that it is
    /// the space bar.
    bool begun() const { return !m_typed.empty(); }

  private:
    std::string m_typed;
};

}  // namespace wynconfig
