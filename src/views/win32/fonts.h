// The fonts of a window, and how much room its texts take.
#pragma once

#include <map>
#include <string>
#include <tuple>

#include "views/win32/winapi.h"
#include "wynconfig/resource_manager.h"

namespace wynconfig::native {

/// Makes a font; what it leaves open is that of the user's settings. The caller deletes it.
HFONT makeFont(const Font& font, int dpi);

/// Fonts of Windows, each made once and kept as long as this lives.
class Fonts {
  public:
    explicit Fonts(int dpi) : m_dpi(dpi) {}
    ~Fonts();
    Fonts(const Fonts&) = delete;
    Fonts& operator=(const Fonts&) = delete;

    /// @param font  null: the user's own
    HFONT of(const Font* font);
    /// From here on fonts are for another screen. Those that were given stay.
    void setDpi(int dpi) { m_dpi = dpi; }

  private:
    using Key = std::tuple<int, std::string, double, bool, bool>;
    int m_dpi;
    std::map<Key, HFONT> m_made;
};

/// Reckons with a font.
class Measure {
  public:
    explicit Measure(HFONT font);
    ~Measure();
    Measure(const Measure&) = delete;
    Measure& operator=(const Measure&) = delete;

    /// The size of a text of one line or several.
    /// @param format  of `DrawText`, such as `DT_NOPREFIX`
    /// @param width   the widest that it may be; 0: as wide as it is
    SIZE text(const std::wstring& text, UINT format = 0, int width = 0) const;
    int lineHeight() const;
    /// The width of so many usual characters.
    int chars(int count) const;

  private:
    HDC m_screen;
    HGDIOBJ m_before;
};

}  // namespace wynconfig::native
