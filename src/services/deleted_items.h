// Deleting an item of the store: it moves into the folder "deleted" beside the others.
#pragma once

#include <string>

#include "services/on_error.h"

namespace wynconfig {

/// Moves an item into the folder "deleted" of its store folder, in place of a like-named one there.
/// Each step is a statement of its own: of an item that can't be loaded an empty record is kept,
/// and when that can't be saved the item's file is deleted all the same, also when "deleted" is a
/// link, which is refused.
/// @param folder  the store folder, with its trailing separator
/// @param name    the item's name, without ".vla"
void moveToDeleted(OnError& on, const std::string& folder, const std::string& name);

}  // namespace wynconfig
