/// @file
/// What puts the dialogs in front of a person, and the one door through which it reports what the
/// person did.
#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "wynconfig/controls.h"
#include "wynconfig/export.h"

namespace wynconfig {

/// Styles of a message box; buttons and icon are added.
namespace boxstyle {
inline constexpr int OkOnly = 0;          ///< one button, OK
inline constexpr int YesNo = 4;           ///< a question: the buttons Yes and No
inline constexpr int Critical = 16;       ///< the icon of a failure
inline constexpr int SystemModal = 4096;  ///< in front of all other windows
}  // namespace boxstyle

/// Numbers of the buttons of a message box.
namespace answer {
inline constexpr int Ok = 1;   ///< the one button of a box that asks nothing
inline constexpr int Yes = 6;  ///< of a question
inline constexpr int No = 7;   ///< of a question, and whatever is no Yes
}  // namespace answer

/// A message box to be shown.
struct MessageRequest {
    Form* owner = nullptr;  ///< the form that asks; it may be one that was never shown
    std::string text;       ///< UTF-8; lines end in CR LF or LF, and no mark of a key is meant
    int style = boxstyle::OkOnly;  ///< buttons and icon, see `boxstyle`
    std::string title;             ///< UTF-8, as a caption: a mark of a key in it is not shown
    std::string okCaption;         ///< empty: the view's own word
};
/// Its name of before, which the system's header of Windows turns into another one.
using MessageBox = MessageRequest;

/// A path to be browsed for.
struct BrowseRequest {
    Form* owner = nullptr;             ///< the form that asks
    std::string title;                 ///< UTF-8, as a caption
    std::string okCaption;             ///< of the button that picks; empty: the view's own word
    std::string cancelCaption;         ///< of the button that cancels; empty: the view's own word
    bool files = false;                ///< files may be picked as well as folders
    std::shared_ptr<const Font> font;  ///< that of the dialog; null: the view's own
};

/// Work that a person waits for, as far as it has come.
struct Progress {
    /// What a call tells of it.
    enum class Stage {
        Begins,  ///< the person waits from here on: a wait cursor will do, there are no words yet
        Lasts,   ///< the wait has taken half a second: a bar, with words
        Ends,    ///< every sign of it is to go
    };
    Stage stage = Stage::Begins;  ///< the words and numbers below are those of `Lasts` alone
    std::string title;            ///< UTF-8, as a caption
    std::string text;             ///< UTF-8, such as "Updating sessions: 1,204 of 10,000"
    std::size_t done = 0;         ///< how many are done, at most `all`
    std::size_t all = 0;          ///< how many there are, at least 1
};

/// What only a person may do to a control. Nobody but a view gets one, so that the code of a dialog
/// can't do these things by accident. Each call raises the events that belong to it; a failure in a
/// dialog's handler ends that handler and never comes back to the view.
class WYNCONFIG_API UserInput {
  public:
    /// The focus moved to this control: `LostFocus` of the one before, `GotFocus` of this one.
    void focus(Control& control) const;
    /// The text of a box and the place of its caret (in characters) are now these.
    void type(Edit& edit, std::string text, std::size_t caret) const;
    /// The caret went to this place, in characters from 0.
    void moveCaret(Edit& edit, std::size_t caret) const;
    /// The event alone; a mouse click moves the focus first, by `focus`.
    void click(Button& button) const;
    /// The box was ticked or unticked. Nothing happens when it shows this value already.
    void tick(CheckBox& box, bool value) const;
    /// The option was chosen, which turns the others of its frame off.
    void choose(OptionButton& option) const;
    /// A row was picked, also one that is selected already. One that is not there picks nothing.
    /// @param list    where
    /// @param number  number of the row, from 1
    void pick(ListView& list, std::size_t number) const;
    /// An item was chosen. One that is not there chooses nothing.
    /// @param combo  where
    /// @param index  index of the item, from 0
    void choose(ComboBox& combo, int index) const;
    /// A tab was turned to, by its index from 0. The tab on top, and none, turn nothing.
    void changeTab(Tabs& tabs, int index) const;
    /// The frame of the window was pulled to this size, in twips.
    void resize(Form& form, int width, int height) const;
    /// The window was closed by its frame.
    void closeByFrame(Form& form) const;

  private:
    friend class View;
    UserInput() = default;
};

/// A view: everything that the dialogs need of a screen. Five calls, and one that may do nothing; a
/// view renders any form from its `layout()` and never knows a dialog by name. What a view throws
/// is turned into `Error`.
class WYNCONFIG_API View {
  public:
    virtual ~View() = default;

    /// Is called on the thread that is about to install the view. Raises `Error` when the view
    /// can't serve that thread; most can.
    virtual void joinThread() {}
    /// Shows a form and returns once it is no longer loaded. May be called again, for another form,
    /// before it returned. A form that was unloaded before it came up is not shown at all. Where no
    /// control has the focus yet the view gives it, as the Tab key would. The title is
    /// `plainCaption` of `form.title()`.
    virtual void showModal(Form& form) = 0;
    /// Shows a box and returns the number of the pressed button, see `answer`. The Escape key and
    /// the closing of the box by its frame answer No to a question, else Ok. The title is
    /// `plainCaption` of the one given; the text is shown as it stands.
    virtual int showMessage(const MessageRequest& box) = 0;
    /// Lets the user pick a path, UTF-8; the empty string when the user picked none.
    virtual std::string browse(const BrowseRequest& request) = 0;
    /// Puts a form's window in front of all others, for good or, with false, no longer.
    virtual void raise(Form& form, bool topMost) = 0;
    /// A number by which the resource manager may tell the screen that a form's text goes to.
    virtual long deviceContext(Form& form) = 0;
    /// Gives a sign of life while the component works through many items: `Begins` at once, `Lasts`
    /// once half a second has passed, and again as the work goes on, ten times a second at most,
    /// and `Ends` behind each `Begins`, whatever happened. Before a form, a box or a browse dialog
    /// comes up it ends, to begin anew behind that. The work waits for this call and is in the
    /// midst of something: it paints and returns, and lets nobody act on a dialog meanwhile. What
    /// it throws goes to the observer alone, and no more of this wait is shown. Here: nothing.
    virtual void showProgress(const Progress& progress) { static_cast<void>(progress); }

  protected:
    /// The one door: what a view reports of its person.
    static UserInput userInput() { return {}; }
};

/// Installs the view of this thread; null takes it away. Without a view every question gets the
/// answer that changes nothing: a dialog is cancelled, a box answered with No or OK, and browsing
/// gives no path. May be called while a dialog is up: that one stays with the view that shows it,
/// which lives until the dialog has closed, and whatever comes up from then on goes to the new one.
/// Raises what the view raises when it can't serve this thread; the one before then stays.
WYNCONFIG_API void installView(std::shared_ptr<View> view);

/// The installed view, or the one that answers as told above; never null. Hold it for as long as a
/// call of it lasts, since it may be replaced meanwhile.
WYNCONFIG_API std::shared_ptr<View> installedView();

/// The same, for a call in which nobody installs another one.
WYNCONFIG_API View& currentView();

/// What a view says by itself, in the language of the dialogs: the text of the host's resource
/// manager, or else the English one; see `ResourceManager::FindString`. Raises nothing.
/// @param key  one of those that begin with "VIEW_" in `resources/en.xlf`; empty for any other
WYNCONFIG_API std::string viewWord(const std::string& key);

}  // namespace wynconfig
