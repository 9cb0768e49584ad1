// The window of one form: shows what the form's controls are, and runs until the form unloads.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/forms/door.h"
#include "platform/forms/refusal.h"
#include "views/win32/arranging.h"
#include "views/win32/classes.h"
#include "views/win32/colours.h"
#include "views/win32/fonts.h"
#include "views/win32/help.h"
#include "views/win32/modality.h"
#include "views/win32/option_set.h"
#include "views/win32/piece.h"
#include "wynconfig/form.h"
#include "wynconfig/keyboard.h"

namespace wynconfig::native {

class ListPiece;

class FormWindow : private FormObserver, private Stage, private Ground, private WindowOwner {
  public:
    /// @param owner     the window that it stands in front of; null: none
    /// @param mirrored  from right to left
    FormWindow(Form& form, UserInput input, HWND owner, bool mirrored);
    ~FormWindow() override;

    /// The form that a window shows; null: it shows none.
    static FormWindow* of(HWND window) { return static_cast<FormWindow*>(ownerOf(window)); }

    /// Shows the window and returns once the form has unloaded.
    /// @param cameUp  is called from the window's message loop as soon as it runs
    void run(const std::function<void()>& cameUp);

    /// False once the form has unloaded.
    bool live() const { return m_form != nullptr; }
    const std::string& name() const { return m_name; }
    /// The form shown here; null once it has unloaded.
    Form* form() const { return m_form; }
    HWND window() const { return m_window; }
    Piece* piece(const Control& control) const;
    /// Shows all changes that have not been shown yet.
    void sync();
    /// Puts the window in front of all others, for good or no longer.
    void raise(bool topMost) const;
    /// Deals with a message of this thread as the message loop does.
    void handle(MSG& message);
    /// The person pulls the window to this inner size, in twips.
    void pullTo(int width, int height);
    /// A box told the person of a failure: what the form turns to next is what was refused.
    void markRefused();
    /// Leaves the form the way that changes the least: by its cancel button, else by the frame.
    void giveUp();
    /// What stands behind the text of a box.
    HBRUSH groundOf(const Piece& piece) const;
    const Colours& colours() const { return m_colours; }
    const HelpWindow& help() const { return m_help; }
    HWND tips() const { return m_tips; }

  private:
    // FormObserver
    void changed(Control* control) override;
    void focusMoved(Control& control) override;
    void unloaded() override;
    // Stage
    Door& door() override { return m_door; }
    bool showing() const override { return m_syncing; }
    Fonts& fonts() override { return m_fonts; }
    int dpi() const override { return m_dpi; }
    bool mirrored() const override { return m_mirrored; }
    void showLater(Piece& piece) override;
    void takeFocusTo(Piece& piece) override;
    void focusCame(Piece& piece) override;
    void obey(const KeyAct& act) override;
    void roomChanged() override { m_roomChanged = true; }
    void describe(Piece& piece) override;
    // Ground
    Room roomOf(const Control& control) const override;
    Insets insetsOf(const Control& control) const override;
    void put(const Control& control, const Place& place) override;
    // WindowOwner
    bool received(UINT message, WPARAM w, LPARAM l, LRESULT& result) noexcept override;

    void build(const Layout& node, HWND parent);
    void gather(const Layout& field);
    void add(Control& control, Standing standing);
    void syncLater();
    void showAll();
    void showForm();
    void showNames();
    void lookAnew();
    void showRefused();
    void showGround(const Control& box) const;

    bool on(UINT message, WPARAM w, LPARAM l, LRESULT& result);
    void tellTip(NMTTDISPINFOW& asked);
    LRESULT colourOf(UINT message, HDC dc, HWND child) const;
    void sized(int width, int height);
    void rescale(int dpi, const RECT& suggested);
    Piece* pieceAt(HWND window) const;

    // Sizes, all of them inside the frame and in pixels.
    Extent leastSize(Arranging& arranging);
    int leastWidth();
    void applySize();
    void setInnerSize(const Extent& size);
    Extent innerSize() const;
    Extent mostSize() const;
    Extent contentSize() const;
    void arrangeNow();
    Gaps gaps() const;
    void centre(HWND above) const;

    // What does not fit on the screen is moved about.
    void takeSize(Extent size);
    void showBars();
    void scrollTo(POINT corner);
    bool moveBar(int bar, WPARAM w);
    bool turnWheel(int bar, WPARAM w);
    void reveal(const Piece& piece);

    // The focus and the keyboard.
    bool canFocus(const Piece* piece) const;
    bool isActive() const;
    void settleFocus();
    void focusFirst();
    Piece* stopAfter(const std::vector<Control*>& order, const Control* from, bool forward) const;
    void markDefaultButton() const;
    bool takes(const MSG& message);
    bool takeKey(WPARAM key, bool held);
    bool takeFindKey(WPARAM key) const;
    bool takeFormKey(FormKey key);
    void showHelp();
    bool followMark(const std::string& key);
    void leaveScreen();

    /// A box that is spoken of by the caption of another control, or a button that is by its tip.
    struct SpokenName {
        Piece* piece;
        bool isTip;
        std::wstring told;
    };

    Form* m_form;
    std::string m_name;
    HWND m_owner;
    Door m_door;
    HWND m_window = nullptr;
    int m_dpi;
    Fonts m_fonts;
    Colours m_colours;
    std::vector<std::unique_ptr<Piece>> m_pieces;  ///< in the order of the layout
    std::unordered_map<const Control*, Piece*> m_byControl;
    std::unordered_map<HWND, Piece*> m_byWindow;
    std::vector<ListPiece*> m_lists;
    std::vector<SpokenName> m_spokenNames;
    std::vector<OptionSet> m_optionSets;
    HWND m_tips = nullptr;
    std::wstring m_tip;  ///< what the tip on the screen tells
    HelpWindow m_help;
    std::optional<Modality> m_modality;
    std::function<void()> m_cameUp;
    Refusal m_refusal;
    const Control* m_refused = nullptr;  ///< what bears its mark on the screen
    Extent m_least;
    Extent m_ownSize;   ///< that the form gave the window
    Extent m_pulledTo;  ///< in twips, that the person last gave it
    POINT m_corner{};   ///< the place of the content that stands at the window's corner
    bool m_mirrored;    ///< runs from right to left
    bool m_fixed;       ///< the person can't change the size
    bool m_formChanged = true;
    bool m_roomChanged = true;
    bool m_syncPending = false;
    bool m_syncing = false;
    bool m_sizing = false;
};

}  // namespace wynconfig::native
