// Loading items.
#include "sample/store_items.h"

#include <memory>
#include <stdexcept>

#include "wynconfig/error.h"
#include "wynconfig/store.h"

namespace host {

namespace {

/// @param word  for such an item
std::shared_ptr<wynconfig::Dataset> read(const StoreFolders& store, wynconfig::ItemKind kind,
                                         const std::string& name, const std::string& word) {
    try {
        return wynconfig::Store(store.rootText()).read(kind, name);
    } catch (const wynconfig::Error& error) {
        const std::string why = error.number() == wynconfig::errc::FileNotFound
                                    ? "it is not in the store."
                                    : error.description();
        throw std::runtime_error("The " + word + " " + name + " can't be read: " + why);
    }
}

}  // namespace

Session loadSession(const StoreFolders& store, const std::string& name) {
    return readSession(*read(store, wynconfig::ItemKind::Session, name, "session"));
}

PartFormat loadPartFormat(const StoreFolders& store, const std::string& name) {
    return readPartFormat(*read(store, wynconfig::ItemKind::PartFormat, name, "part format"));
}

}  // namespace host
