// Questions about a layout that every view has to ask.
#include "wynconfig/layout.h"

#include <algorithm>

namespace wynconfig {

namespace {

void collect(const Layout& node, std::vector<Control*>& into) {
    if (node.label) into.push_back(node.label);
    const bool childrenFirst = node.kind == Layout::Kind::Titled && !node.behindBox;
    if (node.control && !childrenFirst) into.push_back(node.control);
    for (const Layout& child : node.children) collect(child, into);
    if (node.control && childrenFirst) into.push_back(node.control);
}

bool holds(const Layout& node, const Control& control) {
    if (node.control == &control || node.label == &control) return true;
    return std::any_of(node.children.begin(), node.children.end(),
                       [&](const Layout& child) { return holds(child, control); });
}

bool hidesChild(const Layout& node, std::size_t child) {
    switch (node.kind) {
        case Layout::Kind::Group:
            return !node.control->visible();
        case Layout::Kind::Tabs:
            return !node.control->visible() ||
                   static_cast<std::size_t>(static_cast<Tabs*>(node.control)->tab()) != child;
        default:
            return false;
    }
}

/// The node that names a control, as its control or as its label; null when there is none.
const Layout* nodeOf(const Layout& node, const Control& control) {
    if (node.control == &control || node.label == &control) return &node;
    for (const Layout& child : node.children) {
        if (const Layout* found = nodeOf(child, control)) return found;
    }
    return nullptr;
}

/// Gathers the buttons that move rows out of the list of a label.
void collectMovers(const Layout& node, const Control* from, std::vector<const Layout*>& into) {
    if (from && node.into && node.from == from) into.push_back(&node);
    for (const Layout& child : node.children) collectMovers(child, from, into);
}

std::vector<const Layout*> moversFrom(const Layout& body, const ListView& list) {
    std::vector<const Layout*> movers;
    const Layout* node = nodeOf(body, list);
    if (node) collectMovers(body, node->label, movers);
    return movers;
}

bool isOption(const Control& control) {
    return control.kind() == ControlKind::OptionButton;
}

/// The controls among which the key of a label or a frame chooses.
std::vector<Control*> candidatesOf(const Layout& node, const Control& labelOrFrame) {
    std::vector<Control*> candidates;
    for (const Layout& child : node.children) collect(child, candidates);
    if (node.label != &labelOrFrame) return candidates;
    if (!isOption(*node.control)) return {node.control};
    candidates.insert(candidates.begin(), node.control);
    return candidates;
}

}  // namespace

std::vector<Control*> controlsOf(const Layout& node) {
    std::vector<Control*> found;
    collect(node, found);
    return found;
}

bool isPlaceSeen(const Layout& node, const Control& control) {
    if (node.control == &control || node.label == &control) return true;
    for (std::size_t i = 0; i < node.children.size(); ++i) {
        if (holds(node.children[i], control))
            return !hidesChild(node, i) && isPlaceSeen(node.children[i], control);
    }
    return false;
}

bool isSeen(const Layout& node, const Control& control) {
    return control.visible() && isPlaceSeen(node, control);
}

bool isUsable(const Layout& body, const Control& control) {
    return control.enabled() && isSeen(body, control);
}

ListActs actsOf(const Layout& body, const ListView& list) {
    const Layout* node = nodeOf(body, list);
    return node ? node->acts : ListActs{};
}

Button* buttonFor(const Layout& body, const ListView& list, Button* ListActs::*act) {
    Button* button = actsOf(body, list).*act;
    return button && list.selectedNumber() > 0 && isUsable(body, *button) ? button : nullptr;
}

std::vector<Button*> buttonsOf(const Layout& body, const ListView& list) {
    std::vector<Button*> buttons;
    const Layout* node = nodeOf(body, list);
    if (!node) return buttons;
    for (const Layout& child : node->children) {
        if (child.control && child.control->kind() == ControlKind::Button)
            buttons.push_back(static_cast<Button*>(child.control));
    }
    for (const Layout* each : moversFrom(body, list))
        buttons.push_back(static_cast<Button*>(each->control));
    return buttons;
}

Button* moverOf(const Layout& body, const ListView& from, const ListView& into) {
    const Layout* target = nodeOf(body, into);
    for (const Layout* each : moversFrom(body, from)) {
        if (target && each->into == target->label) return static_cast<Button*>(each->control);
    }
    return nullptr;
}

bool takesFocus(const Control& control) {
    switch (control.kind()) {
        case ControlKind::Edit:
        case ControlKind::ListView:
        case ControlKind::ComboBox:
        case ControlKind::OptionButton:
        case ControlKind::CheckBox:
        case ControlKind::Button:
            return true;
        default:
            return false;
    }
}

bool isValue(const Layout& body, const Control& control) {
    if (control.kind() != ControlKind::Label) return false;
    const Layout* node = nodeOf(body, control);
    return node && node->control == &control;
}

bool marksKey(const Layout& body, const Control& control) {
    const Layout* node = nodeOf(body, control);
    if (!node) return false;
    return control.kind() != ControlKind::Label ||
           (node->label == &control && takesFocus(*node->control));
}

Control* keyTarget(const Layout& body, const Control& labelOrFrame) {
    const Layout* node = nodeOf(body, labelOrFrame);
    if (!node) return nullptr;
    Control* first = nullptr;
    for (Control* each : candidatesOf(*node, labelOrFrame)) {
        if (!takesFocus(*each) || !isUsable(body, *each)) continue;
        if (!first) first = each;
        if (!isOption(*first)) return first;
        if (isOption(*each) && static_cast<OptionButton*>(each)->value()) return each;
    }
    return first;
}

}  // namespace wynconfig
