// Finds what a key of the keyboard belongs to, for the played person of any view.
#pragma once

#include <functional>
#include <string_view>

#include "wynconfig/layout.h"
#include "wynconfig/user.h"

namespace wynconfig {

/// What marks a key in its caption.
struct KeyHolder {
    Control* control = nullptr;
    int tab = -1;  ///< where the control is a Tabs: the index of the tab
};

/// The one thing on a form that marks a key and can be used now. Raises `UserError` when there is
/// none, or more than one.
/// @param key   one upper-cased character
/// @param look  what the person sees of a control
KeyHolder holderOf(const Layout& body, std::string_view key,
                   const std::function<Sight(const Control&)>& look);

}  // namespace wynconfig
