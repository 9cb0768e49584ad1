// The one walk that writes the sessions of a store anew.
#pragma once

#include <string>
#include <vector>

#include "platform/files/file_system.h"
#include "platform/forms/working.h"
#include "store/item_names.h"
#include "wynconfig/dataset.h"

namespace wynconfig {

/// Loads a session of a walk.
/// @return false for one that somebody deleted since it was listed: it is no more to be written,
/// and no failure, unless the whole folder is gone.
inline bool loadListed(Dataset& record, const ItemPath& file) {
    try {
        record.Load(file, 0);
        return true;
    } catch (const Error& error) {
        if (error.number() != errc::FileNotFound || !fileSystem().folderExists(file.folder)) throw;
        return false;
    }
}

/// Loads sessions one after the other and hands each on.
/// @param files   the session files
/// @param record  serves all of them: where the guard lets the walk go on behind a load that
///                failed, it holds what it held before
/// @param guard   runs each statement that may fail; what it raises ends the walk
/// @param change  is given a session's file and record, and saves it if it is to be written
template <class Guard, class Change>
void walkSessions(const std::vector<ItemPath>& files, Dataset& record, Guard&& guard,
                  Change&& change) {
    for (const ItemPath& file : files) {
        bool isThere = true;
        guard([&] { isThere = loadListed(record, file); });
        if (isThere) change(file, record);
    }
}

/// The files of all sessions of a folder.
/// @param folder  the session folder, with its trailing separator
inline std::vector<ItemPath> sessionFiles(const std::string& folder) {
    std::vector<ItemPath> files;
    for (const std::string& name : listItemNames(folder))
        files.push_back(ItemPath::item(folder, name));
    return files;
}

/// Goes through all sessions of a folder and writes them anew: all files with one flush of the
/// disk, each wholly old or wholly new at any moment. What another program saved meanwhile is
/// loaded and changed once more before it is replaced, and what it deleted stays deleted.
/// @param guard, change  as for `walkSessions`
/// @param updating, saving  tell a person who waits what is being done
template <class Guard, class Change>
void rewriteSessions(const std::string& folder, Guard&& guard, Change&& change,
                     Working::Wording updating = nullptr, Working::Wording saving = nullptr) {
    const Working wait;
    std::vector<ItemPath> files;
    guard([&] { files = sessionFiles(folder); });
    if (files.empty()) return;
    SaveBatch batch(fileSystem());
    Dataset record;
    const auto walk = [&](const std::vector<ItemPath>& some) {
        Working work(updating, some.size());
        walkSessions(some, record, guard, [&](const ItemPath& file, Dataset& session) {
            change(file, session);
            work.step();
        });
    };
    walk(files);
    Working work(saving, files.size());
    guard([&] { batch.commit(walk, [&] { work.step(); }); });
}

}  // namespace wynconfig
