// A list of rows, which are not in its window but given to it one by one as they come in sight.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/forms/shown_rows.h"
#include "views/win32/convert.h"
#include "views/win32/finding.h"
#include "views/win32/piece.h"
#include "views/win32/typing.h"

namespace wynconfig::native {

/// Shows all rows of the form, or those that contain what is typed into the line above them, and
/// the selected one in any case. Tells of each row that the person picks, also of the selected one
/// when it is clicked again, once for each act. By the keyboard the arrow keys and letters pick;
/// with Ctrl, or where picks are to be deliberate, the arrow keys only move to a row, which the
/// space bar then picks.
class ListPiece : public Piece {
  public:
    ListPiece(ListView& list, Stage& stage, const Standing& standing);
    void commanded(UINT code) override;
    LRESULT notified(NMHDR& what) override;
    bool takeKey(WPARAM key) override;
    Room measured(const Measure& measure) const override;
    void place(const Place& place) override;
    /// That it is empty.
    std::wstring ownDescription() const override { return toWide(emptyWords()); }

    /// Number of the row that the keyboard is at, or 0.
    std::size_t marked() const;
    /// Number of the selected row, or 0.
    std::size_t selected() const;
    /// The key of a row that is shown, by its place from 0.
    const std::string& keyAt(std::size_t place) const;

    /// Has what helps a person in the list come up and go as the form now is.
    void showHelps();
    const FilterLine& filter() const { return m_filter; }
    /// Deals with a key that was pressed in the line. False: its window or the form does.
    bool takeFilterKey(WPARAM key);
    /// Goes from the first row into the line. False: there is none, or it is another key or row.
    bool leaveUpwards(WPARAM key);

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
    LRESULT colourOfNote(HDC dc) const;
    void tellText(NMLVDISPINFOW& wanted) const;
    void changed(const NMLISTVIEW& change);
    void clicked(const NMITEMACTIVATE& click);
    void doubleClicked(const NMITEMACTIVATE& click);
    void pick(std::size_t number);
    void pickMarked();
    void mark(std::size_t number) const;
    void select(std::size_t number) const;
    void reveal(std::size_t number);
    /// Goes to a row as an arrow key does.
    void goTo(std::size_t number);
    std::size_t rowForKey(WPARAM key) const;
    void takeLetter(const std::string& letter);

    void filterRows();
    bool matches(std::size_t number) const;
    void lookFor(const std::wstring& text);
    void enter();
    std::string emptyWords() const;
    void placeAll();
    void fitColumn() const;

    ListView& m_list;
    const CaptionedControl* m_label;
    ListActs m_acts;
    FilterLine m_filter;
    std::optional<EmptyNote> m_note;
    Place m_whole;        ///< of the list and the line above it
    int m_widthHint = 0;  ///< of its column, in twips
    bool m_moving = false;
    bool m_pressing = false;
    bool m_doubled = false;
    std::vector<Row> m_rows;
    ShownRows m_shown;
    std::string m_lookedFor;  ///< in upper case
    std::size_t m_shownRevision = static_cast<std::size_t>(-1);
};

}  // namespace wynconfig::native
