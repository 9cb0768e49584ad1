// A window that comes up above the others, which wait meanwhile.
#pragma once

#include <vector>

#include "views/win32/winapi.h"

namespace wynconfig::native {

/// As long as one lives, no other window of this thread can be used, and neither can the owner.
class Modality {
  public:
    /// @param above  the window that stays in use
    /// @param owner  of any thread or program; null: none
    Modality(HWND above, HWND owner);
    ~Modality() { end(); }
    Modality(const Modality&) = delete;
    Modality& operator=(const Modality&) = delete;

    /// Gives the windows free. To be called before the window above them goes, since else one of
    /// another program would come to the front.
    void end();
    /// Has one more window wait, unless it does already.
    void disable(HWND window);

  private:
    HWND m_above;
    std::vector<HWND> m_waiting;
};

}  // namespace wynconfig::native
