// Loading items.
#include "sample/store_items.h"

#include <memory>
#include <stdexcept>

#include "texts/phrase.h"
#include "texts/system_words.h"
#include "wynconfig/error.h"
#include "wynconfig/store.h"

namespace host {

namespace {

/// @param failed  key of the sentence that it can't be read
std::shared_ptr<wynconfig::Dataset> read(const StoreFolders& store, wynconfig::ItemKind kind,
                                         const std::string& name, const char* failed) {
    try {
        return wynconfig::Store(store.rootText()).read(kind, name);
    } catch (const wynconfig::Error& error) {
        const std::string why = error.number() == wynconfig::errc::FileNotFound
                                    ? phrase("REASON_NOT_IN_STORE") + "."
                                    : inUsersWords(error.description());
        throw std::runtime_error(phrase(failed, {name, why}));
    }
}

}  // namespace

Session loadSession(const StoreFolders& store, const std::string& name) {
    return readSession(*read(store, wynconfig::ItemKind::Session, name, "SESSION_CANT_READ"));
}

PartFormat loadPartFormat(const StoreFolders& store, const std::string& name) {
    return readPartFormat(*read(store, wynconfig::ItemKind::PartFormat, name, "FORMAT_CANT_READ"));
}

}  // namespace host
