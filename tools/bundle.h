// Sessions along with the part formats that they name, on their way from one store to another; and
// the one file in which they travel, which docs/administer.md tells.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "items.h"
#include "wynconfig/store.h"

namespace tool {

/// Sessions and their part formats.
struct Bundle {
    /// A part format that a session names, though its store has none of that name.
    struct Missing {
        std::string session;
        std::string format;
    };

    std::vector<wynconfig::StoreItem> items;  ///< each once
    std::vector<Missing> missing;
};

/// Takes sessions out of a store, with all part formats that they name and that are there. A record
/// has the name of its file there. Raises `wynconfig::Error` when an item can't be read.
Bundle bundleOf(const Store& store, const Names& sessions,
                const wynconfig::StoreProgress& progress = {});

/// All sessions and all part formats of a store, as `bundleOf` takes them.
Bundle wholeStore(const Store& store, const wynconfig::StoreProgress& progress = {});

/// The text of a bundle's file; what is missing is not in it.
std::string textOf(const Bundle& bundle);
/// Reads that text. Raises `wynconfig::Error` unless each record in it can be an item of a store.
Bundle bundleFrom(const std::string& text);

/// What would come of a bundle in a store.
struct Plan {
    std::vector<Item> added;      ///< the store has no such item
    std::vector<Item> unchanged;  ///< it has the same one
    std::vector<Item> differing;  ///< it has another one of that name, or one that can't be read
    std::vector<wynconfig::StoreItem> toSave;  ///< all but the unchanged ones
};
Plan planOf(const Store& store, const Bundle& bundle);
/// The same for another place.
/// @param present  the record that has an item's name there: none, or one that is empty where it
///                 can't be read
Plan planOf(const Bundle& bundle, const std::function<std::shared_ptr<const wynconfig::Dataset>(
                                      const wynconfig::StoreItem& item)>& present);

}  // namespace tool
