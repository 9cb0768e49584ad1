// Letters that a person types into a list or a combo box.
#pragma once

#include <string>

#include "views/win32/winapi.h"
#include "wynconfig/type_ahead.h"

namespace wynconfig::native {

class Typing {
  public:
    /// Takes a unit of UTF-16 as it was typed, unless it has another use.
    /// @param letter  gets the character, UTF-8; empty as long as half of it is yet to come
    bool take(wchar_t unit, std::string& letter);
    /// What was typed so far.
    TypeAhead& ahead() { return m_ahead; }
    /// What is typed next begins anew.
    void stop();

  private:
    TypeAhead m_ahead;
    ULONGLONG m_last = 0;  ///< when the last letter was typed, in milliseconds
    wchar_t m_half = 0;    ///< the first half of a character
};

}  // namespace wynconfig::native
