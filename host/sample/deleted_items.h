// The items that lie in the two `deleted` folders of a store, and their way back.
#pragma once

#include <QString>
#include <vector>

#include "sample/sample_store.h"
#include "wynconfig/store.h"

namespace host {

/// A session or a part format that was deleted.
struct DeletedItem {
    using Kind = wynconfig::ItemKind;
    Kind kind = Kind::Session;
    QString name;
    bool operator==(const DeletedItem&) const = default;
};

/// All deleted items: the sessions first, each kind by name.
std::vector<DeletedItem> deletedItems(const StoreFolders& store);

/// Moves the item's file back into its folder. Raises `std::runtime_error` with a sentence for the
/// user when it can't, and when an item of this name (in any case of its letters) is there.
void restoreItem(const StoreFolders& store, const DeletedItem& item);

}  // namespace host
