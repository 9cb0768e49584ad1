// What options that stand together are for assistive programs.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "views/win32/piece.h"

namespace wynconfig::native {

/// A frame around options that nobody sees: as with every frame, assistive programs find it before
/// the options and around them, and speak of these by its name.
class OptionSet {
  public:
    /// Whether a node has options that stand together.
    static bool isIn(const Layout& node);

    /// @param parent  that of the options, whose windows are yet to be made
    /// @param field   the node of the options; outlives it
    OptionSet(HWND parent, const Layout& field);

    HWND window() const { return m_window; }
    /// Takes one of its options in.
    void take(const Piece& option) { m_options.push_back(&option); }
    /// Goes where its options stand now, and is there as long as one of them is.
    void settle();
    /// Tells its name where that is another one: the words of the label, or that of the layout.
    void tellName();

  private:
    HWND m_window;
    const CaptionedControl* m_label;
    std::string_view m_word;  ///< see `Layout::spoken`
    std::vector<const Piece*> m_options;
    Place m_place;
    bool m_isThere = false;
    std::wstring m_told;
};

}  // namespace wynconfig::native
