/// @file
/// A person at the screen, played by a test: says what the person does when a dialog or a box comes
/// up, and sees what a person would see.
#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "wynconfig/controls.h"
#include "wynconfig/export.h"
#include "wynconfig/view.h"

namespace wynconfig {

/// What the played person could not do, or what came up without having been announced.
class WYNCONFIG_API UserError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// A row as it is seen in a list, an item of a combo box, which has no key, or a tab, whose key is
/// the one that its caption marks.
struct SeenRow {
    std::string key;   ///< see above; empty where there is none
    std::string text;  ///< what a person reads
    /// Whether both texts are the same.
    bool operator==(const SeenRow&) const = default;
};

/// A control as a person sees it. Captions are the words, without the mark of a key.
struct WYNCONFIG_API Sight {
    std::string text;           ///< of an edit or a combo box
    std::string caption;        ///< of a label, button, frame, option, check box or caption bar
    std::string key;            ///< marked by the caption (see mnemonic.h); empty: none
    bool value = false;         ///< of an option or a check box
    std::vector<SeenRow> rows;  ///< of a list, a combo box, or tabs
    std::size_t selected = 0;   ///< number of the selected row from 1, 0 for none
    std::size_t caret = 0;      ///< of an edit, in characters
    bool focus = false;         ///< the keyboard acts here
    bool enabled = false;       ///< it can be used, where it is visible too
    bool visible = false;       ///< false also for what lies on a tab that is not on top
    bool tabStop = false;       ///< the Tab key stops here
    Background background = Background::Window;  ///< tells a box that is switched off

    /// The texts of `rows`.
    std::vector<std::string> rowTexts() const;
};

/// A message box as it was seen. Title and caption are the words, without the mark of a key.
struct SeenBox {
    std::string text;       ///< what it says, UTF-8, with its line ends
    std::string title;      ///< what its title bar shows
    int style = 0;          ///< see `boxstyle`
    std::string okCaption;  ///< empty: the view's own word
};

/// A sign of work that takes its time, as it was seen; see `Progress`.
struct SeenProgress {
    /// Of `Begins` a wait cursor was seen, of `Lasts` a bar, of `Ends` that both had gone.
    Progress::Stage stage = Progress::Stage::Begins;
    std::string title;     ///< the words of its title bar; empty without a bar, as all below
    std::string text;      ///< what it says, UTF-8
    std::size_t done = 0;  ///< how far the bar has come
    std::size_t all = 0;   ///< its whole length
    /// Whether both look alike.
    bool operator==(const SeenProgress&) const = default;
};

/// A person at the screen. A test announces what is to come up and what the person does then;
/// whatever comes up unannounced is answered so that nothing changes, and `finish` names it.
/// Controls and forms go by their names, and all texts are UTF-8. All acts concern the form on top.
/// An act that a person could not do (a control that is not there, hidden or disabled) raises
/// `UserError`; one that is raised within an announced script ends the script, cancels the form,
/// and is told by `finish`.
class WYNCONFIG_API User {
  public:
    /// What the person does at a form; gets the person who was told it.
    using Script = std::function<void(User&)>;
    /// What the person answers a box: the number of a button, see `answer`.
    using BoxScript = std::function<int(const SeenBox&)>;

    virtual ~User() = default;

    // What is to come. Announcements of one kind are used up in their order.

    /// When a form of this name comes up, the person does this. The script must close the form.
    void onForm(const std::string& name, Script script);
    /// When the next box comes up, the person reads it and presses the button of this number.
    void onBox(BoxScript script);
    /// When the next box comes up, the person presses the button of this number, see `answer`.
    void onBox(int button = answer::Ok);
    /// When the next browse dialog comes up, the person picks this path; empty: cancels.
    void onBrowse(std::string path);
    /// Raises `UserError` when something came up unannounced, did not come up though announced, or
    /// could not be done. Forgets all of it, so that the next announcement starts afresh.
    void finish();
    /// All boxes that came up since the last `finish`, in their order.
    const std::vector<SeenBox>& boxes() const { return m_boxes; }
    /// All browse dialogs that came up since the last `finish`; title and captions are the words,
    /// without the mark of a key.
    const std::vector<BrowseRequest>& browses() const { return m_browses; }
    /// Names of all forms that came up since the last `finish`.
    const std::vector<std::string>& forms() const { return m_forms; }
    /// All signs of work that the person had to wait for since the last `finish`, in their order.
    /// They come unannounced, and those of `Lasts` by the clock: none where the work is quick.
    const std::vector<SeenProgress>& progress() const { return m_progress; }

