// Which rows of a list are shown while a person looks for some: the same in every view.
#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "wynconfig/controls.h"
#include "wynconfig/type_ahead.h"

namespace wynconfig {

/// A list of so many rows is seen at a glance; above a longer one stands a line that looks for
/// some.
inline constexpr std::size_t kShortList = 20;

/// All rows of a list, or those that were found and those that were revealed. Rows go by their
/// numbers in the whole list, from 1, whatever is shown of it; places count what is shown, from 0.
class ShownRows {
  public:
    void showAll(std::size_t total) {
        m_total = total;
        m_isFiltered = false;
        m_numbers.clear();
    }
    /// @param isFound  is asked for each number
    template <class IsFound>
    void showFound(std::size_t total, const IsFound& isFound) {
        showAll(total);
        m_isFiltered = true;
        for (std::size_t number = 1; number <= total; ++number) {
            if (isFound(number)) m_numbers.push_back(number);
        }
    }

    /// How many rows there are, shown or not.
    std::size_t total() const { return m_total; }
    int count() const { return static_cast<int>(m_isFiltered ? m_numbers.size() : m_total); }
    bool isFiltered() const { return m_isFiltered; }
    /// Where a row is shown; -1 where it is not.
    int placeOf(std::size_t number) const {
        if (number == 0 || number > m_total) return -1;
        if (!m_isFiltered) return static_cast<int>(number) - 1;
        const int place = placeBefore(number);
        return numberAt(place) == number ? place : -1;
    }
    /// The row that is shown there; 0: none.
    std::size_t numberAt(int place) const {
        if (place < 0 || place >= count()) return 0;
        const auto at = static_cast<std::size_t>(place);
        return m_isFiltered ? m_numbers[at] : at + 1;
    }
    /// Where `reveal` puts a row; -1 where that has nothing to do.
    int placeToReveal(std::size_t number) const {
        const bool isHidden = number > 0 && number <= m_total && placeOf(number) < 0;
        return isHidden ? placeBefore(number) : -1;
    }
    /// Shows a row that was not found as well.
    void reveal(std::size_t number) {
        const int place = placeToReveal(number);
        if (place >= 0) m_numbers.insert(m_numbers.begin() + place, number);
    }

  private:
    int placeBefore(std::size_t number) const {
        const auto at = std::lower_bound(m_numbers.begin(), m_numbers.end(), number);
        return static_cast<int>(at - m_numbers.begin());
    }

    std::size_t m_total = 0;
    bool m_isFiltered = false;
    std::vector<std::size_t> m_numbers;  ///< in ascending order, where some are shown
};

/// One more letter was typed in a list of which some rows are shown: letters find those alone.
/// @param selected  number of the selected row; 0: none
/// @return number of the row that this leads to; 0: there is none
inline std::size_t rowAmongShown(const ShownRows& shown, const ListView& list, TypeAhead& ahead,
                                 const std::string& letter, std::size_t selected) {
    const auto numberOf = [&](std::size_t row) {
        return shown.numberAt(static_cast<int>(row) - 1);
    };
    const auto textOf = [&](std::size_t row) -> std::string_view {
        return list.rows()[numberOf(row) - 1].text;
    };
    const auto current = static_cast<std::size_t>(shown.placeOf(selected) + 1);
    const auto count = static_cast<std::size_t>(shown.count());
    return numberOf(ahead.next(letter, count, textOf, current));
}

}  // namespace wynconfig
