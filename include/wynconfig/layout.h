// How a dialog is laid out, in terms that every view can render: nested rows, columns, groups and
// tabs that name the controls. No pixels.
#pragma once

#include <utility>
#include <vector>

#include "wynconfig/controls.h"

namespace wynconfig {

/// One node of a layout.
struct Layout {
    enum class Kind {
        Column,  ///< children from top to bottom; neighbouring `Field`s share their label column
        Row,     ///< children from left to right
        Group,   ///< `control` is a Frame around the children, stacked as in a column
        Tabs,    ///< `control` is a Tabs; the children are its `Pane`s in order
        Pane,    ///< `control` is a Container; the children stand in it, stacked as in a column
        Field,   ///< `label` in front of `control`; children stand behind it in the same row
        Titled,  ///< `label` above `control`
        Single,  ///< `control` alone
        Stretch  ///< empty space that takes what is left
    };

    Kind kind = Kind::Column;
    Control* control = nullptr;
    Control* label = nullptr;
    std::vector<Layout> children;
    bool grows = false;  ///< takes a share of the space that is left
};

/// A dialog's layout and the buttons behind its Enter and Escape keys.
struct FormLayout {
    Layout body;
    Button* defaultButton = nullptr;
    Button* cancelButton = nullptr;
};

/// The words in which dialogs declare their layout.
namespace layout {

inline Layout column(std::vector<Layout> children) {
    return {Layout::Kind::Column, nullptr, nullptr, std::move(children), false};
}
inline Layout row(std::vector<Layout> children) {
    return {Layout::Kind::Row, nullptr, nullptr, std::move(children), false};
}
inline Layout group(Frame& frame, std::vector<Layout> children) {
    return {Layout::Kind::Group, &frame, nullptr, std::move(children), false};
}
inline Layout pane(Container& container, std::vector<Layout> children) {
    return {Layout::Kind::Pane, &container, nullptr, std::move(children), false};
}
inline Layout tabs(Tabs& control, std::vector<Layout> panes) {
    return {Layout::Kind::Tabs, &control, nullptr, std::move(panes), false};
}
inline Layout field(Label& label, Control& box, std::vector<Layout> behind = {}) {
    return {Layout::Kind::Field, &box, &label, std::move(behind), false};
}
inline Layout titled(Label& label, Control& box) {
    return {Layout::Kind::Titled, &box, &label, {}, false};
}
inline Layout single(Control& control) {
    return {Layout::Kind::Single, &control, nullptr, {}, false};
}
inline Layout stretch() {
    return {Layout::Kind::Stretch, nullptr, nullptr, {}, true};
}
/// The same node, taking a share of the space that is left.
inline Layout growing(Layout node) {
    node.grows = true;
    return node;
}

}  // namespace layout

/// The controls that a layout names, labels included, in its order, which is that of the Tab key.
std::vector<Control*> controlsOf(const Layout& node);

/// Whether a person can see a control now: it is visible, and so is each frame around it, and each
/// pane around it lies on the tab that is on top.
bool isSeen(const Layout& node, const Control& control);

/// Whether a control is of a kind that can have the focus.
bool takesFocus(const Control& control);

/// Whether the caption of a control is read for a key (see mnemonic.h). That of a label is where it
/// stands at a box or an option to lead to; a label that stands in the place of a box shows a value
/// as it is.
bool marksKey(const Layout& body, const Control& control);

/// Whether a control is a label whose words are a value, which is never read for marks.
bool isValue(const Layout& body, const Control& control);

/// Where the key of a label or a frame leads: to the label's box, or to the first control in the
/// frame; among options to the one that is chosen. Null when nothing there can be used now.
Control* keyTarget(const Layout& body, const Control& labelOrFrame);

}  // namespace wynconfig
