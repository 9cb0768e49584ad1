// The tabs, and the panes that lie behind them.
#pragma once

#include <memory>

#include "views/win32/piece.h"

namespace wynconfig::native {

/// The bar tells only what the person wants; the model decides, and only then the page changes.
class TabsPiece : public Piece {
  public:
    TabsPiece(Tabs& tabs, Stage& stage, const Standing& standing);
    LRESULT notified(NMHDR& what) override;
    Room measured(const Measure& measure) const override;
    /// What the tabs and their frame take of their place.
    Insets insets() const;
    /// The caption of a tab that is on the screen.
    std::wstring captionOf(int index) const;

  private:
    void showContent() override;
    Tabs& m_tabs;
};

/// A pane has nothing to show by itself; the form's window puts it on top.
class PanePiece : public Piece {
  public:
    /// @param windowClass  of windows that hand on what their children tell
    PanePiece(Container& container, Stage& stage, const Standing& standing,
              const wchar_t* windowClass);

  private:
    void showContent() override {}
};

}  // namespace wynconfig::native
