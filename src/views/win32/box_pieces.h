// Boxes to type and to choose in.
#pragma once

#include <memory>

#include "views/win32/piece.h"
#include "views/win32/typing.h"

namespace wynconfig::native {

/// The text goes to the model only when the person edits it: a text that the box can't show as it
/// stands survives there as long as nobody touches it.
class EditPiece : public Piece {
  public:
    EditPiece(Edit& edit, Stage& stage, const Standing& standing);
    void commanded(UINT code) override;
    Room measured(const Measure& measure) const override;
    /// Where the selection starts, or the caret when nothing is selected, in units of UTF-16.
    std::size_t caretUnits() const;
    /// Leaves the caret where the selection starts.
    void dropSelection();

  private:
    void offerContent() override;
    void showContent() override;
    LRESULT received(UINT message, WPARAM w, LPARAM l) override;
    bool takeTyped(UINT message, WPARAM w);
    void selectPair(bool behindCaret);
    std::size_t caret() const;
    void reportText();
    void reportCaret();

    Edit& m_edit;
    int m_chars;  ///< see `Layout::chars`
    std::string m_shown;
    bool m_reporting = false;
};

/// A drop-down list. What is chosen or found by letters while it is open counts when it closes.
class ComboPiece : public Piece {
  public:
    ComboPiece(ComboBox& combo, Stage& stage, const Standing& standing);
    void commanded(UINT code) override;
    Room measured(const Measure& measure) const override;
    bool wantsEnter() const override { return isOpen(); }

    Typing typing;

  private:
    void showContent() override;
    void fill();
    LRESULT received(UINT message, WPARAM w, LPARAM l) override;
    bool isOpen() const { return send(CB_GETDROPPEDSTATE) != 0; }
    void reportChoice();
    void takeLetter(const std::string& letter);

    ComboBox& m_combo;
    std::size_t m_shownRevision = static_cast<std::size_t>(-1);
};

}  // namespace wynconfig::native
