/// @file
/// What the keyboard does in a form, decided in one place for all views: a view says which key was
/// pressed, and carries out what comes of it.
#pragma once

#include <cstddef>
#include <functional>
#include <string_view>
#include <vector>

#include "wynconfig/controls.h"
#include "wynconfig/export.h"
#include "wynconfig/key_holder.h"
#include "wynconfig/layout.h"
#include "wynconfig/type_ahead.h"

namespace wynconfig {

class Form;
class UserInput;

/// The keys that a form answers, wherever on it the focus is. What other keys do within a box or a
/// list, such as the arrow keys, is left to the toolkit.
enum class FormKey {
    Enter,        ///< presses the button at the focus, does the usual act of a list, or else
                  ///< presses the default button
    Escape,       ///< presses the cancel button
    Delete,       ///< in a list presses the button behind it
    F1,           ///< shows the help of the form
    F2,           ///< in a list presses the button behind it
    Tab,          ///< leads to the next place, around the end
    BackTab,      ///< Shift and Tab
    NextPane,     ///< Ctrl and Tab, Ctrl and Page Down
    PreviousPane  ///< Ctrl, Shift and Tab, Ctrl and Page Up
};

/// What comes of a key.
struct WYNCONFIG_API KeyAct {
    /// What is to be done.
    enum class Kind {
        Nothing,  ///< the form has no use for the key: it is left to the control with the focus
        Focus,    ///< the control gets the focus
        Press,    ///< a button is pressed, a check box turned, an option chosen
        Pick,     ///< a row of a list is picked, also when it is selected already
        GoTo,     ///< a row of a list is picked, or an item of a combo box chosen, unless it is so
        TurnTab,  ///< a tab comes on top
        Help      ///< the view shows `helpPage`, and nothing comes to the form
    };

    Kind kind = Kind::Nothing;   ///< what is to be done
    Control* control = nullptr;  ///< null for nothing and for help
    std::size_t number = 0;      ///< of the row, item or tab, from 1
    bool takesFocus = false;     ///< the control gets the focus first, as at a click

    /// Whether two are the same in all that they have.
    bool operator==(const KeyAct&) const = default;
    /// False when the form has no use for the key.
    explicit operator bool() const { return kind != Kind::Nothing; }
};

/// What a key does now. Nothing that can't be seen and used is ever pressed.
/// @param form       a loaded one
/// @param key        the one that was pressed
/// @param markedRow  of the list that has the focus, the row that the keyboard is at (its number
///                   from 1), where the view tells it from the selected one; 0: it does not
WYNCONFIG_API KeyAct actOfKey(Form& form, FormKey key, std::size_t markedRow = 0);

/// What the key does that a control or a tab marks in its caption: see `User::pressMnemonic`.
WYNCONFIG_API KeyAct actOfMark(Form& form, const KeyHolder& holder);

/// What a letter does that is typed in a list or a combo box.
/// @param form         a loaded one
/// @param listOrCombo  where; any other control has no use for letters
/// @param ahead        has the letters that were typed just before; the view has it `forget` them
///                     after a pause, or when the focus moves
/// @param letter       one character, UTF-8
WYNCONFIG_API KeyAct actOfLetter(Form& form, Control& listOrCombo, TypeAhead& ahead,
                                 std::string_view letter);

/// What a double click does in a list once it has picked a row; nothing: it is one more pick.
WYNCONFIG_API KeyAct actOfDoubleClick(Form& form, ListView& list);

/// Has the form undergo what comes of a key. A view that has a focus of its own moves that first.
WYNCONFIG_API void carryOut(const KeyAct& act, const UserInput& input);

/// Where the Tab key can stop, in its order: the controls that take the focus, and the tabs, at
/// which a view may stop or not.
WYNCONFIG_API std::vector<Control*> tabOrder(const Layout& body);

/// Where the Tab key leads, around the ends.
/// @param order    the places in their order, see `tabOrder`; a view may have the buttons that end
///                 the dialog in the order of its platform
/// @param from     where the focus is; null, or what is not among the places: at none of them yet
/// @param forward  false: with Shift
/// @param stops    whether the key stops at a place now
/// @return null when there is no such place
WYNCONFIG_API Control* nextStop(const std::vector<Control*>& order, const Control* from,
                                bool forward, const std::function<bool(const Control&)>& stops);

}  // namespace wynconfig
