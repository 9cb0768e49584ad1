// Looking into the `deleted` folders, and moving files out of them.
#include "sample/deleted_items.h"

#include <stdexcept>

#include "texts/phrase.h"
#include "texts/system_words.h"
#include "wynconfig/error.h"

namespace host {

using wynconfig::Store;

std::vector<DeletedItem> deletedItems(const StoreFolders& store) {
    std::vector<DeletedItem> items;
    for (const auto kind : {DeletedItem::Kind::Session, DeletedItem::Kind::PartFormat}) {
        for (const std::string& name : Store(store.rootText()).deletedNames(kind))
            items.push_back({kind, QString::fromStdString(name)});
    }
    return items;
}

void restoreItem(const StoreFolders& store, const DeletedItem& item) {
    const std::string name = item.name.toStdString();
    try {
        const Store items(store.rootText());
        if (items.has(item.kind, name)) {
            const std::string there = items.path(item.kind, name).name;
            const bool isSession = item.kind == DeletedItem::Kind::Session;
            throw std::runtime_error(
                phrase(isSession ? "DELETED_SESSION_TAKEN" : "DELETED_FORMAT_TAKEN",
                       {there.substr(0, there.rfind('.'))}));
        }
        items.restore(item.kind, name);
    } catch (const wynconfig::Error& error) {
        throw std::runtime_error(
            phrase("DELETED_CANT_RESTORE", {name, inUsersWords(error.description())}));
    }
}

}  // namespace host
