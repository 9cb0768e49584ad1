// What of a layout has a use for more room than it needs: the same in every view.
#pragma once

#include <algorithm>
#include <vector>

#include "wynconfig/layout.h"

namespace wynconfig {

/// Whether a control is a box, whose content knows no bounds: for text, with rows, or to choose in.
inline bool isBox(const Control& control) {
    switch (control.kind()) {
        case ControlKind::Edit:
        case ControlKind::ListView:
        case ControlKind::ComboBox:
            return true;
        default:
            return false;
    }
}

/// Whether a node has a use for more height than it needs.
inline bool growsDown(const Layout& node) {
    switch (node.kind) {
        case Layout::Kind::Stretch:
            return true;
        case Layout::Kind::Row:
            // A stretch in a row takes width.
            return std::any_of(node.children.begin(), node.children.end(), [](const Layout& each) {
                return each.kind != Layout::Kind::Stretch && growsDown(each);
            });
        case Layout::Kind::Column:
        case Layout::Kind::Group:
        case Layout::Kind::Pane:
        case Layout::Kind::Tabs:
            return std::any_of(node.children.begin(), node.children.end(), growsDown);
        case Layout::Kind::Buttons:
            return false;
        default:
            return node.control->kind() == ControlKind::ListView;
    }
}

/// Whether one of several does.
inline bool anyGrowsDown(const std::vector<Layout>& nodes) {
    return std::any_of(nodes.begin(), nodes.end(), growsDown);
}

}  // namespace wynconfig
