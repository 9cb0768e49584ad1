// What stands in place of the rows of an empty list: the same in every view.
#pragma once

#include <string>

#include "platform/forms/filled_in.h"
#include "wynconfig/layout.h"
#include "wynconfig/mnemonic.h"
#include "wynconfig/view.h"

namespace wynconfig {

/// The label of the list that a button moves rows out of; null when it moves none.
inline const Label* sourceOf(const Layout& node, const Button& button) {
    if (node.control == &button) return node.from;
    for (const Layout& child : node.children) {
        if (const Label* found = sourceOf(child, button)) return found;
    }
    return nullptr;
}

/// Says that a list is empty, and what brings its first row, where something does.
/// @param fill  the button of `ListActs::fill`; may be null
inline std::string wordsWhenEmpty(const Layout& body, const Button* fill) {
    if (!fill || !fill->visible()) return viewWord("VIEW_EMPTY");
    const std::string button = plainCaption(fill->caption());
    const Label* const from = sourceOf(body, *fill);
    return from ? filledIn(viewWord("VIEW_EMPTY_MOVE"), plainCaption(from->caption()), button)
                : filledIn(viewWord("VIEW_EMPTY_PRESS"), button, {});
}

}  // namespace wynconfig
