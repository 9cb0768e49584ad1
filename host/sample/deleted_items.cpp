// Looking into the `deleted` folders, and moving files out of them.
#include "sample/deleted_items.h"

#include <QCoreApplication>
#include <stdexcept>

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
            throw std::runtime_error("There is a " + wordsFor(item.kind).toLower().toStdString() +
                                     " named " + there.substr(0, there.rfind('.')) +
                                     " already; nothing was restored.");
        }
        items.restore(item.kind, name);
    } catch (const wynconfig::Error& error) {
        throw std::runtime_error(name + " can't be restored: " + error.description());
    }
}

QString wordsFor(DeletedItem::Kind kind) {
    return kind == DeletedItem::Kind::Session
               ? QCoreApplication::translate("DeletedItems", "Session")
               : QCoreApplication::translate("DeletedItems", "Part format");
}

}  // namespace host
