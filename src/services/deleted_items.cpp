// Moving an item by way of its record.
#include "services/deleted_items.h"

#include "platform/files/file_system.h"
#include "store/item_names.h"
#include "wynconfig/dataset.h"

namespace wynconfig {

void moveToDeleted(OnError& on, const std::string& folder, const std::string& name) {
    const ItemPath file = ItemPath::item(folder, name);
    // A record of this deletion alone: no item is kept with what another one held.
    Dataset record;
    on.resumeNext();
    on([&] { fileSystem().makeFolder(folder + "deleted"); });
    on.standard();
    on([&] { record.Load(file, 0); });
    on([&] { record.Save(ItemPath::item(deletedFolder(folder), name)); });
    on([&] { fileSystem().remove(file); });
}

}  // namespace wynconfig
