/// @file
/// How a dialog is laid out, in terms that every view can render: nested rows, columns, groups and
/// tabs that name the controls. No pixels.
#pragma once

#include <string_view>
#include <utility>
#include <vector>

#include "wynconfig/controls.h"
#include "wynconfig/export.h"

namespace wynconfig {

/// What the keyboard and the mouse do in a list beside picking. A button is pressed only while it
/// is seen and enabled, and only for a row that is selected.
struct ListActs {
    Button* del = nullptr;       ///< pressed by the Delete key
    Button* rename = nullptr;    ///< pressed by F2
    Button* activate = nullptr;  ///< pressed by Enter and by a double click
    Button* fill = nullptr;      ///< brings the first row: an empty list speaks of it
    /// A pick does something at once: letters pick nothing, and neither do arrow keys; they only
    /// move to a row, which the space bar or Enter then picks.
    bool deliberate = false;
};

/// One node of a layout.
struct WYNCONFIG_API Layout {
    /// How the node is to be rendered.
    enum class Kind {
        Column,   ///< children from top to bottom; neighbouring `Field`s share their label column
        Row,      ///< children from left to right
        Group,    ///< `control` is a Frame around the children, stacked as in a column
        Tabs,     ///< `control` is a Tabs; the children are its `Pane`s in order
        Pane,     ///< `control` is a Container; the children stand in it, stacked as in a column
        Field,    ///< `label` in front of `control`; children stand behind it in the same row.
                  ///< Without a label it begins where the boxes of its neighbours do.
        Titled,   ///< `label` above `control`; children stand in front of it, from its top
        Single,   ///< `control` alone
        Buttons,  ///< the buttons that end the dialog: to accept, to reject, and to apply. Each
                  ///< view has them in the order of its platform.
        Stretch   ///< empty space that takes what is left
    };

