// What stands above the rows of a long list, and in place of those of an empty one.
#pragma once

#include <string>

#include "views/win32/arranging.h"
#include "views/win32/winapi.h"

namespace wynconfig::native {

/// A line above a list of many rows: what is typed there is what the rows are to contain that the
/// list shows. It is no place of the Tab key. Its parent hears of it by WM_COMMAND, as of any box.
class FilterLine {
  public:
    FilterLine(HWND parent, bool mirrored);

    HWND window() const { return m_window; }
    std::wstring text() const;
    void clear() const;
    bool hasFocus() const { return ::GetFocus() == m_window; }
    /// Whether the list has a use for it, be it seen or not.
    bool isUp() const { return m_isUp; }
    /// Whether a person can type there now.
    bool isInReach() const;

    /// Comes up or goes.
    /// @param seen  whether what is around it is seen
    /// @param rows  what the list is called; may be empty
    void show(bool up, bool seen, const std::wstring& rows);
    /// Takes the uppermost part of a list's place.
    void place(const Place& list, int height) const;
    void setFont(HFONT font) const;
    void setEnabled(bool enabled) const;
    /// Takes the focus, with its text selected.
    void begin() const;
    void selectAll() const;

  private:
    HWND m_window;
    bool m_isUp = false;
};

/// Says that a list has no row to show, and what comes next. It lies on the list, or stands in its
/// place where the form hides the list.
class EmptyNote {
  public:
    explicit EmptyNote(HWND list);

    /// @param words        empty: it goes
    /// @param isListThere  whether the form shows the list
    /// @param seen         whether what is around the list is seen
    void show(const std::wstring& words, bool isListThere, bool seen);
    /// The list has this place in its parent, and what is written there this font.
    void place(const Place& list, HFONT font);

  private:
    void settle() const;

    HWND m_list;
    HWND m_onList;
    HWND m_instead;
    std::wstring m_words;
    Place m_place;
    HFONT m_font = nullptr;
};

}  // namespace wynconfig::native
