// The one walk that writes the sessions of a store anew.
#pragma once

#include <string>
#include <vector>

#include "platform/files/file_system.h"
#include "store/item_names.h"
#include "wynconfig/dataset.h"

namespace wynconfig {

/// Goes through all sessions of a folder and writes those anew that it is told to. All files are
/// written with one flush of the disk, each wholly old or wholly new at any moment.
///
/// One record object serves the whole walk: where the guard lets the walk go on behind a load that
/// failed, it holds what it held before.
/// @param folder  the session folder, with its trailing separator
/// @param guard   runs each statement that may fail; what it raises ends the walk, and no file is
///                changed
/// @param change  is given a session's file and record; returns whether the record is to be written
template <class Guard, class Change>
void rewriteSessions(const std::string& folder, Guard&& guard, Change&& change) {
    std::vector<std::string> names;
    guard([&] { names = listItemNames(folder); });
    if (names.empty()) return;
    SaveBatch batch(fileSystem());
    Dataset record;
    for (const std::string& name : names) {
        const ItemPath file = ItemPath::item(folder, name);
        guard([&] { record.Load(file, 0); });
        if (change(file, record)) guard([&] { record.Save(file); });
    }
    guard([&] { batch.commit(); });
}

}  // namespace wynconfig
