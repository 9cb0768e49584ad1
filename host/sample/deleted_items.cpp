// Looking into the `deleted` folders, and moving files out of them.
#include "sample/deleted_items.h"

#include <QCoreApplication>
#include <stdexcept>

#include "database/names.h"

namespace host {

namespace fs = std::filesystem;

namespace {

constexpr const char* kDeletedFolder = "deleted";

fs::path folderOf(const StoreFolders& store, DeletedItem::Kind kind) {
    return kind == DeletedItem::Kind::Session ? store.sessions() : store.formats();
}

/// The item file of an upper-cased name, as it is spelt on disk, or as it would be.
fs::path fileOf(const fs::path& folder, const std::string& name) {
    for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
        if (upperName(entry.path().stem().string()) == name) return entry.path();
    }
    return folder / (name + ".vla");
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
    const std::string name = upperName(item.name.toStdString());
    if (const fs::path there = fileOf(folder, name); fs::exists(there))
        throw std::runtime_error("There is a " + wordsFor(item.kind).toLower().toStdString() +
                                 " named " + there.stem().string() +
                                 " already; nothing was restored.");
    const fs::path file = fileOf(folder / kDeletedFolder, name);
    std::error_code failure;
    fs::rename(file, folder / file.filename(), failure);
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
