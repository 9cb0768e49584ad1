// A control and its window: shows the control's state, and reports what the person does to the
// window.
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "platform/forms/door.h"
#include "views/win32/arranging.h"
#include "views/win32/fonts.h"
#include "views/win32/winapi.h"
#include "wynconfig/controls.h"
#include "wynconfig/keyboard.h"
#include "wynconfig/layout.h"

namespace wynconfig::native {

class Piece;

/// Whether a key of the keyboard, such as VK_CONTROL, is held down.
inline bool isDown(int key) {
    return (::GetKeyState(key) & 0x8000) != 0;
}

/// What a piece needs of the window of its form.
class Stage {
  public:
    virtual ~Stage() = default;
    virtual Door& door() = 0;
    /// Pieces are just being shown: what happens to their windows is not the person's doing.
    virtual bool showing() const = 0;
    virtual Fonts& fonts() = 0;
    virtual int dpi() const = 0;
    /// Whether the window runs from right to left.
    virtual bool mirrored() const = 0;
    /// Has a piece shown again, as soon as what moved it is done.
    virtual void showLater(Piece& piece) = 0;
    /// Gives a piece the focus; its control hears of it first.
    virtual void takeFocusTo(Piece& piece) = 0;
    /// The focus came to a piece, whatever brought it.
    virtual void focusCame(Piece& piece) = 0;
    /// Does what comes of a key or a double click.
    virtual void obey(const KeyAct& act) = 0;
    /// A piece asks for another room than before.
    virtual void roomChanged() = 0;
    /// An assistive program asks what a piece is.
    virtual void describe(Piece& piece) = 0;
};

/// What a control is to those beside it in the layout.
struct Standing {
    HWND parent = nullptr;
    const CaptionedControl* labelledBy = nullptr;  ///< the label in front of or above it
    const Control* labels = nullptr;               ///< of a label: what it stands at
    ListActs acts = {};                            ///< of a list
    bool isDefault = false;                        ///< of a button
    bool movesRows = false;                        ///< of a button between two lists
    int chars = 0;                                 ///< see `Layout::chars`
};

class Piece {
  public:
    virtual ~Piece();
    Piece(const Piece&) = delete;
    Piece& operator=(const Piece&) = delete;

    Control& control() const { return m_control; }
    HWND window() const { return m_window; }
    /// Shows the control's present state; reports nothing.
    void show();
    /// Makes it seen or not; what is around it is none of its business.
    void showVisible(bool visible);
    virtual void place(const Place& place);
    /// Where its window stands in its parent.
    const Place& placed() const { return m_place; }
    /// The screen, and all fonts with it, is another one.
    void renewFont();

    /// How much room it asks for; measured once for the same font and words.
    const Room& room() const;
    /// The code of a WM_COMMAND that its window sent.
    virtual void commanded(UINT) {}
    /// A WM_NOTIFY that its window sent.
    virtual LRESULT notified(NMHDR&) { return 0; }
    /// A key that is none of the form's was pressed. False: its window deals with it.
    virtual bool takeKey(WPARAM) { return false; }
    /// The dialog came up with the focus here: what is typed takes the place of what is there.
    virtual void offerContent() {}
    /// What it tells of itself before anybody helps; empty: nothing.
    virtual std::wstring ownDescription() const { return {}; }
    /// Whether its window needs Enter and Escape for itself now.
    virtual bool wantsEnter() const { return false; }
    /// Whether the Tab key can lead here.
    bool takesFocus() const { return m_takesFocus; }
    /// Whether a person can act on it now, which a program can try at any time.
    bool inReach() const;
    HFONT font() const { return m_font; }

    bool dirty = true;
    std::wstring describedAs;  ///< what assistive programs were told of it last

  protected:
    Piece(Control& control, Stage& stage) : m_control(control), m_stage(stage) {}
    virtual Room measured(const Measure&) const { return {}; }
    /// What it shows asks for another room.
    void forgetRoom();
    /// Makes the window; to be called once, before anything else.
    void make(HWND parent, const wchar_t* windowClass, DWORD style, DWORD extended = 0);
    virtual void showContent() = 0;
    /// What becomes of a message to the window.
    virtual LRESULT received(UINT message, WPARAM w, LPARAM l);
    LRESULT passOn(UINT message, WPARAM w, LPARAM l) const;
    LRESULT send(UINT message, WPARAM w = 0, LPARAM l = 0) const;

    Stage& stage() const { return m_stage; }
    int scale(int length) const;
    /// Reports an act that takes the focus first, as one of the mouse does.
    template <class Report>
    void act(const Report& report) {
        if (inReach()) m_stage.takeFocusTo(*this);
        actInPlace(report);
    }
    /// Reports an act that leaves the focus where it is.
    template <class Report>
    void actInPlace(const Report& report) {
        m_stage.door()([&](const UserInput& input) {
            // Leaving the control before may have changed what can be used.
            if (inReach() && m_control.enabled() && m_control.visible())
                report(input);
            else
                m_stage.showLater(*this);
        });
    }

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR id,
                                      DWORD_PTR piece);

    Control& m_control;
    Stage& m_stage;
    HWND m_window = nullptr;
    HFONT m_font = nullptr;
    mutable std::optional<Room> m_room;
    Place m_place;
    bool m_takesFocus = false;
};

/// Makes the window for a control and ties the two together.
std::unique_ptr<Piece> makePiece(Control& control, Stage& stage, const Standing& standing);

}  // namespace wynconfig::native
