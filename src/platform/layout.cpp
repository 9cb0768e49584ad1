// Questions about a layout that every view has to ask.
#include "wynconfig/layout.h"

#include <algorithm>

namespace wynconfig {

namespace {

void collect(const Layout& node, std::vector<Control*>& into) {
    if (node.label) into.push_back(node.label);
    if (node.control) into.push_back(node.control);
    for (const Layout& child : node.children) collect(child, into);
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

}  // namespace

std::vector<Control*> controlsOf(const Layout& node) {
    std::vector<Control*> found;
    collect(node, found);
    return found;
}

bool isSeen(const Layout& node, const Control& control) {
    if (node.control == &control || node.label == &control) return control.visible();
    for (std::size_t i = 0; i < node.children.size(); ++i) {
        if (holds(node.children[i], control))
            return !hidesChild(node, i) && isSeen(node.children[i], control);
    }
    return false;
}

}  // namespace wynconfig