    // Acts on the form on top.

    /// Name of the form on top; empty when there is none.
    virtual std::string formName() const = 0;
    /// What its title bar shows.
    virtual std::string formTitle() const = 0;
    /// Clicks with the mouse: the focus moves there first. For buttons, check boxes and options.
    virtual void click(std::string_view control) = 0;
    /// The click's event alone, for toolkits whose clicks move no focus.
    virtual void bareClick(std::string_view control) = 0;
    /// Presses Enter where the focus is: on a button that one, in a list its usual act, else the
    /// default button of the form.
    virtual void pressEnter() = 0;
    /// Presses Escape: the form's cancel button.
    virtual void pressEscape() = 0;
    /// Moves the focus on by the Tab key.
    virtual void pressTab() = 0;
    /// Presses the Delete key where the focus is: in a list the button behind it, in an edit it
    /// takes away the character behind the caret.
    virtual void pressDelete() = 0;
    /// Presses F2 where the focus is: in a list the button behind it.
    virtual void pressF2() = 0;
    /// Presses the Alt key and this key, an upper-cased character, which acts on what marks it in
    /// its caption: a label leads to its box and a frame to its first control, a button is pressed,
    /// a check box turned, an option chosen, a tab turned to. All but a tab take the focus first,
    /// as at a click. Raises `UserError` when nothing that can be used now marks the key, or more
    /// than one thing does.
    virtual void pressMnemonic(std::string_view key) = 0;
    /// Puts the focus on a control by the mouse, without pressing it.
    virtual void focus(std::string_view control) = 0;
    /// Goes to a box and types this in place of its text.
    virtual void type(std::string_view edit, const std::string& text) = 0;
    /// Goes to a box and puts the caret there.
    /// @param edit   name of the box
    /// @param caret  in characters from 0; beyond the end it is the end
    virtual void setCaret(std::string_view edit, std::size_t caret) = 0;
    /// Clicks a check box or option unless it shows this value already.
    void tick(std::string_view box, bool value = true);
    /// Clicks the first row with this text, also when it is selected already.
    virtual void pick(std::string_view list, const std::string& text) = 0;
    /// Clicks the first row with this text twice: that picks it and does the usual act of the list,
    /// or, where it has none, picks it again.
    virtual void doubleClick(std::string_view list, const std::string& text) = 0;
    /// Goes to a list or a combo box and types these letters quickly: that picks the first row that
    /// begins so. Each letter may pick a row on the way.
    virtual void typeAhead(std::string_view listOrCombo, const std::string& letters) = 0;
    /// Chooses the first item with this text.
    virtual void choose(std::string_view combo, const std::string& text) = 0;
    /// Clicks a tab, by its index from 0.
    virtual void changeTab(std::string_view tabs, int index) = 0;
    /// Pulls the window's frame to a size in twips.
    virtual void resize(int width, int height) = 0;
    /// Closes the window by its frame, which in some dialogs is not the same as Cancel.
    virtual void closeByFrame() = 0;
    /// Looks at a control.
    virtual Sight see(std::string_view control) = 0;
    /// What is told of a control to whoever asks for it, by the mouse over it or by a key; empty
    /// when nothing is. Raises `UserError` for one that is hidden.
    virtual std::string help(std::string_view control) = 0;
    /// Presses F1, reads the help of the form, and closes it; see `HelpPage::lines`. Empty when
    /// none comes up.
    virtual std::vector<std::string> readHelp() = 0;
    /// Whether a control can be used now: it is visible and enabled.
    bool canUse(std::string_view control);

  protected:
    // For a view that is driven by this user: what just came up.

    /// Runs the script for a form that came up; afterwards the form should be closed. An
    /// unannounced form is remembered, and nothing is done.
    void formCameUp(const std::string& name);
    /// The button to press.
    int boxCameUp(const MessageRequest& box);
    /// The path to pick.
    std::string browseCameUp(const BrowseRequest& request);
    /// A sign of work was seen, or that it has gone.
    void progressSeen(SeenProgress sign);
    /// A form was left open by its script, or something else went wrong.
    void blame(std::string fault);

  private:
    std::map<std::string, std::deque<Script>> m_formScripts;
    std::deque<BoxScript> m_boxScripts;
    std::deque<std::string> m_browsePaths;
    std::vector<std::string> m_faults;
    std::vector<SeenBox> m_boxes;
    std::vector<BrowseRequest> m_browses;
    std::vector<std::string> m_forms;
    std::vector<SeenProgress> m_progress;
};

}  // namespace wynconfig
