/// @file
/// Finds what a key of the keyboard belongs to.
#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "wynconfig/export.h"
#include "wynconfig/layout.h"
#include "wynconfig/user.h"

namespace wynconfig {

/// What marks a key in its caption.
struct WYNCONFIG_API KeyHolder {
    Control* control = nullptr;  ///< never null in what the functions below give
    int tab = -1;                ///< where the control is a Tabs: the index of the tab
};

/// What marks a key on a form and can be used now, in the order of the layout: for a view whose
/// toolkit finds none by itself.
/// @param body  what is in the window, as in `FormLayout`
/// @param key   one upper-cased character
WYNCONFIG_API std::vector<KeyHolder> holdersOf(const Layout& body, std::string_view key);

/// The one thing that a played person sees to mark a key and to be of use now. Raises `UserError`
/// when there is none, or more than one.
/// @param body  what is in the window, as in `FormLayout`
/// @param key   one upper-cased character
/// @param look  what the person sees of a control
WYNCONFIG_API KeyHolder holderOf(const Layout& body, std::string_view key,
                                 const std::function<Sight(const Control&)>& look);

}  // namespace wynconfig