    Kind kind = Kind::Column;      ///< how to render it
    Control* control = nullptr;    ///< see `Kind`; null for the kinds that only arrange
    Control* label = nullptr;      ///< names the control, for the eye as for a screen reader
    std::vector<Layout> children;  ///< in the order in which they stand
    bool grows = false;            ///< takes a share of the space that is left
    ListActs acts = {};            ///< of a list
    Label* from = nullptr;   ///< of a button that moves rows: the label of the list they leave
    Label* into = nullptr;   ///< and that of the list they go to
    bool behindBox = false;  ///< of a Titled: its children stand behind the box
    /// What no caption on the screen names is spoken of by this word, a key for `viewWord`: the
    /// control, or of a Field with options all of them together. Empty where a caption does.
    std::string_view spoken = {};
    /// Of a box for text: how many characters of usual width what goes in there has as a rule. A
    /// view may keep a box for few of them narrow, and give one for many more room; 0: no rule.
    int chars = 0;
};

/// A dialog's layout and the buttons behind its Enter and Escape keys.
struct WYNCONFIG_API FormLayout {
    Layout body;                      ///< everything in the window
    Button* defaultButton = nullptr;  ///< pressed by Enter where that has no other use
    Button* cancelButton = nullptr;   ///< pressed by Escape
};

/// The words in which dialogs declare their layout.
namespace layout {

/// A node of any kind, on which the words below are built.
inline Layout node(Layout::Kind kind, Control* control, Control* label,
                   std::vector<Layout> children) {
    Layout made;
    made.kind = kind;
    made.control = control;
    made.label = label;
    made.children = std::move(children);
    return made;
}
/// Children from top to bottom.
inline Layout column(std::vector<Layout> children) {
    return node(Layout::Kind::Column, nullptr, nullptr, std::move(children));
}
/// Children from left to right.
inline Layout row(std::vector<Layout> children) {
    return node(Layout::Kind::Row, nullptr, nullptr, std::move(children));
}
/// A frame around its children.
inline Layout group(Frame& frame, std::vector<Layout> children) {
    return node(Layout::Kind::Group, &frame, nullptr, std::move(children));
}
/// What is on one tab.
inline Layout pane(Container& container, std::vector<Layout> children) {
    return node(Layout::Kind::Pane, &container, nullptr, std::move(children));
}
/// Tabs with a pane for each, in their order.
inline Layout tabs(Tabs& control, std::vector<Layout> panes) {
    return node(Layout::Kind::Tabs, &control, nullptr, std::move(panes));
}
/// A box with its label in front of it, and others behind it.
inline Layout field(Label& label, Control& box, std::vector<Layout> behind = {}) {
    return node(Layout::Kind::Field, &box, &label, std::move(behind));
}
/// A control that needs no label, below the boxes of the fields around it.
inline Layout below(Control& control, std::vector<Layout> behind = {}) {
    return node(Layout::Kind::Field, &control, nullptr, std::move(behind));
}
/// A box with its label above it.
inline Layout titled(Label& label, Control& box) {
    return node(Layout::Kind::Titled, &box, &label, {});
}
/// A titled box with others in front of it, from its top on.
inline Layout titled(Label& label, std::vector<Layout> before, Control& box) {
    return node(Layout::Kind::Titled, &box, &label, std::move(before));
}
/// A titled box with others behind it, from its top on.
inline Layout titled(Label& label, Control& box, std::vector<Layout> behind) {
    Layout made = node(Layout::Kind::Titled, &box, &label, std::move(behind));
    made.behindBox = true;
    return made;
}
/// A control alone.
inline Layout single(Control& control) {
    return node(Layout::Kind::Single, &control, nullptr, {});
}
/// A button that moves the selected row of one list into another.
inline Layout moving(Button& button, Label& from, Label& into) {
    Layout made = single(button);
    made.from = &from;
    made.into = &into;
    return made;
}
/// The buttons that end the dialog: to accept, to reject, to apply.
inline Layout buttons(const std::vector<Button*>& inOrder) {
    std::vector<Layout> children;
    for (Button* each : inOrder) children.push_back(single(*each));
    return node(Layout::Kind::Buttons, nullptr, nullptr, std::move(children));
}
/// Empty space that takes what is left.
inline Layout stretch() {
    Layout made = node(Layout::Kind::Stretch, nullptr, nullptr, {});
    made.grows = true;
    return made;
}
/// The same node, taking a share of the space that is left.
inline Layout growing(Layout node) {
    node.grows = true;
    return node;
}

/// The same list, with more that the keyboard and the mouse do in it.
inline Layout acting(Layout list, const ListActs& acts) {
    list.acts = acts;
    return list;
}

/// The same box, for texts of a length that is known as a rule.
/// @param box    a box for text, or a field of one
/// @param chars  see `Layout::chars`
inline Layout sized(Layout box, int chars) {
    box.chars = chars;
    return box;
}

/// The same node, with a word for who hears the dialog where no caption is on the screen.
/// @param node  of a control, or a field with options
/// @param word  see `Layout::spoken`; has to last
inline Layout spokenAs(Layout node, std::string_view word) {
    node.spoken = word;
    return node;
}

}  // namespace layout

/// The controls that a layout names, labels included, in its order, which is that of the Tab key.
WYNCONFIG_API std::vector<Control*> controlsOf(const Layout& node);

/// Whether a person can see a control now: it is visible, and so is each frame around it, and each
/// pane around it lies on the tab that is on top.
WYNCONFIG_API bool isSeen(const Layout& node, const Control& control);

/// Whether a person can see now where a control stands, be it hidden itself: each frame around it
/// is visible, and each pane around it lies on the tab that is on top.
WYNCONFIG_API bool isPlaceSeen(const Layout& node, const Control& control);

/// Whether a person can use a control now: it is seen and enabled.
WYNCONFIG_API bool isUsable(const Layout& body, const Control& control);

/// What the keyboard and the mouse do in a list.
WYNCONFIG_API ListActs actsOf(const Layout& body, const ListView& list);

/// The button that an act in a list presses now; null when there is none.
/// @param body  what is in the window, as in `FormLayout`
/// @param list  the list that has the focus
/// @param act   one of the buttons of `ListActs`
WYNCONFIG_API Button* buttonFor(const Layout& body, const ListView& list, Button* ListActs::*act);

/// The buttons that act on the rows of a list, in the order of the layout: those that stand beside
/// it, and those that move its rows into another one.
WYNCONFIG_API std::vector<Button*> buttonsOf(const Layout& body, const ListView& list);

/// The button that moves a row from one list into another; null when there is none.
WYNCONFIG_API Button* moverOf(const Layout& body, const ListView& from, const ListView& into);

/// Whether a control is of a kind that can have the focus.
WYNCONFIG_API bool takesFocus(const Control& control);

/// Whether the caption of a control is read for a key (see mnemonic.h). That of a label is where it
/// stands at a box or an option to lead to; a label that stands in the place of a box shows a value
/// as it is.
WYNCONFIG_API bool marksKey(const Layout& body, const Control& control);

/// Whether a control is a label whose words are a value, which is never read for marks.
WYNCONFIG_API bool isValue(const Layout& body, const Control& control);

/// Where the key of a label or a frame leads: to the label's box, or to the first control in the
/// frame; among options to the one that is chosen. Null when nothing there can be used now.
WYNCONFIG_API Control* keyTarget(const Layout& body, const Control& labelOrFrame);

}  // namespace wynconfig
