// Looking into the `deleted` folders, and moving files out of them.
#include "deleted_items.h"

#include <QCoreApplication>
#include <stdexcept>

#include "store_items.h"

namespace host {

namespace fs = std::filesystem;

namespace {

constexpr const char* kDeletedFolder = "deleted";

fs::path folderOf(const StoreFolders& store, DeletedItem::Kind kind) {
    return kind == DeletedItem::Kind::Session ? store.sessions() : store.formats();
}

}  // namespace

std::vector<DeletedItem> deletedItems(const StoreFolders& store) {
    std::vector<DeletedItem> items;
    for (const auto kind : {DeletedItem::Kind::Session, DeletedItem::Kind::PartFormat}) {
        for (const std::string& name : itemNames(folderOf(store, kind) / kDeletedFolder))
            items.push_back({kind, QString::fromStdString(name)});
    }
    return items;
}

void restoreItem(const StoreFolders& store, const DeletedItem& item) {
    const fs::path folder = folderOf(store, item.kind);
    for (const std::string& name : itemNames(folder)) {
        if (QString::fromStdString(name).compare(item.name, Qt::CaseInsensitive) == 0)
            throw std::runtime_error("There is a " + wordsFor(item.kind).toLower().toStdString() +
                                     " named " + name + " already; nothing was restored.");
    }
    const std::string file = item.name.toStdString() + ".vla";
    std::error_code failure;
    fs::rename(folder / kDeletedFolder / file, folder / file, failure);
    if (failure)
        throw std::runtime_error(item.name.toStdString() +
                                 " can't be restored: " + failure.message() + ".");
}

QString wordsFor(DeletedItem::Kind kind) {
    return kind == DeletedItem::Kind::Session
               ? QCoreApplication::translate("DeletedItems", "Session")
               : QCoreApplication::translate("DeletedItems", "Part format");
}

}  // namespace host
