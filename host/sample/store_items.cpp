// Loading items.
#include "sample/store_items.h"

#include <filesystem>
#include <stdexcept>

#include "wynconfig/dataset.h"
#include "wynconfig/error.h"

namespace host {

namespace fs = std::filesystem;

namespace {

/// @param kind  the word for such an item
void load(wynconfig::Dataset& record, const fs::path& folder, const std::string& name,
          const std::string& kind) {
    try {
        record.Load(wynconfig::ItemPath::item(folder.string() + "/", name));
    } catch (const wynconfig::Error& error) {
        const std::string why = error.number() == wynconfig::errc::FileNotFound
                                    ? "it is not in the store."
                                    : error.description();
        throw std::runtime_error("The " + kind + " " + name + " can't be read: " + why);
    }
}

}  // namespace

Session loadSession(const StoreFolders& store, const std::string& name) {
    wynconfig::Dataset record;
    load(record, store.sessions(), name, "session");
    return readSession(record);
}

PartFormat loadPartFormat(const StoreFolders& store, const std::string& name) {
    wynconfig::Dataset record;
    load(record, store.formats(), name, "part format");
    return readPartFormat(record);
}

}  // namespace host
