// A list of rows, which are not in its window but given to it one by one as they come in sight.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "views/win32/piece.h"
#include "views/win32/typing.h"

namespace wynconfig::native {

/// Tells of each row that the person picks, also of the selected one when it is clicked again, once
/// for each act. By the keyboard the arrow keys and letters pick; with Ctrl, or where picks are to
/// be deliberate, the arrow keys only move to a row, which the space bar then picks.
class ListPiece : public Piece {
  public:
    ListPiece(ListView& list, Stage& stage, const Standing& standing);
    LRESULT notified(NMHDR& what) override;
    bool takeKey(WPARAM key) override;
    Room measured(const Measure& measure) const override;

    /// Number of the row that the keyboard is at, or 0.
    std::size_t marked() const;
    /// Number of the selected row, or 0.
    std::size_t selected() const;
    /// The key of a row that is on the screen, by its number from 1.
    const std::string& keyOf(std::size_t number) const { return m_rows[number - 1].key; }
    /// Gives the one column the width that there is.
    void fitColumn() const;

    Typing typing;

  private:
    struct Row {
        std::string key;
        std::wstring text;
        std::shared_ptr<const Font> font;
    };

    void showContent() override;
    void showRows();
    void showHeading();
    void showSelected(std::size_t number);
    LRESULT received(UINT message, WPARAM w, LPARAM l) override;
    LRESULT pressed(UINT message, WPARAM w, LPARAM l);
    LRESULT paint(NMLVCUSTOMDRAW& draw) const;
    void tellText(NMLVDISPINFOW& wanted) const;
    void changed(const NMLISTVIEW& change);
    void clicked(const NMITEMACTIVATE& click);
    void doubleClicked(const NMITEMACTIVATE& click);
    void pick(std::size_t number);
    void pickMarked();
    void mark(std::size_t number) const;
    void select(std::size_t number) const;
    /// Goes to a row as an arrow key does.
    void goTo(std::size_t number);
    std::size_t rowForKey(WPARAM key) const;
    void takeLetter(const std::string& letter);

    ListView& m_list;
    bool m_headed;        ///< by a label, under which a heading would say the same twice
    bool m_deliberate;    ///< nothing but a click, the space bar and Enter picks
    int m_widthHint = 0;  ///< of its column, in twips
    bool m_moving = false;
    bool m_pressing = false;
    bool m_doubled = false;
    std::vector<Row> m_rows;
    std::size_t m_shownRevision = static_cast<std::size_t>(-1);
};

}  // namespace wynconfig::native
