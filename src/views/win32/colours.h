// The grounds on which controls stand, in the user's colours.
#pragma once

#include "views/win32/winapi.h"
#include "wynconfig/controls.h"

namespace wynconfig::native {

class Colours {
  public:
    Colours() { renew(); }
    ~Colours();
    Colours(const Colours&) = delete;
    Colours& operator=(const Colours&) = delete;

    /// The user's colours or styles have changed.
    void renew();

    /// Behind what stands on the window itself.
    HBRUSH window() const { return ::GetSysColorBrush(COLOR_3DFACE); }
    /// Behind what stands on the pane of a tab.
    HBRUSH pane() const { return m_pane; }
    /// Behind the text of a box. `InactiveBorder` can be told from the other in any scheme.
    HBRUSH box(Background background) const;
    COLORREF boxColour(Background background) const;
    /// Behind what was refused: reddish, unless the user has chosen colours of high contrast.
    HBRUSH refused() const { return m_refused; }
    COLORREF refusedColour() const { return m_refusedColour; }

  private:
    void release();

    HBRUSH m_pane = nullptr;
    HBRUSH m_inactive = nullptr;
    COLORREF m_inactiveColour = 0;
    HBRUSH m_refused = nullptr;
    COLORREF m_refusedColour = 0;
};

}  // namespace wynconfig::native
