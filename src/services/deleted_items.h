// Deleting an item of the store: it moves into the folder "deleted" beside the others.
#pragma once

#include <string>

#include "services/on_error.h"
#include "wynconfig/dataset.h"

namespace wynconfig {

/// Moves an item into the folder "deleted" of its store folder, in place of a like-named one there.
/// Each step is a statement of its own: when the item can't be loaded or saved, its file is deleted
/// all the same.
/// @param record  what the item is loaded into and saved from
/// @param folder  the store folder, with its trailing separator
/// @param name    the item's name, without ".vla"
void moveToDeleted(OnError& on, Dataset& record, const std::string& folder,
                   const std::string& name);

}  // namespace wynconfig
